#include "FakeCore.h"
#include "LogCapture.h"
#include "QZelCommonControl/ButtonSelecterView.h"
#include "QZelCommonControl/QmlRangeSliderView.h"

#include <QQmlEngine>
#include <QScroller>
#include <QtTest>
#include <QtWidgets>

#include <cmath>
#include <cstring>

using namespace ZelCommon;
using namespace ZelCore;
using Bounds = std::pair<int, int>;

namespace {

const Bounds none(-1, -1);

// A slider, shown.
struct Slider
{
    Slider(int min, int max, double lower, double upper)
    {
        QObject::connect(&view, &QmlRangeSliderView::sigRangeSliderChange, [this](int first, int second) {
            moved = {first, second};
        });
        view.SetRange(min, max);
        set(lower, upper);
        view.setGeometry(100, 100, 230, 25);
        view.show();
    }

    void set(double lower, double upper)
    {
        view.SetCurrentMinD(lower);
        view.SetCurrentMaxD(upper);
    }
    // The middle of a handle. The travel of a handle's middle begins and ends 12 px from the edges.
    QPoint at(double position) const { return {12 + qRound(position * (view.width() - 24)), 8}; }
    void move(const QPoint& place, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        QMouseEvent event(QEvent::MouseMove, place, Qt::NoButton, buttons, {});
        QApplication::sendEvent(&view, &event);
    }
    void wheel(double position, int angle, Qt::KeyboardModifiers modifiers = {})
    {
        QWheelEvent event(at(position), {}, {}, {0, angle}, {}, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
    }

    QmlRangeSliderView view;
    // The bounds that were reported last.
    Bounds moved = none;
};

const char* const menuText = R"([
    {"label": "1 Camera", "isTitle": true, "level": 1, "subnodes": [
        {"label": "Width", "isTitle": false, "level": 2, "subscribeName": "1.Width"}]},
    {"label": "5 Blob", "isTitle": true, "level": 1, "subnodes": [
        {"label": "Count", "isTitle": false, "level": 2, "subscribeName": "5.Count"},
        {"label": "Mean", "isTitle": true, "level": 2, "subnodes": [
            {"label": "Radius", "isTitle": false, "level": 3, "subscribeName": "5.Mean.Radius"}]}]}])";

// A selector in a host's window with a push button; asked for a menu it answers with the one above.
struct Selecter
{
    Selecter()
    {
        window.resize(600, 200);
        view->SetFixedSize(100, 30);
        view->move(20, 20);
        neighbour->setGeometry(450, 120, 80, 30);
        QObject::connect(view, &ButtonSelecterView::sigQuerySubscribeMenuInfo, view,
                         [this] { view->UpdateSubscribeMenuData(menu, 0); });
        window.show();
    }

    void open() const { view->findChild<QToolButton*>()->click(); }
    QTreeView* tree() const { return view->findChild<QTreeView*>(); }
    QLineEdit* filter() const { return tree()->parentWidget()->findChild<QLineEdit*>(); }
    bool isOpen() const { return tree() && tree()->window()->isVisible(); }
    QString entries() const
    {
        QStringList labels;
        for (auto i = tree()->model()->index(0, 0); i.isValid(); i = tree()->indexBelow(i)) {
            labels << i.data().toString();
        }
        return labels.join('|');
    }
    QString shown() const { return field->text() + '|' + field->toolTip(); }

    FakeCore core;
    QWidget window;
    QPointer<ButtonSelecterView> view = new ButtonSelecterView(&window);
    QLineEdit* field = view->findChild<QLineEdit*>();
    QPushButton* neighbour = new QPushButton(&window);
    QJsonArray menu = QJsonDocument::fromJson(menuText).array();
    QSignalSpy chosen{view, &ButtonSelecterView::sigEdiSubscribeInfoChanged};
};

// What a call throws, "" when it does not.
template <typename Call>
QByteArray thrownBy(const Call& call)
{
    try {
        call();
    } catch (const ZelException& exception) {
        return exception.ErrorCode() == 0 ? exception.what() : "wrong error code";
    }
    return {};
}

} // namespace

/// What the panel has of its platform: the client of the core, and the controls.
class tst_platform : public QObject
{
    Q_OBJECT

private slots:
    void serviceAccess();
    void commands();
    void recordsOwnTheirItems();
    void sliderWithoutItsScene();
    void scale();
    void handles();
    void pressWhileBoundsAreSet();
    void wheel();
    void keysChoose();
    void clicksChoose();
    void sizesOfMenus();
    void bindings();
};

