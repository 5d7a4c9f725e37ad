#include "RangeSliderState.h"

#include <utility>

void RangeSliderState::setRange(int min, int max)
{
    m_scale = RangeScale(min, max, 0.0, 0.0);
    fitScale();
}

bool RangeSliderState::fitScale()
{
    m_kept.reset();
    const auto [lower, upper] = std::minmax(m_lower, m_upper);
    const RangeScale before =
        std::exchange(m_scale, RangeScale(m_scale.minimum(), m_scale.maximum(), lower, upper));
    return before.sectionMinimum() != m_scale.sectionMinimum() ||
           before.sectionMaximum() != m_scale.sectionMaximum();
}

void RangeSliderState::setBound(double& bound, double value)
{
    if (std::isfinite(value)) {
        bound = value;
        m_pressLower = lower();
        m_pressUpper = upper();
    }
}

RangeSliderState::Grip RangeSliderState::gripAt(const Handles& handles, double position, double reach)
{
    const double toLower = position - handles.first;
    const double toUpper = position - handles.second;
    if (toLower > reach && toUpper < -reach) {
        return Grip::Both;
    }
    if (handles.first == handles.second && std::abs(toLower) <= reach) {
        return Grip::Either;
    }
    return std::abs(toLower) < std::abs(toUpper) || (toLower == toUpper && toLower < 0) ? Grip::Lower
                                                                                        : Grip::Upper;
}

bool RangeSliderState::press(double position, double reach)
{
    putInOrder();
    const Handles seen = m_kept.value_or(handles());
    m_kept.reset();
    m_grip = gripAt(seen, position, reach);
    m_pressPosition = position;
    m_pressLower = lower();
    m_pressUpper = upper();
    setActive(m_grip);
    if (m_grip != Grip::Lower && m_grip != Grip::Upper) {
        m_grabOffset = 0.0;
        return false;
    }
    const double handle = m_grip == Grip::Lower ? seen.first : seen.second;
    const bool isOnHandle = std::abs(position - handle) <= reach;
    m_grabOffset = isOnHandle ? position - handle : 0.0;
    return !isOnHandle && drag(position);
}

bool RangeSliderState::drag(double position)
{
    if (m_grip == Grip::Either && position != m_pressPosition) {
        m_grip = position < m_pressPosition ? Grip::Lower : Grip::Upper;
        setActive(m_grip);
    }
    const int value = m_scale.valueAt(position - m_grabOffset);
    switch (m_grip) {
    case Grip::Lower:
        return moveTo(std::min(value, upper()), upper());
    case Grip::Upper:
        return moveTo(lower(), std::max(value, lower()));
    case Grip::Both:
        return moveBoth(m_pressLower, m_pressUpper, std::int64_t(value) - m_scale.valueAt(m_pressPosition));
    default:
        return false;
    }
}

bool RangeSliderState::step(int by)
{
    putInOrder();
    switch (m_active) {
    case Grip::Lower:
        return moveTo(std::min(stepped(m_lower, by), upper()), upper());
    case Grip::Both:
        return moveBoth(lower(), upper(), by);
    default:
        return moveTo(lower(), std::max(stepped(m_upper, by), lower()));
    }
}

bool RangeSliderState::moveBoth(int lower, int upper, std::int64_t by)
{
    const auto inside = std::clamp<std::int64_t>(by, std::int64_t(m_scale.minimum()) - lower,
                                                 std::int64_t(m_scale.maximum()) - upper);
    return moveTo(static_cast<int>(lower + inside), static_cast<int>(upper + inside));
}

bool RangeSliderState::moveTo(int lower, int upper)
{
    if (lower == m_lower && upper == m_upper) {
        return false;
    }
    m_lower = lower;
    m_upper = upper;
    m_kept.reset();
    return true;
}

void RangeSliderState::putInOrder()
{
    if (m_lower > m_upper) {
        std::swap(m_lower, m_upper);
    }
}
