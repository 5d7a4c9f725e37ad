#pragma once

#include <QVector>

/// Counts of values in bins of one width, for values that come one by one and whose range is not known
/// beforehand: the width doubles whenever a value lies outside, and neighbouring bins merge.
class Histogram
{
public:
    static constexpr int binCount = 64;

    /// The value must be finite.
    void add(double value);

    bool isEmpty() const { return m_count == 0; }
    qint64 count() const { return m_count; }
    /// The least and the greatest value.
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }

    /// Bin i counts the values from lowerEdge(i) to below lowerEdge(i + 1).
    const QVector<qint64>& bins() const { return m_bins; }
    double lowerEdge(int bin) const { return (m_first + bin) * m_width; }

private:
    void widen();
    void beginAt(double first);

    QVector<qint64> m_bins = QVector<qint64>(binCount);
    qint64 m_count = 0;
    double m_minimum = 0.0;
    double m_maximum = 0.0;
    /// A power of two; every edge is a multiple of it.
    double m_width = 0.0;
    /// The multiple of the width at which the first bin begins: the bin of the least value.
    double m_first = 0.0;
};
