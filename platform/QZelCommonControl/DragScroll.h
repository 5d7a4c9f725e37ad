#pragma once

#include <QObject>

class QAbstractScrollArea;

/// Lets a finger, or the mouse, scroll a view by dragging its content. A press without a drag stays a click.
class DragScroll : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the view.
    explicit DragScroll(QAbstractScrollArea* view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drag(int distance);

    QAbstractScrollArea* m_view;
    int m_pressY = 0;
    int m_pressValue = 0;
    bool m_isDragging = false;
};
