#include "ConditionsFile.h"
#include "EmbeddedCore/EmbeddedCore.h"
#include "inspector/ConfigurationJson.h"

#include <QImage>
#include <QtTest>

using namespace ZelCore;

namespace {

const char flowText[] = R"({"name": "test", "modules": [
    {"id": 1, "name": "Measure", "kind": "Measure", "outputs": [
        {"name": "a", "type": "float", "column": "a"}, {"name": "b", "type": "float", "column": "b"},
        {"name": "count", "type": "int", "column": "count"}]},
    {"id": 3, "name": "Check", "kind": "If", "outputs": [{"name": "out", "type": "float"}]}]})";

QByteArray conditionsText(const QByteArray& mode, const QByteArray& conditions)
{
    return R"({"version": 1, "mode": ")" + mode + R"(", "conditions": [)" + conditions + "]}";
}

} // namespace

/// The workbench as a command, without a display, in a folder of its own.
class tst_workbench : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(display);
        }
        environment.insert("XDG_CONFIG_HOME", m_folder.path());
        environment.insert("XDG_DATA_HOME", m_folder.path());
        m_process.setProcessEnvironment(environment);
        m_process.setWorkingDirectory(m_folder.path());
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        fileOf("flow.json", flowText);
        m_process.setStandardInputFile(fileOf("broken.csv", "a\n1\n2,3\n"));
    }
    void commandLines();
    void importAndExport();

private:
    // Returns the exit code; the output is in m_output.
    int run(const QString& options)
    {
        m_process.start(IF_WORKBENCH_FILE, options.split(' ', Qt::SkipEmptyParts));
        const int code = m_process.waitForFinished() ? m_process.exitCode() : -1;
        m_output = m_process.readAll();
        return code;
    }
    QString fileOf(const QString& name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) >= 0 ? file.fileName() : QString();
    }

    QTemporaryDir m_folder;
    QProcess m_process;
    QByteArray m_output;
};

