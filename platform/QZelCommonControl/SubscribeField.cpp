#include "SubscribeField.h"

#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr int textMargin = 5; // px
constexpr int textSize = 12;  // px
const QColor textColor(61, 61, 61);
const QColor missingColor(200, 30, 30);
} // namespace

SubscribeField::SubscribeField(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setFrame(false);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setContextMenuPolicy(Qt::NoContextMenu);
    QFont font = this->font();
    font.setPixelSize(textSize);
    setFont(font);
}

void SubscribeField::show(const QString& text, bool isMissing)
{
    m_isMissing = isMissing;
    setText(text);
    setToolTip(isMissing ? tr("%1\nThe flow has no such value any more.").arg(text) : text);
    update();
}

void SubscribeField::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect area = rect().adjusted(textMargin, 0, -textMargin, 0);
    painter.setPen(m_isMissing ? missingColor : textColor);
    // A path begins at the left in every language.
    painter.setLayoutDirection(Qt::LeftToRight);
    // The end of a path tells more than its beginning.
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideLeft, area.width()));
}

void SubscribeField::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) {
        emit clicked();
    }
}
