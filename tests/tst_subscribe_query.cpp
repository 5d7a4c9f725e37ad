#include "FakeCore.h"
#include "SubscribeMenu.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QtTest>

using namespace ZelCore;

namespace {

void fill(SUBSCRIBE_NODE__& node, const char* name, UInt children = 0, const char* subscribeName = "")
{
    node.ModuleID = 5;
    FillText(node.NodeName, name);
    FillText(node.SubscribeName, subscribeName);
    node.CreateList(children);
}

QJsonArray parsed(const char* json)
{
    return QJsonDocument::fromJson(json).array();
}

} // namespace

class tst_subscribe_query : public QObject
{
    Q_OBJECT

private slots:
    void menuOfATree();
    void askedType_data();
    void askedType();
    void refusedQuery();
    void deepTree();
    void growsLinearly();
};

void tst_subscribe_query::menuOfATree()
{
    FakeCore core;
    core.subscribeTree.CreateList(3);
    fill(core.subscribeTree.At(0), "Blob", 2);
    fill(core.subscribeTree.At(0).At(0), "计数", 0, "5.计数");
    fill(core.subscribeTree.At(0).At(1), "Group", 1);
    fill(core.subscribeTree.At(0).At(1).At(0), "Leaf", 0, "5.Group.Leaf");
    fill(core.subscribeTree.At(1), "Nothing to offer");
    // A group of groups without children stays: only the top level is sifted.
    fill(core.subscribeTree.At(2), "Hollow", 1);
    fill(core.subscribeTree.At(2).At(0), "Inner", 1);
    fill(core.subscribeTree.At(2).At(0).At(0), "Empty");

    const auto menu = SubscribeMenu::query(7, QStringLiteral("int0"), QString());
    QVERIFY(menu);
    QCOMPARE(*menu, parsed(R"([
        {"label": "5 Blob", "isTitle": true, "level": 1, "subnodes": [
            {"label": "计数", "isTitle": false, "level": 2, "subscribeName": "5.计数"},
            {"label": "Group", "isTitle": true, "level": 2, "subnodes": [
                {"label": "Leaf", "isTitle": false, "level": 3, "subscribeName": "5.Group.Leaf"}]}]},
        {"label": "5 Hollow", "isTitle": true, "level": 1, "subnodes": [
            {"label": "Inner", "isTitle": true, "level": 2, "subnodes": [
                {"label": "Empty", "isTitle": false, "level": 3, "subscribeName": ""}]}]}])"));

    QJsonObject childless;
    SubscribeMenu::ParseTreeNode(core.subscribeTree.At(1), childless, 1);
    QCOMPARE(childless.value(QStringLiteral("subnodes")), QJsonValue(QJsonArray()));
}

void tst_subscribe_query::askedType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("asked");
    QTest::newRow("int") << "int0"
                         << "int";
    QTest::newRow("float") << "float0"
                           << "float";
    QTest::newRow("both words") << "intfloat"
                                << "float";
    QTest::newRow("neither") << "other"
                             << "string";
}

void tst_subscribe_query::askedType()
{
    QFETCH(QString, name);
    QFETCH(QString, asked);
    FakeCore core;
    SubscribeMenu::query(7, name, QStringLiteral("string"));
    QCOMPARE(core.takeCommands(),
             QStringList(QStringLiteral("QuerySubscribeTree 7 range=1 types=1 ") + asked));
}

void tst_subscribe_query::refusedQuery()
{
    FakeCore core;
    core.fault = [](int, const QString&) { return CommandResult(NothingChanged); };
    QVERIFY(!SubscribeMenu::query(7, QStringLiteral("int0"), QString()));
}

void tst_subscribe_query::deepTree()
{
    SUBSCRIBE_NODE__ top;
    SUBSCRIBE_NODE__* node = &top;
    for (int level = 1; level <= 64; ++level) {
        fill(*node, "group", 1);
        node = node->Items();
    }
    fill(*node, "leaf", 0, "leaf");

    QJsonObject menu;
    SubscribeMenu::ParseTreeNode(top, menu, 1);
    for (int level = 1; level <= 64; ++level) {
        QCOMPARE(menu.value(QStringLiteral("level")).toInt(), level);
        menu = menu.value(QStringLiteral("subnodes")).toArray().first().toObject();
    }
    QCOMPARE(menu.value(QStringLiteral("subscribeName")).toString(), QStringLiteral("leaf"));
}

void tst_subscribe_query::growsLinearly()
{
    // Ten times the nodes in clearly less than a hundred times the time.
    qint64 elapsed[2] = {};
    for (const int run : {0, 1}) {
        const UInt groups = run == 0 ? 100 : 1000;
        SUBSCRIBE_NODE__ top;
        fill(top, "module", groups);
        for (UInt group = 0; group < groups; ++group) {
            fill(top.Items()[group], "group", 100);
            for (UInt leaf = 0; leaf < 100; ++leaf) {
                fill(top.Items()[group].Items()[leaf], "leaf", 0, "5.group.leaf");
            }
        }
        QJsonObject menu;
        QElapsedTimer timer;
        timer.start();
        SubscribeMenu::ParseTreeNode(top, menu, 1);
        elapsed[run] = qMax<qint64>(1, timer.nsecsElapsed());
        QCOMPARE(menu.value(QStringLiteral("subnodes")).toArray().size(), int(groups));
    }
    QVERIFY2(elapsed[1] < 40 * elapsed[0],
             qPrintable(QStringLiteral("%1 ns, %2 ns").arg(elapsed[0]).arg(elapsed[1])));
}

QTEST_APPLESS_MAIN(tst_subscribe_query)
#include "tst_subscribe_query.moc"
