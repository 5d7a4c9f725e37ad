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
    explicit StripFixture(int min = -999999999, int max = 999999999,
                          const QString& name = QStringLiteral("int0"))
    {
        auto* const container = new QWidget(&area);
        auto* const panel = new QWidget(container);
        area.resize(600, 300);
        container->resize(600, 300);
        panel->resize(600, 300);
        strip = std::make_unique<RangeSelectControlIM>(7, min, max, name, panel);
        strip->setParent(panel, Qt::Widget);
        strip->show();
        area.show();
        if (!QTest::qWaitForWindowActive(&area)) {
            qFatal("the window stays inactive");
        }
    }

    template <typename Widget>
    Widget* at(const char* name) const
    {
        return strip->findChild<Widget*>(QString::fromLatin1(name));
    }
    QDoubleSpinBox* lower() const { return at<QDoubleSpinBox>("m_spbMinPullBar"); }
    QDoubleSpinBox* upper() const { return at<QDoubleSpinBox>("m_spbMaxPullBar"); }
    QString shown() const { return lower()->text() + QLatin1Char(' ') + upper()->text(); }
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
    std::unique_ptr<RangeSelectControlIM> strip;
};

} // namespace

class tst_range_select : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void edits();
    void typedUnderEveryLocale_data();
    void typedUnderEveryLocale();
    void sliderMoves();
    void sliderOpensAndCloses();
    void keysOfADialogDoNothing();
    void switching_data();
    void switching();
    void restoring_data();
    void restoring();
    void binding();
};

void tst_range_select::construction()
{
    StripFixture f(0, 100);
    QCOMPARE(f.shown(), QStringLiteral("1.000 100.000"));
    QCOMPARE(f.strip->size(), QSize(230, 30));
    QStringList order;
    for (int i = 0; i < f.strip->layout()->count(); ++i) {
        const QWidget* const widget = f.strip->layout()->itemAt(i)->widget();
        order << widget->objectName() + (widget->isHidden() ? " hidden" : "");
    }
    QCOMPARE(order,
             QStringList({"m_spbMinPullBar", "m_bsvMinNumSubscribe hidden", "m_btnMinSwitch", "m_btnLine",
                          "m_spbMaxPullBar", "m_bsvMaxNumSubscribe hidden", "m_btnMaxSwitch"}));
    QVERIFY(RangeSelectControlIM(7, 0, 1, QStringLiteral("int0"), &f.area).windowFlags() &
            Qt::FramelessWindowHint);
    f.strip->SetRange(0, 10);
    QCOMPARE(f.shown(), QStringLiteral("1.000 10.000"));
    QCOMPARE(f.strip->GetMaxRange(), 100);
}

void tst_range_select::edits()
{
    const auto edited = [](const char* lower, const char* upper) {
        StripFixture f;
        typeInto(f.lower(), QString::fromLatin1(lower));
        typeInto(f.upper(), QString::fromLatin1(upper));
        QSignalSpy finished(f.strip.get(), &RangeSelectControlIM::sigRangeEditFinish);
        LogCapture log;
        QTest::keyClick(f.upper(), Qt::Key_Return);
        return QStringLiteral("%1 %2 %3").arg(f.shown()).arg(finished.count()).arg(log.lines().join(' '));
    };
    QCOMPARE(edited("2", "50.25"), QStringLiteral("2.000 50.250 1 "));
    QCOMPARE(edited("50", "50"), QStringLiteral("50.000 50.000 1 "));
    QCOMPARE(edited("60", "50"), QStringLiteral("0.000 0.000 1 [onRangeEditFinish]: min > max."));
    QCOMPARE(edited("-999999999", "-1.5"), QStringLiteral("-999999999.000 -1.500 1 "));
    QCOMPARE(edited("", "7"), QStringLiteral("1.000 7.000 1 "));
}

void tst_range_select::typedUnderEveryLocale_data()
{
    QTest::addColumn<QString>("locale");
    for (const char* const locale : {"C", "de_DE", "sl_SI", "ar_EG", "zh_CN"}) {
        QTest::newRow(locale) << locale;
    }
}

void tst_range_select::typedUnderEveryLocale()
{
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    const auto reset = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    StripFixture f;
    f.strip->SetCurrentMaxD(12500.25);
    QCOMPARE(f.upper()->text(), QStringLiteral("12500.250"));
    typeInto(f.lower(), QStringLiteral("12.5"));
    QTest::keyClick(f.lower(), Qt::Key_Return);
    QCOMPARE(f.strip->GetCurrentMinD(), 12.5);
    QCOMPARE(f.strip->GetCurrentMin(), 12);
    QCOMPARE(f.strip->GetCurrentMaxD(), 12500.25);

    // A comma has no safe reading: pasted text with one is refused as a whole.
    auto* const edit = f.lower()->findChild<QLineEdit*>();
    edit->selectAll();
    edit->insert(QStringLiteral("13,5"));
    QTest::keyClick(f.lower(), Qt::Key_Return);
    QCOMPARE(f.strip->GetCurrentMinD(), 12.5);
}

