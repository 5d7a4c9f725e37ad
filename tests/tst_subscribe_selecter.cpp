#include "FakeCore.h"
#include "QZelCommonControl/ButtonSelecterView.h"

#include <QJsonDocument>
#include <QtTest>
#include <QtWidgets>

using namespace ZelCore;

namespace {

const char* const menuText = R"([
    {"label": "1 Camera", "isTitle": true, "level": 1, "subnodes": [
        {"label": "Width", "isTitle": false, "level": 2, "subscribeName": "1.Width"}]},
    {"label": "5 Blob", "isTitle": true, "level": 1, "subnodes": [
        {"label": "Count", "isTitle": false, "level": 2, "subscribeName": "5.Count"},
        {"label": "Mean", "isTitle": true, "level": 2, "subnodes": [
            {"label": "Radius", "isTitle": false, "level": 3, "subscribeName": "5.Mean.Radius"}]}]}])";

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
    QString shown() const
    {
        QStringList labels;
        for (auto i = tree()->model()->index(0, 0); i.isValid(); i = tree()->indexBelow(i)) {
            labels << i.data().toString();
        }
        return labels.join('|');
    }

    FakeCore core;
    QWidget window;
    QPointer<ButtonSelecterView> selecter = new ButtonSelecterView(&window);
    QLineEdit* field = selecter->findChild<QLineEdit*>();
    QPushButton* neighbour = new QPushButton(&window);
    QJsonArray menu = QJsonDocument::fromJson(menuText).array();
    QSignalSpy chosen{selecter, &ButtonSelecterView::sigEdiSubscribeInfoChanged};
};

} // namespace

class tst_subscribe_selecter : public QObject
{
    Q_OBJECT

private slots:
    void keysChoose();
    void clicksChoose();
    void largeAndEmptyMenus();
    void aFingerScrolls();
    void staysOnTheScreen();
    void bindings();
    void looks();
};

void tst_subscribe_selecter::keysChoose()
{
    const QString all = "not bound|1 Camera|Width|5 Blob|Count|Mean|Radius";
    // The present value, what is typed as filter, what is shown then, the keys and what they choose.
    const std::tuple<QString, QString, QString, QVector<Qt::Key>, QVariantList> cases[] = {
        {"5.Count", "", all, {Qt::Key_Return}, {"5.Count"}},
        {"5.Count", "", all, {Qt::Key_Down, Qt::Key_Enter}, {"5.Mean.Radius"}},
        {"5.Count", "", all, {Qt::Key_Up, Qt::Key_Return}, {"1.Width"}},
        {"5.Mean.Radius", " ", all, {Qt::Key_Down, Qt::Key_Return}, {"5.Mean.Radius"}},
        {"5.Mean.Radius", "", all, {Qt::Key_PageUp, Qt::Key_Return}, {""}},
        {"1.Width", " MEAN  5 ", "5 Blob|Mean|Radius", {Qt::Key_Escape}, {}},
        {"1.Width", "blob", "5 Blob|Count|Mean|Radius", {Qt::Key_Return}, {"5.Count"}},
        {"1.Width", ".", all.mid(10), {Qt::Key_Return}, {"1.Width"}},
        {"1.Width", "xyz", "", {Qt::Key_Return, Qt::Key_Escape}, {}}};
    for (const auto& [present, typed, shown, keys, chosen] : cases) {
        SelecterFixture f;
        f.selecter->SetEdiSubscribeText(present);
        f.open();
        QTest::keyClicks(f.filter(), typed);
        QCOMPARE(f.shown(), shown);
        for (const Qt::Key key : keys) {
            QTest::keyClick(f.filter(), key);
        }
        QVERIFY(!f.isOpen());
        QCoreApplication::processEvents();
        QCOMPARE(f.chosen.value(0), chosen);
        QCOMPARE(f.field->text(), chosen.value(0, present).toString());
    }
}

void tst_subscribe_selecter::clicksChoose()
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
        QVERIFY(!f.isOpen() && clicked.count() == 1);
    }
    // Who answers a choice may destroy the selector.
    QObject::connect(f.selecter, &ButtonSelecterView::sigEdiSubscribeInfoChanged, &f.window,
                     [&f] { delete f.selecter; });
    f.open();
    QTest::keyClick(f.filter(), Qt::Key_Return);
    QTRY_VERIFY(!f.selecter);
}