void tst_platform::serviceAccess()
{
    using Service = ICommandService;
    using Function = std::function<Service*()>;
    // The first word of a pointer to a virtual function holds the offset in the table of them, where the
    // destructor has the first two places.
    const auto placeOf = [](auto function) {
        std::size_t offset = 0;
        std::memcpy(&offset, &function, sizeof offset);
        return offset / sizeof(void*);
    };
    QCOMPARE(placeOf(&ICommand::Key), 2u);
    QCOMPARE(placeOf(qOverload<ICommand&>(&Service::Execute)), 2u);
    QCOMPARE(placeOf(qOverload<const void*, ICommand&>(&Service::Execute)), 3u);
    QCOMPARE(placeOf(&Any::Base::Clone), 3u);

    IocContainar& container = IocContainar::Instance();
    const std::string key = IocContainar::KeyOf<Service>();
    const auto resolve = [&container] { return container.Resolve<Service>(); };
    {
        FakeCore core;
        QVERIFY(container.IsRegister(key.c_str()) && resolve() == &core);
    }
    QCOMPARE(thrownBy(resolve), QByteArray("Containar is not Build"));
    container.Build();
    SetRunParamCommand command(7, "LogicalMode", "1");
    QCOMPARE(ExecuteCommand(command).Status, Failed);
    container.RegisterType(std::string(key), Function());
    QVERIFY(!resolve());
    container.RegisterType(std::string(key), 5);
    QCOMPARE(thrownBy(resolve),
             QByteArray("Can not cast TypeName:[i] to  TypeName:[") + typeid(Function).name() + ']');
    const Any number(5);
    Any copy(number);
    copy = std::string("text");
    QVERIFY(number.Cast<int>() == 5 && copy.Type() == typeid(std::string) && Any().Type() == typeid(void));
}

// Commands refuse null texts and copy what they carry.
void tst_platform::commands()
{
    UInt length = 0;
    const char* const null = nullptr;
    const QByteArray runParam = "SetRunParamCommand(UInt& moduleID, char* paramName,char* val) ";
    const QByteArray uiData =
        "SetUIDataCommand(const UInt& moduleID, const char* paramName, const char* data, UInt& dataLen) ";
    const auto subscribe = [=] { SUBSCRIBE_CONDITION__(1, null); };
    const auto uiCondition = [=] { UI_OBJECT_PARAM_INFO_CONDITION__(1, null); };
    QCOMPARE(thrownBy([=] { SetRunParamCommand(1, null, "1"); }), runParam + "[paramName] is nullptr");
    QCOMPARE(thrownBy([=] { SetRunParamCommand(1, "name", null); }), runParam + "[val] is nullptr");
    QCOMPARE(thrownBy([=] { SetBinaryDataCommand(1, null, "a", 1); }), uiData + "[paramName] is nullptr");
    QCOMPARE(thrownBy([=] { SetBinaryDataCommand(1, "name", null, 0); }), uiData + "[data] is nullptr");
    QCOMPARE(thrownBy([&] { SetUIDataCommand(1, null, "a", length); }), uiData + "[paramName] is nullptr");
    QCOMPARE(thrownBy([&] { SetUIDataCommand(1, "name", null, length); }), uiData + "[data] is nullptr");
    QCOMPARE(thrownBy([=] { DeleteUIDataCommand(1, null); }), uiData + "[paramName] is nullptr");
    QCOMPARE(thrownBy(subscribe), QByteArray("SUBSCRIBE_CONDITION__ [varType] is nullptr"));
    QCOMPARE(thrownBy(uiCondition), QByteArray("IOUnSubscribeCommand [paramName] is nullptr"));

    // Texts are cut to the field.
    const QByteArray longText(2000, 'x');
    QCOMPARE(TextOf(BINARY_DATA_CONDITION__(1, longText).ParamName).size(), 255u);
    QCOMPARE(TextOf(SetUIDataCommand(1, longText, "", length).ParamName).size(), 127u);
    QCOMPARE(TextOf(SetRunParamCommand(1, longText, longText).Val).size(), 511u);
    QCOMPARE(TextOf(CommandResult(Failed, longText).Message).size(), 1023u);
    QCOMPARE(qstrlen(ZelException("%s", longText.constData()).what()), 1023u);
    char fields[2][4] = {{'a', 'b', 'c', 'd'}, "efg"};
    QCOMPARE(TextOf(fields[0]).size(), 4u);
    FillText(fields[0], "h");
    QCOMPARE(QByteArray(*fields, sizeof fields), QByteArray("h\0\0\0efg\0", 8));

    // The leak checker sees data that nobody frees, the address checker data that is freed twice.
    static_assert(!std::is_copy_constructible_v<SetBinaryDataCommand> &&
                  !std::is_copy_constructible_v<SetUIDataCommand>);
    char bytes[] = {'a', '\0', 'b'};
    std::unique_ptr<char[]> taken;
    {
        SetBinaryDataCommand command(1, "IFText", bytes, 3, 5000);
        bytes[0] = 'c';
        taken.reset(command.Data);
        command.DataLen = 0; // the command no longer owns the data
    }
    QCOMPARE(QByteArray(taken.get(), 3), QByteArray("a\0b", 3));
    QVERIFY(SetBinaryDataCommand(1, "IFText", bytes, 0).Data && SetUIDataCommand(1, "@", bytes, length).Data);
}

