#include "RangeSelectControlIM.h"

#include "BoundValidator.h"
#include "CondensedText.h"
#include "FocusedWheel.h"
#include "StyleSheet.h"
#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"
#include "condition/ModuleParameter.h"
#include "core_client/core_client.h"

#include <QApplication>
#include <QDebug>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include <cstdio>
#include <utility>

using namespace ZelCore;

namespace {

const QString editSwitchSheet =
    QStringLiteral("background-image: url(:/img_im/ImageResource/ic_btn_editswitch_normal.png);");
const QString linkSwitchSheet =
    QStringLiteral("background-image: url(:/img_im/ImageResource/ic_btn_linkswitch_normal.png);");

constexpr int stripWidth = 230;
constexpr int stripHeight = 30;
constexpr int sliderHeight = 25;

QWidget* lastInFocusChain(QWidget& widget)
{
    QWidget* last = &widget;
    while (widget.isAncestorOf(last->nextInFocusChain())) {
        last = last->nextInFocusChain();
    }
    return last;
}

// A value that is set is no unfinished edit, even if the spin box has the focus.
void setConstant(QDoubleSpinBox& spinBox, double value)
{
    spinBox.setValue(value);
    spinBox.setProperty("modified", false);
}

} // namespace

RangeSelectControlIM::RangeSelectControlIM(int moduleId, int minRange, int maxRange, QString name,
                                           QWidget* parent)
    : QDialog(parent)
    , m_rsRangeSlider(Qt::Horizontal, RangeSlider::Options(QFlag(3)))
{
    m_iModuId = moduleId;
    m_iMinRange = minRange;
    m_iMaxRange = maxRange;
    m_labName = std::move(name);

    InitParent();
    InitObjectName();
    InitRange();
    InitUI();
    InitConnect();
    InstallEventFilter();
    QueryIfModuUIParamScribeInfo();
}

void RangeSelectControlIM::disconnectParts()
{
    for (QObject* const sender : std::initializer_list<QObject*>{
             &m_qmlRangeSlider, &m_spbMinPullBar, &m_spbMaxPullBar, &m_btnMinSwitch, &m_btnMaxSwitch,
             &m_bsvMinNumSubscribe, &m_bsvMaxNumSubscribe}) {
        sender->disconnect(this);
    }
    m_qmlRangeSlider.removeEventFilter(this);
}

RangeSelectControlIM::~RangeSelectControlIM()
{
    // Member destructors emit signals and send events.
    disconnectParts();
    for (QLineEdit* const edit : {m_pEdiMinPullBar, m_pEdiMaxPullBar}) {
        if (edit) {
            // Qt caches style data for the field inside a spin box, and releases it with the field only if
            // the field has a sheet of its own.
            edit->setStyleSheet(QStringLiteral(" "));
        }
    }
    m_pEdiMinPullBar = nullptr;
    m_pEdiMaxPullBar = nullptr;
    m_pParentArea = nullptr;
}

void RangeSelectControlIM::InitParent()
{
    setLayout(&m_hRangeSelectLayout);
    m_btnLine.setParent(this);
    m_spbMinPullBar.setParent(this);
    m_spbMaxPullBar.setParent(this);
    m_btnMinSwitch.setParent(this);
    m_btnMaxSwitch.setParent(this);
}

void RangeSelectControlIM::InitObjectName()
{
    m_btnLine.setObjectName(QStringLiteral("m_btnLine"));
    m_spbMinPullBar.setObjectName(QStringLiteral("m_spbMinPullBar"));
    m_spbMaxPullBar.setObjectName(QStringLiteral("m_spbMaxPullBar"));
    m_btnMinSwitch.setObjectName(QStringLiteral("m_btnMinSwitch"));
    m_btnMaxSwitch.setObjectName(QStringLiteral("m_btnMaxSwitch"));
    m_bsvMinNumSubscribe.setObjectName(QStringLiteral("m_bsvMinNumSubscribe"));
    m_bsvMaxNumSubscribe.setObjectName(QStringLiteral("m_bsvMaxNumSubscribe"));
}

void RangeSelectControlIM::InitRange()
{
    SetRange(m_iMinRange, m_iMaxRange);
    qDebug("get in InitRange");
    m_spbMinPullBar.setValue(1.0);
    m_spbMaxPullBar.setValue(1000.0);
    m_qmlRangeSlider.SetRange(m_iMinRange, m_iMaxRange);
}

