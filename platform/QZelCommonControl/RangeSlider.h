#pragma once

#include <QWidget>

/// A slider of plain widgets. Clients construct it and never show it; they show QmlRangeSliderView.
class Q_DECL_EXPORT RangeSlider : public QWidget
{
    Q_OBJECT

public:
    enum Option { NoHandle = 0, LeftHandle = 1, RightHandle = 2, DoubleHandles = LeftHandle | RightHandle };
    Q_DECLARE_FLAGS(Options, Option)

    RangeSlider(Qt::Orientation, Options, QWidget* parent = nullptr)
        : QWidget(parent)
    {}
};

Q_DECLARE_OPERATORS_FOR_FLAGS(RangeSlider::Options)
