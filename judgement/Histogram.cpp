#include "judgement/Histogram.h"

#include <algorithm>
#include <cmath>

namespace {

// Bins of a first value are this fine, as a power of two of its magnitude.
constexpr int finest = -40;

} // namespace

void Histogram::makeRoomFor(double value)
{
    if (m_count == 0) {
        m_perWidth = std::ldexp(1.0, -std::max(value == 0.0 ? 0 : std::ilogb(value), -900) - finest);
        m_first = multipleBelow(value);
    }
    m_minimum = std::min(m_minimum, value);
    m_maximum = std::max(m_maximum, value);
    while (m_maximum * m_perWidth - m_minimum * m_perWidth >= 2 * binCount ||
           multipleBelow(m_maximum) - multipleBelow(m_minimum) >= binCount) {
        widen();
    }
    // What is counted lies between the least and the greatest value: nothing falls out at the end.
    const qint64 first = multipleBelow(m_minimum);
    std::rotate(m_bins.begin(), m_bins.end() - (m_first - first), m_bins.end());
    m_first = first;
}

void Histogram::widen()
{
    const auto half = [](qint64 multiple) { return multiple >> 1; }; // rounds down
    std::array<qint64, binCount> bins = {};
    for (int i = 0; i < binCount; ++i) {
        bins[static_cast<std::size_t>(half(m_first + i) - half(m_first))] +=
            m_bins[static_cast<std::size_t>(i)];
    }
    m_bins = bins;
    m_first = half(m_first);
    m_perWidth /= 2;
}
