#pragma once

#include "core_client/Enumerations.h"
#include "core_client/ICommandService.h"

#include <QString>

#include <utility>

namespace ZelCore {

/// The platform's own commands behind a subscription selector: which value feeds an input or a run
/// parameter of a module. They stay inside the platform; its clients use the selector.

/// What is bound: a key of a module, "%int0%" for an IO or "%int0%Start" for a run parameter.
struct FilterSourceTarget
{
    UInt ModuleID = 0;
    ENUM_IO_SUBSCRIBE_TYPE_ Type = SUBSCRIBE_TYPE_RUNPARAM;
    QString Key;
};

class FilterSourceCommand : public Command
{
public:
    explicit FilterSourceCommand(FilterSourceTarget target)
        : Target(std::move(target))
    {}

    const FilterSourceTarget Target;
};

/// Binds the target to the source with this subscribe text, in place of any other; an empty text
/// removes the binding. Failed when the source does not exist, has another type or does not come
/// before the module.
class SetFilterSourceCommand : public FilterSourceCommand
{
public:
    SetFilterSourceCommand(FilterSourceTarget target, QString subscribeName)
        : FilterSourceCommand(std::move(target))
        , SubscribeName(std::move(subscribeName))
    {}
    const char* Key() override { return "SetFilterSource"; }

    const QString SubscribeName;
};

/// Reads the target's binding into the fields below; NothingChanged when there is none.
class GetFilterSourceCommand : public FilterSourceCommand
{
public:
    using FilterSourceCommand::FilterSourceCommand;
    const char* Key() override { return "GetFilterSource"; }

    QString SubscribeName;
    /// The flow no longer offers the source to the module; the binding is kept all the same.
    bool SourceIsMissing = false;
};

/// Removes the target's binding; NothingChanged when there is none. The key of an IO may carry
/// ":input" or ":output" behind the IO's name.
class DelFilterSourceCommand : public FilterSourceCommand
{
public:
    using FilterSourceCommand::FilterSourceCommand;
    const char* Key() override { return "DelFilterSource"; }
};

} // namespace ZelCore
