#include "CondensedText.h"

#include <QDoubleSpinBox>
#include <QEvent>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPainter>

namespace {

constexpr int fieldMargin = 2; // px, on either side; a line edit does not report it
constexpr int cursorWidth = 1; // px

QString textOf(const QWidget* widget)
{
    return widget->property("text").toString();
}

int roomIn(const QWidget* widget)
{
    if (widget->inherits("QLabel")) {
        // The size hint includes the padding that a style sheet gives.
        return widget->width() - widget->sizeHint().width() +
               widget->fontMetrics().horizontalAdvance(textOf(widget));
    }
    return widget->contentsRect().width() - 2 * fieldMargin - cursorWidth;
}

} // namespace

CondensedText::CondensedText(QWidget* widget)
    : QObject(widget)
    , m_pWidget(widget)
{
    widget->installEventFilter(this);
}

CondensedText::CondensedText(const QDoubleSpinBox& spinBox, QLineEdit* field)
    : CondensedText(field)
{
    m_ediBound = field;
    // The spin box blocks the signals of its field while it sets the text.
    connect(field, &QLineEdit::textChanged, this, &CondensedText::fit);
    connect(&spinBox, &QDoubleSpinBox::textChanged, this, &CondensedText::fit);
    connect(&spinBox, &QDoubleSpinBox::editingFinished, this, &CondensedText::fit);
}

bool CondensedText::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    // The font of a name is set by its sheet.
    if (type == QEvent::Resize || type == QEvent::Show || (type == QEvent::FontChange && m_ediBound)) {
        fit();
    } else if (type == QEvent::Paint && m_ediBound && !m_ediBound->hasFocus() && isCut(m_ediBound->font())) {
        watched->event(event);
        QPainter painter(m_ediBound);
        painter.fillRect(m_ediBound->contentsRect(), m_ediBound->palette().base());
        painter.setPen(m_ediBound->palette().text().color());
        painter.drawText(
            m_ediBound->contentsRect().adjusted(fieldMargin, 0, 0, 0), Qt::AlignVCenter,
            painter.fontMetrics().elidedText(m_ediBound->text(), Qt::ElideRight, roomIn(m_ediBound)));
        return true;
    }
    return false;
}

bool CondensedText::isCut(const QFont& font) const
{
    return QFontMetrics(font).horizontalAdvance(textOf(m_pWidget)) > roomIn(m_pWidget);
}

void CondensedText::fit()
{
    if (!m_pWidget->isVisible()) {
        return; // not laid out and polished yet
    }
    QFont font = m_pWidget->font();
    font.setStretch(QFont::Unstretched);
    const int room = roomIn(m_pWidget);
    const auto width = [this, &font] { return QFontMetrics(font).horizontalAdvance(textOf(m_pWidget)); };
    int stretch = QFont::Unstretched;
    if (const int wanted = qMax(1, width()); wanted > room) {
        stretch = qMax<int>(QFont::UltraCondensed, QFont::Unstretched * room / wanted);
        // Character widths are rounded; their sum may still be too large.
        for (font.setStretch(stretch); width() > room && stretch > QFont::UltraCondensed;
             font.setStretch(stretch)) {
            --stretch;
        }
    }
    const int present = m_pWidget->font().stretch();
    if (stretch != (present == QFont::AnyStretch ? int(QFont::Unstretched) : present)) {
        m_pWidget->setFont(font);
    }
}
