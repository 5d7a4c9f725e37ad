#include "RangeScale.h"

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

std::pair<double, double> RangeScale::zoneAt(double beyond) const
{
    return beyond < 0.0 ? std::pair(sectionBegin(), double(m_sectionMinimum) - m_minimum)
                        : std::pair(1.0 - sectionEnd(), double(m_maximum) - m_sectionMaximum);
}

double RangeScale::positionOf(double value) const
{
    const double inside = std::clamp<double>(value, m_minimum, m_maximum);
    const double shown = std::clamp<double>(inside, m_sectionMinimum, m_sectionMaximum);
    const double part = (shown - m_sectionMinimum) / sectionWidth();
    const double position = sectionBegin() + part * (sectionEnd() - sectionBegin());
    const auto [length, extent] = zoneAt(inside - shown);
    const double depth = std::asinh((inside - shown) / sectionWidth());
    const double beyond = depth == 0.0 ? 0.0 : length * depth / std::asinh(extent / sectionWidth());
    return std::clamp(position + beyond, 0.0, 1.0);
}

int RangeScale::valueAt(double position) const
{
    const double inside = std::clamp(position, 0.0, 1.0);
    const double shown = std::clamp(inside, sectionBegin(), sectionEnd());
    const double part = (shown - sectionBegin()) / (sectionEnd() - sectionBegin());
    double value = m_sectionMinimum + part * sectionWidth();
    if (inside != shown) {
        const auto [length, extent] = zoneAt(inside - shown);
        const double depth = (inside - shown) / length * std::asinh(extent / sectionWidth());
        value += std::sinh(depth) * sectionWidth();
    }
    return static_cast<int>(std::lround(std::clamp<double>(value, m_minimum, m_maximum)));
}