void RangeSelectControlIM::InitUI()
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    SetFixedSize(stripWidth, stripHeight);
    m_hRangeSelectLayout.setContentsMargins(0, 0, 0, 0);
    m_hRangeSelectLayout.setSpacing(0);

    m_btnLine.setMaximumSize(10, 1);
    m_btnLine.setFocusPolicy(Qt::NoFocus);

    for (QDoubleSpinBox* const spinBox : {&m_spbMinPullBar, &m_spbMaxPullBar}) {
        spinBox->setFixedSize(80, 30);
        spinBox->setDecimals(3);
        // What is typed means the same whatever the host's locale is.
        spinBox->setLocale(QLocale::c());
        // The field is narrower than the largest bounds.
        spinBox->setToolTip(spinBox->text());
        connect(spinBox, &QDoubleSpinBox::textChanged, spinBox, &QWidget::setToolTip);
        new FocusedWheel(spinBox);
    }

    m_btnMinSwitch.setFixedSize(30, 30);
    m_btnMaxSwitch.setFixedSize(30, 30);
    // In a dialog, which the strip is itself, Return in a field must not switch a bound.
    for (QPushButton* const button : {&m_btnMinSwitch, &m_btnMaxSwitch, &m_btnLine}) {
        button->setAutoDefault(false);
    }

    m_bsvMinNumSubscribe.SetFixedSize(m_spbMinPullBar.width(), m_spbMinPullBar.height());
    m_bsvMaxNumSubscribe.SetFixedSize(m_spbMaxPullBar.width(), m_spbMaxPullBar.height());

    for (QWidget* const widget :
         std::initializer_list<QWidget*>{&m_spbMinPullBar, &m_bsvMinNumSubscribe, &m_btnMinSwitch, &m_btnLine,
                                         &m_spbMaxPullBar, &m_bsvMaxNumSubscribe, &m_btnMaxSwitch}) {
        m_hRangeSelectLayout.addWidget(widget);
    }

    // Tab leads to the bounds, then to the switches.
    setTabOrder(lastInFocusChain(m_bsvMinNumSubscribe), &m_spbMaxPullBar);
    setTabOrder(lastInFocusChain(m_bsvMaxNumSubscribe), &m_btnMinSwitch);
    setTabOrder(&m_btnMinSwitch, &m_btnMaxSwitch);

    m_bsvMinNumSubscribe.hide();
    m_bsvMaxNumSubscribe.hide();

    for (QWidget* const widget : std::initializer_list<QWidget*>{
             &m_spbMinPullBar, &m_btnMinSwitch, &m_btnLine, &m_spbMaxPullBar, &m_btnMaxSwitch}) {
        m_hRangeSelectLayout.setStretchFactor(widget, 1);
    }

    if (!StyleSheet::set(QStringLiteral(":/qss_im/HorizontalControlIM.qss"),
                         {this, &m_btnLine, &m_spbMinPullBar, &m_spbMaxPullBar})) {
        qDebug("[RangeSelectControlIM]: InitUI HorizontalControlIM qss file open failed.");
    }
}

void RangeSelectControlIM::InitConnect()
{
    connect(&m_qmlRangeSlider, SIGNAL(sigRangeSliderChange(int, int)), this,
            SLOT(onQmlRangeSliderValueChanged(int, int)));
    connect(&m_spbMinPullBar, SIGNAL(editingFinished()), this, SLOT(onRangeEditFinish()));
    connect(&m_spbMaxPullBar, SIGNAL(editingFinished()), this, SLOT(onRangeEditFinish()));
    connect(&m_btnMinSwitch, SIGNAL(clicked()), this, SLOT(onBtnMinSwitch()));
    connect(&m_btnMaxSwitch, SIGNAL(clicked()), this, SLOT(onBtnMaxSwitch()));
    connect(&m_bsvMinNumSubscribe, SIGNAL(sigEdiSubscribeInfoChanged(QString)), this,
            SLOT(onSubscribeValueChanged2SetParam(QString)));
    connect(&m_bsvMaxNumSubscribe, SIGNAL(sigEdiSubscribeInfoChanged(QString)), this,
            SLOT(onSubscribeValueChanged2SetParam(QString)));
    connect(&m_bsvMinNumSubscribe, SIGNAL(sigQuerySubscribeMenuInfo(QString)), this,
            SLOT(onQuerySubscribeMenuInfo(QString)));
    connect(&m_bsvMaxNumSubscribe, SIGNAL(sigQuerySubscribeMenuInfo(QString)), this,
            SLOT(onQuerySubscribeMenuInfo(QString)));
}

