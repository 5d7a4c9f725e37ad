#pragma once

#include "RangeScale.h"

#include <cstdint>

/// The two handles of a range slider and what a drag or a step does to them; without a picture.
///
/// The bounds are told as doubles. As soon as the user moves a handle both are whole numbers, lower <=
/// upper: the other one is rounded to the nearest. Positions run from 0 to 1 along the slider.
class RangeSliderState
{
public:
    /// What a drag moves. Either: both handles stand in one place, and the drag's direction will tell.
    enum class Grip { None, Lower, Upper, Both, Either };

    void setRange(int min, int max);
    /// Kept as told, even with lower > upper, until the user moves a handle. What is no number is ignored.
    void setLower(double value);
    void setUpper(double value);

    int lower() const;
    int upper() const;
    /// In order, whatever order the bounds were told in.
    double lowerPosition() const;
    double upperPosition() const;

    /// What a press would take hold of: a handle within reach, the range between the two, or the handle
    /// beside it.
    Grip gripAt(double position, double reach) const;
    /// Beside the handles the nearer one comes to the place. Returns whether a bound changed, as do drag()
    /// and step().
    bool press(double position, double reach);
    bool drag(double position);
    void release();

    /// Moves the handle that was moved last, at first the upper one, by whole numbers.
    bool step(int by);

    /// The handles that step() moves.
    Grip active() const { return m_active; }
    void setActive(Grip grip);

private:
    bool moveTo(int lower, int upper);
    /// The range keeps its width and stops at the ends.
    bool moveBoth(int lower, int upper, std::int64_t by);
    /// The whole number that is steps away from a bound; from a fraction the first step leads to the
    /// nearest in that direction.
    int stepped(double value, int by) const;
    int rounded(double value) const;
    void putInOrder();

    RangeScale m_scale{0, 100};
    double m_lower = 0.0;
    double m_upper = 100.0;
    Grip m_active = Grip::Upper;
    Grip m_grip = Grip::None;
    double m_pressPosition = 0.0;
    // Between the place of the press and the handle, so that a handle does not jump when it is taken.
    double m_grabOffset = 0.0;
    int m_pressLower = 0;
    int m_pressUpper = 0;
};
