#pragma once

#include "judgement/Histogram.h"

#include <QWidget>

#include <limits>

/// Draws the values of one condition as bars, with the range in which it is met drawn in behind them. The
/// axis reaches from the least to the greatest value, and on to a bound that lies near.
class HistogramView : public QWidget
{
    Q_OBJECT

public:
    explicit HistogramView(QWidget* parent = nullptr);

    /// A bound that is not known is a NaN.
    void show(const Histogram& values, double minimum, double maximum);
    void clear();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static constexpr double unknown = std::numeric_limits<double>::quiet_NaN();

    Histogram m_values;
    double m_minimum = unknown;
    double m_maximum = unknown;
};
