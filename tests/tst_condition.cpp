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
    void types_data();
    void types();
    void lowestFreeName_data();
    void lowestFreeName();
    void sortingKeepsInconsistentNames();
    void writing();
    void stored();
    void reading_data();
    void reading();
    void menuOfATree();
};

// An int range wins for a name with both words, a float value for its menu.
void tst_condition::types_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QString>("menuType");
    QTest::newRow("int0") << "int"
                          << "int";
    QTest::newRow("float12") << "float"
                             << "float";
    QTest::newRow("intfloat") << "int"
                              << "float";
    QTest::newRow("Int0") << ""
                          << "string";
}

void tst_condition::types()
{
    QFETCH(QString, typeName);
    QFETCH(QString, menuType);
    const QString name = QTest::currentDataTag();
    QCOMPARE(typeWord(typeOf(name)), typeName);
    FakeCore core;
    core.fault = [](int, const QString&) { return CommandResult(NothingChanged); };
    QVERIFY(!SubscribeMenu::query(7, name, "string"));
    QCOMPARE(core.takeCommands(), QStringList("QuerySubscribeTree 7 range=1 types=1 " + menuType));
}

void tst_condition::lowestFreeName_data()
{
    QTest::addColumn<QString>("names");
    QTest::newRow("int0") << "int1 int2";
    QTest::newRow("int1") << "int0 int01";
    QTest::newRow("int3") << "int10 int2 int0 int1";
    QTest::newRow("float2") << "float1 float0 float11 float3";
}

void tst_condition::lowestFreeName()
{
    QFETCH(QString, names);
    const QString lowest = QTest::currentDataTag();
    QCOMPARE(lowestFree(typeOf(lowest), sorted(names.split(' '))), lowest);
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
}

// As many bytes as the text has UTF-16 units: a pair counts twice, and a character may be cut.
void tst_condition::stored()
{
    QCOMPARE(ConditionRecord::toStored("ä1孔2;").toHex(), QByteArray("c3a431e5ad"));
    QCOMPARE(ConditionRecord::toStored("😀12;"), QByteArray("\xf0\x9f\x98\x80\x31"));
}

void tst_condition::reading_data()
{
    QTest::addColumn<QStringList>("conditions");
    const auto reads = [](const char* text, const QStringList& conditions) {
        QTest::newRow(text) << conditions;
    };
    // Name, type, bounds, note; "?" where the maximum is no number.
    reads("0", {});
    reads(";;%int0%:0:100:a;;%float0%:0.500:2.250:;", {"int0 int 0 100 a", "float0 float 0.5 2.25 "});
    reads("%int1%:0:100;%int0%:0:100:x:y;", {"int0 int 0 100 x"});
    reads("%int0%:1.0:2:;%float0%:1:2:;", {"int0 float 1 2 ", "float0 int 1 2 "});
    reads("%float0%:1:2.5:;%int1%:7:x:;", {"float0 int 1 0? ", "int1 int 7 0? "});
    reads("%int0%:x:7:;%int0%:1:99999999999:;", {"int0 int 0 7 ", "int0 int 1 0? "});
    reads("%%in%t0:1:2:%;:::;", {"int0 int 1 2 %", " int 0 0? "});
}

void tst_condition::reading()
{
    QFETCH(QStringList, conditions);
    QStringList read;
    for (const StoredCondition& c : StoredCondition::fromText(QTest::currentDataTag())) {
        const QString maximum = QString::number(c.maximum) + (c.hasValidMaximum ? "" : "?");
        read << QStringList(
                    {c.name, c.isFloat ? "float" : "int", QString::number(c.minimum), maximum, c.note})
                    .join(' ');
    }
    QCOMPARE(read, conditions);
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