// The options, run in this order, the exit code, and texts that the output contains.
void tst_workbench::commandLines()
{
    fileOf("two.json", R"({"name": "x", "modules": [
        {"id": 4, "name": "first", "kind": "If"}, {"id": 6, "name": "second", "kind": "If"}]})");
    fileOf("conditions.json",
           conditionsText("all", R"({"name": "float0", "input": "1.a", "minimum": 1, "maximum": 5})"));
    fileOf("good.csv", "a\n1\n");
    fileOf("mixed.csv", "a\n9\n4\n");
    fileOf("text.csv", "text\n");
    QVERIFY(QDir(m_folder.path()).mkdir("other"));
    fileOf("other/flow.json", flowText);
    QVERIFY(QFile::link("flow.json", m_folder.filePath("link.json")));
    QString error;
    const auto owner = EmbeddedCore::open(Flow::load(m_folder.filePath("flow.json"), &error).value(),
                                          m_folder.filePath("used.sqlite"), &error);

    const QString picture = " --screenshot picture.png";
    const QString judge = "--flow flow.json --conditions conditions.json ";
    const std::tuple<QString, int, QStringList> rows[] = {
        {"-h", 0, {"Exit codes", "--conditions"}},
        {"--version", 0, {"if-workbench 0."}},
        {"--wrong", 2, {"wrong", "--help"}},
        {"file.json", 2, {"file.json", "--help"}},
        {"--module seven", 2, {"seven"}},
        {"--fault when=0", 2, {"when=0", "next, every"}},
        {"--fault kind=Nothing", 2, {"kind=Nothing", "SetBinaryData"}},
        {"--fault answer=Success", 2, {"answer=Success", "NothingChanged"}},
        {"--fault what=ever", 2, {"what=ever", "parts"}},
        {"--screenshot picture.txt", 2, {"picture.txt", ".png"}},
        {"--run=", 2, {"--run", "name"}},
        {"--run a.csv --dump", 2, {"--run", "--dump"}},
        {"--summary", 2, {"--summary", "--run"}},
        {"--dump --conditions a.json --store a.sqlite", 2, {"--conditions", "--store"}},
        {"--dump --flow two.json", 2, {"two.json", "(first)", "(second)", "--module"}},
        {"--dump --module 1", 2, {"Module 1 is no If module"}},
        {"", 1, {"no display"}},
        {"--module 8" + picture, 1, {"nuclei.json", "8"}},
        {"--flow missing.json" + picture, 1, {"missing.json"}},
        {"--plugin text.csv" + picture, 1, {"text.csv"}},
        {"--plugin " OTHER_LIBRARY_FILE + picture, 1, {"CreateModuParamConfigInstance"}},
        {"--store missing/store" + picture, 1, {"missing/store"}},
        {"--store missing/store --dump", 1, {"no such store: missing/store"}},
        {"--screenshot missing/picture.png", 1, {"missing/picture.png"}},
        // The first start of the sample has made its store.
        {"--dump", 0, {"%float0%:6.000:15.500:radius;"}},
        {picture, 0, {"QueryIfModuleInfo IFText data=%float0%:6.000:15.500:radius;"}},
        {"--fault answer=Exception,message=gone --screenshot fault.png", 0, {"gone"}},
        {"--run " SAMPLES_FILE " --summary", 0, {"569 rows, 322 OK, 247 not OK"}},
        // Each flow file has its own store, under whatever path it is opened.
        {"--flow flow.json --import conditions.json", 0, {}},
        {"--flow link.json --export -", 0, {"1.a"}},
        {"--flow other/flow.json --export -", 1, {"no such store"}},
        // Only one program edits a store; others may read it.
        {"--flow flow.json --store used.sqlite --dump", 0, {"binaryData"}},
        {"--flow flow.json --store used.sqlite --run good.csv", 0, {"1 rows, 1 OK"}},
        {"--flow flow.json --store used.sqlite --import conditions.json", 1, {"used.sqlite is in use"}},
        {"--flow flow.json --store used.sqlite" + picture, 1, {"used.sqlite is in use"}},
        {judge + "--run good.csv --fail-on-not-ok", 0, {"2,OK,1,1,5,in\n1 rows, 1 OK"}},
        {judge + "--run good.csv mixed.csv --summary", 0, {"3 rows, 2 OK, 1 not OK"}},
        {judge + "--run mixed.csv --summary --fail-on-not-ok", 3, {"2 rows, 1 OK, 1 not OK"}},
        {judge + "--run - --summary", 1, {"standard input: line 3: 2 fields"}},
        {judge + "--run good.csv text.csv", 1, {"text.csv: line 1: the header differs"}},
        {judge + "--run text.csv", 1, {"text.csv: line 1: there is no column a"}},
        {judge + "--sql --table my\"table", 0, {"FROM \"my\"\"table\"", "COUNT(CASE WHEN"}},
    };
    for (const auto& [options, code, texts] : rows) {
        QVERIFY2(run(options) == code, qPrintable(options + ": " + m_output));
        for (const QString& text : texts) {
            QVERIFY2(m_output.contains(text.toUtf8()), qPrintable(options + ": " + m_output));
        }
    }
    QCOMPARE(QImage(m_folder.filePath("picture.png")).size(), QSize(1400, 860));

    m_process.setStandardOutputFile("/dev/full");
    QCOMPARE(run("--help"), 1);
    m_process.setStandardOutputFile({});
}

