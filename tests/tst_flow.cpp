#include "EmbeddedCore/SubscribeTree.h"
#include "FlowFile.h"

#include <QtTest>

using namespace ZelCore;

namespace {

const QByteArray sample = R"({"name": "Seals", "modules": [
    {"id": 3, "name": "Camera", "kind": "Camera", "outputs": [{"name": "Gain", "type": "float", "value": 2}]},
    {"id": 9, "name": "斑点", "kind": "Blob", "outputs": [
        {"name": "Count", "type": "int", "value": -2147483648},
        {"name": "Mean", "outputs": [
            {"name": "Radius", "type": "float"},
            {"name": "Code", "type": "string", "value": "A.1"},
            {"name": "Pixels", "outputs": [{"name": "Area", "type": "int"}]}]},
        {"name": "Nothing", "outputs": []}]},
    {"id": 5, "name": "Check", "kind": "If", "outputs": [{"name": "Result", "type": "int"}]},
    {"id": 1, "name": "Late", "kind": "Blob", "outputs": [{"name": "Count", "type": "int"}]}]})";

QByteArray withOutputs(const QByteArray& outputs)
{
    return R"({"name": "f", "modules": [{"id": 1, "name": "m", "kind": "k", "outputs": [)" + outputs + "]}]}";
}

// Groups within groups, one "int" at the bottom.
QByteArray nested(int levels, const QByteArray& name = "n")
{
    const QByteArray head = R"({"name": ")" + name + R"(", )";
    return levels == 1 ? head + R"("type": "int"})"
                       : head + R"("outputs": [)" + nested(levels - 1, name) + "]}";
}

// "9 斑点{Count=9.Count}" for each node.
QString shown(const ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>& list, bool isTop = true)
{
    QStringList nodes;
    for (UInt i = 0; i < list.Num(); ++i) {
        const SUBSCRIBE_NODE__& node = list.Items()[i];
        const QString name = ToQString(TextOf(node.NodeName));
        nodes << (isTop ? QString::number(node.ModuleID) + ' ' + name : name);
        nodes.last() +=
            node.Num() != 0 ? '{' + shown(node, false) + '}' : '=' + ToQString(TextOf(node.SubscribeName));
    }
    return nodes.join(' ');
}

} // namespace

class tst_flow : public QObject
{
    Q_OBJECT

private slots:
    void outputs();
    void errors();
    void trees();
};

void tst_flow::outputs()
{
    const auto flow = flowOf(sample);
    UInt module = 0;
    const FlowOutput* const output = flow->output("9.Mean.Code", &module);
    QVERIFY(output && output->type == "string" && output->value == "A.1" && module == 9);
    for (const char* none : {"", "9", "9.", "9.Mean", "9.Nothing", "9.Count.x", "4.Count", "09.Count", "x"}) {
        QVERIFY2(!flow->output(none, &module), none);
    }
}

void tst_flow::errors()
{
    const auto second = [](const QByteArray& members) {
        return R"({"name": "f", "modules": [{"id": 1, "name": "m", "kind": "k"}, {)" + members + "}]}";
    };
    const QByteArray first = "modules[0].outputs[0]";
    QVector<std::pair<QByteArray, QByteArray>> rows = {
        {"", "line 1, column 1: expected JSON"},
        {"{\n \"a\" 1}", "line 2, column 6: expected JSON"},
        {"[]", "the whole file: expected an object"},
        {"{}", "name: expected a text"},
        {R"({"name": "f"})", "modules: expected a list"},
        {second(R"("id": 2, "name": "m")"), "modules[1].kind: expected a text"},
        {second(R"("id": 2, "name": ")" + QByteArray(128, 'm') + '"'),
         "modules[1].name: expected at most 127"},
        {R"({"modules": [], "nmae": "f"})", "the whole file: unknown key \"nmae\", expected name, modules"},
        {second(R"("id": 2, "type": "If")"), "modules[1]: unknown key \"type\", expected id,"},
        {withOutputs(R"({"name": "a", "type": "int", "colunm": "A"})"), first + ": unknown key \"colunm\""},
        {withOutputs(R"({"name": "a", "outputs": [], "type": "int"})"), first + ": unknown key \"type\""},
        {withOutputs(R"({"name": "a.b", "type": "int"})"), first + ".name: expected a name without"},
        {withOutputs(nested(1) + ',' + nested(1)), "modules[0].outputs[1].name: expected a name"},
        {withOutputs(R"({"name": "a", "type": "long"})"), first + ".type: expected \"int\""},
        {withOutputs(R"({"name": "a", "type": "int", "value": 0.5})"), first + ".value: expected a value"},
        {withOutputs(nested(3, QByteArray(90, 'n'))), first + ".outputs[0].outputs[0]: expected names"},
        {withOutputs(nested(65)),
         "modules[0]" + QByteArray(".outputs[0]").repeated(64) + ".outputs: expected at most 64"},
    };
    for (const char* bad : {"0", "1", "2.5", "\"2\"", "2147483648"}) {
        rows.append({second(QByteArray(R"("id": )") + bad), "modules[1].id: expected a whole number from 1"});
    }
    QString told;
    for (const auto& [json, error] : qAsConst(rows)) {
        QVERIFY2(!flowOf(json, &told) && told.startsWith("FILE: " + error), qPrintable(json + told));
    }
    for (const QString file : {"/no/such/flow.json", "/tmp"}) {
        QVERIFY(!Flow::load(file, &told));
        QVERIFY2(told.startsWith(file + ": ") && !told.contains("JSON"), qPrintable(told));
    }
}

void tst_flow::trees()
{
    const auto flow = flowOf(sample);
    const auto tree = [&flow](SUBSCRIBE_RANGE range, const QStringList& types) {
        return shown(SubscribeTree::build(*flow, 5, range, types));
    };
    const QString before = "9 斑点{Count=9.Count Mean{Pixels{Area=9.Mean.Pixels.Area}}}";
    const QString own = "5 Check{Result=5.Result}";
    QCOMPARE(tree(PreModules, {"int"}), before);
    QCOMPARE(tree(InternalAndCur, {"int"}), own);
    QCOMPARE(tree(PreAndCur, {"int"}), before + ' ' + own);
    QCOMPARE(tree(ParentAndPre, {"float", "string"}),
             QString("3 Camera{Gain=3.Gain} 9 斑点{Mean{Radius=9.Mean.Radius Code=9.Mean.Code}}"));
    QCOMPARE(tree(CurModule, {}), own);
    QCOMPARE(tree(InternalModules, {"int"}) + tree(ParentModule, {"int"}), QString());
    const auto deep = flowOf(withOutputs(nested(64)));
    QCOMPARE(shown(SubscribeTree::build(deep.value(), 1, CurModule, {"int"})).count("n{"), 63);
}

QTEST_APPLESS_MAIN(tst_flow)
#include "tst_flow.moc"
