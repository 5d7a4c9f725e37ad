#include "LogCapture.h"
#include "QZelCommonControl/QmlRangeSliderView.h"

#include <QQmlEngine>
#include <QtTest>
#include <QtWidgets>

#include <cmath>

using Bounds = std::pair<int, int>;

namespace {

// A slider, shown.
struct SliderFixture
{
    SliderFixture(int min, int max, double lower, double upper)
    {
        view.SetRange(min, max);
        tell(lower, upper);
        view.setGeometry(100, 100, 230, 25);
        view.show();
    }

    void tell(double lower, double upper)
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
    Bounds moved() const
    {
        const QVariantList last = changes.value(changes.size() - 1);
        return {last.value(0, -1).toInt(), last.value(1, -1).toInt()};
    }

    QmlRangeSliderView view;
    QSignalSpy changes{&view, &QmlRangeSliderView::sigRangeSliderChange};
};

} // namespace

class tst_range_slider : public QObject
{
    Q_OBJECT

private slots:
    void withoutItsScene();
    void scale();
    void handles();
    void pressWhileBoundsAreTold();
    void wheel();
};

void tst_range_slider::withoutItsScene()
{
    QTemporaryDir modules;
    QVERIFY(QDir(modules.path()).mkpath("QtQuick.2"));
    QFile broken(modules.filePath("QtQuick.2/qmldir"));
    QVERIFY(broken.open(QFile::WriteOnly) && broken.write("module QtQuick\nplugin missing\n") > 0);
    broken.close();
    qputenv("QML2_IMPORT_PATH", modules.path().toLocal8Bit());
    // An engine costs megabytes: none before one is shown, then one for all.
    const QmlRangeSliderView hidden;
    QVERIFY(hidden.findChildren<QObject*>().isEmpty() && !qApp->findChild<QQmlEngine*>());
    LogCapture log;
    for (int i = 0; i < 2; ++i) {
        SliderFixture f(0, 100, 20, 80);
        QTest::mouseClick(f.view.windowHandle(), Qt::LeftButton, {}, f.at(0.0));
        f.wheel(0.5, 120);
        QTest::keyClick(f.view.windowHandle(), Qt::Key_Right);
        QVERIFY(f.changes.isEmpty() && !f.view.findChild<QLabel*>()->text().isEmpty());
    }
    QVERIFY(log.warnings().size() == 1 && qApp->findChildren<QQmlEngine*>().size() == 1);
    qunsetenv("QML2_IMPORT_PATH");
    delete qApp->findChild<QQmlEngine*>();
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
    // Where nothing was told.
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
    state.fitScale();
    QVERIFY(state.upper() > 10000 && state.scale().sectionMaximum() > state.upper());
}

void tst_range_slider::handles()
{
    // The bounds told, where they are pressed and dragged to, steps after that, and the new bounds.
    const std::tuple<const char*, double, double, double, double, int, Bounds> cases[] = {
        {"lower", 20, 80, 0.2, 0.3, 0, {30, 80}},
        {"a handle keeps its distance to the finger", 20, 80, 0.81, 0.71, 0, {20, 70}},
        {"lower stops at upper", 20, 80, 0.2, 0.9, 0, {80, 80}},
        {"upper stops at lower", 20, 80, 0.8, 0.1, 0, {20, 20}},
        {"beside the handles the nearer one comes", 20, 80, 0.05, 0.05, 0, {5, 80}},
        {"the middle moves both", 20, 80, 0.5, 0.55, 0, {25, 85}},
        {"the middle stops at the end", 20, 80, 0.5, 1.0, 0, {40, 100}},
        {"one place, to the left", 50, 50, 0.5, 0.4, 0, {40, 50}},
        {"one place, to the right", 50, 50, 0.5, 0.6, 0, {50, 60}},
        {"one place at the end", 100, 100, 1.0, 0.9, 0, {90, 100}},
        {"fractions are rounded", 20.4, 80.6, 0.204, 0.304, 0, {30, 81}},
        {"told in the wrong order", 80, 20, 0.2, 0.1, 0, {10, 80}},
        {"told beyond the ends", -50, 80, 0.8, 0.7, 0, {0, 70}},
        {"not a number is ignored", std::nan(""), 80, 0.8, 0.7, 0, {1, 70}},
        {"steps of upper", 20, 80, 0.8, 0.8, 1, {20, 81}},
        {"steps of lower", 20, 80, 0.2, 0.2, -10, {10, 80}},
        {"steps of both", 20, 80, 0.5, 0.5, 30, {40, 100}},
        {"steps stop at the other", 75, 80, 0.75, 0.75, 10, {80, 80}},
        {"a step from a fraction", 0, 80.25, 0.8025, 0.8025, -1, {0, 80}}};
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

// A press activates the slider's window; the field that loses the focus by that tells other bounds.
void tst_range_slider::pressWhileBoundsAreTold()
{
    for (const bool isToldFirst : {true, false}) {
        SliderFixture f(0, 100, 10, 20);
        if (isToldFirst) {
            QApplication::setActiveWindow(&f.view);
            f.tell(18, 90);
        }
        QTest::mousePress(&f.view, Qt::LeftButton, {}, f.at(0.2));
        f.tell(18, 90);
        f.move(f.at(0.2) + QPoint(2, 0));
        QVERIFY2(f.changes.isEmpty(), "a trembling finger moved a bound");
        f.move(f.at(0.4));
        QCOMPARE(f.moved(), Bounds(18, 40));
        QTest::mouseRelease(&f.view, Qt::LeftButton, {}, f.at(0.4));
        // Not so where the slider was active before and the pointer is over the new handles.
        QApplication::setActiveWindow(nullptr);
        QApplication::setActiveWindow(&f.view);
        f.tell(60, 90);
        f.move(f.at(0.6), Qt::NoButton);
        QCOMPARE(f.moved(), Bounds(18, 40));
        QTest::mousePress(&f.view, Qt::LeftButton, {}, f.at(0.6));
        f.move(f.at(0.7));
        QCOMPARE(f.moved(), Bounds(70, 90));
        const auto colorAt = [&f](double place) { return f.view.grab().toImage().pixelColor(f.at(place)); };
        QTRY_COMPARE(colorAt(0.8), QColor(231, 105, 0));
        QVERIFY(colorAt(0.6) != QColor(231, 105, 0));
    }
}

// The wheel moves the handle under the pointer, in whole notches.
void tst_range_slider::wheel()
{
    SliderFixture f(-999999999, 999999999, 1, 1000);
    f.wheel(1.0, 60);
    QVERIFY(f.changes.isEmpty());
    f.wheel(1.0, 60);
    QCOMPARE(f.moved(), Bounds(1, 1001));
    f.wheel(0.0, -120, Qt::ShiftModifier);
    QCOMPARE(f.moved(), Bounds(-9, 1001));
    // Opened again it shows -30 to 20.
    f.tell(-10, 5.0);
    f.view.hide();
    f.view.show();
    QTest::mouseClick(&f.view, Qt::LeftButton, {}, f.at(0.88));
    QCOMPARE(f.moved(), Bounds(-10, 20));
}

QTEST_MAIN(tst_range_slider)
#include "tst_range_slider.moc"
