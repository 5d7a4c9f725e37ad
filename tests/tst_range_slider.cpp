#include "LogCapture.h"
#include "QZelCommonControl/QmlRangeSliderView.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QQmlEngine>
#include <QQuickWidget>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <functional>

namespace {

void sendMove(QWidget& widget, const QPoint& place, Qt::MouseButtons buttons = Qt::LeftButton)
{
    QMouseEvent event(QEvent::MouseMove, place, Qt::NoButton, buttons, {});
    QApplication::sendEvent(&widget, &event);
}

void sendWheel(QWidget& widget, const QPoint& place, int angle, Qt::KeyboardModifiers modifiers = {})
{
    QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, angle}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

// A wide slider between these ends, shown.
struct SliderFixture
{
    SliderFixture(int min, int max, double lower, double upper)
    {
        view.SetRange(min, max);
        view.SetCurrentMinD(lower);
        view.SetCurrentMaxD(upper);
        view.setGeometry(100, 100, 230, 25);
        view.show();
    }

    // The middle of a handle. The travel of a handle's middle begins and ends 12 px from the edges.
    QPoint at(double position) const { return {12 + qRound(position * (view.width() - 24)), 8}; }
    QVector<int> moved() const
    {
        return changes.isEmpty() ? QVector<int>()
                                 : QVector<int>{changes.last()[0].toInt(), changes.last()[1].toInt()};
    }

    QmlRangeSliderView view;
    QSignalSpy changes{&view, &QmlRangeSliderView::sigRangeSliderChange};
};

// A slider over the fields that it belongs to, in a list of a host's window. Its owner hides it when it is
// deactivated while neither field has the focus.
struct OwnedSlider : QObject
{
    OwnedSlider()
    {
        window.resize(300, 200);
        list->resize(300, 100);
        fields->resize(300, 30);
        second->move(100, 0);
        other->move(0, 120);
        view.installEventFilter(this);
        window.show();
        QApplication::setActiveWindow(&window);
        first->setFocus();
        view.show();
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::WindowDeactivate && !first->hasFocus() && !second->hasFocus()) {
            ++closings;
            view.hide();
        }
        return false;
    }

    QWidget window;
    QWidget* list = new QWidget(&window);
    QWidget* fields = new QWidget(list);
    QDoubleSpinBox* first = new QDoubleSpinBox(fields);
    QDoubleSpinBox* second = new QDoubleSpinBox(fields);
    QLineEdit* other = new QLineEdit(&window);
    QmlRangeSliderView view;
    int closings = 0;
};

RangeSliderState stateOf(double lower, double upper)
{
    RangeSliderState state;
    state.setRange(0, 100);
    state.setLower(lower);
    state.setUpper(upper);
    return state;
}

} // namespace

class tst_range_slider : public QObject
{
    Q_OBJECT

private slots:
    void withoutItsScene();
    void costsNothingUntilShown();
    void scale();
    void drags();
    void steps();
    void pressWhileBoundsAreTold();
    void keysAndWheel();
    void closes();
    void drawsUnderEveryLocale();
};

void tst_range_slider::withoutItsScene()
{
    QTemporaryDir modules;
    QVERIFY(QDir(modules.path()).mkpath("QtQuick/Controls.2"));
    QFile broken(modules.filePath("QtQuick/Controls.2/qmldir"));
    QVERIFY(broken.open(QFile::WriteOnly) && broken.write("module QtQuick.Controls\nplugin missing\n") > 0);
    broken.close();
    qputenv("QML2_IMPORT_PATH", modules.path().toLocal8Bit());
    const auto reset = qScopeGuard([] {
        qunsetenv("QML2_IMPORT_PATH");
        delete qApp->findChild<QQmlEngine*>();
    });
    LogCapture log;
    for (int i = 0; i < 2; ++i) {
        SliderFixture f(0, 100, 20, 80);
        QTest::mouseClick(f.view.windowHandle(), Qt::LeftButton, {}, f.at(0.0));
        sendMove(f.view, f.at(0.5));
        sendWheel(f.view, f.at(0.5), 120);
        QTest::keyClick(f.view.windowHandle(), Qt::Key_Right);
        QVERIFY(f.changes.isEmpty());
        QVERIFY(f.view.findChild<QLabel*>() && !f.view.findChild<QLabel*>()->text().isEmpty());
    }
    QCOMPARE(log.warnings().filter("range slider").size(), 1);
}

void tst_range_slider::costsNothingUntilShown()
{
    QmlRangeSliderView views[3];
    for (QmlRangeSliderView& view : views) {
        view.SetRange(0, 10);
        view.SetCurrentMaxD(5.0);
        QVERIFY(view.findChildren<QObject*>().isEmpty() && !view.windowHandle());
    }
    QVERIFY(!qApp->findChild<QQmlEngine*>());
    views[0].show();
    views[1].show();
    QCOMPARE(qApp->findChildren<QQmlEngine*>().size(), 1);
    QVERIFY(views[0].findChild<QQuickWidget*>()->errors().isEmpty());
}

