#include "HorizontalControlIM.h"

#include "CondensedText.h"
#include "StyleSheet.h"
#include "WarningBox.h"
#include "condition/ConditionName.h"
#include "core_client/core_client.h"

#include <QAction>
#include <QCoreApplication>
#include <QDebug>
#include <QPointer>
#include <QScopeGuard>
#include <QSpacerItem>
#include <QStyle>
#include <QTextDocument>

using namespace ZelCore;

namespace {

// Text of the user is no markup.
QString toolTipOf(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace

HorizontalControlIM::HorizontalControlIM(int moduleId, QString name, QWidget* parent)
    // A second layout on the same widget would only be refused, with a warning; without a parent the row
    // waits for its list.
    : QHBoxLayout(parent && !parent->layout() ? parent : nullptr)
{
    m_iModuId = moduleId;
    m_horlcParent = parent;
    m_labName.setTextFormat(Qt::PlainText); // a stored name is no markup
    m_labName.setText(name);

    auto deleteStrip = qScopeGuard([this] { delete m_prscpRangeSelect; });
    InitParent();
    InitObjectName();
    InitUI();
    InitConnect();
    QueryIfModuSubScribeInfo();
    deleteStrip.dismiss(); // by the destructor from here on
}

HorizontalControlIM::~HorizontalControlIM()
{
    if (m_prscpRangeSelect) {
        m_prscpRangeSelect->disconnectParts();
    }
    for (QWidget* const widget : std::initializer_list<QWidget*>{&m_labName, &m_ediNote, &m_bsvButtonSelecter,
                                                                 m_prscpRangeSelect, &m_btnDelete}) {
        if (widget) {
            // Hiding moves the focus, which finishes an edit; that of a deleted row is not stored.
            widget->disconnect(this);
            widget->hide();
        }
    }
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

    const QString name = m_labName.text();
    const ConditionName::Type type = ConditionName::typeOf(name);
    if (type != ConditionName::Type::None) {
        const int limit = ConditionName::largestBound(type);
        m_prscpRangeSelect = new RangeSelectControlIM(m_iModuId, -limit, limit, name, m_horlcParent);
        addWidget(m_prscpRangeSelect);
    }

    m_btnDelete.setFixedSize(25, 30);
    m_btnDelete.setAutoDefault(false);
    addWidget(&m_btnDelete);
    addSpacerItem(new QSpacerItem(10, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));

    setStretchFactor(&m_labName, 0);
    setStretchFactor(&m_ediNote, 5);
    setStretchFactor(&m_bsvButtonSelecter, 5);
    if (m_prscpRangeSelect) {
        setStretchFactor(m_prscpRangeSelect, 8);
    }
    setStretchFactor(&m_btnDelete, 1);

    if (!StyleSheet::set(QStringLiteral(":/qss_im/HorizontalControlIM.qss"),
                         {&m_ediNote, &m_labName, &m_btnDelete})) {
        qDebug("[HorizontalControlIM]: InitUI HorizontalControlIM qss file open failed.");
    }
}

void HorizontalControlIM::InitConnect()
{
    connect(&m_ediNote, &QLineEdit::editingFinished, this,
            &HorizontalControlIM::onLogicValueChanged2SetParam);
    // From then on modified means: edited and not finished.
    connect(&m_ediNote, &QLineEdit::editingFinished, &m_ediNote, [this] { m_ediNote.setModified(false); });
    // The field is narrower than most notes.
    connect(&m_ediNote, &QLineEdit::textChanged, &m_ediNote,
            [this](const QString& note) { m_ediNote.setToolTip(toolTipOf(note)); });
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

void HorizontalControlIM::showInList()
{
    for (int i = 0; i < count(); ++i) {
        if (QWidget* const widget = itemAt(i)->widget()) {
            widget->show();
        }
    }
    if (m_prscpRangeSelect) {
        QWidget::setTabOrder(m_prscpRangeSelect->lastInTabOrder(), &m_btnDelete);
    }
}

void HorizontalControlIM::showLoss(const QString& text)
{
    QAction* sign = m_ediNote.actions().value(0);
    if (text.isEmpty()) {
        delete sign;
        return;
    }
    if (!sign) {
        sign = m_ediNote.addAction(m_ediNote.style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                   QLineEdit::TrailingPosition);
    }
    sign->setToolTip(toolTipOf(text));
}

void HorizontalControlIM::DelIO(QString name)
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
