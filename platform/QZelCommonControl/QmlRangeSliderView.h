#pragma once

#include "RangeSliderState.h"

#include <QWidget>

class QQuickWidget;

/// A slider with two handles as a frameless pop-up window: a range of whole numbers between two ends.
///
/// Nothing of QML is made before it is first shown, and all of these share one engine. It opens without
/// taking the focus. A handle is dragged, so is the range between the two; the wheel and, after a click,
/// the arrow keys move by 1 and with Shift by 10, Tab chooses the handle, Escape closes. GUI thread only.
class Q_DECL_EXPORT QmlRangeSliderView : public QWidget
{
    Q_OBJECT

public:
    explicit QmlRangeSliderView(QWidget* parent = nullptr);
    ~QmlRangeSliderView() override;

    /// The ends, in any order.
    void SetRange(int min, int max);
    /// Show a bound; no signal. What is no number is ignored.
    void SetCurrentMinD(double value);
    void SetCurrentMaxD(double value);

signals:
    /// The user moved a handle: both bounds, lower <= upper. A bound that was told with decimals is rounded
    /// to the nearest whole number.
    void sigRangeSliderChange(int lower, int upper);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void createView();
    double positionAt(int x) const;
    double handleReach() const;
    void highlight(RangeSliderState::Grip grip);
    void showState();
    void report(bool isChanged);

    RangeSliderState m_state;
    QQuickWidget* m_view = nullptr;
    RangeSliderState::Grip m_lit = RangeSliderState::Grip::None;
    int m_pressX = 0;
    bool m_isDragging = false;
    int m_wheelAngle = 0;
};
