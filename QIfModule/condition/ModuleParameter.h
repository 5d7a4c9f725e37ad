#pragma once

#include <QByteArray>
#include <QString>

#include <cstdlib>

/// The names and values under which an If module keeps its parameters in the core.
namespace ModuleParameter {

/// Binary data: the list of conditions, see ConditionRecord.
inline constexpr char conditionList[] = "IFText";

/// Run parameter: how the conditions are combined, "1" for all and "2" for any.
inline constexpr char judgementMode[] = "LogicalMode";

/// UI data: the source of a bound. The stored bytes include the NUL.
inline constexpr char subscribedBound[] = "True";
inline constexpr char constantBound[] = "False";

/// Whether a stored mode means that all conditions must be met; any other text means that any suffices.
inline bool needsAll(const char* mode)
{
    return std::strtol(mode, nullptr, 10) == 1;
}

} // namespace ModuleParameter
