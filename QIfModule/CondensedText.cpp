#include "CondensedText.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int fieldMargin = 2; // px, on either side; a line edit tells it to nobody
constexpr int cursorWidth = 1; // px

} // namespace

CondensedText::CondensedText(QLineEdit* field)
    : QObject(field)
    , m_field(field)
{
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, &CondensedText::fitField);
}

CondensedText::CondensedText(QLabel* label)
    : QObject(label)
    , m_label(label)
{
    label->installEventFilter(this);
}

bool CondensedText::eventFilter(QObject*, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::Resize || type == QEvent::Show) {
        m_field ? fitField() : fitLabel();
    } else if (type == QEvent::FontChange && m_field) {
        fitField(); // a name's font is its sheet's
    }
    return false;
}

void CondensedText::fitField()
{
    fit(*m_field, m_field->text(), m_field->contentsRect().width() - 2 * fieldMargin - cursorWidth);
}

void CondensedText::fitLabel()
{
    // The size that it would like knows of the padding that a style sheet gives it.
    const int text = m_label->fontMetrics().horizontalAdvance(m_label->text());
    fit(*m_label, m_label->text(), m_label->width() - (m_label->sizeHint().width() - text));
}

void CondensedText::fit(QWidget& widget, const QString& text, int room) const
{
    if (!widget.isVisible()) {
        return; // without its place and its sheet yet
    }
    QFont font = widget.font();
    const auto wanted = [&] { return QFontMetrics(font).horizontalAdvance(text); };
    font.setStretch(QFont::Unstretched);
    if (wanted() > room) {
        font.setStretch(qMax<int>(QFont::UltraCondensed, QFont::Unstretched * room / wanted()));
    }
    // Characters have whole widths, so that their sum may still be too large.
    while (wanted() > room && font.stretch() > QFont::UltraCondensed) {
        font.setStretch(font.stretch() - 1);
    }
    const int present = widget.font().stretch();
    if (font.stretch() != (present == QFont::AnyStretch ? int(QFont::Unstretched) : present)) {
        widget.setFont(font);
    }
}
