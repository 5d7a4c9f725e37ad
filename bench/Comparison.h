#pragma once

#include <functional>
#include <string>

/// A measurement: prepares, measures, clears up, and returns the seconds that it measured.
using Round = std::function<double()>;
/// Makes what all rounds of one side share; the round owns it.
using RoundMaker = std::function<Round()>;

/// A figure beside its floor: what the same costs with nothing of the project in it.
struct Comparison
{
    std::string name;
    /// The highest ratio of subject to floor; 0 where only the growth is of interest.
    double bound = 0.0;
    RoundMaker floor;
    RoundMaker subject;
    int rounds = 20;
    /// Whether instructions are counted; useless with a disk or another process involved.
    bool isCounted = false;
};

void compare(Comparison comparison);

/// The process's own time is not disturbed by other programs, but waiting for a disk is wall time.
enum class Clock { Process, Wall };

/// Seconds that the action takes. While instructions are counted only those of the action are.
double timed(const std::function<void()>& action, Clock clock = Clock::Process);

/// A round that runs in a process of its own, for what can be the first only once. The name is unique.
Round inFreshProcess(const std::string& name, Round round);

// Each is defined in a file of its own and adds its comparisons.
void addPanelComparisons();
void addSelecterComparisons();