void tst_platform::recordsOwnTheirItems()
{
    SUBSCRIBE_TREE__ tree;
    tree.CreateList(2);
    tree.At(1).CreateList(3);
    SUBSCRIBE_NODE__& leaf = tree.At(1).At(2);
    leaf.ModuleID = 5;
    leaf.CreateList(4);
    FillText(leaf.NodeName, "leaf");
    FillText(leaf.SubscribeName, "5.leaf");
    SUBSCRIBE_TREE__ copy(tree);
    FillText(leaf.NodeName, "other");
    copy = std::as_const(copy);
    // A child may be assigned to its parent.
    SUBSCRIBE_NODE__& node = copy.At(1);
    node = node.At(2);
    QVERIFY(node.ModuleID == 5 && node.Num() == 4);
    QVERIFY(TextOf(node.NodeName) == "leaf" && TextOf(node.SubscribeName) == "5.leaf");
    QVERIFY(thrownBy([&copy] { copy.At(2); }).contains("[2] of [2]"));
    QVERIFY(!thrownBy([&copy] { copy.At(-1); }).isEmpty());

    IO_INFO__ io;
    io.CreateList(1);
    io.At(0).Init("%int0%", "int", nullptr);
    io.At(0).ExtraData.CanSubscribe = false;
    io = io.At(0);
    QVERIFY(io.Num() == 0 && !io.ExtraData.CanSubscribe);
    QVERIFY(TextOf(io.ParamName) == "%int0%" && TextOf(io.VauleType) == "int");

    // A number without items counts as none.
    BINARY_DATA__ empty;
    empty.m_Num = 3;
    QVERIFY(empty.Num() == 0 && TextOf(empty).empty() && BINARY_DATA__(empty).m_Num == 0);
    QVERIFY(!thrownBy([&empty] { empty.At(0); }).isEmpty());
    empty.CreateList(0);
    QVERIFY(!empty.m_Items && empty.m_Num == 0);
}

void tst_platform::sliderWithoutItsScene()
{
    Q_CLEANUP_RESOURCE(QZelCommonControl);
    const auto restore = qScopeGuard([] {
        Q_INIT_RESOURCE(QZelCommonControl);
        delete qApp->findChild<QQmlEngine*>();
    });
    // An engine costs megabytes: none before one is shown, then one for all.
    const QmlRangeSliderView hidden;
    QVERIFY(hidden.findChildren<QObject*>().isEmpty() && !qApp->findChild<QQmlEngine*>());
    LogCapture log;
    const Slider first(0, 100, 20, 80);
    Slider s(0, 100, 20, 80);
    QTest::mouseClick(s.view.windowHandle(), Qt::LeftButton, {}, s.at(0.0));
    s.wheel(0.5, 120);
    QTest::keyClick(s.view.windowHandle(), Qt::Key_Right);
    QVERIFY(s.moved == none && !s.view.findChild<QLabel*>()->text().isEmpty());
    QVERIFY(log.warnings().size() == 1 && qApp->findChildren<QQmlEngine*>().size() == 1);
}