// An import stores what the file has, and an export writes what the store has.
void tst_workbench::importAndExport()
{
    const QByteArray text = R"({
    "version": 1,
    "mode": "any",
    "conditions": [
        {"name": "float10", "note": "孔 \"1\"", "input": "1.a", "minimum": -0.125, "maximum": {"constant": 2, "source": "1.b"}},
        {"name": "int0", "note": "", "input": "", "minimum": {"constant": 3, "source": ""}, "maximum": 999999999}
    ]
}
)";
    const QString own = "--flow flow.json --store own.sqlite ";
    fileOf("first.json", text);
    QCOMPARE(run(own + "--import first.json"), 0);
    QCOMPARE(run(own + "--export -"), 0);
    QCOMPARE(m_output, text);
    QCOMPARE(run(own + "--export exported.json"), 0);
    QCOMPARE(run(own + "--dump"), 0);
    const QByteArray stored = m_output;
    QCOMPARE(run("--flow flow.json --conditions exported.json --dump"), 0);
    QCOMPARE(m_output, stored);
    QJsonDocument module = QJsonDocument::fromJson(stored);
    QCOMPARE(module["binaryData"]["IFText"].toString(),
             QString("%float10%:-0.125:2.000:孔 \"1\";%int0%:3:999999999:;"));
    QCOMPARE(module["runParameters"]["LogicalMode"].toString(), QString("2"));
    QCOMPARE(module["uiData"]["@%float10%End"].toString(), QString("True").append(QChar(0)));
    QCOMPARE(module["ios"].toArray().size(), 8);
    QCOMPARE(module["ios"][0]["flags"]["can_subscribe"], QJsonValue(false));

    // An import replaces all that was there, or what is wrong is reported and nothing changes.
    fileOf("import.json",
           conditionsText("all", R"({"name": "int3", "input": "1.count", "minimum": 1, "maximum": 2})"));
    QCOMPARE(run(own + "--import import.json"), 0);
    QCOMPARE(run(own + "--dump"), 0);
    const QByteArray before = m_output;
    module = QJsonDocument::fromJson(before);
    QCOMPARE(module["binaryData"]["IFText"].toString(), QString("%int3%:1:2:;"));
    QVERIFY(module["uiData"].toObject().isEmpty() && module["bindings"].toArray().size() == 1);
    const auto second = [](const char* condition) {
        return conditionsText("any", R"({"name": "int0", "minimum": 0, "maximum": 1}, {)" +
                                         QByteArray(condition) + '}');
    };
    const std::pair<QByteArray, QByteArrayList> refused[] = {
        {R"({"version": 2, "mode": "all", "conditions": []})", {"version"}},
        {R"({"version": 1, "mode": "1", "conditions": []})", {"mode"}},
        {R"({"version": 1, "mode": "all"})", {"conditions"}},
        {"[]", {"object"}},
        {"{", {"line 1, column"}},
        {second(R"("name": "int1", "minimum": 0, "maximum": 1.5)"), {"[1].maximum"}},
        {second(R"("name": "float1", "minimum": 0.0005, "maximum": 1)"), {"[1].minimum"}},
        {second(R"("name": "int1", "minimum": 0, "maximum": 1000000000)"), {"[1].maximum"}},
        {second(R"("name": "float1", "minimum": 0, "maximum": 100000.001)"), {"[1].maximum", "100000"}},
        {second(R"("name": "int1", "minimum": 0)"), {"[1].maximum"}},
        {second(R"("name": "int1", "minimum": 0, "maximum": 1, "colour": 1)"), {"[1]", "colour"}},
        {second(R"("name": "int0", "minimum": 0, "maximum": 1)"), {"[1].name", "twice"}},
        {second(R"("name": "bool1", "minimum": 0, "maximum": 1)"), {"[1].name"}},
        {second(R"("name": "int1", "note": "a;b", "minimum": 0, "maximum": 1)"), {"[1].note"}},
        {second(R"("name": "int1", "input": "1.a", "minimum": 0, "maximum": 1)"), {"1.a", "float", "int"}},
        {second(R"("name": "float1", "input": "1.gone", "minimum": 0, "maximum": 1)"), {"1.gone"}},
        {second(R"("name": "float1", "minimum": {"constant": 0, "source": "3.out"}, "maximum": 1)"),
         {"3.out"}},
    };
    for (const auto& [content, texts] : refused) {
        fileOf("import.json", content);
        QVERIFY2(run(own + "--import import.json") == 1 && m_output.contains("import.json: "),
                 content + m_output);
        for (const QByteArray& expected : texts) {
            QVERIFY2(m_output.contains(expected), content + m_output);
        }
    }
    QCOMPARE(run(own + "--dump"), 0);
    QCOMPARE(m_output, before);

    // A change that the core refuses half-way is taken back.
    QString error;
    const auto core = EmbeddedCore::open(Flow::load(m_folder.filePath("flow.json"), &error).value(),
                                         m_folder.filePath("own.sqlite"), &error);
    QVERIFY2(core, qPrintable(error));
    auto changed = *core->configuration(3, &error);
    changed.bindings = {{{3, SUBSCRIBE_TYPE_RUNPARAM, "%int3%End"}, "1.count", {}, {}, {}},
                        {{3, SUBSCRIBE_TYPE_IO, "%int3%"}, "1.gone", {}, {}, {}}};
    QVERIFY(!ConditionsFile::apply(changed, *core, 3, &error));
    QVERIFY2(error.contains("1.gone"), qPrintable(error));
    QCOMPARE(QJsonDocument(ConfigurationJson::of(*core->configuration(3, &error))).toJson(), before);
}

QTEST_GUILESS_MAIN(tst_workbench)
#include "tst_workbench.moc"
