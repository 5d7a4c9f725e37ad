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
    void runs();
    void importAndExport();
    void allOrNothing();
    void storeInUse();

private:
    // Its exit code. It has the store of the test's folder, unless the options name another.
    int run(QStringList options, const QString& platform = {})
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
        if (!options.contains("--store") &&
            !(options.contains("--conditions") && options.contains("--flow"))) {
            options += {"--store", m_store};
        }
        m_process.start(IF_WORKBENCH_FILE, options);
        return m_process.waitForFinished() ? m_process.exitCode() : -1;
    }
    QString fileOf(const QString& name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) >= 0 ? file.fileName() : QString();
    }

    QTemporaryDir m_folder;
    const QString m_store = m_folder.filePath("store.sqlite");
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
    const QString other = fileOf("other/same.json", flowText);
    QVERIFY(options.storeFile(flow, "test") != options.storeFile(other, "test"));
    QVERIFY(QFile::link(flow, m_folder.filePath("link.json")));
    QCOMPARE(options.storeFile(m_folder.filePath("link.json"), "test"), options.storeFile(flow, "test"));
}

void tst_workbench::picture()
{
    const QString file = m_folder.filePath("picture.png");
    QCOMPARE(run({"--screenshot", file}), 0);
    QCOMPARE(QImage(file).size(), QSize(1400, 860));
    QVERIFY(m_process.readAllStandardError().contains("QueryIfModuleInfo IFText data=0"));

    // Goes on after an exception.
    QVERIFY(QFile::remove(file));
    QCOMPARE(run({"--fault", "answer=Exception,message=core is gone", "--screenshot", file}), 0);
    QVERIFY(m_process.readAllStandardError().contains("core is gone"));
    QVERIFY(QFile::exists(file));
}

// Several files, standard input, totals only, whether all rows are OK, and the judgement as queries.
void tst_workbench::runs()
{
    const QString condition = R"({"name": "float0", "input": "1.a", "minimum": 1, "maximum": 5})";
    const QStringList common = {"--flow", fileOf("flow.json", flowText), "--conditions",
                                fileOf("conditions.json", conditionsText("all", condition.toUtf8()))};
    const QString good = fileOf("good.csv", "a\n1\n");
    const QString mixed = fileOf("mixed.csv", "a\n9\n4\n");
    const std::tuple<QString, QStringList, int, QString> rows[] = {
        {"", {"--run", good, mixed, "--summary"}, 0, "3 rows, 2 OK, 1 not OK"},
        {"", {"--run", mixed, "--summary", "--fail-on-not-ok"}, 3, "2 rows, 1 OK, 1 not OK"},
        {good, {"--run", "-", "--summary", "--fail-on-not-ok"}, 0, "1 rows, 1 OK, 0 not OK"},
        {fileOf("broken.csv", "a\n1,2\n"), {"--run", "-", "--summary"}, 1, "standard input: line 2"},
        {"", {"--run", good}, 0, "2,OK,1,1,5,in\n1 rows, 1 OK"},
        {"", {"--sql", "--table", "my table"}, 0, "FROM \"my table\""},
        {"", {"--sql"}, 0, "COUNT(CASE WHEN"}};
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    for (const auto& [input, options, code, text] : rows) {
        m_process.setStandardInputFile(input.isEmpty() ? QProcess::nullDevice() : input);
        QCOMPARE(run(common + options), code);
        const QString output = m_process.readAllStandardOutput();
        QVERIFY2(output.contains(text), qPrintable(options.join(' ') + ": " + output));
    }
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
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
    const QString exported = m_folder.filePath("exported.json");
    QCOMPARE(run(common + QStringList{"--export", exported}), 0);
    QCOMPARE(run(common + QStringList{"--dump"}), 0);
    const QByteArray fromStore = m_process.readAllStandardOutput();
    QCOMPARE(run({"--flow", flow, "--conditions", exported, "--dump"}), 0);
    QCOMPARE(m_process.readAllStandardOutput(), fromStore);
    const QJsonDocument module = QJsonDocument::fromJson(fromStore);
    QCOMPARE(module["binaryData"]["IFText"].toString(),
             QString("%float10%:-0.125:2.000:孔 \"1\";%int0%:3:999999999:;"));
    QCOMPARE(module["runParameters"]["LogicalMode"].toString(), QString("2"));
    QCOMPARE(module["uiData"]["@%float10%End"].toString(), QString("True").append(QChar(0)));
    QCOMPARE(module["ios"].toArray().size(), 8);
    QCOMPARE(module["ios"][0]["flags"]["can_subscribe"], QJsonValue(false));
}

