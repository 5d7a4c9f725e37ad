#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

/// The workbench as a command: what it answers to its options, without a display.
class tst_workbench : public QObject
{
    Q_OBJECT

private slots:
    void errors_data();
    void errors();
    void needsADisplay();
    void helpAndVersion();
    void picture();
    void goesOnAfterAnException();
    void runAndDump();
    void oneWorkbenchForAStore();

private:
    // The store of the test's folder, unless the options name another.
    QProcess* start(QStringList options, const QString& platform = QStringLiteral("offscreen"))
    {
        if (!options.contains(QStringLiteral("--store"))) {
            options << QStringLiteral("--store") << store();
        }
        auto* const process = new QProcess(this);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        if (!platform.isEmpty()) {
            environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
        }
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.path());
        process->setProcessEnvironment(environment);
        process->start(QStringLiteral(IF_WORKBENCH_FILE), options);
        return process;
    }
    QString store() const { return m_folder.filePath(QStringLiteral("store.sqlite")); }
    QString fileOf(const QString& name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) >= 0 ? file.fileName() : QString();
    }

    QTemporaryDir m_folder;
};

void tst_workbench::errors_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("words"); // of the message
    const QString noFlow = fileOf(QStringLiteral("bad.json"), R"({"name": "x", "modules": [{"id": 0}]})");
    const QString damaged = fileOf(QStringLiteral("damaged.sqlite"), QByteArray(5000, 'x'));
    const QString noPlugin = fileOf(QStringLiteral("noplugin.so"), "text");
    const auto row = [](const char* tag, const QStringList& options, const QStringList& words) {
        QTest::newRow(tag) << options << words;
    };
    row("unknown option", {"--wrong"}, {"wrong"});
    row("argument", {"file.json"}, {"file.json"});
    row("no number", {"--module", "seven"}, {"seven"});
    row("unknown module", {"--module", "8"}, {"nuclei.json", "8"});
    row("no flow file", {"--flow", "/nowhere/flow.json"}, {"/nowhere/flow.json"});
    row("bad flow", {"--flow", noFlow}, {"bad.json", "modules[0].id"});
    row("no plug-in", {"--plugin", noPlugin}, {"noplugin.so"});
    row("plug-in without the symbols", {"--plugin", QStringLiteral(OTHER_LIBRARY_FILE)},
        {"CreateModuParamConfigInstance"});
    row("no folder for the store", {"--store", "/nowhere/store.sqlite"}, {"/nowhere/store.sqlite"});
    row("damaged store", {"--store", damaged}, {"damaged.sqlite"});
    row("bad fault", {"--fault", "when=never"}, {"when=never"});
    row("no samples", {"--run", "/nowhere/samples.csv"}, {"/nowhere/samples.csv"});
    row("picture", {"--screenshot", "/nowhere/picture.png"}, {"/nowhere/picture.png"});
}

void tst_workbench::errors()
{
    QFETCH(QStringList, options);
    QFETCH(QStringList, words);
    QProcess* const workbench = start(options);
    QVERIFY(workbench->waitForFinished());
    const QString message = QString::fromUtf8(workbench->readAllStandardError());
    QCOMPARE(workbench->exitCode(), 1);
    for (const QString& word : qAsConst(words)) {
        QVERIFY2(message.contains(word), qPrintable(message));
    }
}

void tst_workbench::needsADisplay()
{
    QProcess* const workbench = start({}, QString());
    QVERIFY(workbench->waitForFinished());
    QCOMPARE(workbench->exitCode(), 1);
    QVERIFY(workbench->readAllStandardError().contains("no display"));
}

void tst_workbench::helpAndVersion()
{
    for (const char* const option : {"--help", "--version"}) {
        QProcess* const workbench = start({QString::fromLatin1(option)}, QString());
        QVERIFY(workbench->waitForFinished());
        QCOMPARE(workbench->exitCode(), 0);
        QVERIFY(workbench->readAllStandardOutput().contains("if-workbench"));
    }
}

void tst_workbench::picture()
{
    const QString file = m_folder.filePath(QStringLiteral("picture.png"));
    QProcess* const workbench = start({"--screenshot", file}, QString());
    QVERIFY(workbench->waitForFinished());
    QCOMPARE(workbench->exitCode(), 0);
    QCOMPARE(QImage(file).size(), QSize(1400, 860));
    QVERIFY(workbench->readAllStandardError().contains("QueryIfModuleInfo IFText data=0"));

    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(store());
    QVERIFY(database.open());
    QSqlQuery modules(QStringLiteral("SELECT group_concat(id) FROM (SELECT id FROM module ORDER BY id)"));
    QVERIFY(modules.next());
    QCOMPARE(modules.value(0).toString(), QStringLiteral("1,3,5,7,9"));
    database.close();
}

void tst_workbench::goesOnAfterAnException()
{
    const QString file = m_folder.filePath(QStringLiteral("exception.png"));
    QProcess* const workbench =
        start({"--fault", "answer=Exception,message=core is gone", "--screenshot", file});
    QVERIFY(workbench->waitForFinished());
    QCOMPARE(workbench->exitCode(), 0);
    QVERIFY(workbench->readAllStandardError().contains("core is gone"));
    QVERIFY(QFile::exists(file));
}

void tst_workbench::runAndDump()
{
    const QString csv = QStringLiteral(SAMPLES_FILE);
    for (const auto& [mode, result] : {std::pair("1", "OK"), {"2", "not OK"}}) {
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
            database.setDatabaseName(store());
            QVERIFY(database.open());
            QSqlQuery(QStringLiteral("UPDATE run_parameter SET value = '%1'").arg(QLatin1String(mode)));
        }
        QProcess* const run = start({"--run", csv, "--module", "7"}, QString());
        QVERIFY(run->waitForFinished());
        QCOMPARE(run->exitCode(), 0);
        const QList<QByteArray> lines = run->readAllStandardOutput().trimmed().split('\n');
        QCOMPARE(lines.size(), 570);
        QCOMPARE(lines.last(), QByteArray("570,") + result);
        QVERIFY(run->readAllStandardError().contains("569 rows"));
    }
    QProcess* const dump = start({"--dump"}, QString());
    QVERIFY(dump->waitForFinished());
    const QJsonObject module = QJsonDocument::fromJson(dump->readAllStandardOutput()).object();
    QCOMPARE(module["binaryData"].toObject()["IFText"].toString(), QStringLiteral("0"));
    QCOMPARE(module["runParameters"].toObject()["LogicalMode"].toString(), QStringLiteral("2"));
}

void tst_workbench::oneWorkbenchForAStore()
{
    QProcess* const first = start({});
    QByteArray log;
    QTRY_VERIFY((log += first->readAllStandardError()).contains("QueryIfModuleInfo"));
    QProcess* const second = start({});
    QVERIFY(second->waitForFinished());
    QCOMPARE(second->exitCode(), 1);
    QVERIFY(second->readAllStandardError().contains("store.sqlite"));
    first->kill();
    QVERIFY(first->waitForFinished());
    QProcess* const third = start({"--screenshot", m_folder.filePath(QStringLiteral("again.png"))});
    QVERIFY(third->waitForFinished());
    QCOMPARE(third->exitCode(), 0);
}

QTEST_GUILESS_MAIN(tst_workbench)
#include "tst_workbench.moc"