void tst_range_select::sliderMoves()
{
    StripFixture f;
    QSignalSpy lower(f.strip.get(), &RangeSelectControlIM::sigMinRangeChanged);
    QSignalSpy upper(f.strip.get(), &RangeSelectControlIM::sigMaxRangeChanged);
    emit f.slider()->sigRangeSliderChange(10, 90);
    QCOMPARE(f.shown(), QStringLiteral("10.000 90.000"));
    QCOMPARE(lower.count(), 1);
    QCOMPARE(upper.count(), 0);

    // The moved pair is what a refused edit falls back to.
    typeInto(f.lower(), QStringLiteral("95"));
    QTest::keyClick(f.lower(), Qt::Key_Return);
    QCOMPARE(f.shown(), QStringLiteral("10.000 90.000"));

    LogCapture log;
    f.strip->onRangeSliderLowerValueChanged(3);
    f.strip->onRangeSliderUpperValueChanged(4);
    QCOMPARE(f.shown(), QStringLiteral("3.000 4.000"));
    QCOMPARE(lower.count(), 2);
    QCOMPARE(upper.count(), 1);
    QCOMPARE(log.lines(),
             QStringList("[RangeSelectControlIM]: onRangeSliderLowerValueChanged start. value=[3]"));
}

void tst_range_select::sliderOpensAndCloses()
{
    StripFixture f;
    QSignalSpy finished(f.strip.get(), &RangeSelectControlIM::sigRangeEditFinish);
    QVERIFY(!f.slider()->isVisible());
    f.openSlider();
    QVERIFY(f.slider()->isVisible());
    QCOMPARE(f.slider()->geometry(), QRect(f.lower()->mapToGlobal(QPoint(0, 30)), QSize(230, 25)));
    f.openSlider();
    QTest::mouseClick(f.upper()->findChild<QLineEdit*>(), Qt::LeftButton);
    QVERIFY(f.slider()->isVisible());

    finished.clear();
    QTest::mouseClick(&f.area, Qt::LeftButton, {}, QPoint(500, 250));
    QVERIFY(!f.slider()->isVisible());
    QCOMPARE(finished.count(), 1);

    for (const QEvent::Type type : {QEvent::LayoutRequest, QEvent::Hide}) {
        f.openSlider();
        finished.clear();
        QEvent event(type);
        QApplication::sendEvent(&f.area, &event);
        QVERIFY(!f.slider()->isVisible());
        QCOMPARE(finished.count(), 1);
        QApplication::sendEvent(&f.area, &event);
        QCOMPARE(finished.count(), 1);
    }
}

void tst_range_select::keysOfADialogDoNothing()
{
    StripFixture f;
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(f.lower(), key);
        QVERIFY(f.strip->isVisible());
        QVERIFY(f.at<QWidget>("m_bsvMinNumSubscribe")->isHidden());
        QVERIFY(f.at<QWidget>("m_bsvMaxNumSubscribe")->isHidden());
    }
}

void tst_range_select::switching_data()
{
    QTest::addColumn<QString>("side");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("fails");
    const auto row = [](const char* tag, const char* side, const char* key, bool fails) {
        QTest::newRow(tag) << side << key << fails;
    };
    row("lower", "Min", "%int0%Start", false);
    row("upper", "Max", "%int0%End", false);
    row("lower, refused", "Min", "%int0%Start", true);
    row("upper, refused", "Max", "%int0%End", true);
}

