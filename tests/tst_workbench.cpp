#include "ConditionsFile.h"
#include "EmbeddedCore/EmbeddedCore.h"
#include "WorkbenchOptions.h"
#include "inspector/ConfigurationJson.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QtTest>

using namespace ZelCore;

/// The workbench as a command: what it answers to its options, without a display.
class tst_workbench : public QObject
{
    Q_OBJECT

private slots:
    void errors();
    void helpAndVersion();
    void defaultStores();
    void picture();
    void runAndDump();
    void tables();
    void importAndExport();
    void refusedImports();
    void allOrNothing();
    void sql_data();
    void sql();
    void storeInUse();

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
        const bool needsStore =
            !options.contains("--store") && !(options.contains("--conditions") && options.contains("--flow"));
        const QStringList stored = {"--store", m_folder.filePath("store.sqlite")};
        m_process.start(IF_WORKBENCH_FILE, needsStore ? options + stored : options);
    }
    // Its exit code.
    int run(const QStringList& options, const QString& platform = {})
    {
        start(options, platform);
        return m_process.waitForFinished() ? m_process.exitCode() : -1;
    }
    QString inStore(const char* statement, const QString& store = "store.sqlite")
    {
        auto database = QSqlDatabase::addDatabase("QSQLITE");
        database.setDatabaseName(m_folder.filePath(store));
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

namespace {

const char flowText[] = R"({"name": "test", "modules": [
    {"id": 1, "name": "Measure", "kind": "Measure", "outputs": [
        {"name": "a", "type": "float", "column": "a"}, {"name": "b", "type": "float", "column": "b \"c\""},
        {"name": "count", "type": "int", "column": "count"}, {"name": "constant", "type": "float", "value": 0.25}]},
    {"id": 3, "name": "Check", "kind": "If", "outputs": [{"name": "out", "type": "float"}]}]})";

QByteArray conditionsText(const QByteArray& mode, const QByteArray& conditions)
{
    return R"({"version": 1, "mode": ")" + mode + R"(", "conditions": [)" + conditions + "]}";
}

} // namespace

// The exit code and the words that the message has.
void tst_workbench::errors()
{
    const QString missing = m_folder.filePath("missing/file");
    const QString flow = fileOf("two.json", R"({"name": "x", "modules": [
        {"id": 4, "name": "first", "kind": "If"}, {"id": 6, "name": "second", "kind": "If"}]})");
    const std::tuple<QStringList, int, QString> rows[] = {
        {{"--wrong"}, 2, "wrong --help"},
        {{"file.json"}, 2, "file.json --help"},
        {{"--module", "seven"}, 2, "seven"},
        {{"--fault", "when=never"}, 2, "when=never"},
        {{"--screenshot", "picture.txt"}, 2, "picture.txt .png"},
        {{"--run", ""}, 2, "--run name"},
        {{"--run", "a.csv", "--dump"}, 2, "--run --dump"},
        {{"--summary"}, 2, "--summary --run"},
        {{"--dump", "--conditions", "a.json"}, 2, "--conditions --store"}, // the test gives a store
        {{"--dump", "--flow", flow}, 2, "two.json (first) (second) --module"},
        {{"--dump", "--module", "1"}, 2, "1"},
        {{"--module", "8"}, 1, "nuclei.json 8"},
        {{"--flow", missing}, 1, missing},
        {{"--flow", fileOf("bad.json", R"({"name": "x", "modules": [{"id": 0}]})")},
         1,
         "bad.json modules[0].id"},
        {{"--plugin", fileOf("noplugin.so", "text")}, 1, "noplugin.so"},
        {{"--plugin", OTHER_LIBRARY_FILE}, 1, "CreateModuParamConfigInstance"},
        {{"--store", missing}, 1, missing},
        {{"--store", missing, "--dump"}, 1, "no such store: " + missing},
        {{"--store", fileOf("damaged.sqlite", QByteArray(5000, 'x'))}, 1, "damaged.sqlite"},
        {{"--screenshot", missing + ".png"}, 1, missing + ".png"},
        {{}, 1, "no display"},
    };
    for (const auto& [options, code, words] : rows) {
        QCOMPARE(options.join(' ') + QString::number(run(options, options.isEmpty() ? "" : "offscreen")),
                 options.join(' ') + QString::number(code));
        const QString message = m_process.readAllStandardError();
        for (const QString& word : words.split(' ')) {
            QVERIFY2(message.contains(word), qPrintable(options.join(' ') + ": " + message));
        }
    }
}

