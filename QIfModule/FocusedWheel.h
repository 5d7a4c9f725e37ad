#pragma once

#include <QObject>

class QWidget;

/// Passes wheel events to a spin box or combo only while it has the focus; otherwise the list around it
/// scrolls.
class FocusedWheel : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the widget.
    explicit FocusedWheel(QWidget* widget);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
