#pragma once

#include <QtGlobal>

#include <array>
#include <limits>

/// Counts of values in bins of one width, for values that come one by one and whose range is not known
/// beforehand: the width doubles whenever a value lies outside, and neighbouring bins merge.
class Histogram
{
public:
    static constexpr int binCount = 64;

    /// The value must be finite.
    void add(double value)
    {
        if (!(value >= m_minimum && value <= m_maximum)) {
            makeRoomFor(value);
        }
        ++m_bins[static_cast<std::size_t>(multipleBelow(value) - m_first)];
        ++m_count;
    }

    bool isEmpty() const { return m_count == 0; }
    qint64 count() const { return m_count; }
    /// The least and the greatest value; of none infinity and -infinity.
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }

    /// Bin i counts the values from lowerEdge(i) to below lowerEdge(i + 1).
    const std::array<qint64, binCount>& bins() const { return m_bins; }
    double lowerEdge(int bin) const { return static_cast<double>(m_first + bin) / m_perWidth; }

private:
    /// How many widths the edge at or below a value is from 0.
    qint64 multipleBelow(double value) const
    {
        const double multiple = value * m_perWidth;
        const auto truncated = static_cast<qint64>(multiple);
        return truncated - (static_cast<double>(truncated) > multiple ? 1 : 0);
    }
    void makeRoomFor(double value);
    void widen();

    std::array<qint64, binCount> m_bins = {};
    qint64 m_count = 0;
    double m_minimum = std::numeric_limits<double>::infinity();
    double m_maximum = -m_minimum;
    /// 1 divided by the width, a power of two.
    double m_perWidth = 1.0;
    /// The multiple of the width at which the first bin begins: the bin of the least value.
    qint64 m_first = 0;
};
