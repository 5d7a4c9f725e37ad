#include "judgement/Histogram.h"

#include <algorithm>
#include <cmath>

namespace {

// Bins of a first value are this fine, as a power of two of its magnitude.
constexpr int finest = -40;

} // namespace

void Histogram::add(double value)
{
    if (m_count == 0) {
        m_minimum = m_maximum = value;
        m_width = std::ldexp(1.0, std::max(value == 0.0 ? 0 : std::ilogb(value), -900) + finest);
        m_first = std::floor(value / m_width);
    }
    m_minimum = std::min(m_minimum, value);
    m_maximum = std::max(m_maximum, value);
    while (std::floor(m_maximum / m_width) - std::floor(m_minimum / m_width) >= binCount) {
        widen();
    }
    beginAt(std::floor(m_minimum / m_width));
    ++m_bins[static_cast<int>(std::floor(value / m_width) - m_first)];
    ++m_count;
}

void Histogram::widen()
{
    const double first = std::floor(m_first / 2);
    QVector<qint64> bins(binCount);
    for (int i = 0; i < binCount; ++i) {
        bins[static_cast<int>(std::floor((m_first + i) / 2) - first)] += m_bins[i];
    }
    m_bins = bins;
    m_first = first;
    m_width *= 2;
}

// What is counted lies between the least and the greatest value, so that nothing falls out at the end.
void Histogram::beginAt(double first)
{
    const auto shift = static_cast<int>(m_first - first);
    std::rotate(m_bins.begin(), m_bins.end() - shift, m_bins.end());
    m_first = first;
}