// An import replaces all that was there, or what is wrong is told and nothing changes.
void tst_workbench::allOrNothing()
{
    QString error;
    const auto flow = Flow::load(fileOf("flow.json", flowText), &error);
    QVERIFY(flow);
    const auto core = EmbeddedCore::open(*flow, m_folder.filePath("applied.sqlite"), &error);
    QVERIFY2(core, qPrintable(error));
    const auto import = [&](const QByteArray& text) {
        return ConditionsFile::import(fileOf("imported.json", text), *core, 3, &error);
    };
    QVERIFY2(import(conditionsText("any", R"({"name": "float0", "input": "1.a", "minimum": 1,
                                              "maximum": {"constant": 2, "source": "1.a"}})")),
             qPrintable(error));
    QVERIFY2(
        import(conditionsText("all", R"({"name": "int3", "input": "1.count", "minimum": 1, "maximum": 2})")),
        qPrintable(error));
    auto stored = *core->configuration(3, &error);
    QVERIFY(stored.bindings.size() == 1 && stored.binding(SUBSCRIBE_TYPE_IO, "%int3%") &&
            stored.uiData.isEmpty());
    QCOMPARE(stored.binaryData["IFText"], "%int3%:1:2:;");
    const QJsonObject before = ConfigurationJson::of(stored);

    QVector<std::pair<QByteArray, QString>> refused = {
        {R"({"version": 2, "mode": "all", "conditions": []})", "version"},
        {R"({"version": 1, "mode": "1", "conditions": []})", "mode"},
        {R"({"version": 1, "mode": "all"})", "conditions"},
        {"[]", "object"},
        {"{", "byte"}};
    for (const auto& [condition, words] : {
             std::pair(R"("name": "int1", "minimum": 0, "maximum": 1.5)", "conditions[1].maximum"),
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
         }) {
        const QByteArray first = R"({"name": "int0", "minimum": 0, "maximum": 1}, {)";
        refused.append({conditionsText("any", first + condition + '}'), words});
    }
    for (const auto& [text, words] : qAsConst(refused)) {
        QVERIFY2(!import(text), text);
        for (const QString& word : words.split(' ')) {
            QVERIFY2(error.contains("imported.json: ") && error.contains(word), text + qPrintable(error));
        }
        QCOMPARE(ConfigurationJson::of(*core->configuration(3, &error)), before);
    }

    // A change that the core refuses half-way is taken back.
    stored.bindings = {{{3, SUBSCRIBE_TYPE_RUNPARAM, "%int3%End"}, "1.count", {}, {}, {}},
                       {{3, SUBSCRIBE_TYPE_IO, "%int3%"}, "1.gone", {}, {}, {}}};
    QVERIFY(!ConditionsFile::apply(stored, *core, 3, &error));
    QVERIFY2(error.contains("1.gone"), qPrintable(error));
    QCOMPARE(ConfigurationJson::of(*core->configuration(3, &error)), before);
}

// Only one program edits it; others may read it.
void tst_workbench::storeInUse()
{
    QString error;
    const auto core = EmbeddedCore::open(Flow::load(SAMPLE_FLOW_FILE, &error).value(), m_store, &error);
    QVERIFY2(core, qPrintable(error));
    const QString conditions = fileOf("empty.json", conditionsText("all", ""));
    QCOMPARE(run({"--dump"}), 0);
    QCOMPARE(run({"--run", SAMPLES_FILE}), 0);
    QVERIFY(m_process.readAllStandardError().startsWith("569 rows, 569 OK"));
    for (const QStringList& edit :
         {QStringList{"--import", conditions}, {"--screenshot", m_folder.filePath("used.png")}}) {
        QCOMPARE(run(edit, "offscreen"), 1);
        QVERIFY(m_process.readAllStandardError().contains("store.sqlite is in use"));
    }
}

QTEST_GUILESS_MAIN(tst_workbench)
#include "tst_workbench.moc"