void tst_range_slider::scale()
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
        QCOMPARE(scale.sectionMinimum(), sectionMin);
        QCOMPARE(scale.sectionMaximum(), sectionMax);
        QVERIFY(scale.positionOf(sectionMax) - scale.positionOf(sectionMin) > 0.7 || min == max);
        // Every value has its place, in order; the section and a step beyond it as well as the limits.
        QList<int> values{qMin(min, max), qMax(min, max), sectionMin, sectionMax};
        values << qMax(values[0], sectionMin - 1) << qMin(values[1], sectionMax + 1)
               << (sectionMin + sectionMax) / 2;
        std::sort(values.begin(), values.end());
        double before = 0.0;
        for (const int value : values) {
            const double position = scale.positionOf(value);
            QVERIFY(position >= before && position <= 1.0);
            QCOMPARE(scale.valueAt(position), value);
            before = position;
        }
        QCOMPARE(scale.valueAt(-1.0), values.first());
        QCOMPARE(scale.valueAt(2.0), values.last());
    }
    RangeSliderState state;
    for (const auto& [max, upper] : {std::pair(500000, 1000), {100, 100}, {0, 0}}) {
        state.setRange(-10, max);
        QCOMPARE(state.lower(), qMin(max, 1));
        QCOMPARE(state.upper(), upper);
    }
    // A drag into an end zone moves the section when the slider opens the next time, not before.
    state.setRange(-999999999, 999999999);
    state.press(state.upperPosition(), 0.03);
    state.drag(0.95);
    QCOMPARE(state.scale().sectionMaximum(), 2000);
    state.fitScale();
    QVERIFY(state.upper() > 10000 && state.scale().sectionMaximum() > state.upper());
}

void tst_range_slider::drags()
{
    struct Drag
    {
        const char* what;
        double lower, upper, from, to;
        int newLower, newUpper;
    };
    const Drag cases[] = {
        {"lower", 20, 80, 0.2, 0.3, 30, 80},
        {"upper", 20, 80, 0.8, 0.7, 20, 70},
        {"a handle keeps its distance to the finger", 20, 80, 0.81, 0.71, 20, 70},
        {"lower stops at upper", 20, 80, 0.2, 0.9, 80, 80},
        {"upper stops at lower", 20, 80, 0.8, 0.1, 20, 20},
        {"beside the handles the nearer one comes", 20, 80, 0.05, 0.05, 5, 80},
        {"beyond the upper one", 20, 80, 0.95, 0.95, 20, 95},
        {"the middle moves both", 20, 80, 0.5, 0.55, 25, 85},
        {"the middle stops at the end", 20, 80, 0.5, 1.0, 40, 100},
        {"one place, to the left", 50, 50, 0.5, 0.4, 40, 50},
        {"one place, to the right", 50, 50, 0.5, 0.6, 50, 60},
        {"one place at the end", 100, 100, 1.0, 0.9, 90, 100},
        {"fractions are rounded", 20.4, 80.6, 0.204, 0.304, 30, 81},
        {"told in the wrong order", 80, 20, 0.2, 0.1, 10, 80},
        {"told beyond the ends", -50, 80, 0.8, 0.7, 0, 70},
        {"not a number is ignored", std::nan(""), 80, 0.8, 0.7, 1, 70},
    };
    for (const Drag& drag : cases) {
        RangeSliderState state = stateOf(drag.lower, drag.upper);
        state.press(drag.from, 0.03);
        state.drag(drag.to);
        QVERIFY2(state.lower() == drag.newLower && state.upper() == drag.newUpper, drag.what);
        state.release();
        QVERIFY2(!state.drag(0.5), drag.what);
    }
}

void tst_range_slider::steps()
{
    // The bounds, the handle, the step and the new bounds.
    const std::tuple<double, double, double, int, int, int> cases[] = {
        {20, 80, 0.8, 1, 20, 81},   {20, 80, 0.2, -10, 10, 80}, {20, 80, 0.5, 30, 40, 100},
        {75, 80, 0.75, 10, 80, 80}, {0, 80.25, 0.8, 1, 0, 81},  {0, 80.25, 0.8, -1, 0, 80}};
    for (const auto& [lower, upper, press, by, newLower, newUpper] : cases) {
        RangeSliderState state = stateOf(lower, upper);
        state.press(press, 0.03);
        state.release();
        QVERIFY(state.step(by));
        QCOMPARE(state.lower(), newLower);
        QCOMPARE(state.upper(), newUpper);
    }
}