void tst_subscribe_selecter::largeAndEmptyMenus()
{
    SelecterFixture f;
    f.menu = {};
    for (int i = 0; i < 10000; ++i) {
        f.menu << QJsonObject{{"label", QString("leaf%1").arg(i)}, {"subscribeName", QString::number(i)}};
    }
    for (int level = 0; level < 64; ++level) {
        f.menu = {QJsonObject{{"label", "group"}, {"isTitle", true}, {"subnodes", f.menu}}};
    }
    f.selecter->SetEdiSubscribeText("7777");
    f.open();
    const QModelIndex current = f.tree()->currentIndex();
    QVERIFY(current.data(Qt::ToolTipRole).toString().endsWith("group / leaf7777\n7777"));
    const int y = f.tree()->visualRect(current).center().y();
    QVERIFY(y > 0 && y < f.tree()->viewport()->height());
    f.menu = {};
    f.selecter->SetHide();
    QVERIFY(!f.isOpen());
    f.open();
    QVERIFY(f.shown() == "not bound" && f.tree()->parentWidget()->findChild<QLabel*>()->isVisible());
}

void tst_subscribe_selecter::aFingerScrolls()
{
    QTouchDevice* const screen = QTest::createTouchDevice();
    SelecterFixture f;
    for (int i = 0; i < 5; ++i) {
        f.menu << f.menu[1];
    }
    f.open();
    QWindow* const window = f.tree()->window()->windowHandle();
    // Nothing in the menu takes touches, so that they act as the left button does.
    QTest::touchEvent(window, screen).press(0, QPoint(60, 240), window);
    for (int y = 220; y > 140; y -= 20) {
        QTest::qWait(20); // a frame of the scrolling
        QTest::touchEvent(window, screen).move(0, QPoint(60, y), window);
    }
    QTRY_VERIFY(f.tree()->verticalScrollBar()->value() > 30);
    QTest::touchEvent(window, screen).release(0, QPoint(60, 160), window);
    QCoreApplication::processEvents();
    QVERIFY(f.isOpen() && f.chosen.isEmpty());
}

void tst_subscribe_selecter::staysOnTheScreen()
{
    for (const bool isRightBottom : {false, true}) {
        SelecterFixture f;
        const QRect screen = f.window.screen()->availableGeometry();
        f.window.move((isRightBottom ? screen.bottomRight() - QPoint(100, 30) : QPoint()) -
                      f.selecter->pos());
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
    QString info = "untouched";
    const auto set = [&f](const QString& text) {
        return f.selecter->SetFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, "%int0%", text);
    };
    const auto get = [&] {
        return f.selecter->GetFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, "%int0%", info);
    };
    const auto shown = [&f] { return f.field->text() + '|' + f.field->toolTip(); };
    // A choice that was refused does not stay.
    f.selecter->SetEdiSubscribeText("5.Refused");
    QVERIFY(get() == -1 && shown() == "|" && info == "untouched");

    f.core.missingSources << "5.Gone";
    QVERIFY(set("5.Gone") == 0 && get() == 0);
    f.selecter->SetEdiSubscribeText(info);
    QVERIFY(shown().startsWith("5.Gone|5.Gone") && shown().contains("no such value"));
    f.selecter->SetEdiSubscribeText("5.Count");
    QCOMPARE(shown(), QString("5.Count|5.Count"));

    f.core.fault = [](int, const QString&) { return CommandResult(Failed, "no"); };
    QVERIFY(set("5.A") == -1 && get() == -1);
    QVERIFY(shown().startsWith("|") && shown().contains("could not be read"));
    f.core.fault = nullptr;
    for (const int answer : {0, -1}) {
        QCOMPARE(f.selecter->DelFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, "%int0%"), answer);
        QCOMPARE(shown(), QString("|"));
    }
}

// The name of the value under its group, without the module's number; a binding that is none, in words.
void tst_subscribe_selecter::looks()
{
    SelecterFixture f;
    QCOMPARE(f.field->size(), QSize(75, 30));
    const auto half = [&f](const QString& text, int y) {
        f.selecter->SetEdiSubscribeText(text);
        return f.field->grab({0, y, 75, 15 - qMin(y, 3)}).toImage();
    };
    for (const int y : {0, 15}) {
        const QImage image = half("5.Mean.Radius", y);
        QVERIFY(image == half("17.Mean.Radius", y));
        QVERIFY((image == half("5.Mean.Area", y)) == (y == 0));
        QVERIFY((image == half("5.Max.Radius", y)) == (y != 0) && image != half("5.Radius", y));
    }
    QVERIFY(half("5.Mean.SmoothnessWorst", 15) != half("5.Mean.SmoothnessWorse", 15));
    const QImage nothing = half("", 3);
    f.field->setText(" ");
    QVERIFY(nothing != f.field->grab({0, 3, 75, 12}).toImage());
}

QTEST_MAIN(tst_subscribe_selecter)
#include "tst_subscribe_selecter.moc"
