#include "RangeScale.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double widestLinearRange = 200.0; // the pixels of the slider's way
constexpr double narrowestSpan = 10.0;

// 1, 2 or 5 times a power of ten, at most the span.
double roundStep(double span)
{
    const double power = std::pow(10.0, std::floor(std::log10(span)));
    const double factor = span / power;
    return power * (factor >= 5.0 ? 5.0 : factor >= 2.0 ? 2.0 : 1.0);
}

} // namespace

RangeScale::RangeScale(int first, int second, double lower, double upper)
    : m_minimum(std::min(first, second))
    , m_maximum(std::max(first, second))
    , m_sectionMinimum(m_minimum)
    , m_sectionMaximum(m_maximum)
{
    if (double(m_maximum) - m_minimum <= widestLinearRange) {
        return;
    }
    const auto inside = [this](double value) { return std::clamp<double>(value, m_minimum, m_maximum); };
    const double span = std::max(inside(upper) - inside(lower), narrowestSpan);
    const double step = roundStep(span);
    const auto roundEnd = [&](double end) { return static_cast<int>(inside(std::round(end / step) * step)); };
    m_sectionMinimum = roundEnd(inside(lower) - span);
    m_sectionMaximum = roundEnd(inside(upper) + span);
}

double RangeScale::depthOf(double distance, double wholeDistance) const
{
    return std::asinh(distance / sectionWidth()) / std::asinh(wholeDistance / sectionWidth());
}

double RangeScale::distanceAt(double depth, double wholeDistance) const
{
    return std::sinh(depth * std::asinh(wholeDistance / sectionWidth())) * sectionWidth();
}

double RangeScale::positionOf(double value) const
{
    const double inside = std::clamp<double>(value, m_minimum, m_maximum);
    if (inside < m_sectionMinimum) {
        const double whole = double(m_sectionMinimum) - m_minimum;
        return sectionBegin() * (1.0 - depthOf(m_sectionMinimum - inside, whole));
    }
    if (inside > m_sectionMaximum) {
        const double whole = double(m_maximum) - m_sectionMaximum;
        return sectionEnd() + (1.0 - sectionEnd()) * depthOf(inside - m_sectionMaximum, whole);
    }
    const double part = sectionWidth() > 0.0 ? (inside - m_sectionMinimum) / sectionWidth() : 0.0;
    return sectionBegin() + part * (sectionEnd() - sectionBegin());
}

int RangeScale::valueAt(double position) const
{
    const double inside = std::clamp(position, 0.0, 1.0);
    double value = 0.0;
    if (inside < sectionBegin()) {
        const double whole = double(m_sectionMinimum) - m_minimum;
        value = m_sectionMinimum - distanceAt(1.0 - inside / sectionBegin(), whole);
    } else if (inside > sectionEnd()) {
        const double whole = double(m_maximum) - m_sectionMaximum;
        value = m_sectionMaximum + distanceAt((inside - sectionEnd()) / (1.0 - sectionEnd()), whole);
    } else {
        const double part = (inside - sectionBegin()) / (sectionEnd() - sectionBegin());
        value = m_sectionMinimum + part * sectionWidth();
    }
    return static_cast<int>(std::lround(std::clamp<double>(value, m_minimum, m_maximum)));
}
