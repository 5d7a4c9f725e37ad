#include "EmbeddedCore/SubscribeTree.h"
#include "FlowFile.h"

#include <QElapsedTimer>
#include <QtTest>

#include <algorithm>

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
    void errors_data();
    void errors();
    void unreadable();
    void trees_data();
    void trees();
    void deepestTree();
    void treeGrowth();
};

void tst_flow::outputs()
{
    const auto flow = flowOf(sample);
    UInt module = 0;
    const FlowOutput* const output = flow->output("9.Mean.Code", &module);
    QVERIFY(output);
    QCOMPARE(output->type, QString("string"));
    QCOMPARE(output->value, QJsonValue("A.1"));
    QCOMPARE(module, 9u);
    for (const char* none : {"", "9", "9.", "9.Mean", "9.Nothing", "9.Count.x", "4.Count", "09.Count", "x"}) {
        QVERIFY2(!flow->output(none, &module), none);
    }
}

void tst_flow::errors_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const QByteArray& json, const QString& error) {
        QTest::newRow(name) << json << error;
    };
    const auto module = [](const QByteArray& members) {
        return R"({"name": "f", "modules": [{"id": 1, "name": "m", "kind": "k"}, {)" + members + "}]}";
    };
    const QString first = "modules[0].outputs[0]";
    row("empty", "", "line 1, column 1: expected JSON");
    row("no JSON", "{\n \"a\" 1}", "line 2, column 6: expected JSON");
    row("list", "[]", "the whole file: expected an object");
    row("no name", "{}", "name: expected a text");
    row("no modules", R"({"name": "f"})", "modules: expected a list");
    for (const char* bad : {"0", "1", "2.5", "\"2\"", "2147483648"}) {
        row(bad, module(QByteArray(R"("id": )") + bad), "modules[1].id: expected a whole number from 1");
    }
    row("no kind", module(R"("id": 2, "name": "m")"), "modules[1].kind: expected a text");
    row("long name", module(R"("id": 2, "name": ")" + QByteArray(128, 'm') + '"'),
        "modules[1].name: expected at most 127");
    row("no output", withOutputs("1"), first + ": expected an object");
    row("dotted", withOutputs(R"({"name": "a.b", "type": "int"})"), first + ".name: expected a name without");
    row("twice", withOutputs(nested(1) + ',' + nested(1)), "modules[0].outputs[1].name: expected a name");
    row("type", withOutputs(R"({"name": "a", "type": "long"})"), first + ".type: expected \"int\"");
    row("value", withOutputs(R"({"name": "a", "type": "int", "value": 0.5})"),
        first + ".value: expected a value");
    row("long path", withOutputs(nested(3, QByteArray(90, 'n'))),
        first + ".outputs[0].outputs[0]: expected names");
    row("too deep", withOutputs(nested(65)),
        "modules[0]" + QString(".outputs[0]").repeated(64) + ".outputs: expected at most 64");
}

void tst_flow::errors()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);
    QString told;
    QVERIFY(!flowOf(json, &told));
    QVERIFY2(told.startsWith("FILE: " + error), qPrintable(told));
}

void tst_flow::unreadable()
{
    for (const QString& file : {QStringLiteral("/no/such/flow.json"), QStringLiteral("/tmp")}) {
        QString error;
        QVERIFY(!Flow::load(file, &error));
        QVERIFY2(error.startsWith(file + ": ") && !error.contains("JSON"), qPrintable(error));
    }
}

void tst_flow::trees_data()
{
    QTest::addColumn<int>("range");
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QString>("tree");
    const QStringList ints = {"int"};
    const QString before = "9 斑点{Count=9.Count Mean{Pixels{Area=9.Mean.Pixels.Area}}}";
    const QString own = "5 Check{Result=5.Result}";
    QTest::newRow("before") << int(PreModules) << ints << before;
    QTest::newRow("own") << int(InternalAndCur) << ints << own;
    QTest::newRow("before and own") << int(PreAndCur) << ints << before + ' ' + own;
    QTest::newRow("two types") << int(ParentAndPre) << QStringList{"float", "string"}
                               << "3 Camera{Gain=3.Gain} 9 斑点{Mean{Radius=9.Mean.Radius Code=9.Mean.Code}}";
    QTest::newRow("all types") << int(CurModule) << QStringList() << own;
    QTest::newRow("inner") << int(InternalModules) << ints << QString();
    QTest::newRow("parent") << int(ParentModule) << ints << QString();
}

void tst_flow::trees()
{
    QFETCH(int, range);
    QFETCH(QStringList, types);
    const auto tree = SubscribeTree::build(*flowOf(sample), 5, static_cast<SUBSCRIBE_RANGE>(range), types);
    QTEST(shown(tree), "tree");
}

void tst_flow::deepestTree()
{
    const auto flow = flowOf(withOutputs(nested(64)));
    QVERIFY(flow);
    QCOMPARE(shown(SubscribeTree::build(*flow, 1, CurModule, {"int"})).count("n{"), 63);
}

// Eight times the modules may take somewhat more than eight times as long, not sixty-four times.
void tst_flow::treeGrowth()
{
    const auto timeOf = [](int modules) {
        QByteArrayList items;
        for (int i = 1; i <= modules; ++i) {
            items << R"({"name": "m", "kind": "k", "id": )" + QByteArray::number(i) + R"(, "outputs": [)" +
                         nested(1) + "]}";
        }
        const auto flow = flowOf(R"({"name": "f", "modules": [)" + items.join(',') + "]}");
        qint64 best = std::numeric_limits<qint64>::max();
        for (int i = 0; i < 5; ++i) {
            QElapsedTimer timer;
            timer.start();
            SubscribeTree::build(*flow, static_cast<UInt>(modules), PreModules, {"int"});
            best = std::min(best, timer.nsecsElapsed());
        }
        return best;
    };
    const qint64 few = timeOf(1000);
    const qint64 many = timeOf(8000);
    QVERIFY2(many < 24 * few, qPrintable(QStringLiteral("%1 ns, then %2 ns").arg(few).arg(many)));
}

QTEST_APPLESS_MAIN(tst_flow)
#include "tst_flow.moc"