void tst_platform::scale()
{
    // The limits, the bounds, and the section that most of the slider shows.
    const std::tuple<int, int, double, double, int, int> cases[] = {
        {-999999999, 999999999, 12, 20, 0, 30},
        {-999999999, 999999999, 1, 1000, -1000, 2000},
        {-999999999, 999999999, 50, 50, 40, 60},
        {999999999, -999999999, -7e8, 233288247, -999999999, 999999999},
        {-100000, 100000, 99990, 1e300, 99980, 100000},
        {0, 5000, 120.5, 180.25, 50, 250},
        {0, 100, 12, 20, 0, 100},
        {7, 7, 7, 7, 7, 7}};
    for (const auto& [min, max, lower, upper, sectionMin, sectionMax] : cases) {
        const RangeScale scale(min, max, lower, upper);
        QCOMPARE(Bounds(scale.sectionMinimum(), scale.sectionMaximum()), Bounds(sectionMin, sectionMax));
        QVERIFY(scale.positionOf(sectionMax) - scale.positionOf(sectionMin) > 0.7 || min == max);
        // Every value has its place, and they are in order.
        double before = 0.0;
        const auto& [low, high] = std::minmax(min, max);
        for (const int value : {low, qMax(low, sectionMin - 1), sectionMin, sectionMax, high}) {
            const double position = scale.positionOf(value);
            QVERIFY(position >= before && position <= 1.0);
            QCOMPARE(scale.valueAt(position), value);
            before = position;
        }
        QCOMPARE(Bounds(scale.valueAt(-1.0), scale.valueAt(2.0)), Bounds(low, high));
    }
    // Before any bound is set.
    RangeSliderState state;
    for (const auto& [max, lower, upper] : {std::tuple(500000, 1, 1000), {100, 1, 100}, {0, 0, 0}}) {
        state.setRange(-10, max);
        QCOMPARE(Bounds(state.lower(), state.upper()), Bounds(lower, upper));
    }
    // A drag into an end zone moves the section when the slider opens the next time, not before.
    state.setRange(-999999999, 999999999);
    state.press(state.upperPosition(), 0.03);
    state.drag(0.95);
    QCOMPARE(state.scale().sectionMaximum(), 2000);
    QVERIFY(state.upper() > 10000);
}

void tst_platform::handles()
{
    // The bounds set, where they are pressed and dragged to, steps after that, and the new bounds.
    const std::tuple<const char*, double, double, double, double, int, Bounds> cases[] = {
        {"a handle keeps its distance to the finger", 20, 80, 0.81, 0.71, 0, {20, 70}},
        {"lower stops at upper", 20, 80, 0.2, 0.9, 0, {80, 80}},
        {"upper stops at lower", 20, 80, 0.8, 0.1, 0, {20, 20}},
        {"set beyond the ends", -50, 80, 0.8, 0.7, 0, {0, 70}},
        {"away from the handles the nearer one comes", 20, 80, 0.05, 0.05, 0, {5, 80}},
        {"the middle moves both and stops at the end", 20, 80, 0.5, 1.0, 0, {40, 100}},
        {"one place, to the left", 50, 50, 0.5, 0.4, -5, {35, 50}},
        {"one place, to the right", 50, 50, 0.5, 0.6, 0, {50, 60}},
        {"away from one place", 50, 50, 0.1, 0.1, 0, {10, 50}},
        {"not a number is ignored", std::nan(""), 80, 0.8, 0.7, 0, {1, 70}},
        {"fractions are rounded", 20.4, 80.6, 0.204, 0.304, 0, {30, 81}},
        {"set in the wrong order", 80, 20, 0.2, 0.1, 0, {10, 80}},
        {"a step of upper, from a fraction", 0, 80.25, 0.8025, 0.8025, 1, {0, 81}},
        {"steps of both", 20, 80, 0.5, 0.5, 30, {40, 100}},
        {"steps stop at the other", 75, 80, 0.75, 0.75, 10, {80, 80}}};
    for (const auto& [what, lower, upper, from, to, steps, bounds] : cases) {
        RangeSliderState state;
        state.setRange(0, 100);
        state.setLower(lower);
        state.setUpper(upper);
        state.press(from, 0.03);
        if (to != from) {
            state.drag(to);
        }
        state.release();
        QVERIFY2(!state.drag(0.45), what);
        state.step(steps);
        QVERIFY2(Bounds(state.lower(), state.upper()) == bounds, what);
    }
}

