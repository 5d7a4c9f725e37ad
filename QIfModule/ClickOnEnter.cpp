#include "ClickOnEnter.h"

#include <QAbstractButton>
#include <QKeyEvent>

ClickOnEnter::ClickOnEnter(QAbstractButton* button)
    : QObject(button)
    , m_button(button)
{
    button->installEventFilter(this);
}

bool ClickOnEnter::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) {
        return false;
    }
    event->accept();
    m_button->click(); // which may destroy the button, and this with it
    return true;
}
