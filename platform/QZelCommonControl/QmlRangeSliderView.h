#pragma once

#include "RangeSliderState.h"

#include <QPointer>
#include <QWidget>

class QQuickItem;
class QQuickWidget;

/// A slider with two handles as a frameless pop-up window: a range of whole numbers between two ends.
///
/// Nothing of QML is made before it is first shown, and all of these share one engine. Where the QML modules
/// are missing it shows a text instead and takes no input. It opens without taking the focus. A handle is
/// dragged, so is the range between the two; the wheel and, after a click, the arrow keys move by 1 and with
/// Shift by 10, Tab chooses the handle, Escape closes.
///
/// Opened while a spin box has the focus, it closes when the focus leaves the parent of the spin box, when
/// that parent scrolls or the wheel is turned elsewhere, and on Escape in it. An event filter then sees a
/// WindowDeactivate of this window, during which no spin box of that parent has the focus. GUI thread only.
class Q_DECL_EXPORT QmlRangeSliderView : public QWidget
{
    Q_OBJECT

public:
    explicit QmlRangeSliderView(QWidget* parent = nullptr);

    /// The ends, in any order.
    void SetRange(int min, int max);
    /// Show a bound; no signal. What is no number is ignored.
    void SetCurrentMinD(double value);
    void SetCurrentMaxD(double value);

signals:
    /// The user moved a handle: both bounds, lower <= upper. A bound that was set with decimals is rounded
    /// to the nearest whole number.
    void sigRangeSliderChange(int lower, int upper);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void createView();
    /// The root of the scene, or null.
    QQuickItem* scene() const;
    /// Closes as if another window had been activated.
    void leave();
    double positionAt(int x) const;
    /// How far from its middle a handle is taken, as a difference of positions.
    double handleReach() const;
    void highlight(RangeSliderState::Grip grip);
    void showState();
    /// Shows the active handle, and emits changed bounds.
    void report(bool isChanged);

    RangeSliderState m_state;
    QQuickWidget* m_view = nullptr;
    // The parent of the fields that it opened for.
    QPointer<QWidget> m_fields;
    // The one that the focus is taken from while it closes.
    QPointer<QWidget> m_leftField;
    RangeSliderState::Grip m_lit = RangeSliderState::Grip::None;
    int m_pressX = 0;
    bool m_isDragging = false;
    int m_wheelAngle = 0;
};
