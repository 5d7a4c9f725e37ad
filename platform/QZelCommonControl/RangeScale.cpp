#include "RangeScale.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double widestLinearRange = 1000.0;
}

RangeScale::RangeScale(int first, int second)
    : m_minimum(std::min(first, second))
    , m_maximum(std::max(first, second))
    , m_isLinear(double(m_maximum) - double(m_minimum) <= widestLinearRange)
{}

double RangeScale::scaled(double value) const
{
    // Linear around zero, logarithmic further out, and the same on both sides.
    return m_isLinear ? value : std::asinh(value);
}

double RangeScale::positionOf(double value) const
{
    if (m_minimum == m_maximum) {
        return 0.0;
    }
    const double inside = std::clamp<double>(value, m_minimum, m_maximum);
    return (scaled(inside) - scaled(m_minimum)) / (scaled(m_maximum) - scaled(m_minimum));
}

int RangeScale::valueAt(double position) const
{
    const double inside = std::clamp(position, 0.0, 1.0);
    const double place = scaled(m_minimum) + inside * (scaled(m_maximum) - scaled(m_minimum));
    const double value = m_isLinear ? place : std::sinh(place);
    return static_cast<int>(std::lround(std::clamp<double>(value, m_minimum, m_maximum)));
}
