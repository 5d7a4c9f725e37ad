#include "QZelCommonControl/QmlRangeSliderView.h"

#include <QQmlEngine>
#include <QQuickWidget>
#include <QSignalSpy>
#include <QtTest>

#include <cmath>

namespace {

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
    QPoint at(double position) const { return {12 + qRound(position * (view.width() - 24)), 12}; }
    QVector<int> moved() const
    {
        return changes.isEmpty() ? QVector<int>()
                                 : QVector<int>{changes.last()[0].toInt(), changes.last()[1].toInt()};
    }

    QmlRangeSliderView view;
    QSignalSpy changes{&view, &QmlRangeSliderView::sigRangeSliderChange};
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
    void scale();
    void drags();
    void steps();
    void costsNothingUntilShown();
    void mouse();
    void keysAndWheel();
    void drawsUnderEveryLocale();
};

void tst_range_slider::scale()
{
    const std::tuple<int, int, QVector<int>> cases[] = {
        {-999999999, 999999999, {-999999999, -999999998, -1000, -1, 0, 1, 2, 17, 1000, 999999999}},
        {-100000, 100000, {-100000, -99999, 0, 3, 12345, 100000}},
        {0, 100, {0, 1, 50, 99, 100}},
        {5000, 9000, {5000, 5001, 7777, 9000}},
        {10, -10, {-10, 0, 10}},
        {7, 7, {7}}};
    for (const auto& [min, max, values] : cases) {
        const RangeScale scale(min, max);
        double before = -1.0;
        for (const int value : values) {
            const double position = scale.positionOf(value);
            QVERIFY(position > before && position >= 0.0 && position <= 1.0);
            QCOMPARE(scale.valueAt(position), value);
            before = position;
        }
        QCOMPARE(scale.valueAt(-1.0), qMin(min, max));
        QCOMPARE(scale.valueAt(2.0), qMax(min, max));
        QCOMPARE(scale.positionOf(1e300), scale.positionOf(qMax(min, max)));
    }
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
        {"not a number is ignored", std::nan(""), 80, 0.8, 0.7, 0, 70},
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

void tst_range_slider::mouse()
{
    SliderFixture f(0, 100, 20, 80);
    const auto moveTo = [&f](const QPoint& place, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, place, Qt::NoButton, buttons, {});
        QApplication::sendEvent(&f.view, &event);
    };
    QTest::mousePress(&f.view, Qt::LeftButton, {}, f.at(0.2));
    moveTo(f.at(0.2) + QPoint(2, 0), Qt::LeftButton);
    QVERIFY2(f.changes.isEmpty(), "a trembling finger moved a bound");
    moveTo(f.at(0.4), Qt::LeftButton);
    QCOMPARE(f.moved(), QVector<int>({40, 80}));
    QTest::mouseRelease(&f.view, Qt::LeftButton, {}, f.at(0.4));
    moveTo(f.at(0.6), Qt::NoButton);
    QCOMPARE(f.moved(), QVector<int>({40, 80}));
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
        const QPointF place = f.at(position);
        QWheelEvent event(place, f.view.mapToGlobal(place.toPoint()), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&f.view, &event);
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
