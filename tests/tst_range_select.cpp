#include "LogCapture.h"
#include "PanelFixture.h"
#include "QIfModuleMainView.h"
#include "RangeSelectControlIM.h"

#include <QLocale>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryFile>

#include <unistd.h>

#include <cstdio>

namespace {

using Strip = RangeSelectControlIM;

const QString editSheet =
    QStringLiteral("background-image: url(:/img_im/ImageResource/ic_btn_editswitch_normal.png);");
const QString linkSheet = QString(editSheet).replace("edit", "link");

// The strip of a new condition, int0: 1 to 1000, with nothing accepted yet.
struct StripFixture : PanelFixture<QIfModuleMainView>
{
    StripFixture()
    {
        show();
        add("int");
        core.takeCommands();
    }
    Strip* strip() const { return panel->findChild<Strip*>(); }
    QDoubleSpinBox* lower() const { return at<QDoubleSpinBox>("m_spbMinPullBar"); }
    QDoubleSpinBox* upper() const { return at<QDoubleSpinBox>("m_spbMaxPullBar"); }
    QLineEdit* edit() const { return lower()->findChild<QLineEdit*>(); }
    QString shown() const { return lower()->text() + ' ' + upper()->text(); }
    static QmlRangeSliderView* slider()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (auto* const view = qobject_cast<QmlRangeSliderView*>(widget)) {
                return view;
            }
        }
        return nullptr;
    }
};

} // namespace

class tst_range_select : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void edits();
    void acceptedValues();
    void longBoundsFit();
    void sliderMoves();
    void sliderOpensAndCloses();
};

void tst_range_select::construction()
{
    FakeCore core;
    LogCapture log; // which the test's own output has otherwise
    for (const QByteArray source : {"True", "true", "False", ""}) {
        core.uiData = {{"@%int0%Start", source}, {"@%int0%End", source}};
        core.bindings = {{"0/%int0%End", "5.Count"}};
        const bool isSubscribed = source == "True";
        QTemporaryFile output;
        QVERIFY(output.open());
        std::fflush(stdout);
        const int standardOutput = dup(STDOUT_FILENO);
        dup2(output.handle(), STDOUT_FILENO);
        Strip strip(7, 0, 100, "int0", nullptr);
        emit strip.GetBsvMaxNumSubscribe()->sigEdiSubscribeInfoChanged("5.Mean");
        std::fflush(stdout);
        dup2(standardOutput, STDOUT_FILENO);
        close(standardOutput);
        output.seek(0);
        QCOMPARE(output.readAll(),
                 "\n***\nstrUIName=@%int0%Start item=" + source + "\n***\n" +
                     (isSubscribed ? "get in true 259" : "") + "\n***\nstrUIName=@%int0%End item=" + source +
                     "\n***\n" + (isSubscribed ? "\nget in true 287=5.Count\n" : "") +
                     "\n[onSubscribeValueChanged2SetParam]: objectName=[m_bsvMaxNumSubscribe], "
                     "info=[5.Mean]\n");
        QVERIFY(strip.size() == QSize(230, 30) && (strip.windowFlags() & Qt::FramelessWindowHint));
        // As restored, where no switch has another look yet, and after both switches.
        for (const bool isSwitched : {false, true}) {
            QString shown;
            for (int i = 0; i < strip.layout()->count(); ++i) {
                const QWidget* const widget = strip.layout()->itemAt(i)->widget();
                const QSize size = widget->maximumSize();
                shown += widget->isHidden()
                             ? QString()
                             : widget->objectName() + QString(" %1x%2 ").arg(size.width()).arg(size.height());
            }
            const bool isConstant = isSubscribed == isSwitched;
            QCOMPARE(shown, QString("m_%1Min%2 80x30 m_btnMinSwitch 30x30 m_btnLine 10x1 m_%1Max%2 80x30 "
                                    "m_btnMaxSwitch 30x30 ")
                                .arg(isConstant ? "spb" : "bsv", isConstant ? "PullBar" : "NumSubscribe"));
            for (const char* const name : {"m_btnMinSwitch", "m_btnMaxSwitch"}) {
                auto* const button = strip.findChild<QPushButton*>(name);
                QCOMPARE(button->styleSheet(), !isConstant ? editSheet : isSwitched ? linkSheet : "");
                button->click();
            }
        }
        strip.SetRange(0, 10);
        QCOMPARE(strip.GetCurrentMaxD(), 10.0);
        QCOMPARE(strip.GetMaxRange(), 100);
    }
}

