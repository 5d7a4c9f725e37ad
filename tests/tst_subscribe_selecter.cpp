#include "FakeCore.h"
#include "QZelCommonControl/ButtonSelecterView.h"
#include "QZelCommonControl/SubscribeMenuModel.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

using namespace ZelCore;

namespace {

const char* const menuText = R"([
    {"label": "1 Camera", "isTitle": true, "level": 1, "subnodes": [
        {"label": "Width", "isTitle": false, "level": 2, "subscribeName": "1.Width"}]},
    {"label": "5 Blob", "isTitle": true, "level": 1, "subnodes": [
        {"label": "Count", "isTitle": false, "level": 2, "subscribeName": "5.Count"},
        {"label": "Mean", "isTitle": true, "level": 2, "subnodes": [
            {"label": "Radius", "isTitle": false, "level": 3, "subscribeName": "5.Mean.Radius"},
            {"label": "Hollow", "isTitle": false, "level": 3, "subscribeName": ""}]}]}])";

QJsonArray menuOf(const char* json)
{
    return QJsonDocument::fromJson(json).array();
}

// The tree as indented lines.
QStringList linesOf(const QAbstractItemModel& model, const QModelIndex& parent = {},
                    const QString& indent = {})
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        lines << indent + index.data().toString() << linesOf(model, index, indent + QLatin1Char('-'));
    }
    return lines;
}

// A selector in a host's window beside a push button; asked for a menu it answers with the one above.
struct SelecterFixture
{
    SelecterFixture()
    {
        window.resize(600, 200);
        selecter->SetFixedSize(100, 30);
        selecter->move(20, 20);
        neighbour->setGeometry(450, 120, 80, 30);
        QObject::connect(selecter, &ButtonSelecterView::sigQuerySubscribeMenuInfo, selecter,
                         [this] { selecter->UpdateSubscribeMenuData(menu, 0); });
        window.show();
    }

    void open() const { selecter->findChild<QToolButton*>()->click(); }
    QTreeView* tree() const { return selecter->findChild<QTreeView*>(); }
    QLineEdit* filter() const { return tree()->parentWidget()->findChild<QLineEdit*>(); }
    bool isOpen() const { return tree() && tree()->window()->isVisible(); }
    QString current() const { return tree()->currentIndex().data().toString(); }

    FakeCore core;
    QWidget window;
    QPointer<ButtonSelecterView> selecter = new ButtonSelecterView(&window);
    QPushButton* neighbour = new QPushButton(&window);
    QJsonArray menu = menuOf(menuText);
    QSignalSpy asked{selecter, &ButtonSelecterView::sigQuerySubscribeMenuInfo};
    QSignalSpy chosen{selecter, &ButtonSelecterView::sigEdiSubscribeInfoChanged};
};

} // namespace

class tst_subscribe_selecter : public QObject
{
    Q_OBJECT

private slots:
    void filtering();
    void entriesOfTheMenu();
    void deepAndLargeMenus();
    void keysChoose();
    void clicks();
    void asksEachTime();
    void aFingerScrolls();
    void staysOnTheScreen();
    void bindings();
    void destroyedByTheAnswer();
};

void tst_subscribe_selecter::filtering()
{
    const QStringList radius({"5 Blob", "-Mean", "--Radius"});
    const std::pair<QString, QStringList> cases[] = {
        {"", {"not bound", "1 Camera", "-Width", "5 Blob", "-Count", "-Mean", "--Radius"}},
        {"radi", radius},
        {" MEAN  5 ", radius},
        {"blob", {"5 Blob", "-Count", "-Mean", "--Radius"}},
        {"xyz", {}}};
    SubscribeMenuModel model;
    model.setMenu(menuOf(menuText));
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (const auto& [filter, lines] : cases) {
        model.setFilter(filter);
        QCOMPARE(linesOf(model), lines);
    }
    QVERIFY(!model.find("5.Mean.Radius").isValid());
}

