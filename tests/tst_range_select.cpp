#include "FakeCore.h"
#include "LogCapture.h"
#include "PanelFixture.h"
#include "RangeSelectControlIM.h"

#include <QLocale>
#include <QSignalSpy>

#include <memory>

namespace {

// A strip as a row holds it: three levels of host above, shown.
struct StripFixture
{
    StripFixture()
    {
        area.resize(600, 300);
        container->resize(600, 300);
        panel->resize(600, 300);
        strip->setParent(panel, Qt::Widget);
        strip->show();
        area.show();
        if (!QTest::qWaitForWindowActive(&area)) {
            qFatal("the window stays inactive");
        }
    }

    template <typename Widget = QWidget>
    Widget* at(const QString& name) const
    {
        return strip->findChild<Widget*>(name);
    }
    QDoubleSpinBox* lower() const { return at<QDoubleSpinBox>("m_spbMinPullBar"); }
    QDoubleSpinBox* upper() const { return at<QDoubleSpinBox>("m_spbMaxPullBar"); }
    QString shown() const { return lower()->text() + ' ' + upper()->text(); }
    void edit(const QString& min, const QString& max) const
    {
        typeInto(lower(), min);
        typeInto(upper(), max);
        QTest::keyClick(upper(), Qt::Key_Return);
    }
    static QmlRangeSliderView* slider()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (auto* const view = qobject_cast<QmlRangeSliderView*>(widget)) {
                return view;
            }
        }
        return nullptr;
    }
    void openSlider() const { QTest::mouseClick(lower()->findChild<QLineEdit*>(), Qt::LeftButton); }

    FakeCore core;
    QWidget area;
    QWidget* container = new QWidget(&area);
    QWidget* panel = new QWidget(container);
    std::unique_ptr<RangeSelectControlIM> strip =
        std::make_unique<RangeSelectControlIM>(7, -999999999, 999999999, "int0", panel);
    QSignalSpy finished{strip.get(), &RangeSelectControlIM::sigRangeEditFinish};
};

} // namespace

class tst_range_select : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void edits();
    void typedUnderEveryLocale();
    void sliderMoves();
    void sliderOpensAndCloses();
    void keysOfADialogDoNothing();
    void switching();
    void restoring();
    void binding();
};

void tst_range_select::construction()
{
    StripFixture f;
    QCOMPARE(f.strip->size(), QSize(230, 30));
    QStringList order;
    for (int i = 0; i < f.strip->layout()->count(); ++i) {
        const QWidget* const widget = f.strip->layout()->itemAt(i)->widget();
        order << widget->objectName() + (widget->isHidden() ? " hidden" : "");
    }
    QCOMPARE(order,
             QStringList({"m_spbMinPullBar", "m_bsvMinNumSubscribe hidden", "m_btnMinSwitch", "m_btnLine",
                          "m_spbMaxPullBar", "m_bsvMaxNumSubscribe hidden", "m_btnMaxSwitch"}));
    const RangeSelectControlIM strip(7, 0, 100, "int0", &f.area);
    QVERIFY(strip.windowFlags() & Qt::FramelessWindowHint);
    f.strip = std::make_unique<RangeSelectControlIM>(7, 0, 100, "int0", nullptr);
    QCOMPARE(f.shown(), QString("1.000 100.000"));
    f.strip->SetRange(0, 10);
    QCOMPARE(f.shown(), QString("1.000 10.000"));
    QCOMPARE(f.strip->GetMaxRange(), 100);
}

void tst_range_select::edits()
{
    const QString refusal = "[onRangeEditFinish]: min > max.";
    const std::tuple<QString, QString, QString, QString> cases[] = {
        {"2", "50.25", "2.000 50.250", ""},
        {"50", "50", "50.000 50.000", ""},
        {"60", "50", "0.000 0.000", refusal},
        {"-999999999", "-1.5", "-999999999.000 -1.500", ""},
        {"", "7", "1.000 7.000", ""}};
    for (const auto& [lower, upper, shown, logged] : cases) {
        StripFixture f;
        typeInto(f.lower(), lower);
        typeInto(f.upper(), upper);
        f.finished.clear();
        LogCapture log;
        QTest::keyClick(f.upper(), Qt::Key_Return);
        QCOMPARE(f.shown(), shown);
        QCOMPARE(f.finished.count(), 1);
        QCOMPARE(log.lines().join(' '), logged);
    }
}

void tst_range_select::typedUnderEveryLocale()
{
    const auto reset = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    for (const char* const locale : {"C", "de_DE", "sl_SI", "ar_EG", "zh_CN"}) {
        QLocale::setDefault(QLocale(locale));
        StripFixture f;
        f.strip->SetCurrentMaxD(12500.25);
        QCOMPARE(f.upper()->text(), QString("12500.250"));
        f.edit("12.5", "12500.25");
        QCOMPARE(f.strip->GetCurrentMaxD(), 12500.25);
        // A comma has no safe reading: pasted text with one is refused as a whole.
        auto* const edit = f.lower()->findChild<QLineEdit*>();
        edit->selectAll();
        edit->insert("13,5");
        QTest::keyClick(f.lower(), Qt::Key_Return);
        QCOMPARE(f.strip->GetCurrentMinD(), 12.5);
        QCOMPARE(f.strip->GetCurrentMin(), 12);
    }
}