// A press activates the slider's window; the field that loses the focus by that sets other bounds.
void tst_platform::pressWhileBoundsAreSet()
{
    for (const bool isSetFirst : {true, false}) {
        Slider s(0, 100, 10, 20);
        if (isSetFirst) {
            QApplication::setActiveWindow(&s.view);
            s.set(18, 90);
        }
        QTest::mousePress(&s.view, Qt::LeftButton, {}, s.at(0.2));
        s.set(18, 90);
        s.move(s.at(0.2) + QPoint(2, 0));
        QVERIFY2(s.moved == none, "a trembling finger moved a bound");
        s.move(s.at(0.4));
        QCOMPARE(s.moved, Bounds(18, 40));
        QTest::mouseRelease(&s.view, Qt::LeftButton, {}, s.at(0.4));
        // A slider that was active before is pressed at its new handles.
        QApplication::setActiveWindow(nullptr);
        QApplication::setActiveWindow(&s.view);
        s.set(60, 90);
        s.move(s.at(0.6), Qt::NoButton);
        QCOMPARE(s.moved, Bounds(18, 40));
        QTest::mousePress(&s.view, Qt::LeftButton, {}, s.at(0.6));
        s.move(s.at(0.7));
        QCOMPARE(s.moved, Bounds(70, 90));
        const auto colorAt = [&s](double place) { return s.view.grab().toImage().pixelColor(s.at(place)); };
        QTRY_COMPARE(colorAt(0.8), QColor(231, 105, 0));
        QVERIFY(colorAt(0.6) != QColor(231, 105, 0));
    }
}

// The wheel moves the handle under the pointer, in whole notches.
void tst_platform::wheel()
{
    Slider s(-999999999, 999999999, 1, 1000);
    s.wheel(1.0, 60);
    QCOMPARE(s.moved, none);
    s.wheel(1.0, 60);
    QCOMPARE(s.moved, Bounds(1, 1001));
    s.wheel(0.0, -120, Qt::ShiftModifier);
    QCOMPARE(s.moved, Bounds(-9, 1001));
    // Opened again it shows -30 to 20.
    s.set(-10, 5.0);
    s.view.hide();
    s.view.show();
    QTest::mouseClick(&s.view, Qt::LeftButton, {}, s.at(0.88));
    QCOMPARE(s.moved, Bounds(-10, 20));
}

void tst_platform::keysChoose()
{
    const QString all = "not bound|1 Camera|Width|5 Blob|Count|Mean|Radius";
    // The present value, what is typed as filter, what is shown then, the keys and what they choose.
    const std::tuple<QString, QString, QString, QVector<Qt::Key>, QVariantList> cases[] = {
        {"5.Count", "", all, {Qt::Key_Down, Qt::Key_Enter}, {"5.Mean.Radius"}},
        {"5.Count", "", all, {Qt::Key_Up, Qt::Key_Return}, {"1.Width"}},
        {"5.Mean.Radius", " ", all, {Qt::Key_Down, Qt::Key_Return}, {"5.Mean.Radius"}},
        {"5.Mean.Radius", "", all, {Qt::Key_PageUp, Qt::Key_Return}, {""}},
        {"1.Width", " MEAN  5 ", "5 Blob|Mean|Radius", {Qt::Key_Escape}, {}},
        {"1.Width", "blob", "5 Blob|Count|Mean|Radius", {Qt::Key_Return}, {"5.Count"}},
        {"1.Width", ".", all.mid(10), {Qt::Key_Return}, {"1.Width"}},
        {"1.Width", "xyz", "", {Qt::Key_Return, Qt::Key_Escape}, {}}};
    for (const auto& [present, typed, entries, keys, chosen] : cases) {
        Selecter s;
        s.view->SetEdiSubscribeText(present);
        s.open();
        QTest::keyClicks(s.filter(), typed);
        QCOMPARE(s.entries(), entries);
        for (const Qt::Key key : keys) {
            QTest::keyClick(s.filter(), key);
        }
        QVERIFY(!s.isOpen());
        QCoreApplication::processEvents();
        QCOMPARE(s.chosen.value(0), chosen);
        QCOMPARE(s.field->text(), chosen.value(0, present).toString());
    }
}

void tst_platform::clicksChoose()
{
    Selecter s;
    QSignalSpy clicked(s.neighbour, &QPushButton::clicked);
    s.open();
    // A finger scrolls as the left button does.
    QVERIFY(QScroller::hasScroller(s.tree()->viewport()));
    const QAbstractItemModel* const model = s.tree()->model();
    for (const QModelIndex& index : {model->index(1, 0), model->index(0, 0, model->index(1, 0))}) {
        QVERIFY(s.isOpen() && s.chosen.isEmpty());
        const QRect place = s.tree()->visualRect(index);
        QVERIFY(place.height() >= 30);
        QTest::mouseClick(s.tree()->viewport(), Qt::LeftButton, {}, place.center());
    }
    QVERIFY(!s.isOpen());
    QTRY_COMPARE(s.chosen.value(0), QVariantList({"1.Width"}));

    // A click outside closes the menu and is delivered; one on the field must not open it again.
    for (const QWidget* const widget : std::initializer_list<QWidget*>{s.neighbour, s.view}) {
        s.open();
        QTest::mouseClick(s.window.windowHandle(), Qt::LeftButton, {}, widget->geometry().center());
        QCoreApplication::processEvents();
        QVERIFY(!s.isOpen() && clicked.count() == 1);
    }
    // Who answers a choice may destroy the selector.
    QObject::connect(s.view, &ButtonSelecterView::sigEdiSubscribeInfoChanged, &s.window,
                     [&s] { delete s.view; });
    s.open();
    QTest::keyClick(s.filter(), Qt::Key_Return);
    QTRY_VERIFY(!s.view);
}