void tst_subscribe_selecter::entriesOfTheMenu()
{
    SubscribeMenuModel model;
    model.setMenu(menuOf(menuText));
    const QModelIndex leaf = model.find("5.Mean.Radius");
    QCOMPARE(leaf.data(Qt::ToolTipRole).toString(), "5 Blob / Mean / Radius\n5.Mean.Radius");
    QVERIFY(leaf.flags() & Qt::ItemIsSelectable);
    QVERIFY(!(leaf.parent().flags() & Qt::ItemIsSelectable));
    QCOMPARE(model.find(QString()), model.index(0, 0));
    QVERIFY(!model.find("none").isValid());
}

void tst_subscribe_selecter::deepAndLargeMenus()
{
    QJsonArray menu;
    for (int i = 0; i < 10000; ++i) {
        menu << QJsonObject{{"label", QString("leaf%1").arg(i)}, {"subscribeName", QString::number(i)}};
    }
    for (int level = 0; level < 64; ++level) {
        menu = {QJsonObject{{"label", "group"}, {"isTitle", true}, {"subnodes", menu}}};
    }
    SelecterFixture f;
    f.menu = menu;
    f.selecter->SetEdiSubscribeText("7777");
    f.open();
    QCOMPARE(f.current(), "leaf7777");
    const int y = f.tree()->visualRect(f.tree()->currentIndex()).center().y();
    QVERIFY(y > 0 && y < f.tree()->viewport()->height());
}

void tst_subscribe_selecter::keysChoose()
{
    struct Choice
    {
        const char* what;
        const char* present;
        const char* typed;
        QVector<Qt::Key> keys;
        QStringList chosen;
    };
    const Choice cases[] = {
        {"present one", "5.Count", "", {Qt::Key_Return}, {"5.Count"}},
        {"down, past a group", "5.Count", "", {Qt::Key_Down, Qt::Key_Enter}, {"5.Mean.Radius"}},
        {"up, past a group", "5.Count", "", {Qt::Key_Up, Qt::Key_Return}, {"1.Width"}},
        {"beyond the end", "5.Mean.Radius", "", {Qt::Key_Down, Qt::Key_Return}, {"5.Mean.Radius"}},
        {"a page up, not bound", "5.Mean.Radius", "", {Qt::Key_PageUp, Qt::Key_Return}, {""}},
        {"first match", "1.Width", "mean", {Qt::Key_Return}, {"5.Mean.Radius"}},
        {"no match", "1.Width", "xyz", {Qt::Key_Return}, {}},
        {"escape", "1.Width", "", {Qt::Key_Escape}, {}},
    };
    for (const Choice& choice : cases) {
        SelecterFixture f;
        f.selecter->SetEdiSubscribeText(choice.present);
        f.open();
        QTest::keyClicks(f.filter(), choice.typed);
        for (const Qt::Key key : choice.keys) {
            QTest::keyClick(f.filter(), key);
        }
        QVERIFY2(f.isOpen() == (qstrcmp(choice.typed, "xyz") == 0), choice.what);
        QCoreApplication::processEvents();
        QStringList reported;
        for (const auto& arguments : qAsConst(f.chosen)) {
            reported << arguments.first().toString();
        }
        QVERIFY2(reported == choice.chosen, choice.what);
        QCOMPARE(f.selecter->findChild<QLineEdit*>()->text(), choice.chosen.value(0, choice.present));
    }
}

void tst_subscribe_selecter::clicks()
{
    SelecterFixture f;
    QSignalSpy clicked(f.neighbour, &QPushButton::clicked);
    f.open();
    const QAbstractItemModel* const model = f.tree()->model();
    for (const QModelIndex& index : {model->index(1, 0), model->index(0, 0, model->index(1, 0))}) {
        QVERIFY(f.isOpen() && f.chosen.isEmpty());
        const QRect place = f.tree()->visualRect(index);
        QVERIFY(place.height() >= 30);
        QTest::mouseClick(f.tree()->viewport(), Qt::LeftButton, {}, place.center());
    }
    QVERIFY(!f.isOpen());
    QTRY_COMPARE(f.chosen.value(0), QVariantList({"1.Width"}));

    // A click beside closes the menu and arrives; one on the field must not open it again.
    for (const QWidget* const widget : std::initializer_list<QWidget*>{f.neighbour, f.selecter}) {
        f.open();
        QTest::mouseClick(f.window.windowHandle(), Qt::LeftButton, {}, widget->geometry().center());
        QCoreApplication::processEvents();
        QVERIFY(!f.isOpen());
        QCOMPARE(clicked.count(), 1);
    }
}

