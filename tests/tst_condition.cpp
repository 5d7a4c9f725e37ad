#include "FakeCore.h"
#include "SubscribeMenu.h"
#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"

#include <QJsonDocument>
#include <QtTest>

#include <cmath>

using namespace ConditionName;
using namespace ZelCore;

namespace {

SUBSCRIBE_NODE__& fill(SUBSCRIBE_NODE__& node, const char* name, UInt children, const char* source = "")
{
    node.ModuleID = 5;
    FillText(node.NodeName, name);
    FillText(node.SubscribeName, source);
    node.CreateList(children);
    return node;
}

} // namespace

class tst_condition : public QObject
{
    Q_OBJECT

private slots:
    void types();
    void lowestFreeName();
    void sortingKeepsInconsistentNames();
    void writing();
    void reading();
    void menuOfATree();
};

// An int range wins for a name with both words, a float value for its menu.
void tst_condition::types()
{
    const std::tuple<const char*, const char*, const char*> cases[] = {{"int0", "int", "int"},
                                                                       {"float12", "float", "float"},
                                                                       {"intfloat", "int", "float"},
                                                                       {"Int0", "", "string"}};
    FakeCore core;
    core.fault = [](int, const QString&) { return CommandResult(NothingChanged); };
    for (const auto& [name, type, menuType] : cases) {
        QCOMPARE(typeWord(typeOf(name)), QString(type));
        QVERIFY(!SubscribeMenu::query(7, name, "string"));
        QCOMPARE(core.takeCommands().join('|'), QString("QuerySubscribeTree 7 range=1 types=1 ") + menuType);
    }
}

void tst_condition::lowestFreeName()
{
    const std::pair<QString, QString> cases[] = {{"int0", "int1 int2"},
                                                 {"int1", "int0 int01"},
                                                 {"int3", "int10 int2 int0 int1"},
                                                 {"float2", "float1 float0 float11 float3"}};
    for (const auto& [lowest, names] : cases) {
        QCOMPARE(lowestFree(typeOf(lowest), sorted(names.split(' '))), lowest);
    }
}

// Each pair of these can be compared, but all together contradict each other.
void tst_condition::sortingKeepsInconsistentNames()
{
    QStringList names;
    for (int i = 0; i < 400; ++i) {
        names << QString("int1t%1").arg(i % 7) << QString("int01t%1").arg(i % 5) << "int1";
    }
    QStringList ordered = sorted(names);
    ordered.sort();
    names.sort();
    QCOMPARE(ordered, names);
}

void tst_condition::writing()
{
    const QString text = ConditionRecord::toText({{"int0", 1, 2, "x:y;z%"},
                                                  {"float0", 0.5, 2.2504, {}},
                                                  {"int3", -2.9, 2.9, {}},
                                                  {"intfloat", -1, 2, {}},
                                                  {"int0", -1e20, 1e20, {}},
                                                  {"int0", std::nan(""), 1, {}}});
    QCOMPARE(text, QString("%int0%:1:2:x:y;z%;%float0%:0.500:2.250:;%int3%:-2:2:;%intfloat%:-1.000:2.000:;"
                           "%int0%:-2147483648:2147483647:;%int0%:0:1:;"));
    QCOMPARE(ConditionRecord::toText({}), QString("0"));
    // As many bytes as the text has UTF-16 units: a pair counts twice, and a character may be cut.
    QCOMPARE(ConditionRecord::toStored("ä1孔2;").toHex(), QByteArray("c3a431e5ad"));
    QCOMPARE(ConditionRecord::toStored("😀12;"), QByteArray("\xf0\x9f\x98\x80\x31"));
}

void tst_condition::reading()
{
    // Name, type, bounds, note; "?" where the maximum is no number.
    const std::pair<const char*, QString> cases[] = {
        {"0", ""},
        {";;%int0%:0:100:a;;%float0%:0.500:2.250:;", "int0 int 0 100 a|float0 float 0.5 2.25 |"},
        {"%int1%:0:100;%int0%:0:100:x:y;", "int0 int 0 100 x|"},
        {"%int0%:1.0:2:;%float0%:1:2:;", "int0 float 1 2 |float0 int 1 2 |"},
        {"%float0%:1:2.5:;%int1%:7:x:;", "float0 int 1 0? |int1 int 7 0? |"},
        {"%int0%:x:7:;%int0%:1:99999999999:;", "int0 int 0 7 |int0 int 1 0? |"},
        {"%%in%t0:1:2:%;:::;", "int0 int 1 2 %| int 0 0? |"}};
    for (const auto& [text, conditions] : cases) {
        QString read;
        for (const StoredCondition& c : StoredCondition::fromText(text)) {
            read += QString("%1 %2 %3 %4%5 %6|")
                        .arg(c.name, c.isFloat ? "float" : "int")
                        .arg(c.minimum)
                        .arg(c.maximum)
                        .arg(c.hasValidMaximum ? "" : "?", c.note);
        }
        QCOMPARE(read, conditions);
    }
}

void tst_condition::menuOfATree()
{
    FakeCore core;
    core.subscribeTree.CreateList(3);
    auto& blob = fill(core.subscribeTree.At(0), "Blob", 2);
    fill(blob.At(0), "计数", 0, "5.计数");
    fill(fill(blob.At(1), "Group", 1).At(0), "Leaf", 0, "5.Group.Leaf");
    fill(core.subscribeTree.At(1), "Nothing to offer", 0);
    // A group of groups without children stays: only the top level is filtered.
    fill(fill(fill(core.subscribeTree.At(2), "Hollow", 1).At(0), "Inner", 1).At(0), "Empty", 0);

    const auto menu = SubscribeMenu::query(7, "int0", {});
    QVERIFY(menu);
    QCOMPARE(*menu, QJsonDocument::fromJson(R"([
        {"label": "5 Blob", "isTitle": true, "level": 1, "subnodes": [
            {"label": "计数", "isTitle": false, "level": 2, "subscribeName": "5.计数"},
            {"label": "Group", "isTitle": true, "level": 2, "subnodes": [
                {"label": "Leaf", "isTitle": false, "level": 3, "subscribeName": "5.Group.Leaf"}]}]},
        {"label": "5 Hollow", "isTitle": true, "level": 1, "subnodes": [
            {"label": "Inner", "isTitle": true, "level": 2, "subnodes": [
                {"label": "Empty", "isTitle": false, "level": 3, "subscribeName": ""}]}]}])")
                        .array());
    QJsonObject childless;
    SubscribeMenu::ParseTreeNode(core.subscribeTree.At(1), childless, 1);
    QCOMPARE(childless.value("subnodes"), QJsonValue(QJsonArray()));
}

QTEST_APPLESS_MAIN(tst_condition)
#include "tst_condition.moc"