void RangeSelectControlIM::InstallEventFilter()
{
    m_spbMinPullBar.installEventFilter(this);
    m_spbMaxPullBar.installEventFilter(this);
    m_qmlRangeSlider.installEventFilter(this);

    const auto watchEdit = [this](QDoubleSpinBox& spinBox) {
        auto* const edit = spinBox.findChild<QLineEdit*>();
        if (edit) {
            edit->setValidator(new BoundValidator(spinBox, edit));
            new CondensedText(spinBox, edit);
            edit->installEventFilter(this);
            // Like QLineEdit::modified, for unfinished edits, also those by the arrows.
            const auto setModified = [&spinBox] { spinBox.setProperty("modified", spinBox.hasFocus()); };
            connect(edit, &QLineEdit::textEdited, &spinBox, setModified);
            connect(&spinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), &spinBox, setModified);
            connect(&spinBox, &QDoubleSpinBox::editingFinished, &spinBox, [&spinBox] {
                spinBox.setProperty("modified", false);
                spinBox.setToolTip(spinBox.text());
            });
        }
        return edit;
    };
    m_pEdiMinPullBar = watchEdit(m_spbMinPullBar);
    m_pEdiMaxPullBar = watchEdit(m_spbMaxPullBar);

    // Three levels up; any of them may be missing.
    const QObject* const container = parent() ? parent()->parent() : nullptr;
    m_pParentArea = container ? qobject_cast<QWidget*>(container->parent()) : nullptr;
    if (m_pParentArea) {
        m_pParentArea->installEventFilter(this);
    }
}

bool RangeSelectControlIM::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if ((watched == m_pEdiMinPullBar || watched == m_pEdiMaxPullBar) && type == QEvent::MouseButtonPress &&
        !m_qmlRangeSlider.isVisible()) {
        onFocusIn();
    }
    if (watched == m_pParentArea &&
        (type == QEvent::MouseButtonPress || type == QEvent::LayoutRequest || type == QEvent::Hide) &&
        m_qmlRangeSlider.isVisible()) {
        onFocusOut();
    }
    if (watched == &m_qmlRangeSlider && type == QEvent::WindowDeactivate) {
        const QWidget* const focus = QApplication::focusWidget();
        // onFocusOut() hides the slider, which deactivates it at once or later; it must not run twice.
        const bool isDone = m_bIsSliderClosed && m_qmlRangeSlider.isHidden();
        if (focus != &m_spbMinPullBar && focus != &m_spbMaxPullBar && !isDone) {
            onFocusOut();
        }
    }
    return false;
}

void RangeSelectControlIM::keyPressEvent(QKeyEvent* event)
{
    // As in a dialog these keys end here, but without hiding the strip or pressing a button.
    const int key = event->key();
    event->setAccepted(key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter);
}

void RangeSelectControlIM::setVisible(bool visible)
{
    // A dialog that is shown sends the window's focus widget a FocusIn event; inside a row the strip must
    // not.
    if (isWindow()) {
        QDialog::setVisible(visible);
    } else {
        QWidget::setVisible(visible); // NOLINT(bugprone-parent-virtual-call)
    }
}

void RangeSelectControlIM::onFocusIn()
{
    const QPoint global = m_spbMinPullBar.parentWidget()->mapToGlobal(m_spbMinPullBar.pos());
    m_bIsSliderClosed = false;
    if (!m_qmlRangeSlider.isVisible()) {
        m_qmlRangeSlider.show();
    }
    qDebug() << global.x() << global.y() << m_qmlRangeSlider.width() << m_qmlRangeSlider.height();
    m_qmlRangeSlider.setGeometry(global.x(), global.y() + stripHeight, stripWidth, sliderHeight);
}

void RangeSelectControlIM::onFocusOut()
{
    m_bIsSliderClosed = true;
    m_qmlRangeSlider.hide();
    emit sigRangeEditFinish();
}

void RangeSelectControlIM::SetRange(int min, int max)
{
    m_spbMinPullBar.setRange(min, max);
    m_spbMaxPullBar.setRange(min, max);
}