void tst_subscribe_selecter::asksEachTime()
{
    SelecterFixture f;
    f.open();
    QTest::keyClicks(f.filter(), "rad");
    f.selecter->SetHide();
    QVERIFY(!f.isOpen());
    f.menu = QJsonArray();
    f.open();
    QCOMPARE(f.asked.count(), 2);
    QCOMPARE(linesOf(*f.tree()->model()), QStringList("not bound"));
    QVERIFY(f.tree()->parentWidget()->findChild<QLabel*>()->isVisible());
}

void tst_subscribe_selecter::aFingerScrolls()
{
    SelecterFixture f;
    for (int i = 0; i < 5; ++i) {
        f.menu << f.menu[1];
    }
    f.open();
    QCoreApplication::processEvents();
    QWidget* const viewport = f.tree()->viewport();
    const QPoint from(60, 200);
    QTest::mousePress(viewport, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, from - QPoint(0, 90), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(viewport, &move);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, from - QPoint(0, 90));
    QCOMPARE(f.tree()->verticalScrollBar()->value(), 90);
    QVERIFY(f.isOpen());
}

void tst_subscribe_selecter::staysOnTheScreen()
{
    for (const QPointF corner : {QPointF(0, 0), QPointF(1, 0), QPointF(0, 1), QPointF(1, 1)}) {
        SelecterFixture f;
        const QRect screen = f.window.screen()->availableGeometry();
        f.window.move(qRound(corner.x() * (screen.width() - 100)) - 20,
                      qRound(corner.y() * (screen.height() - 30)) - 20);
        QCoreApplication::processEvents();
        f.open();
        const QRect popup = f.tree()->window()->geometry();
        QVERIFY(screen.contains(popup) && popup.height() > 100);
        QVERIFY(!popup.intersects(QRect(f.selecter->mapToGlobal(QPoint()), f.selecter->size())));
    }
}

void tst_subscribe_selecter::bindings()
{
    SelecterFixture f;
    auto* const field = f.selecter->findChild<QLineEdit*>();
    QCOMPARE(field->size(), QSize(75, 30));
    QString info = "untouched";
    const QString key = "%int0%";
    QCOMPARE(f.selecter->GetFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, key, info), -1);
    QCOMPARE(info, "untouched");
    QCOMPARE(f.selecter->SetFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, key, "5.Gone"), 0);
    f.core.missingSources << "5.Gone";
    QCOMPARE(f.selecter->GetFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, key, info), 0);
    f.selecter->SetEdiSubscribeText(info);
    QVERIFY(field->toolTip().contains("no such value"));
    f.selecter->SetEdiSubscribeText("5.Count");
    QCOMPARE(field->toolTip(), "5.Count");

    QCOMPARE(f.selecter->DelFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, key), 0);
    QCOMPARE(field->text(), QString());
    QCOMPARE(f.selecter->DelFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, key), -1);
    f.core.fault = [](int, const QString&) { return CommandResult(Failed, "no"); };
    QCOMPARE(f.selecter->SetFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, key, "5.A"), -1);
}

void tst_subscribe_selecter::destroyedByTheAnswer()
{
    SelecterFixture f;
    QObject::connect(f.selecter, &ButtonSelecterView::sigEdiSubscribeInfoChanged, &f.window,
                     [&f] { delete f.selecter; });
    f.open();
    QTest::keyClick(f.filter(), Qt::Key_Return);
    QTRY_VERIFY(!f.selecter);
}

QTEST_MAIN(tst_subscribe_selecter)
#include "tst_subscribe_selecter.moc"
