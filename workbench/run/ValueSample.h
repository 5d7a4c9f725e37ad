#pragma once

#include <random>
#include <vector>

/// Values that come one by one, for their percentiles: all of them up to a number, from then on a random one
/// of every two, four, eight ... in turn, so that the memory is bounded.
class ValueSample
{
public:
    static constexpr std::size_t capacity = 50000;

    void add(double value)
    {
        if (m_count++ == m_next) {
            take(value);
        }
    }
    /// The value below which this part of the values lies, 0 to 1; there must be one. With more values than
    /// capacity an estimate.
    double quantile(double part) const;

private:
    void take(double value);

    std::vector<double> m_values;
    std::size_t m_count = 0;
    /// The number of the value that is taken next.
    std::size_t m_next = 0;
    /// One of so many is taken.
    std::size_t m_stride = 1;
    std::minstd_rand m_random;
};
