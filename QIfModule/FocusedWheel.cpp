#include "FocusedWheel.h"

#include <QEvent>
#include <QWidget>

FocusedWheel::FocusedWheel(QWidget* widget)
    : QObject(widget)
{
    widget->setFocusPolicy(Qt::StrongFocus); // not by the wheel
    widget->installEventFilter(this);
}

bool FocusedWheel::eventFilter(QObject* watched, QEvent* event)
{
    const bool isForTheList = event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus();
    if (isForTheList) {
        event->ignore(); // the parent gets it next
    }
    return isForTheList;
}
