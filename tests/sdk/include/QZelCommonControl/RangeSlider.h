#pragma once

#include <QWidget>

/// The least that is a slider of bare widgets.
class Q_DECL_EXPORT RangeSlider : public QWidget
{
    Q_OBJECT

public:
    enum Option { NoHandle = 0, LeftHandle = 1, RightHandle = 2 };
    Q_DECLARE_FLAGS(Options, Option)

    RangeSlider(Qt::Orientation orientation, Options options, QWidget* parent = nullptr);
};
