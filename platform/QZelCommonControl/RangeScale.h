#pragma once

#include <algorithm>
#include <utility>

/// Where a value of an integer range stands on a slider: position 0 is the lowest value, 1 the highest.
///
/// A range that has a pixel for each value is linear. Of a wider one most of the slider shows, linear, a
/// section around two bounds; what lies below and above it shares the two end zones, logarithmic, so that
/// the far limits can be reached.
class RangeScale
{
public:
    /// The limits in any order. The section is about three times as wide as the distance of the bounds,
    /// which are in order, and ends at round numbers or at the limits.
    RangeScale(int first, int second, double lower, double upper);

    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }

    /// The ends of the section, and their positions.
    int sectionMinimum() const { return m_sectionMinimum; }
    int sectionMaximum() const { return m_sectionMaximum; }
    double sectionBegin() const { return m_sectionMinimum > m_minimum ? endZone : 0.0; }
    double sectionEnd() const { return m_sectionMaximum < m_maximum ? 1.0 - endZone : 1.0; }

    /// Values beyond the limits, and positions beyond [0, 1], count as the limits.
    double positionOf(double value) const;
    int valueAt(double position) const;

private:
    static constexpr double endZone = 0.12;

    double sectionWidth() const { return std::max(1.0, double(m_sectionMaximum) - m_sectionMinimum); }
    /// The length of the end zone on that side of the section, as a part of the slider and in values.
    std::pair<double, double> zoneAt(double beyond) const;

    int m_minimum;
    int m_maximum;
    int m_sectionMinimum;
    int m_sectionMaximum;
};
