#pragma once

#include <QWidget>

/// A slider of bare widgets. Clients construct it and never show it: QmlRangeSliderView took its place.
class Q_DECL_EXPORT RangeSlider : public QWidget
{
    Q_OBJECT

public:
    enum Option { NoHandle = 0, LeftHandle = 1, RightHandle = 2, DoubleHandles = LeftHandle | RightHandle };
    Q_DECLARE_FLAGS(Options, Option)

    RangeSlider(Qt::Orientation orientation, Options options, QWidget* parent = nullptr);

    Qt::Orientation orientation() const { return m_orientation; }
    Options options() const { return m_options; }

private:
    Qt::Orientation m_orientation;
    Options m_options;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(RangeSlider::Options)
