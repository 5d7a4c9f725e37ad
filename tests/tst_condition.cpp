#include "FakeCore.h"
#include "SubscribeMenu.h"
#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"

#include <QtTest>

#include <cmath>

using namespace ConditionName;
using namespace ZelCore;

class tst_condition : public QObject
{
    Q_OBJECT

private slots:
    void names();
    void writing();
    void menuOfATree();
};

void tst_condition::names()
{
    // The type word stands anywhere in the name, as it is written; the value type of a menu may be another.
    QVERIFY(typeOf("a-float2") == Type::Float && typeOf("intfloat") == Type::Int);
    QVERIFY(typeOf("Int0") == Type::None);
    QCOMPARE(subscribedType("intfloat", "string") + subscribedType("Int0", "string"), QString("floatstring"));
    const std::pair<QString, QString> cases[] = {{"int0", "int1 int2"},
                                                 {"int1", "int0 int01"},
                                                 {"int3", "int10 int2t int2 int0 int1"},
                                                 {"float2", "float1 float0 float11 float3"}};
    for (const auto& [lowest, names] : cases) {
        QCOMPARE(lowestFree(typeOf(lowest), sorted(names.split(' '))), lowest);
    }
    // Sorting loses none of these names: each pair has an order, but all together have none.
    QStringList names;
    for (int i = 0; i < 400; ++i) {
        names << QString("int1t%1").arg(i % 7) << QString("int01t%1").arg(i % 5) << "int1";
    }
    const QStringList ordered = sorted(names);
    QVERIFY(std::is_permutation(ordered.begin(), ordered.end(), names.begin()));
}

void tst_condition::writing()
{
    QCOMPARE(ConditionRecord::toText({{"float0", 0.5, 2.2504, "x:y;z%"},
                                      {"intfloat", -1, 2, {}},
                                      {"int0", -1e20, 1e20, {}},
                                      {"int0", std::nan(""), 1, {}}}),
             QString("%float0%:0.500:2.250:x:y;z%;%intfloat%:-1.000:2.000:;%int0%:-2147483648:2147483647:;"
                     "%int0%:0:1:;"));
    // As many bytes as the text has UTF-16 units: a pair counts twice, and a character may be cut.
    QCOMPARE(ConditionRecord::toStored("ä1孔2;").toHex(), QByteArray("c3a431e5ad"));
    QCOMPARE(ConditionRecord::toStored("😀12;"), QByteArray("\xf0\x9f\x98\x80\x31"));
}

void tst_condition::menuOfATree()
{
    FakeCore core;
    core.subscribeTree.CreateList(3);
    auto& blob = fillNode(core.subscribeTree.At(0), "Blob", 2);
    fillNode(blob.At(0), "计数", 0, "5.计数");
    fillNode(fillNode(blob.At(1), "Group", 1).At(0), "Leaf", 0, "5.Group.Leaf");
    fillNode(core.subscribeTree.At(1), "Nothing to offer", 0);
    // A group of groups without children stays: only the top level is filtered.
    fillNode(fillNode(fillNode(core.subscribeTree.At(2), "Hollow", 1).At(0), "Inner", 1).At(0), "Empty", 0);

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