void tst_workbench::helpAndVersion()
{
    for (const char* const option : {"-h", "--help", "--version"}) {
        QCOMPARE(run({option}), 0);
        QVERIFY(m_process.readAllStandardOutput().contains("if-workbench"));
    }
    m_process.setStandardOutputFile("/dev/full");
    QCOMPARE(run({"--help"}), 1);
    m_process.setStandardOutputFile({});
}

// Each flow file has its own, under whatever path it is opened.
void tst_workbench::defaultStores()
{
    WorkbenchOptions options;
    QString error;
    QVERIFY(options.parse({"if-workbench", "--dump"}, &error));
    const QString flow = fileOf("same.json", flowText);
    QVERIFY(QDir(m_folder.path()).mkdir("other"));
    QVERIFY(options.storeFile(flow, "test") !=
            options.storeFile(fileOf("other/same.json", flowText), "test"));
    QVERIFY(QFile::link(flow, m_folder.filePath("link.json")));
    QCOMPARE(options.storeFile(m_folder.filePath("link.json"), "test"), options.storeFile(flow, "test"));
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

// Several files, standard input, totals only, and whether all rows are OK.
void tst_workbench::tables()
{
    const QString flow = fileOf("flow.json", flowText);
    const QString conditions =
        fileOf("conditions.json",
               conditionsText("all", R"({"name": "float0", "input": "1.a", "minimum": 1, "maximum": 5})"));
    const QString good = fileOf("good.csv", "a\n1\n");
    const QString mixed = fileOf("mixed.csv", "a\n9\n4\n");
    const auto summary = [&](const QStringList& options) {
        const int code = run(QStringList{"--flow", flow, "--conditions", conditions, "--summary"} + options);
        return QString::number(code) + ' ' + m_process.readAllStandardOutput().split('\n').first();
    };
    QCOMPARE(summary({"--run", good, mixed}), QString("0 3 rows, 2 OK, 1 not OK, pass rate 66.7 %"));
    QCOMPARE(summary({"--run", mixed, "--fail-on-not-ok"}),
             QString("3 2 rows, 1 OK, 1 not OK, pass rate 50.0 %"));
    m_process.setStandardInputFile(good);
    QCOMPARE(summary({"--run", "-", "--fail-on-not-ok"}),
             QString("0 1 rows, 1 OK, 0 not OK, pass rate 100.0 %"));
    m_process.setStandardInputFile(fileOf("broken.csv", "a\n1,2\n"));
    QCOMPARE(summary({"--run", "-"}), QString("1 "));
    QVERIFY(m_process.readAllStandardError().contains("standard input: line 2"));
    m_process.setStandardInputFile(QProcess::nullDevice());
}

// What a file has is what the store has then, and the other way round.
void tst_workbench::importAndExport()
{
    const QString flow = fileOf("flow.json", flowText);
    const QStringList common = {"--flow", flow, "--store", m_folder.filePath("imported.sqlite")};
    const QByteArray text = R"({
    "version": 1,
    "mode": "any",
    "conditions": [
        {"name": "float10", "note": "孔 \"1\"", "input": "1.a", "minimum": -0.125, "maximum": {"constant": 2, "source": "1.b"}},
        {"name": "int0", "note": "", "input": "", "minimum": {"constant": 3, "source": ""}, "maximum": 999999999}
    ]
}
)";
    QCOMPARE(run(common + QStringList{"--import", fileOf("first.json", text)}), 0);
    QCOMPARE(run(common + QStringList{"--export", "-"}), 0);
    QCOMPARE(m_process.readAllStandardOutput(), text);

    QCOMPARE(run(common + QStringList{"--dump"}), 0);
    const QByteArray fromStore = m_process.readAllStandardOutput();
    QCOMPARE(run({"--flow", flow, "--conditions", m_folder.filePath("first.json"), "--dump"}), 0);
    QCOMPARE(m_process.readAllStandardOutput(), fromStore);
    const QJsonDocument module = QJsonDocument::fromJson(fromStore);
    QCOMPARE(module["binaryData"]["IFText"].toString(),
             QString("%float10%:-0.125:2.000:孔 \"1\";%int0%:3:999999999:;"));
    QCOMPARE(module["runParameters"]["LogicalMode"].toString(), QString("2"));
    QCOMPARE(module["uiData"]["@%float10%End"].toString(), QString("True").append(QChar(0)));
    QCOMPARE(module["ios"].toArray().size(), 8);
    QCOMPARE(module["ios"][0]["flags"]["can_subscribe"], QJsonValue(false));

    QCOMPARE(
        run(common +
            QStringList{
                "--import",
                fileOf("second.json",
                       conditionsText(
                           "all", R"({"name": "int3", "input": "1.count", "minimum": 1, "maximum": 2})"))}),
        0);
    QCOMPARE(inStore("SELECT group_concat(target_key) FROM binding", "imported.sqlite"), QString("%int3%"));
    QCOMPARE(inStore("SELECT count(*) FROM ui_data", "imported.sqlite"), QString("0"));
    QCOMPARE(inStore("SELECT value FROM binary_parameter", "imported.sqlite"), QString("%int3%:1:2:;"));
}