// In each setter the order of the three steps is fixed.
void RangeSelectControlIM::SetCurrentMin(int value)
{
    setConstant(m_spbMinPullBar, value);
    m_qmlRangeSlider.SetCurrentMinD(value);
    m_dOldMinValue = value;
}

void RangeSelectControlIM::SetCurrentMax(int value)
{
    setConstant(m_spbMaxPullBar, value);
    m_qmlRangeSlider.SetCurrentMaxD(value);
    m_dOldMaxValue = value;
}

void RangeSelectControlIM::SetCurrentMinD(double value)
{
    qDebug().noquote() << QStringLiteral("SetCurrentMinD min:[%1]").arg(value);
    m_qmlRangeSlider.SetCurrentMinD(value);
    m_dOldMinValue = value;
    setConstant(m_spbMinPullBar, value);
}

void RangeSelectControlIM::SetCurrentMaxD(double value)
{
    qDebug().noquote() << QStringLiteral("SetCurrentMaxD max:[%1]").arg(value);
    m_qmlRangeSlider.SetCurrentMaxD(value);
    m_dOldMaxValue = value;
    setConstant(m_spbMaxPullBar, value);
}

int RangeSelectControlIM::GetCurrentMin() const
{
    return truncatedToInt(GetCurrentMinD());
}

int RangeSelectControlIM::GetCurrentMax() const
{
    return truncatedToInt(GetCurrentMaxD());
}

void RangeSelectControlIM::onQmlRangeSliderValueChanged(int lower, int upper)
{
    setConstant(m_spbMinPullBar, lower);
    m_dOldMinValue = lower;
    setConstant(m_spbMaxPullBar, upper);
    m_dOldMaxValue = upper;
    emit sigMinRangeChanged();
}

void RangeSelectControlIM::onRangeSliderLowerValueChanged(int value)
{
    qDebug().noquote() << QStringLiteral(
                              "[RangeSelectControlIM]: onRangeSliderLowerValueChanged start. value=[%1]")
                              .arg(value);
    setConstant(m_spbMinPullBar, value);
    m_dOldMinValue = value;
    emit sigMinRangeChanged();
}

void RangeSelectControlIM::onRangeSliderUpperValueChanged(int value)
{
    setConstant(m_spbMaxPullBar, value);
    m_dOldMaxValue = value;
    emit sigMaxRangeChanged();
}

void RangeSelectControlIM::onRangeEditFinish()
{
    const double min = m_spbMinPullBar.text().toDouble();
    const double max = m_spbMaxPullBar.text().toDouble();
    if (min > max) {
        qDebug("[onRangeEditFinish]: min > max.");
        m_spbMinPullBar.setValue(m_dOldMinValue);
        m_spbMaxPullBar.setValue(m_dOldMaxValue);
    }
    m_qmlRangeSlider.SetCurrentMinD(min);
    m_qmlRangeSlider.SetCurrentMaxD(max);
    emit sigRangeEditFinish();
}

RangeSelectControlIM::Bound RangeSelectControlIM::lowerBound()
{
    return {m_spbMinPullBar, m_bsvMinNumSubscribe, m_btnMinSwitch, ConditionName::lowerBoundKey(m_labName),
            ConditionName::lowerBoundSourceKey(m_labName)};
}

RangeSelectControlIM::Bound RangeSelectControlIM::upperBound()
{
    return {m_spbMaxPullBar, m_bsvMaxNumSubscribe, m_btnMaxSwitch, ConditionName::upperBoundKey(m_labName),
            ConditionName::upperBoundSourceKey(m_labName)};
}

void RangeSelectControlIM::showSubscription(const Bound& bound)
{
    bound.spinBox.hide();
    bound.selecter.show();
    bound.switchButton.setStyleSheet(editSwitchSheet);
}

void RangeSelectControlIM::onBtnMinSwitch()
{
    switchSource(lowerBound(),
                 QStringLiteral("[RangeSelectControlIM]: onBtnMinSwitch SetUIDataCommand failed. errmeg="));
}

void RangeSelectControlIM::onBtnMaxSwitch()
{
    switchSource(upperBound(),
                 QStringLiteral("[RangeSelectControlIM]: onBtnMaxSwitch SetUIDataCommand failed. errmeg="));
}

