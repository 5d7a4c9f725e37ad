#include "HorizontalControlIM.h"

#include "ClickOnEnter.h"
#include "CondensedText.h"
#include "StyleSheet.h"
#include "SubscribeMenu.h"
#include "WarningBox.h"
#include "condition/ConditionName.h"
#include "core_client/core_client.h"

#include <QCoreApplication>
#include <QDebug>
#include <QPointer>
#include <QSpacerItem>

using namespace ZelCore;

namespace {

// A second layout on the same widget would only be refused, with a warning; without a parent the row
// waits for its list.
QWidget* freeOfLayout(QWidget* parent)
{
    return parent && !parent->layout() ? parent : nullptr;
}

} // namespace

HorizontalControlIM::HorizontalControlIM(int moduleId, QString name, QWidget* parent)
    : QHBoxLayout(freeOfLayout(parent))
{
    m_iModuId = moduleId;
    m_horlcParent = parent;
    m_labName.setTextFormat(Qt::PlainText); // a stored name is no markup
    m_labName.setText(name);

    try {
        InitParent();
        InitObjectName();
        InitUI();
        InitConnect();
        QueryIfModuSubScribeInfo();
    } catch (...) {
        delete m_prscpRangeSelect;
        throw;
    }
}

HorizontalControlIM::~HorizontalControlIM()
{
    // Hiding takes the focus away, which ends an edit; that edit goes with the row.
    m_ediNote.disconnect(this);
    m_btnDelete.disconnect(this);
    m_bsvButtonSelecter.disconnect(this);
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->disconnect(this);
    }

    m_labName.hide();
    m_ediNote.hide();
    m_bsvButtonSelecter.hide();
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->hide();
    }
    m_btnDelete.hide();
    delete m_prscpRangeSelect;
}

void HorizontalControlIM::InitParent()
{
    m_labName.setParent(m_horlcParent);
    m_ediNote.setParent(m_horlcParent);
    m_bsvButtonSelecter.setParent(m_horlcParent);
    m_btnDelete.setParent(m_horlcParent);
}

void HorizontalControlIM::InitObjectName()
{
    m_labName.setObjectName(QStringLiteral("m_labName"));
    m_ediNote.setObjectName(QStringLiteral("m_ediNote"));
    m_btnDelete.setObjectName(QStringLiteral("m_btnDelete"));
}

void HorizontalControlIM::InitUI()
{
    setContentsMargins(0, 5, 0, 0);
    setSpacing(columnSpacing);

    m_labName.setFixedSize(nameWidth, 30);
    new CondensedText(&m_labName);
    addWidget(&m_labName);
    m_ediNote.setFixedSize(noteWidth, 30);
    addWidget(&m_ediNote);
    m_bsvButtonSelecter.SetFixedSize(selecterWidth, 30);
    addWidget(&m_bsvButtonSelecter);

    createRangeSelect();

    m_btnDelete.setFixedSize(25, 30);
    // In a host's dialog Enter in a field must not delete a condition.
    m_btnDelete.setAutoDefault(false);
    new ClickOnEnter(&m_btnDelete);
    addWidget(&m_btnDelete);
    addSpacerItem(new QSpacerItem(10, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));

    setStretchFactor(&m_labName, 0);
    setStretchFactor(&m_ediNote, 5);
    setStretchFactor(&m_bsvButtonSelecter, 5);
    if (m_prscpRangeSelect) {
        setStretchFactor(m_prscpRangeSelect, 8);
    }
    setStretchFactor(&m_btnDelete, 1);

    const auto sheet = StyleSheet::read(QStringLiteral(":/qss_im/HorizontalControlIM.qss"));
    if (!sheet) {
        qDebug("[HorizontalControlIM]: InitUI HorizontalControlIM qss file open failed.");
        return;
    }
    m_ediNote.setStyleSheet(*sheet);
    m_labName.setStyleSheet(*sheet);
    m_btnDelete.setStyleSheet(*sheet);
}

void HorizontalControlIM::createRangeSelect()
{
    const QString name = m_labName.text();
    switch (ConditionName::typeOf(name)) {
    case ConditionName::Type::Int:
        m_prscpRangeSelect = new RangeSelectControlIM(m_iModuId, -999999999, 999999999, name, m_horlcParent);
        break;
    case ConditionName::Type::Float:
        m_prscpRangeSelect = new RangeSelectControlIM(m_iModuId, -100000, 100000, name, m_horlcParent);
        break;
    case ConditionName::Type::None:
        return;
    }
    addWidget(m_prscpRangeSelect);
}

void HorizontalControlIM::InitConnect()
{
    connect(&m_ediNote, &QLineEdit::editingFinished, this,
            &HorizontalControlIM::onLogicValueChanged2SetParam);
    if (m_prscpRangeSelect) {
        connect(m_prscpRangeSelect, &RangeSelectControlIM::sigRangeEditFinish, this,
                &HorizontalControlIM::onLogicValueChanged2SetParam);
    }
    connect(&m_bsvButtonSelecter, &ButtonSelecterView::sigEdiSubscribeInfoChanged, this,
            &HorizontalControlIM::onSubscribeValueChanged2SetParam);
    connect(&m_btnDelete, &QPushButton::clicked, this, &HorizontalControlIM::onBtnDeleteOpt);
    connect(&m_bsvButtonSelecter, &ButtonSelecterView::sigQuerySubscribeMenuInfo, this,
            &HorizontalControlIM::onQuerySubscribeMenuInfo);
}

