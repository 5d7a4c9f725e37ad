#pragma once

#include "RangeScale.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

/// The two handles of a range slider and what a drag or a step does to them; no widget.
///
/// The bounds are set as doubles. As soon as the user moves a handle both are whole numbers, lower <=
/// upper: the other one is rounded to the nearest. Positions run from 0 to 1 along the slider.
class RangeSliderState
{
public:
    /// What a drag moves. Either: both handles stand in one place, and the drag's direction decides.
    enum class Grip { None, Lower, Upper, Both, Either };

    void setRange(int min, int max);
    /// Kept as set, even with lower > upper, until the user moves a handle. What is no number is ignored.
    void setLower(double value) { setBound(m_lower, value); }
    void setUpper(double value) { setBound(m_upper, value); }
    /// Puts the scale's section around the present bounds, as setRange() does; otherwise the scale stays.
    /// Returns whether the section changed.
    bool fitScale();

    const RangeScale& scale() const { return m_scale; }
    int lower() const { return rounded(std::min(m_lower, m_upper)); }
    int upper() const { return rounded(std::max(m_lower, m_upper)); }
    /// In order, whatever order the bounds were set in.
    double lowerPosition() const { return m_scale.positionOf(std::min(m_lower, m_upper)); }
    double upperPosition() const { return m_scale.positionOf(std::max(m_lower, m_upper)); }

    /// What a press would take hold of: a handle within reach, the range between the two, or the
    /// nearer handle.
    Grip gripAt(double position, double reach) const { return gripAt(handles(), position, reach); }
    /// Lets the next press() take what is at its place now, wherever new bounds move the handles before.
    void keepHandles() { m_kept = handles(); }
    /// Away from the handles the nearer one moves to the place. Returns whether a bound changed, as do drag()
    /// and step().
    bool press(double position, double reach);
    bool drag(double position);
    void release()
    {
        m_grip = Grip::None;
        m_kept.reset();
    }

    /// Moves the handle that was moved last, at first the upper one, by whole numbers.
    bool step(int by);

    /// The handles that step() moves.
    Grip active() const { return m_active; }
    void setActive(Grip grip) { m_active = grip == Grip::None || grip == Grip::Either ? m_active : grip; }

private:
    /// The positions of lower and upper handle.
    using Handles = std::pair<double, double>;

    Handles handles() const { return {lowerPosition(), upperPosition()}; }
    static Grip gripAt(const Handles& handles, double position, double reach);
    void setBound(double& bound, double value);
    bool moveTo(int lower, int upper);
    /// The range keeps its width and stops at the ends.
    bool moveBoth(int lower, int upper, std::int64_t by);
    /// The whole number that is steps away from a bound; from a fraction the first step leads to the
    /// nearest in that direction.
    int stepped(double value, int by) const
    {
        return rounded((by > 0 ? std::floor(value) : std::ceil(value)) + by);
    }
    int rounded(double value) const
    {
        return static_cast<int>(std::lround(std::clamp<double>(value, m_scale.minimum(), m_scale.maximum())));
    }
    void putInOrder();

    // The initial values of the fields that the slider belongs to.
    double m_lower = 1.0;
    double m_upper = 1000.0;
    RangeScale m_scale{0, 100, m_lower, m_upper};
    Grip m_active = Grip::Upper;
    Grip m_grip = Grip::None;
    std::optional<Handles> m_kept;
    double m_pressPosition = 0.0;
    // Between the place of the press and the handle, so that a handle does not jump when it is taken.
    double m_grabOffset = 0.0;
    int m_pressLower = 0;
    int m_pressUpper = 0;
};