void tst_platform::sizesOfMenus()
{
    Selecter s;
    QJsonArray leaves;
    for (int i = 0; i < 10000; ++i) {
        leaves << QJsonObject{{"label", QString("leaf%1").arg(i)}, {"subscribeName", QString::number(i)}};
    }
    const QRect screen = s.window.screen()->availableGeometry();
    s.window.move(screen.bottomRight() - QPoint(100, 30) - s.view->pos());
    QCoreApplication::processEvents();
    s.menu = {QJsonObject{{"label", "group"}, {"isTitle", true}, {"subnodes", leaves}}};
    s.view->SetEdiSubscribeText("7777");
    s.open();
    const QModelIndex current = s.tree()->currentIndex();
    QCOMPARE(current.data(Qt::ToolTipRole).toString(), QString("group / leaf7777\n7777"));
    QVERIFY(s.tree()->viewport()->rect().contains(s.tree()->visualRect(current).center()));
    // Beside the selector, on the screen.
    const QRect popup = s.tree()->window()->geometry();
    const QRect owner(s.view->mapToGlobal(QPoint()), s.view->size());
    QVERIFY(screen.contains(popup) && popup.height() > 100);
    QVERIFY(!popup.intersects(owner) && popup.adjusted(0, -1, 0, 1).intersects(owner));
    s.menu = {};
    s.view->SetHide();
    QVERIFY(!s.isOpen());
    s.open();
    QVERIFY(s.entries() == "not bound" && s.tree()->parentWidget()->findChild<QLabel*>()->isVisible());
}

void tst_platform::bindings()
{
    Selecter s;
    QString info = "untouched";
    const auto set = [&s](const QString& text) {
        return s.view->SetFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, "%int0%", text);
    };
    const auto get = [&] {
        return s.view->GetFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, "%int0%", info);
    };
    // A choice that was refused does not stay.
    s.view->SetEdiSubscribeText("5.Refused");
    QVERIFY(get() == -1 && s.shown() == "|" && info == "untouched");

    s.core.missingSources << "5.Gone";
    QVERIFY(set("5.Gone") == 0 && get() == 0);
    s.view->SetEdiSubscribeText(info);
    QVERIFY(s.shown().startsWith("5.Gone|5.Gone") && s.shown().contains("no such value"));
    s.view->SetEdiSubscribeText("5.Count");
    QCOMPARE(s.shown(), QString("5.Count|5.Count"));

    s.core.fault = [](const QString&) { return CommandResult(Failed, "no"); };
    QVERIFY(set("5.A") == -1 && get() == -1);
    QVERIFY(s.shown().startsWith("|") && s.shown().contains("could not be read"));
    s.core.fault = nullptr;
    for (const int answer : {0, -1}) {
        s.view->SetEdiSubscribeText("5.Count");
        QCOMPARE(s.view->DelFilterSourceOperation4IO(7, SUBSCRIBE_TYPE_IO, "%int0%"), answer);
        QCOMPARE(s.shown(), QString("|"));
    }
    // The field shows the group and the name of the value without the module's number, and a text when
    // nothing is bound.
    QCOMPARE(s.field->size(), QSize(75, 30));
    const auto picture = [&s](const QString& text) {
        s.view->SetEdiSubscribeText(text);
        return s.field->grab().toImage();
    };
    const QImage radius = picture("5.Mean.Radius");
    QVERIFY(radius == picture("17.Mean.Radius"));
    for (const char* const other : {"5.Mean.Area", "5.Max.Radius", "5.Radius"}) {
        QVERIFY2(radius != picture(other), other);
    }
    QVERIFY(picture("5.Mean.SmoothnessWorst") != picture("5.Mean.SmoothnessWorse"));
    QVERIFY(picture("") != picture(" "));
}

QTEST_MAIN(tst_platform)
#include "tst_platform.moc"
