#include "RangeSliderState.h"

#include <algorithm>
#include <cmath>
#include <utility>

void RangeSliderState::setRange(int min, int max)
{
    m_scale = RangeScale(min, max, 0.0, 0.0);
    fitScale();
}

void RangeSliderState::fitScale()
{
    m_scale = RangeScale(m_scale.minimum(), m_scale.maximum(), std::min(m_lower, m_upper),
                         std::max(m_lower, m_upper));
}

void RangeSliderState::setLower(double value)
{
    if (std::isfinite(value)) {
        m_lower = value;
        m_pressLower = lower();
        m_pressUpper = upper();
    }
}

void RangeSliderState::setUpper(double value)
{
    if (std::isfinite(value)) {
        m_upper = value;
        m_pressLower = lower();
        m_pressUpper = upper();
    }
}

int RangeSliderState::rounded(double value) const
{
    return static_cast<int>(std::lround(std::clamp<double>(value, m_scale.minimum(), m_scale.maximum())));
}

int RangeSliderState::lower() const
{
    return rounded(std::min(m_lower, m_upper));
}

int RangeSliderState::upper() const
{
    return rounded(std::max(m_lower, m_upper));
}

double RangeSliderState::lowerPosition() const
{
    return m_scale.positionOf(std::min(m_lower, m_upper));
}

double RangeSliderState::upperPosition() const
{
    return m_scale.positionOf(std::max(m_lower, m_upper));
}

RangeSliderState::Grip RangeSliderState::gripAt(double position, double reach) const
{
    return gripAt(handles(), position, reach);
}

RangeSliderState::Grip RangeSliderState::gripAt(const Handles& handles, double position, double reach)
{
    const double toLower = position - handles.lower;
    const double toUpper = position - handles.upper;
    if (toLower > reach && toUpper < -reach) {
        return Grip::Both;
    }
    if (handles.lower == handles.upper && std::abs(toLower) <= reach) {
        return Grip::Either;
    }
    return std::abs(toLower) < std::abs(toUpper) || (toLower == toUpper && toLower < 0) ? Grip::Lower
                                                                                        : Grip::Upper;
}

void RangeSliderState::keepHandles()
{
    m_kept = handles();
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
    const double handle = m_grip == Grip::Lower ? seen.lower : seen.upper;
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
    case Grip::Either:
    case Grip::None:
        break;
    }
    return false;
}

void RangeSliderState::release()
{
    m_grip = Grip::None;
    m_kept.reset();
}

int RangeSliderState::stepped(double value, int by) const
{
    return rounded((by > 0 ? std::floor(value) : std::ceil(value)) + by);
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

void RangeSliderState::setActive(Grip grip)
{
    m_active = grip == Grip::None || grip == Grip::Either ? m_active : grip;
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
    return true;
}

void RangeSliderState::putInOrder()
{
    if (m_lower > m_upper) {
        std::swap(m_lower, m_upper);
    }
}
