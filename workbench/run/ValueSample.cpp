#include "run/ValueSample.h"

#include <algorithm>
#include <cmath>

void ValueSample::take(double value)
{
    if (m_values.size() == capacity) {
        // A random one of every two: the values may repeat with a period.
        for (std::size_t i = 0; i < capacity / 2; ++i) {
            m_values[i] = m_values[2 * i + m_random() % 2];
        }
        m_values.resize(capacity / 2);
        m_stride *= 2;
    }
    m_values.push_back(value);
    m_next += m_stride - m_next % m_stride + m_random() % m_stride; // any one of the next stride
}

double ValueSample::quantile(double part) const
{
    std::vector<double> values = m_values;
    const auto place = std::lround(part * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), values.begin() + place, values.end());
    return values[static_cast<std::size_t>(place)];
}
