#pragma once

/// Where a value of an integer range stands on a slider: position 0 is the lowest value, 1 the highest.
///
/// A range of a thousand values or fewer is linear. A wider one is logarithmic to both sides of zero, so
/// that on a few hundred pixels single values near zero and the far ends can both be reached.
class RangeScale
{
public:
    /// The ends in any order.
    RangeScale(int first, int second);

    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }

    /// Values beyond the ends, and positions beyond [0, 1], count as the ends.
    double positionOf(double value) const;
    int valueAt(double position) const;

private:
    double scaled(double value) const;

    int m_minimum;
    int m_maximum;
    bool m_isLinear;
};
