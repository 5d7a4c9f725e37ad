#include "FakeCore.h"
#include "SubscribeMenu.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QtTest>

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

class tst_subscribe_query : public QObject
{
    Q_OBJECT

private slots:
    void menuOfATree();
    void commands();
    void growsLinearly();
};

void tst_subscribe_query::menuOfATree()
{
    FakeCore core;
    core.subscribeTree.CreateList(3);
    auto& blob = fill(core.subscribeTree.At(0), "Blob", 2);
    fill(blob.At(0), "计数", 0, "5.计数");
    fill(fill(blob.At(1), "Group", 1).At(0), "Leaf", 0, "5.Group.Leaf");
    fill(core.subscribeTree.At(1), "Nothing to offer", 0);
    // A group of groups without children stays: only the top level is sifted.
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

void tst_subscribe_query::commands()
{
    FakeCore core;
    core.fault = [](int, const QString&) { return CommandResult(NothingChanged); };
    for (const QString names : {"int0 int", "float0 float", "intfloat float", "other string"}) {
        QVERIFY(!SubscribeMenu::query(7, names.section(' ', 0, 0), "string"));
        QCOMPARE(core.takeCommands(),
                 QStringList("QuerySubscribeTree 7 range=1 types=1 " + names.section(' ', 1)));
    }
}

// Ten times the nodes in clearly less than a hundred times the time.
void tst_subscribe_query::growsLinearly()
{
    const auto timeOf = [](UInt groups) {
        SUBSCRIBE_NODE__ group;
        fill(group, "group", 100);
        SUBSCRIBE_NODE__ top;
        fill(top, "module", groups);
        std::fill_n(top.Items(), groups, group);
        QJsonObject menu;
        QElapsedTimer timer;
        timer.start();
        SubscribeMenu::ParseTreeNode(top, menu, 1);
        return timer.nsecsElapsed();
    };
    const qint64 few = timeOf(100);
    const qint64 many = timeOf(1000);
    QVERIFY2(many < 40 * few, qPrintable(QString("%1 ns, %2 ns").arg(few).arg(many)));
}

QTEST_APPLESS_MAIN(tst_subscribe_query)
#include "tst_subscribe_query.moc"
