#pragma once

#include "CommandResult.h"

#include <future>

namespace ZelCore {

/// Anything that the core can execute.
struct ICommand
{
    virtual ~ICommand() = default;
    /// Names the kind of the command, for logs and dispatch; a text with static storage.
    virtual const char* Key() = 0;
};

/// The base of every command of the catalogue; a command's own fields follow it.
struct Command : ICommand
{};

template <typename Condition, typename Result>
struct QueryCommand;

/// The platform core as its clients see it. All calls come from the GUI thread; the result's status
/// and message report failures.
class ICommandService
{
public:
    virtual ~ICommandService() = default;
    virtual CommandResult Execute(ICommand& command) = 0;
    /// The same on behalf of a sender, by which the core may distinguish its callers.
    virtual CommandResult Execute(const void* sender, ICommand& command) = 0;
    /// The command must outlive the returned future.
    virtual std::future<CommandResult> ExecuteAsync(const void* sender, ICommand& command) = 0;

    /// Fills result with what the core knows for the condition.
    template <typename Condition, typename Result>
    CommandResult Query(const Condition& condition, Result* result)
    {
        QueryCommand<Condition, Result> command(condition, result);
        return Execute(command);
    }
};

} // namespace ZelCore