void tst_range_select::edits()
{
    // Whether they are pasted; both bounds; what is shown afterwards.
    const std::tuple<bool, QString, QString, QString> cases[] = {
        {false, "2", "50.25", "2.000 50.250"},     {false, "50", "50", "50.000 50.000"},
        {false, "60", "50", "0.000 0.000"},        {false, "-999999999", "-1.5", "-999999999.000 -1.500"},
        {false, "", "+7", "1.000 7.000"},          {false, "1,5", "12500,25", "1.500 12500.250"},
        {false, "1,5,2", "2.5.,1", "1.520 2.510"}, {false, " 5 ", "8", "5.000 8.000"},
        {true, "13,5", " 14 ", "13.500 14.000"},   {true, "1,234.5", "seven", "1.000 1000.000"}};
    const auto reset = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    for (const char* const locale : {"C", "de_DE", "ar_EG"}) {
        QLocale::setDefault(QLocale(locale));
        for (const auto& [isPasted, lower, upper, shown] : cases) {
            StripFixture f;
            for (const auto& [spinBox, text] : {std::pair(f.lower(), lower), {f.upper(), upper}}) {
                if (isPasted) {
                    spinBox->selectAll();
                    spinBox->findChild<QLineEdit*>()->insert(text);
                } else {
                    typeInto(spinBox, text);
                }
                QVERIFY2(!spinBox->text().contains(','), "a comma is a point as soon as it is typed");
            }
            LogCapture log;
            QTest::keyClick(f.upper(), Qt::Key_Return);
            QTest::keyClick(f.lower(), Qt::Key_Return);
            QCOMPARE(f.shown(), shown);
            QCOMPARE(log.lines().contains("[onRangeEditFinish]: min > max."), shown == "0.000 0.000");
        }
    }
}

// What a refused edit falls back to. An edit that is finished while a setter sets the spin box shows whether
// the setter has accepted its value before.
void tst_range_select::acceptedValues()
{
    const std::pair<std::function<void(Strip&)>, QString> cases[] = {
        {[](Strip& strip) { strip.SetCurrentMin(2000); }, "0.000 0.000"},
        {[](Strip& strip) { strip.SetCurrentMinD(2000); }, "2000.000 0.000"},
        {[](Strip& strip) { strip.SetCurrentMax(-60); }, "0.000 0.000"},
        {[](Strip& strip) { strip.SetCurrentMaxD(-60); }, "0.000 -60.000"}};
    for (const auto& [set, shown] : cases) {
        StripFixture f;
        QObject once;
        for (const auto* const spinBox : {f.lower(), f.upper()}) {
            connect(spinBox, &QDoubleSpinBox::textChanged, &once, [&] {
                f.lower()->disconnect(&once);
                f.upper()->disconnect(&once);
                f.strip()->onRangeEditFinish();
            });
        }
        set(*f.strip());
        QCOMPARE(f.shown(), shown);
    }
}

void tst_range_select::longBoundsFit()
{
    StripFixture f;
    for (const bool isTyped : {false, true}) {
        f.strip()->SetCurrentMin(0);
        isTyped ? typeInto(f.lower(), "23328824") : emit f.slider()->sigRangeSliderChange(23328824, 23328825);
        f.upper()->setFocus();
        QVERIFY2(f.edit()->fontMetrics().horizontalAdvance("23328824.000") <= f.edit()->width() - 4,
                 "a bound is cut off");
        QCOMPARE(f.edit()->text() + f.lower()->toolTip(), QString("23328824.00023328824.000"));
    }
    // What does not fit even so ends in an ellipsis.
    f.strip()->SetCurrentMin(-999999999);
    const QImage picture = f.edit()->grab().toImage();
    bool isElided = false;
    const QSignalBlocker quiet(f.edit());
    for (int length = 13; length > 0; --length) {
        f.edit()->setText(QString("-999999999.000").left(length) + QChar(0x2026));
        isElided = isElided || f.edit()->grab().toImage() == picture;
    }
    QVERIFY(isElided);
}