void tst_range_select::switching()
{
    QFETCH(QString, side);
    QFETCH(QString, key);
    QFETCH(bool, fails);
    StripFixture f;
    const auto named = [&f, &side](const char* pattern) {
        return f.at<QWidget>(QString::fromLatin1(pattern).arg(side).toLatin1());
    };
    QWidget* const spinBox = named("m_spb%1PullBar");
    QWidget* const selecter = named("m_bsv%1NumSubscribe");
    auto* const button = qobject_cast<QPushButton*>(named("m_btn%1Switch"));
    button->setFocus();
    QSignalSpy finished(f.strip.get(), &RangeSelectControlIM::sigRangeEditFinish);
    if (fails) {
        f.core.fault = [](int, const QString& line) -> std::optional<ZelCore::CommandResult> {
            return line.startsWith(QLatin1String("SetUIData"))
                       ? std::optional(ZelCore::CommandResult(ZelCore::Failed, "no"))
                       : std::nullopt;
        };
    }
    f.core.takeCommands();
    LogCapture log;

    button->click();
    QVERIFY(spinBox->isHidden() && !selecter->isHidden());
    QCOMPARE(button->styleSheet(),
             QStringLiteral("background-image: url(:/img_im/ImageResource/ic_btn_editswitch_normal.png);"));
    QCOMPARE(f.core.takeCommands(), QStringList(QStringLiteral("SetUIData 7 @%1=True\\0").arg(key)));

    button->click();
    QVERIFY(!spinBox->isHidden() && selecter->isHidden());
    QCOMPARE(button->styleSheet(),
             QStringLiteral("background-image: url(:/img_im/ImageResource/ic_btn_linkswitch_normal.png);"));
    QCOMPARE(f.core.takeCommands(), QStringList({QStringLiteral("DelFilterSource 7 0/%1").arg(key),
                                                 QStringLiteral("SetUIData 7 @%1=False\\0").arg(key)}));

    const QString line =
        QStringLiteral("[RangeSelectControlIM]: onBtn%1Switch SetUIDataCommand failed. errmeg=no").arg(side);
    QCOMPARE(log.lines(), fails ? QStringList({line, line}) : QStringList());
    QCOMPARE(finished.count(), 0);
}

void tst_range_select::restoring_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("subscribed");
    QTest::newRow("True") << QByteArray("True\0", 5) << true;
    QTest::newRow("False") << QByteArray("False\0", 6) << false;
    QTest::newRow("lower case") << QByteArray("true") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void tst_range_select::restoring()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, subscribed);
    StripFixture f;
    f.core.uiData[QStringLiteral("@%int0%End")] = value;
    f.core.uiData[QStringLiteral("@%int0%Start")] = "False";
    f.core.takeCommands();
    LogCapture log;
    for (const bool bound : {false, true}) {
        if (bound) {
            f.core.bindings[QStringLiteral("0/%int0%End")] = QStringLiteral("5.Count");
        }
        log.takeLines();
        f.strip = std::make_unique<RangeSelectControlIM>(7, 0, 100, QStringLiteral("int0"), nullptr);
        QCOMPARE(f.at<QWidget>("m_bsvMaxNumSubscribe")->isHidden(), !subscribed);
        QVERIFY(f.at<QWidget>("m_bsvMinNumSubscribe")->isHidden());
        QStringList expected("get in InitRange");
        if (subscribed && !bound) {
            expected << "[RangeSelectControlIM]: m_bsvMaxNumSubscribe GetFilterSourceOperation4IO falied. "
                        "msg =  \n";
        }
        QCOMPARE(log.lines(), expected);
    }
    QCOMPARE(f.core.takeCommands().contains(QStringLiteral("GetFilterSource 7 0/%int0%End")), subscribed);
}

void tst_range_select::binding()
{
    StripFixture f;
    f.core.takeCommands();
    LogCapture log;
    emit f.at<ButtonSelecterView>("m_bsvMinNumSubscribe")
        ->sigEdiSubscribeInfoChanged(QStringLiteral("5.Lowest"));
    emit f.at<ButtonSelecterView>("m_bsvMaxNumSubscribe")
        ->sigEdiSubscribeInfoChanged(QStringLiteral("5.Highest"));
    QCOMPARE(f.core.takeCommands(), QStringList({"SetFilterSource 7 0/%int0%Start=5.Lowest",
                                                 "SetFilterSource 7 0/%int0%End=5.Highest"}));
    QCOMPARE(log.lines(), QStringList());

    f.core.fault = [](int, const QString&) { return ZelCore::CommandResult(ZelCore::Failed, "refused"); };
    emit f.at<ButtonSelecterView>("m_bsvMinNumSubscribe")
        ->sigEdiSubscribeInfoChanged(QStringLiteral("9.None"));
    QCOMPARE(log.lines(),
             QStringList("[RangeSelectControlIM]: onBtnMaxSwitch SetFilterSourceOperation4IO failed. "));

    f.core.fault = nullptr;
    f.core.takeCommands();
    emit f.at<ButtonSelecterView>("m_bsvMaxNumSubscribe")->sigQuerySubscribeMenuInfo(QString());
    QCOMPARE(f.core.takeCommands(), QStringList("QuerySubscribeTree 7 range=1 types=1 int"));
}

QTEST_MAIN(tst_range_select)
#include "tst_range_select.moc"
