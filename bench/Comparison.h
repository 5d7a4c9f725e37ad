#pragma once

#include <functional>
#include <map>
#include <string>

/// A measurement: prepares, measures, clears up, and returns what it measured, in seconds or bytes.
using Round = std::function<double()>;
/// Makes what all rounds of one side share; the round owns it.
using RoundMaker = std::function<Round()>;

enum class Unit { Time, Memory };

/// A figure beside its floor: what the same would cost with nothing of ours in it.
struct Comparison
{
    std::string name;
    /// The highest ratio of subject to floor; 0 where only the growth is of interest.
    double bound = 0.0;
    RoundMaker floor;
    RoundMaker subject;
    int rounds = 20;
    Unit unit = Unit::Time;
    /// Whether its instructions are worth counting; no sense with a disk or another process in it.
    bool isCounted = false;
};

void compare(Comparison comparison);

/// Whose time counts: what else the machine does takes none of the process's own, but a disk does.
enum class Clock { Process, Wall };

/// Seconds that the action takes. While instructions are counted it is the action that is counted.
double timed(const std::function<void()>& action, Clock clock = Clock::Process);

/// A round that runs in a process of its own, for what can be the first only once. The name is unique.
Round inFreshProcess(const std::string& name, Round round);

/// Runs what the command line selects and prints it. Returns whether every ratio holds, or where only a
/// check was asked for, holds with a margin for a restless machine.
bool runComparisons(int argc, char** argv);