void HorizontalControlIM::SetLabNote(const QString& note)
{
    m_ediNote.setText(note);
    m_ediNote.setCursorPosition(0); // a long note shows its beginning
}

void HorizontalControlIM::SetCurrentMin(int value)
{
    qDebug().noquote() << QStringLiteral("HorizontalControlIM SetCurrentMin min:[%1]").arg(value);
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->SetCurrentMin(value);
    }
}

void HorizontalControlIM::SetCurrentMax(int value)
{
    qDebug().noquote() << QStringLiteral("HorizontalControlIM SetCurrentMax max:[%1]").arg(value);
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->SetCurrentMax(value);
    }
}

void HorizontalControlIM::SetCurrentMinD(double value)
{
    qDebug().noquote() << QStringLiteral("HorizontalControlIM SetCurrentMinD min:[%1]").arg(value);
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->SetCurrentMinD(value);
    }
}

void HorizontalControlIM::SetCurrentMaxD(double value)
{
    // Readers of the log know this line under the minimum's name.
    qDebug().noquote() << QStringLiteral("HorizontalControlIM SetCurrentMinD max:[%1]").arg(value);
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->SetCurrentMaxD(value);
    }
}

void HorizontalControlIM::SetHide()
{
    m_bsvButtonSelecter.SetHide();
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->SetHide();
    }
}

void HorizontalControlIM::closeMenus()
{
    m_bsvButtonSelecter.SetHide();
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->GetBsvMinNumSubscribe()->SetHide();
        m_prscpRangeSelect->GetBsvMaxNumSubscribe()->SetHide();
    }
}

void HorizontalControlIM::SetRangeSelectMin(int min)
{
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->SetMinRange(min);
    }
}

void HorizontalControlIM::SetRangeSelectMax(int max)
{
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->SetMaxRange(max);
    }
}

void HorizontalControlIM::DelIO(const QString& name)
{
    using namespace ConditionName;
    for (const QString& key :
         {inputRemovalKey(inputIo(name)), outputRemovalKey(valueOutputIo(name)),
          outputRemovalKey(minimumOutputIo(name)), outputRemovalKey(maximumOutputIo(name))}) {
        m_bsvButtonSelecter.DelFilterSourceOperation4IO(m_iModuId, SUBSCRIBE_TYPE_IO, key);
    }
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->GetBsvMinNumSubscribe()->DelFilterSourceOperation4IO(
            m_iModuId, SUBSCRIBE_TYPE_RUNPARAM, lowerBoundKey(name));
        m_prscpRangeSelect->GetBsvMaxNumSubscribe()->DelFilterSourceOperation4IO(
            m_iModuId, SUBSCRIBE_TYPE_RUNPARAM, upperBoundKey(name));
    }
    for (const QString& key : {lowerBoundSourceKey(name), upperBoundSourceKey(name)}) {
        DeleteUIDataCommand command(static_cast<UInt>(m_iModuId), key.toUtf8().constData());
        ExecuteOrLog(command, QStringLiteral("[HorizontalControlIM]: DelIO uiparam failed. errmeg="));
    }
}

void HorizontalControlIM::onBtnDeleteOpt()
{
    // The panel deletes the row in answer: nothing of it may be touched afterwards.
    emit sigBtnDeleteOpt(m_labName.text());
}

void HorizontalControlIM::onLogicValueChanged2SetParam()
{
    emit sigLogicValueChanged2SetParam();
}

void HorizontalControlIM::onQuerySubscribeMenuInfo(QString varType)
{
    if (auto menu = SubscribeMenu::query(m_iModuId, m_labName.text(), varType)) {
        m_bsvButtonSelecter.UpdateSubscribeMenuData(*menu, 0);
    }
}

void HorizontalControlIM::onSubscribeValueChanged2SetParam(QString info)
{
    const QString key = ConditionName::inputIo(m_labName.text());
    if (m_bsvButtonSelecter.SetFilterSourceOperation4IO(m_iModuId, SUBSCRIBE_TYPE_IO, key, info) == -1) {
        const QPointer<HorizontalControlIM> row = this;
        WarningBox::show(nullptr, QCoreApplication::translate("QIfModuleMainView", "未找到绑定数据"));
        if (row) {
            // Without a binding that stands there is nothing to show, the refused choice least of all.
            m_bsvButtonSelecter.SetEdiSubscribeText(QString());
            QueryIfModuSubScribeInfo();
        }
        return;
    }
    emit sigSubscribeValueChanged2SetParam(info);
}

void HorizontalControlIM::QueryIfModuSubScribeInfo()
{
    QString info;
    const int found = m_bsvButtonSelecter.GetFilterSourceOperation4IO(
        m_iModuId, SUBSCRIBE_TYPE_IO, ConditionName::inputIo(m_labName.text()), info);
    if (found != -1) {
        m_bsvButtonSelecter.SetEdiSubscribeText(info);
    }
}
