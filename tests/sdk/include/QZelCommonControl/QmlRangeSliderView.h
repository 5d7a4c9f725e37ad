#pragma once

#include <QWidget>

/// The least that is a slider in a window of its own.
class Q_DECL_EXPORT QmlRangeSliderView : public QWidget
{
    Q_OBJECT

public:
    QmlRangeSliderView();

    void SetRange(int min, int max);
    void SetCurrentMinD(double value);
    void SetCurrentMaxD(double value);

signals:
    void sigRangeSliderChange(int lower, int upper);
};