void tst_range_select::sliderMoves()
{
    StripFixture f;
    QSignalSpy lower(f.strip(), &Strip::sigMinRangeChanged);
    QSignalSpy upper(f.strip(), &Strip::sigMaxRangeChanged);
    emit f.slider()->sigRangeSliderChange(10, 90);
    QVERIFY(f.shown() == "10.000 90.000" && lower.count() == 1 && upper.isEmpty());
    LogCapture log;
    f.strip()->onRangeSliderLowerValueChanged(3);
    f.strip()->onRangeSliderUpperValueChanged(4);
    QVERIFY(f.shown() == "3.000 4.000" && lower.count() == 2 && upper.count() == 1);
    QCOMPARE(log.lines(),
             QStringList("[RangeSelectControlIM]: onRangeSliderLowerValueChanged start. value=[3]"));
    f.lower()->setValue(5);
    f.strip()->onRangeEditFinish();
    QVERIFY(f.shown() == "3.000 4.000" && f.strip()->GetCurrentMin() == 3 && f.strip()->GetCurrentMax() == 4);
    f.strip()->SetCurrentMin(6);
    f.strip()->SetCurrentMax(7);
    f.lower()->setValue(8);
    f.strip()->onRangeEditFinish();
    QCOMPARE(f.shown(), QString("6.000 7.000"));
}

void tst_range_select::sliderOpensAndCloses()
{
    const auto send = [](QWidget* widget, QEvent::Type type) {
        QMouseEvent mouse(type, {}, Qt::LeftButton, Qt::LeftButton, {});
        QWheelEvent wheel({}, {}, {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QEvent other(type);
        QApplication::sendEvent(widget, type == QEvent::MouseButtonPress ? &mouse
                                        : type == QEvent::Wheel          ? &wheel
                                                                         : &other);
    };
    // What is done while the slider (first) or a field has the focus, whether it closes the slider, and
    // whether it finishes the field's edit.
    using F = StripFixture;
    const std::tuple<const char*, bool, std::function<void(F&)>, bool, bool> actions[] = {
        {"press", true, [&](F& f) { send(&f.window, QEvent::MouseButtonPress); }, true, false},
        {"layout", true, [&](F& f) { send(&f.window, QEvent::LayoutRequest); }, true, false},
        {"hide", true, [&](F& f) { send(&f.window, QEvent::Hide); }, true, false},
        {"Escape in the slider", true, [](F& f) { QTest::keyClick(f.slider(), Qt::Key_Escape); }, true,
         false},
        {"focus elsewhere", false, [](F& f) { f.at<QWidget>("m_ediNote")->setFocus(); }, true, true},
        {"focus in the other field", false, [](F& f) { f.upper()->setFocus(); }, false, true},
        {"Escape", false, [](F& f) { QTest::keyClick(f.lower(), Qt::Key_Escape); }, true, false},
        {"another key", false, [](F& f) { QTest::keyClick(f.lower(), Qt::Key_1); }, false, false},
        {"wheel beside", false, [&](F& f) { send(f.at<QWidget>("widget_2"), QEvent::Wheel); }, true, false},
        {"wheel in the slider", false, [&](F& f) { send(f.slider(), QEvent::Wheel); }, false, false},
        {"the list moves", false, [](F& f) { f.at<QWidget>("widget_2")->move(0, -30); }, true, false},
        {"the window moves", false, [](F& f) { f.window.move(50, 50); }, false, false}};
    for (const auto& [what, isInSlider, act, isClosed, isFinished] : actions) {
        StripFixture f;
        for (const auto* const spinBox : {f.upper(), f.lower(), f.lower()}) {
            QTest::mouseClick(spinBox->findChild<QLineEdit*>(), Qt::LeftButton);
            QVERIFY(f.slider()->isVisible());
        }
        QCOMPARE(f.slider()->geometry(), QRect(f.lower()->mapToGlobal(QPoint(0, 30)), QSize(230, 25)));
        if (isInSlider) {
            QTest::mouseClick(f.slider(), Qt::LeftButton);
            QApplication::setActiveWindow(f.slider()); // as a window manager does at the click
        }
        QCOMPARE(QApplication::focusWidget(), isInSlider ? f.slider() : static_cast<QWidget*>(f.lower()));
        f.core.takeCommands();
        act(f);
        QVERIFY2(f.slider()->isVisible() != isClosed, what);
        QVERIFY2(f.lower()->hasFocus() != isFinished || isInSlider, what);
        QVERIFY2(f.core.takeCommands().size() == int(isClosed) + int(isFinished), what);
    }
}

QTEST_MAIN(tst_range_select)
#include "tst_range_select.moc"
