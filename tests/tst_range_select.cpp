#include "LogCapture.h"
#include "PanelFixture.h"
#include "QIfModuleMainView.h"
#include "RangeSelectControlIM.h"

#include <QLocale>
#include <QScopeGuard>
#include <QSignalSpy>

namespace {

using Strip = RangeSelectControlIM;

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
    void switching();
};

void tst_range_select::construction()
{
    FakeCore core;
    for (const QByteArray source : {"True", "true", "False", ""}) {
        core.uiData = {{"@%int0%End", source}, {"@%int0%Start", "False"}};
        Strip strip(7, 0, 100, "int0", nullptr);
        QVERIFY(strip.size() == QSize(230, 30) && (strip.windowFlags() & Qt::FramelessWindowHint));
        QString order;
        for (int i = 0; i < strip.layout()->count(); ++i) {
            const QWidget* const widget = strip.layout()->itemAt(i)->widget();
            const QSize size = widget->maximumSize();
            order += widget->isHidden()
                         ? QString()
                         : widget->objectName() + QString(" %1x%2 ").arg(size.width()).arg(size.height());
        }
        QCOMPARE(
            order,
            QString(
                "m_spbMinPullBar 80x30 m_btnMinSwitch 30x30 m_btnLine 10x1 %1 80x30 m_btnMaxSwitch 30x30 ")
                .arg(source == "True" ? "m_bsvMaxNumSubscribe" : "m_spbMaxPullBar"));
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
        f.strip()->SetCurrentMin(3);
        f.strip()->SetCurrentMax(4);
        QCOMPARE(f.strip()->GetCurrentMin(), 3);
        typeInto(f.lower(), "5");
        QTest::keyClick(f.lower(), Qt::Key_Return);
        QCOMPARE(f.shown(), QString("3.000 4.000"));
    }
}

void tst_range_select::longBoundsFit()
{
    StripFixture f;
    const auto width = [&f] { return f.edit()->fontMetrics().horizontalAdvance(f.edit()->text()); };
    const std::function<void()> changes[] = {
        [&f] { f.strip()->SetCurrentMinD(23328824); },
        [&f] { emit f.slider()->sigRangeSliderChange(23328824, 23328825); },
        [&f] { typeInto(f.lower(), "23328824"), f.upper()->setFocus(); }};
    for (const auto& change : changes) {
        f.strip()->SetCurrentMin(0);
        QVERIFY(width() < 40);
        change();
        QVERIFY2(f.edit()->text() == "23328824.000" && width() <= f.edit()->width() - 4,
                 "a bound is cut off");
        QCOMPARE(f.lower()->toolTip(), QString("23328824.000"));
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
    QCOMPARE(f.shown(), QString("3.000 4.000"));
}

void tst_range_select::sliderOpensAndCloses()
{
    StripFixture f;
    QVERIFY(!f.slider()->isVisible());
    const QMouseEvent press(QEvent::MouseButtonPress, {}, Qt::LeftButton, Qt::LeftButton, {});
    for (const QEvent::Type type : {press.type(), QEvent::LayoutRequest, QEvent::Hide, QEvent::KeyPress}) {
        for (const auto* const spinBox : {f.lower(), f.lower(), f.upper()}) {
            QTest::mouseClick(spinBox->findChild<QLineEdit*>(), Qt::LeftButton);
            QVERIFY(f.slider()->isVisible());
        }
        QCOMPARE(f.slider()->geometry(), QRect(f.lower()->mapToGlobal(QPoint(0, 30)), QSize(230, 25)));
        QTest::mouseClick(f.slider(), Qt::LeftButton);
        QApplication::setActiveWindow(f.slider()); // as a window manager does at the click
        QVERIFY(f.slider()->hasFocus());
        f.core.takeCommands();
        if (type == QEvent::KeyPress) {
            QTest::keyClick(f.slider(), Qt::Key_Escape);
        }
        for (int i = 0; i < 2 && type != QEvent::KeyPress; ++i) {
            QMouseEvent mouse(press);
            QEvent other(type);
            QApplication::sendEvent(&f.window, type == press.type() ? &mouse : &other);
        }
        QVERIFY(!f.slider()->isVisible());
        QCOMPARE(f.core.takeCommands().size(), 1);
    }
}

void tst_range_select::switching()
{
    StripFixture f;
    for (const QByteArray side : {"Min", "Max"}) {
        auto* const button = f.at<QPushButton>("m_btn" + side + "Switch");
        for (const bool isSubscribed : {true, false}) {
            button->click();
            QCOMPARE(f.at<QWidget>("m_spb" + side + "PullBar")->isHidden(), isSubscribed);
            QCOMPARE(f.at<QWidget>("m_bsv" + side + "NumSubscribe")->isHidden(), !isSubscribed);
            QCOMPARE(button->styleSheet(),
                     QString("background-image: url(:/img_im/ImageResource/ic_btn_%1switch_normal.png);")
                         .arg(isSubscribed ? "edit" : "link"));
        }
    }
}

QTEST_MAIN(tst_range_select)
#include "tst_range_select.moc"
