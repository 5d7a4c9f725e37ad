#pragma once

#include "judgement/Histogram.h"

#include <QWidget>

#include <limits>

/// A bound over the rows of a run, or nothing (NaN) while none was judged.
struct BoundSpan
{
    double least = std::numeric_limits<double>::quiet_NaN();
    double greatest = least;

    void include(double bound);
    bool varies() const { return least < greatest; }
};

/// Draws the values of one condition as bars, red where they lie outside its bounds, with the range in which
/// it is met drawn in behind them. A bound that varies over the rows is a band. The axis reaches from the
/// least to the greatest value, and on to a bound that lies near. Shows the count of a bar as its tool tip.
class HistogramView : public QWidget
{
    Q_OBJECT

public:
    explicit HistogramView(QWidget* parent = nullptr);

    void setValues(const Histogram& values, const BoundSpan& minimum, const BoundSpan& maximum);
    /// Marks a value; a NaN marks none.
    void mark(double value);
    void clear();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Plot;
    Plot plot() const;

    Histogram m_values;
    BoundSpan m_minimum;
    BoundSpan m_maximum;
    double m_marked = std::numeric_limits<double>::quiet_NaN();
};