// A press activates the slider's window; the field that loses the focus by that tells other bounds.
void tst_range_slider::pressWhileBoundsAreTold()
{
    for (const bool isToldFirst : {true, false}) {
        SliderFixture f(0, 100, 10, 20);
        const auto tell = [&f] {
            f.view.SetCurrentMinD(18);
            f.view.SetCurrentMaxD(90);
        };
        if (isToldFirst) {
            QApplication::setActiveWindow(&f.view);
            tell();
        }
        QTest::mousePress(&f.view, Qt::LeftButton, {}, f.at(0.2));
        if (!isToldFirst) {
            tell();
        }
        sendMove(f.view, f.at(0.2) + QPoint(2, 0));
        QVERIFY2(f.changes.isEmpty(), "a trembling finger moved a bound");
        sendMove(f.view, f.at(0.4));
        QCOMPARE(f.moved(), QVector<int>({18, 40}));
        QTest::mouseRelease(&f.view, Qt::LeftButton, {}, f.at(0.4));
        sendMove(f.view, f.at(0.6), Qt::NoButton);
        QCOMPARE(f.moved(), QVector<int>({18, 40}));
    }
}

void tst_range_slider::keysAndWheel()
{
    SliderFixture f(-999999999, 999999999, 1, 1000);
    const auto press = [&f](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&f.view, key, modifiers);
        return f.moved();
    };
    QCOMPARE(press(Qt::Key_Right), QVector<int>({1, 1001}));
    QCOMPARE(press(Qt::Key_Down, Qt::ShiftModifier), QVector<int>({1, 991}));
    QCOMPARE(press(Qt::Key_Tab), QVector<int>({1, 991}));
    QCOMPARE(press(Qt::Key_Left), QVector<int>({0, 991}));

    // The wheel moves the handle under the pointer, in whole notches.
    const auto turn = [&f](double position, int angle, Qt::KeyboardModifiers modifiers = {}) {
        sendWheel(f.view, f.at(position), angle, modifiers);
        return f.moved();
    };
    QCOMPARE(turn(1.0, 60), QVector<int>({0, 991}));
    QCOMPARE(turn(1.0, 60), QVector<int>({0, 992}));
    QCOMPARE(turn(0.0, -120, Qt::ShiftModifier), QVector<int>({-10, 992}));

    const int count = f.changes.count();
    f.view.SetCurrentMaxD(5.0);
    QCOMPARE(press(Qt::Key_Escape).size(), 2);
    QVERIFY(!f.view.isVisible());
    QCOMPARE(f.changes.count(), count);
}

void tst_range_slider::closes()
{
    struct Action
    {
        const char* what;
        std::function<void(OwnedSlider&)> act;
        bool isClosed;
        bool isFieldLeft;
    };
    const Action actions[] = {
        {"focus elsewhere", [](OwnedSlider& o) { o.other->setFocus(); }, true, true},
        {"focus in the other field", [](OwnedSlider& o) { o.second->setFocus(); }, false, true},
        {"Escape", [](OwnedSlider& o) { QTest::keyClick(o.first, Qt::Key_Escape); }, true, false},
        {"another key", [](OwnedSlider& o) { QTest::keyClick(o.first, Qt::Key_1); }, false, false},
        {"wheel beside", [](OwnedSlider& o) { sendWheel(*o.list, {}, -120); }, true, false},
        {"wheel in the slider", [](OwnedSlider& o) { sendWheel(o.view, {}, -120); }, false, false},
        {"the list moves", [](OwnedSlider& o) { o.list->move(0, -30); }, true, false},
        {"the window moves", [](OwnedSlider& o) { o.window.move(50, 50); }, false, false},
    };
    for (const Action& action : actions) {
        OwnedSlider o;
        QVERIFY(o.first->hasFocus() && o.view.isVisible());
        QSignalSpy finished(o.first, &QDoubleSpinBox::editingFinished);
        action.act(o);
        QVERIFY2(o.closings == int(action.isClosed) && o.view.isVisible() != action.isClosed, action.what);
        QVERIFY2(o.first->hasFocus() != action.isFieldLeft, action.what);
        QVERIFY2(finished.count() == int(action.isFieldLeft), action.what);
    }
}

void tst_range_slider::drawsUnderEveryLocale()
{
    const auto reset = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    for (const QLocale& locale : {QLocale::c(), QLocale(QLocale::Arabic)}) {
        QLocale::setDefault(locale);
        SliderFixture f(0, 100, 10, 30);
        const QColor accent(231, 105, 0);
        const auto colorAt = [&f](double place) { return f.view.grab().toImage().pixelColor(f.at(place)); };
        QTRY_COMPARE(colorAt(0.2), accent);
        QTRY_VERIFY(colorAt(0.8) != accent);
        f.view.SetCurrentMaxD(90);
        QTRY_COMPARE(colorAt(0.8), accent);
    }
}

QTEST_MAIN(tst_range_slider)
#include "tst_range_slider.moc"