// Nothing changes then.
void tst_workbench::refusedImports()
{
    const QStringList common = {"--flow", fileOf("flow.json", flowText), "--store",
                                m_folder.filePath("imported.sqlite")};
    const auto all = [&] {
        return run(common + QStringList{"--dump"}) == 0 ? m_process.readAllStandardOutput() : "";
    };
    const QByteArray before = all();
    const std::pair<QByteArray, const char*> conditions[] = {
        {R"("name": "int1", "minimum": 0, "maximum": 1.5)", "conditions[1].maximum"},
        {R"("name": "float1", "minimum": 0.0005, "maximum": 1)", "conditions[1].minimum"},
        {R"("name": "int1", "minimum": 0, "maximum": 1000000000)", "conditions[1].maximum"},
        {R"("name": "int1", "minimum": 0)", "conditions[1].maximum"},
        {R"("name": "int1", "minimum": 0, "maximum": 1, "colour": 1)", "conditions[1] colour"},
        {R"("name": "int0", "minimum": 0, "maximum": 1)", "conditions[1].name twice"},
        {R"("name": "bool1", "minimum": 0, "maximum": 1)", "conditions[1].name"},
        {R"("name": "int1", "note": "a;b", "minimum": 0, "maximum": 1)", "conditions[1].note"},
        {R"("name": "int1", "input": "1.a", "minimum": 0, "maximum": 1)", "1.a float int"},
        {R"("name": "float1", "input": "1.gone", "minimum": 0, "maximum": 1)", "1.gone"},
        {R"("name": "float1", "minimum": {"constant": 0, "source": "3.out"}, "maximum": 1)", "3.out"},
    };
    for (const auto& [condition, words] : conditions) {
        const QByteArray text =
            conditionsText("any", R"({"name": "int0", "minimum": 0, "maximum": 1}, {)" + condition + '}');
        QCOMPARE(run(common + QStringList{"--import", fileOf("refused.json", text)}), 1);
        const QString message = m_process.readAllStandardError();
        for (const QString& word : QString(words).split(' ')) {
            QVERIFY2(message.contains(word) && message.contains("refused.json"),
                     condition + qPrintable(message));
        }
        QCOMPARE(all(), before);
    }
    for (const char* const text : {R"({"version": 2, "mode": "all", "conditions": []})",
                                   R"({"version": 1, "mode": "1", "conditions": []})",
                                   R"({"version": 1, "mode": "all"})", "[]", "{", ""}) {
        QCOMPARE(run(common + QStringList{"--import", fileOf("refused.json", text)}), 1);
    }
    QCOMPARE(all(), before);
}