void tst_range_select::sliderMoves()
{
    StripFixture f;
    QSignalSpy lower(f.strip.get(), &RangeSelectControlIM::sigMinRangeChanged);
    QSignalSpy upper(f.strip.get(), &RangeSelectControlIM::sigMaxRangeChanged);
    emit f.slider()->sigRangeSliderChange(10, 90);
    QCOMPARE(lower.count(), 1);
    QCOMPARE(upper.count(), 0);
    // The moved pair is what a refused edit falls back to.
    f.edit("95", "90");
    QCOMPARE(f.shown(), QString("10.000 90.000"));

    LogCapture log;
    f.strip->onRangeSliderLowerValueChanged(3);
    f.strip->onRangeSliderUpperValueChanged(4);
    QCOMPARE(f.shown(), QString("3.000 4.000"));
    QCOMPARE(lower.count(), 2);
    QCOMPARE(upper.count(), 1);
    QCOMPARE(log.lines(),
             QStringList("[RangeSelectControlIM]: onRangeSliderLowerValueChanged start. value=[3]"));
}

void tst_range_select::sliderOpensAndCloses()
{
    StripFixture f;
    QVERIFY(!f.slider()->isVisible());
    f.openSlider();
    QCOMPARE(f.slider()->geometry(), QRect(f.lower()->mapToGlobal(QPoint(0, 30)), QSize(230, 25)));
    f.openSlider();
    QTest::mouseClick(f.upper()->findChild<QLineEdit*>(), Qt::LeftButton);
    QVERIFY(f.slider()->isVisible());

    f.finished.clear();
    QTest::mouseClick(&f.area, Qt::LeftButton, {}, QPoint(500, 250));
    QVERIFY(!f.slider()->isVisible());
    QCOMPARE(f.finished.count(), 1);
    for (const QEvent::Type type : {QEvent::LayoutRequest, QEvent::Hide}) {
        f.openSlider();
        f.finished.clear();
        QEvent event(type);
        QApplication::sendEvent(&f.area, &event);
        QVERIFY(!f.slider()->isVisible());
        QApplication::sendEvent(&f.area, &event);
        QCOMPARE(f.finished.count(), 1);
    }
}

void tst_range_select::keysOfADialogDoNothing()
{
    StripFixture f;
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(f.lower(), key);
        QVERIFY(f.strip->isVisible());
        QVERIFY(f.at("m_bsvMinNumSubscribe")->isHidden() && f.at("m_bsvMaxNumSubscribe")->isHidden());
    }
}

void tst_range_select::switching()
{
    for (const QString side : {"Min", "Max"}) {
        StripFixture f;
        const QString key = side == "Min" ? "%int0%Start" : "%int0%End";
        auto* const button = f.at<QPushButton>("m_btn" + side + "Switch");
        button->setFocus();
        f.finished.clear();
        f.core.takeCommands();
        LogCapture log;
        for (const bool isSubscribed : {true, false}) {
            button->click();
            QCOMPARE(f.at("m_spb" + side + "PullBar")->isHidden(), isSubscribed);
            QCOMPARE(f.at("m_bsv" + side + "NumSubscribe")->isHidden(), !isSubscribed);
            QCOMPARE(button->styleSheet(),
                     QString("background-image: url(:/img_im/ImageResource/ic_btn_%1switch_normal.png);")
                         .arg(isSubscribed ? "edit" : "link"));
            QCOMPARE(f.core.takeCommands(),
                     isSubscribed
                         ? QStringList("SetUIData 7 @" + key + "=True\\0")
                         : QStringList({"DelFilterSource 7 0/" + key, "SetUIData 7 @" + key + "=False\\0"}));
        }
        QCOMPARE(log.lines(), QStringList());
        QCOMPARE(f.finished.count(), 0);
    }
}

void tst_range_select::restoring()
{
    const std::pair<QByteArray, bool> cases[] = {
        {QByteArray("True\0", 5), true}, {QByteArray("False\0", 6), false}, {"true", false}, {"", false}};
    for (const auto& [value, isSubscribed] : cases) {
        StripFixture f;
        f.core.uiData = {{"@%int0%End", value}, {"@%int0%Start", "False"}};
        f.core.takeCommands();
        LogCapture log;
        f.strip = std::make_unique<RangeSelectControlIM>(7, 0, 100, "int0", nullptr);
        QCOMPARE(log.lines().contains("[RangeSelectControlIM]: m_bsvMaxNumSubscribe "
                                      "GetFilterSourceOperation4IO falied. msg =  \n"),
                 isSubscribed);
        log.takeLines();
        f.core.bindings["0/%int0%End"] = "5.Count";
        f.strip = std::make_unique<RangeSelectControlIM>(7, 0, 100, "int0", nullptr);
        QCOMPARE(log.lines(), QStringList("get in InitRange"));
        QCOMPARE(f.at("m_bsvMaxNumSubscribe")->isHidden(), !isSubscribed);
        QVERIFY(f.at("m_bsvMinNumSubscribe")->isHidden());
        QCOMPARE(f.core.takeCommands().contains("GetFilterSource 7 0/%int0%End"), isSubscribed);
    }
}

void tst_range_select::binding()
{
    StripFixture f;
    f.core.takeCommands();
    LogCapture log;
    auto* const lower = f.at<ButtonSelecterView>("m_bsvMinNumSubscribe");
    auto* const upper = f.at<ButtonSelecterView>("m_bsvMaxNumSubscribe");
    emit lower->sigEdiSubscribeInfoChanged("5.Lowest");
    emit upper->sigEdiSubscribeInfoChanged("5.Highest");
    emit upper->sigQuerySubscribeMenuInfo(QString());
    QCOMPARE(f.core.takeCommands(), QStringList({"SetFilterSource 7 0/%int0%Start=5.Lowest",
                                                 "SetFilterSource 7 0/%int0%End=5.Highest",
                                                 "QuerySubscribeTree 7 range=1 types=1 int"}));
    QCOMPARE(log.lines(), QStringList());
}

QTEST_MAIN(tst_range_select)
#include "tst_range_select.moc"
