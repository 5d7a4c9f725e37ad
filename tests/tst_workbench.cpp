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
    void errors();
    void helpAndVersion();
    void picture();
    void runAndDump();
    void oneWorkbenchForAStore();

private:
    // The store of the test's folder, unless the options name another.
    void start(const QStringList& options, const QString& platform = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(display);
        }
        if (!platform.isEmpty()) {
            environment.insert("QT_QPA_PLATFORM", platform);
        }
        environment.insert("XDG_CONFIG_HOME", m_folder.path());
        m_process.setProcessEnvironment(environment);
        const QStringList stored = {"--store", m_folder.filePath("store.sqlite")};
        m_process.start(IF_WORKBENCH_FILE, options.contains("--store") ? options : options + stored);
    }
    // Its exit code.
    int run(const QStringList& options, const QString& platform = {})
    {
        start(options, platform);
        return m_process.waitForFinished() ? m_process.exitCode() : -1;
    }
    QString inStore(const char* statement)
    {
        auto database = QSqlDatabase::addDatabase("QSQLITE");
        database.setDatabaseName(m_folder.filePath("store.sqlite"));
        QSqlQuery query(database.open() ? statement : "", database);
        return query.next() ? query.value(0).toString() : QString();
    }
    QString fileOf(const QString& name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) >= 0 ? file.fileName() : QString();
    }

    QTemporaryDir m_folder;
    QProcess m_process;
};

// The words that the message has.
void tst_workbench::errors()
{
    const std::pair<QStringList, QString> rows[] = {
        {{"--wrong"}, "wrong"},
        {{"file.json"}, "file.json"},
        {{"--module", "seven"}, "seven"},
        {{"--module", "8"}, "nuclei.json 8"},
        {{"--flow", "/nowhere/flow.json"}, "/nowhere/flow.json"},
        {{"--flow", fileOf("bad.json", R"({"name": "x", "modules": [{"id": 0}]})")},
         "bad.json modules[0].id"},
        {{"--plugin", fileOf("noplugin.so", "text")}, "noplugin.so"},
        {{"--plugin", OTHER_LIBRARY_FILE}, "CreateModuParamConfigInstance"},
        {{"--store", "/nowhere/store.sqlite"}, "/nowhere/store.sqlite"},
        {{"--store", fileOf("damaged.sqlite", QByteArray(5000, 'x'))}, "damaged.sqlite"},
        {{"--fault", "when=never"}, "when=never"},
        {{"--run", "/nowhere/samples.csv"}, "/nowhere/samples.csv"},
        {{"--screenshot", "/nowhere/picture.png"}, "/nowhere/picture.png"},
        {{}, "no display"},
    };
    for (const auto& [options, words] : rows) {
        QCOMPARE(run(options, options.isEmpty() ? "" : "offscreen"), 1);
        const QString message = m_process.readAllStandardError();
        for (const QString& word : words.split(' ')) {
            QVERIFY2(message.contains(word), qPrintable(options.join(' ') + ": " + message));
        }
    }
}

void tst_workbench::helpAndVersion()
{
    for (const char* const option : {"--help", "--version"}) {
        QCOMPARE(run({option}), 0);
        QVERIFY(m_process.readAllStandardOutput().contains("if-workbench"));
    }
}

void tst_workbench::picture()
{
    const QString file = m_folder.filePath("picture.png");
    QCOMPARE(run({"--screenshot", file}), 0);
    QCOMPARE(QImage(file).size(), QSize(1400, 860));
    QVERIFY(m_process.readAllStandardError().contains("QueryIfModuleInfo IFText data=0"));
    QCOMPARE(inStore("SELECT group_concat(id) FROM (SELECT id FROM module ORDER BY id)"),
             QString("1,3,5,7,9"));

    // Goes on after an exception.
    QVERIFY(QFile::remove(file));
    QCOMPARE(run({"--fault", "answer=Exception,message=core is gone", "--screenshot", file}), 0);
    QVERIFY(m_process.readAllStandardError().contains("core is gone"));
    QVERIFY(QFile::exists(file));
}

void tst_workbench::runAndDump()
{
    for (const auto& [mode, last] : {std::pair("1", "570,OK"), {"2", "570,not OK"}}) {
        inStore(qPrintable(QString("UPDATE run_parameter SET value = '%1'").arg(mode)));
        QCOMPARE(run({"--run", SAMPLES_FILE, "--module", "7"}), 0);
        const QList<QByteArray> lines = m_process.readAllStandardOutput().trimmed().split('\n');
        QCOMPARE(lines.size(), 570);
        QCOMPARE(lines.last(), QByteArray(last));
        QVERIFY(m_process.readAllStandardError().contains("569 rows"));
    }
    QCOMPARE(run({"--dump"}), 0);
    const QJsonDocument module = QJsonDocument::fromJson(m_process.readAllStandardOutput());
    QCOMPARE(module["binaryData"]["IFText"].toString(), QString("0"));
    QCOMPARE(module["runParameters"]["LogicalMode"].toString(), QString("2"));
}

void tst_workbench::oneWorkbenchForAStore()
{
    start({}, "offscreen");
    QByteArray log;
    QTRY_VERIFY((log += m_process.readAllStandardError()).contains("QueryIfModuleInfo"));
    QProcess second;
    second.start(IF_WORKBENCH_FILE, {"--dump", "--store", m_folder.filePath("store.sqlite")});
    QVERIFY(second.waitForFinished());
    QCOMPARE(second.exitCode(), 1);
    QVERIFY(second.readAllStandardError().contains("store.sqlite"));
    m_process.kill();
    QVERIFY(m_process.waitForFinished());
    QCOMPARE(run({"--screenshot", m_folder.filePath("again.png")}), 0);
}

QTEST_GUILESS_MAIN(tst_workbench)
#include "tst_workbench.moc"
