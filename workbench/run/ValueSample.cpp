#include "run/ValueSample.h"

#include <algorithm>
#include <cmath>

void ValueSample::take(double value)
{
    ++m_next;
    if (m_values.size() < capacity) {
        m_values.push_back(value);
    } else {
        m_values[std::uniform_int_distribution<std::size_t>(0, capacity - 1)(m_random)] = value;
    }
    if (m_values.size() == capacity) {
        // Reservoir sampling that draws how many values to leave out.
        std::uniform_real_distribution<double> draw(1e-300, 1.0);
        m_weight *= std::exp(std::log(draw(m_random)) / double(capacity));
        m_next += static_cast<std::size_t>(std::log(draw(m_random)) / std::log1p(-m_weight));
    }
}

double ValueSample::quantile(double part) const
{
    std::vector<double> values = m_values;
    const auto place = std::lround(part * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), values.begin() + place, values.end());
    return values[static_cast<std::size_t>(place)];
}
