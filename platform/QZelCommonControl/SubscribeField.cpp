#include "SubscribeField.h"

#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace {

constexpr int textMargin = 3; // px
constexpr int groupSize = 9;
constexpr int groupHeight = 12;
constexpr int nameSize = 13;
const QColor textColor(61, 61, 61);
const QColor notBoundColor(107, 107, 110);
const QColor missingColor(200, 30, 30);

void drawFitted(QPainter& painter, const QRect& area, int pixelSize, const QString& text,
                Qt::TextElideMode elideMode)
{
    QFont font = painter.font();
    for (const auto& [smaller, stretch] : {std::pair(0, 100), {0, 87}, {0, 75}, {0, 62}, {2, 62}, {3, 62}}) {
        font.setPixelSize(qMax(pixelSize - smaller, groupSize));
        font.setStretch(stretch);
        if (QFontMetrics(font).horizontalAdvance(text) <= area.width()) {
            break;
        }
    }
    painter.setFont(font);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(font).elidedText(text, elideMode, area.width()));
}

} // namespace

SubscribeField::SubscribeField(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setFrame(false);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setContextMenuPolicy(Qt::NoContextMenu);
    setBinding(QString(), Source::Present);
}

void SubscribeField::setBinding(const QString& text, Source source)
{
    m_source = source;
    setText(text);
    setPlaceholderText(source == Source::Unread ? tr("not readable") : tr("not bound"));
    setToolTip(source == Source::Missing  ? tr("%1\nThe flow has no such value any more.").arg(text)
               : source == Source::Unread ? tr("The binding could not be read.")
                                          : text);
    update();
}

void SubscribeField::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // A path begins at the left in every language.
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.setPen(m_source != Source::Present ? missingColor : text().isEmpty() ? notBoundColor : textColor);
    QRect area = rect().adjusted(textMargin, 0, -textMargin, 0);
    if (text().isEmpty()) {
        drawFitted(painter, area, nameSize, placeholderText(), Qt::ElideRight);
        return;
    }
    const QLatin1Char separator('.');
    QString group = text().section(separator, 0, -2);
    bool isNumbered = false;
    group.section(separator, 0, 0).toUInt(&isNumbered); // by the module
    group = m_source == Source::Missing ? tr("missing") : group.section(separator, isNumbered ? 1 : 0);
    if (!group.isEmpty()) {
        drawFitted(painter, {area.x(), 2, area.width(), groupHeight}, groupSize, group, Qt::ElideLeft);
        area.setTop(groupHeight);
    }
    drawFitted(painter, area, nameSize, text().section(separator, -1), Qt::ElideMiddle);
}

void SubscribeField::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) {
        emit clicked();
    }
}