void RangeSelectControlIM::switchSource(const Bound& bound, const QString& failureText)
{
    // Not by the spin box, which is also invisible while the panel is; the selector is hidden explicitly.
    const bool isConstant = bound.selecter.isHidden();
    if (isConstant) {
        showSubscription(bound);
    } else {
        bound.spinBox.show();
        bound.selecter.hide();
        bound.switchButton.setStyleSheet(linkSwitchSheet);
        bound.selecter.DelFilterSourceOperation4IO(m_iModuId, SUBSCRIBE_TYPE_RUNPARAM, bound.bindingKey);
    }
    const char* const source = isConstant ? ModuleParameter::subscribedBound : ModuleParameter::constantBound;
    UInt length = qstrlen(source) + 1;
    SetUIDataCommand command(static_cast<UInt>(m_iModuId), bound.sourceKey.toUtf8().constData(), source,
                             length);
    ExecuteOrLog(command, failureText);
}

void RangeSelectControlIM::onQuerySubscribeMenuInfo(QString varType)
{
    auto* const selecter = qobject_cast<ButtonSelecterView*>(sender());
    auto menu = SubscribeMenu::query(m_iModuId, m_labName, varType);
    if (menu && selecter) {
        selecter->UpdateSubscribeMenuData(*menu, 0);
    }
}

void RangeSelectControlIM::onSubscribeValueChanged2SetParam(QString info)
{
    auto* const selecter = qobject_cast<ButtonSelecterView*>(sender());
    if (!selecter) {
        return;
    }
    std::printf("\n[onSubscribeValueChanged2SetParam]: objectName=[%s], info=[%s]\n",
                qUtf8Printable(selecter->objectName()), qUtf8Printable(info));
    const QString key = selecter->objectName().contains(QLatin1String("Min"))
                            ? ConditionName::lowerBoundKey(m_labName)
                            : ConditionName::upperBoundKey(m_labName);
    if (selecter->SetFilterSourceOperation4IO(m_iModuId, SUBSCRIBE_TYPE_RUNPARAM, key, info) == -1) {
        // Upper bound or lower, the line is the same.
        qDebug("[RangeSelectControlIM]: onBtnMaxSwitch SetFilterSourceOperation4IO failed. ");
    }
}

void RangeSelectControlIM::QueryIfModuUIParamScribeInfo()
{
    restoreSource(lowerBound(), QStringLiteral("Start"));
    restoreSource(upperBound(), QStringLiteral("End"));
}

void RangeSelectControlIM::restoreSource(const Bound& bound, const QString& word)
{
    const QByteArray sourceKey = bound.sourceKey.toUtf8();
    const UI_OBJECT_PARAM_INFO_CONDITION__ condition(static_cast<UInt>(m_iModuId), sourceKey.constData());
    UI_OBJECT_PARAM_INFO__ source;
    QueryCommand<UI_OBJECT_PARAM_INFO_CONDITION__, UI_OBJECT_PARAM_INFO__> query(condition, &source);
    const CommandResult result = ExecuteCommand(query);
    if (!IsSuccess(result)) {
        LogFailure(QStringLiteral("[QueryIfModuUIParamScribeInfo]: %1 UI_OBJECT_PARAM_INFO_CONDITION falied.")
                       .arg(word),
                   result);
        return;
    }

    const QString value = ToQString(TextOf(source));
    std::printf("\n***\nstrUIName=%s item=%s\n***\n", sourceKey.constData(), qUtf8Printable(value));
    if (value != QLatin1String(ModuleParameter::subscribedBound)) {
        return;
    }
    const bool isLower = &bound.spinBox == &m_spbMinPullBar;
    if (isLower) {
        std::printf("get in true 259");
    }
    showSubscription(bound);
    QString text;
    const int found = bound.selecter.GetFilterSourceOperation4IO(m_iModuId, SUBSCRIBE_TYPE_RUNPARAM,
                                                                 bound.bindingKey, text);
    if (!isLower) {
        std::printf("\nget in true 287=%s\n", qUtf8Printable(text));
    }
    if (found != 0) {
        LogFailure(
            QStringLiteral("[RangeSelectControlIM]: %1 GetFilterSourceOperation4IO falied. msg =  ")
                .arg(isLower ? QLatin1String("m_bsvMinNumSubscribe") : QLatin1String("m_bsvMaxNumSubscribe")),
            result, QStringLiteral("\n"));
    }
    bound.selecter.SetEdiSubscribeText(text);
}
