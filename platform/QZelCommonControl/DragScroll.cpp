#include "DragScroll.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

DragScroll::DragScroll(QAbstractScrollArea* view)
    : QObject(view)
    , m_view(view)
{
    view->viewport()->installEventFilter(this);
}

bool DragScroll::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_pressY = static_cast<QMouseEvent*>(event)->y();
        m_pressValue = m_view->verticalScrollBar()->value();
        m_isDragging = false;
        break;
    case QEvent::MouseMove:
        if (static_cast<QMouseEvent*>(event)->buttons() & Qt::LeftButton) {
            drag(static_cast<QMouseEvent*>(event)->y() - m_pressY);
            return true;
        }
        break;
    case QEvent::MouseButtonRelease:
        if (m_isDragging) {
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void DragScroll::drag(int distance)
{
    m_isDragging = m_isDragging || qAbs(distance) >= QApplication::startDragDistance();
    if (m_isDragging) {
        m_view->verticalScrollBar()->setValue(m_pressValue - distance);
    }
}
