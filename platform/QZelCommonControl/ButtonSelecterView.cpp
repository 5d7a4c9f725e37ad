#include "ButtonSelecterView.h"

#include "SubscribeField.h"
#include "SubscribeMenuPopup.h"
#include "ZelCommon/FilterSourceCommands.h"

#include <QPainter>
#include <QResizeEvent>
#include <QToolButton>

#include <utility>

using namespace ZelCore;

namespace {

constexpr int buttonWidth = 25;

FilterSourceTarget targetOf(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key)
{
    return {static_cast<UInt>(moduleId), type, std::move(key)};
}

// The result that the operations return.
int answerTo(const CommandResult& result)
{
    return IsSuccess(result) ? 0 : -1;
}

} // namespace

ButtonSelecterView::ButtonSelecterView(QWidget* parent)
    : QWidget(parent)
    , m_ediField(new SubscribeField(this))
    , m_btnOpen(new QToolButton(this))
{
    m_btnOpen->setArrowType(Qt::DownArrow);
    m_btnOpen->setAutoRaise(true);
    m_btnOpen->setFocusPolicy(Qt::StrongFocus);
    m_btnOpen->installEventFilter(this);
    setAttribute(Qt::WA_Hover);
    retranslate();
    connect(m_btnOpen, &QToolButton::clicked, this, &ButtonSelecterView::openMenu);
    connect(m_ediField, &SubscribeField::clicked, this, &ButtonSelecterView::openMenu);
}

int ButtonSelecterView::SetFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key,
                                                    QString info)
{
    SetFilterSourceCommand command(targetOf(moduleId, type, std::move(key)), std::move(info));
    return answerTo(ExecuteCommand(command));
}

int ButtonSelecterView::GetFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key,
                                                    QString& info)
{
    GetFilterSourceCommand command(targetOf(moduleId, type, std::move(key)));
    const CommandResult result = ExecuteCommand(command);
    m_isUnread = !IsSuccess(result) && result.Status != NothingChanged;
    if (IsSuccess(result)) {
        info = command.SubscribeName;
        m_missing = command.SourceIsMissing ? info : QString();
    } else {
        // The field must not show a choice that was refused.
        SetEdiSubscribeText(QString());
    }
    return answerTo(result);
}

int ButtonSelecterView::DelFilterSourceOperation4IO(int moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, QString key)
{
    DelFilterSourceCommand command(targetOf(moduleId, type, std::move(key)));
    const CommandResult result = ExecuteCommand(command);
    if (IsSuccess(result) || result.Status == NothingChanged) {
        m_isUnread = false;
        // The field must not show a binding that was removed.
        SetEdiSubscribeText(QString());
    }
    return answerTo(result);
}

void ButtonSelecterView::UpdateSubscribeMenuData(QJsonArray& menu, int)
{
    m_menu = menu;
    if (m_popup && m_popup->isVisible()) {
        m_popup->open(m_menu, m_ediField->text());
    }
}

void ButtonSelecterView::SetEdiSubscribeText(QString text)
{
    using Source = SubscribeField::Source;
    m_ediField->setBinding(text, text.isEmpty()      ? (m_isUnread ? Source::Unread : Source::Present)
                                 : text == m_missing ? Source::Missing
                                                     : Source::Present);
}

void ButtonSelecterView::SetHide()
{
    if (m_popup) {
        m_popup->close();
    }
}

void ButtonSelecterView::openMenu()
{
    emit sigQuerySubscribeMenuInfo(QString());
    if (!m_popup) {
        m_popup = new SubscribeMenuPopup(this);
        // Queued: a receiver may destroy this widget, which must not happen in the pop-up's event handlers.
        connect(m_popup, &SubscribeMenuPopup::chosen, this, &ButtonSelecterView::choose,
                Qt::QueuedConnection);
    }
    m_popup->open(m_menu, m_ediField->text());
}

void ButtonSelecterView::choose(const QString& info)
{
    m_missing.clear();
    m_isUnread = false;
    SetEdiSubscribeText(info);
    emit sigEdiSubscribeInfoChanged(info);
}

void ButtonSelecterView::placeParts(int width, int height)
{
    m_ediField->setFixedSize(width - buttonWidth, height);
    m_btnOpen->setGeometry(width - buttonWidth, 0, buttonWidth, height);
}

void ButtonSelecterView::resizeEvent(QResizeEvent* event)
{
    placeParts(event->size().width(), event->size().height());
    QWidget::resizeEvent(event);
}

void ButtonSelecterView::retranslate()
{
    m_btnOpen->setAccessibleName(tr("choose a value"));
    m_ediField->setBinding(m_ediField->text(), m_ediField->source());
}

void ButtonSelecterView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
    QWidget::changeEvent(event);
}

bool ButtonSelecterView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update(); // the border shows where the focus is
    }
    return QWidget::eventFilter(watched, event);
}

void ButtonSelecterView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(underMouse() || m_btnOpen->hasFocus() ? QColor(231, 105, 0) : QColor(204, 204, 205));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}