// A change that the core refuses half-way is taken back.
void tst_workbench::allOrNothing()
{
    QString error;
    const auto flow = Flow::load(fileOf("flow.json", flowText), &error);
    QVERIFY(flow);
    const auto core = EmbeddedCore::open(*flow, m_folder.filePath("applied.sqlite"), &error);
    QVERIFY2(core, qPrintable(error));
    const QString file = fileOf(
        "first.json",
        conditionsText(
            "any",
            R"({"name": "float0", "input": "1.a", "minimum": 1, "maximum": {"constant": 2, "source": "1.a"}})"));
    QVERIFY2(ConditionsFile::import(file, *core, 3, &error), qPrintable(error));
    auto target = *core->configuration(3, &error);
    const QJsonObject before = ConfigurationJson::of(target);
    target.bindings = {ModuleBinding{{3, SUBSCRIBE_TYPE_IO, "%float0%"}, "1.gone", {}, {}, {}}};
    QVERIFY(!ConditionsFile::apply(target, *core, 3, &error));
    QVERIFY2(error.contains("1.gone"), qPrintable(error));
    QCOMPARE(ConfigurationJson::of(*core->configuration(3, &error)), before);
}

void tst_workbench::sql_data()
{
    QTest::addColumn<QString>("flow");
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QByteArray>("conditions");
    QFile sample(SAMPLES_FILE);
    QVERIFY(sample.open(QIODevice::ReadOnly));
    QTest::newRow("sample")
        << QString(SAMPLE_FLOW_FILE) << sample.readAll().trimmed()
        << QByteArray(R"({"name": "float0", "input": "5.Mean.Radius", "minimum": 10, "maximum": 17.99},
           {"name": "float1", "input": "5.Mean.Texture", "minimum": 15, "maximum": {"constant": 0, "source": "5.Mean.Perimeter"}})");
    const QByteArray table =
        "a,b \"c\",count\n0.1,0,0\n0.3,0.3,1\n0.30000000000000004,,-1\n,1,\n1e300,-1e300,2\n-0,0,-1\n"
        "1,1,1\n5e-324,1,1\n0.1,-123456.789,\n999999999,999999999,0\n0.09999999999999999,0,0";
    for (const auto& [name, conditions] :
         {std::pair("none", ""),
          {"constant bounds", R"({"name": "float0", "input": "1.a", "minimum": 0.1, "maximum": 0.3},
                 {"name": "int1", "input": "1.count", "minimum": -1, "maximum": 1},
                 {"name": "float2", "input": "1.b", "minimum": -123456.789, "maximum": 999999999})"},
          {"swapped bounds", R"({"name": "float0", "input": "1.a", "minimum": 1, "maximum": 0})"},
          {"subscribed bounds",
           R"({"name": "float0", "input": "1.a", "minimum": {"constant": 5, "source": "1.b"}, "maximum": 1},
                 {"name": "float1", "input": "1.constant", "minimum": -1, "maximum": {"constant": 0, "source": "1.a"}})"},
          {"no value", R"({"name": "float0", "minimum": 0, "maximum": 1},
                 {"name": "float1", "input": "1.a", "minimum": 0, "maximum": 1},
                 {"name": "float2", "input": "1.a", "minimum": {"constant": 1, "source": ""}, "maximum": 1})"}}) {
        QTest::newRow(name) << fileOf("flow.json", flowText) << table << QByteArray(conditions);
    }
}

// Every row is judged alike by the queries, which SQLite runs here, and by --run.
void tst_workbench::sql()
{
    QFETCH(QString, flow);
    QFETCH(QByteArray, table);
    QFETCH(QByteArray, conditions);
    const auto quoted = [](QString name) { return '"' + name.replace('"', "\"\"") + '"'; };
    const QStringList lines = QString(table).split('\n');
    QStringList columns;
    for (const QString& column : lines.first().split(',')) {
        columns << quoted(column);
    }
    auto database = QSqlDatabase::addDatabase("QSQLITE", "table");
    database.setDatabaseName(":memory:");
    QVERIFY(database.open());
    QSqlQuery query(database);
    QVERIFY(query.exec(R"(CREATE TABLE "a table" ()" + columns.join(" REAL, ") + " REAL)"));
    for (const QString& line : lines.mid(1)) {
        QStringList fields = line.split(',');
        fields.replaceInStrings(QRegularExpression("^$"), "NULL");
        QVERIFY(query.exec(R"(INSERT INTO "a table" VALUES ()" + fields.join(',') + ')'));
    }
    const QString csv =
        fileOf("table.csv", (QStringList(columns.join(',')) + lines.mid(1)).join('\n').toUtf8());
    for (const char* const mode : {"all", "any"}) {
        const QStringList common = {"--flow", flow, "--conditions",
                                    fileOf("conditions.json", conditionsText(mode, conditions))};
        QCOMPARE(run(common + QStringList{"--run", csv}), 0);
        QStringList expected;
        QMap<QString, int> totals = {{"rows", lines.size() - 1}};
        const auto results = QString(m_process.readAllStandardOutput()).trimmed().remove('"').split('\n');
        const QStringList names = results.first().split(',');
        for (const QString& result : results.mid(1)) {
            const QStringList fields = result.split(',');
            expected << fields[1];
            ++totals[fields[1]];
            for (int i = 5; i < fields.size(); i += 4) {
                expected.last() += ',' + fields[i];
                ++totals[names[i] + ' ' + fields[i]];
            }
        }
        QCOMPARE(run(common + QStringList{"--sql", "--table", "a table"}), 0);
        const QStringList queries = QString(m_process.readAllStandardOutput()).split(";\n");
        QStringList judged;
        QVERIFY2(query.exec(queries[0]), qPrintable(queries[0]));
        while (query.next()) {
            judged << query.value("result").toString();
            for (int i = columns.size() + 1; i < query.record().count(); ++i) {
                judged.last() += ',' + query.value(i).toString();
            }
        }
        QCOMPARE(judged, expected);
        QVERIFY2(query.exec(queries[1]) && query.next(), qPrintable(queries[1]));
        for (int i = 0; i < query.record().count(); ++i) {
            const QString name = query.record().fieldName(i);
            QCOMPARE(name + QString::number(query.value(i).toInt()), name + QString::number(totals[name]));
        }
    }
}

// Only one program edits it; others may read it.
void tst_workbench::storeInUse()
{
    start({}, "offscreen");
    QByteArray log;
    QTRY_VERIFY((log += m_process.readAllStandardError()).contains("QueryIfModuleInfo"));
    for (const auto& [options, code] : {std::pair(QStringList("--dump"), 0),
                                        {{"--run", SAMPLES_FILE}, 0},
                                        {{"--import", fileOf("empty.json", conditionsText("all", ""))}, 1}}) {
        QProcess second;
        second.start(IF_WORKBENCH_FILE, options + QStringList{"--store", m_folder.filePath("store.sqlite")});
        QVERIFY(second.waitForFinished());
        QCOMPARE(options.first() + QString::number(second.exitCode()),
                 options.first() + QString::number(code));
        QVERIFY(code == 0 || second.readAllStandardError().contains("store.sqlite"));
    }
    m_process.kill();
    QVERIFY(m_process.waitForFinished());
    QCOMPARE(run({"--screenshot", m_folder.filePath("again.png")}), 0);
}

QTEST_GUILESS_MAIN(tst_workbench)
#include "tst_workbench.moc"
