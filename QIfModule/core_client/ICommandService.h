#pragma once

#include "CommandResult.h"

#include <future>

namespace ZelCore {

/// Anything that the core can execute.
class ICommand
{
public:
    ICommand() = default;
    virtual ~ICommand() = default;
    /// Names the kind of the command, for logs and dispatch; a text with static storage.
    virtual const char* Key() = 0;

    ICommand(const ICommand&) = delete;
    ICommand& operator=(const ICommand&) = delete;
};

/// The base of every command of the catalogue; a command's own fields follow it.
class Command : public ICommand
{};

template <typename Condition, typename Result>
class QueryCommand;

/// The platform core as its clients see it. All calls come from the GUI thread; failures are told by
/// the result's status and message.
class ICommandService
{
public:
    ICommandService() = default;
    virtual ~ICommandService() = default;
    virtual CommandResult Execute(ICommand& command) = 0;
    /// The same on behalf of a sender, which the core may use to tell its callers apart.
    virtual CommandResult Execute(const void* sender, ICommand& command) = 0;
    /// The command must outlive the returned future.
    virtual std::future<CommandResult> ExecuteAsync(const void* sender, ICommand& command) = 0;

    ICommandService(const ICommandService&) = delete;
    ICommandService& operator=(const ICommandService&) = delete;

    /// Fills result with what the core knows for the condition.
    template <typename Condition, typename Result>
    CommandResult Query(const Condition& condition, Result* result)
    {
        QueryCommand<Condition, Result> command(condition, result);
        return Execute(command);
    }
};

} // namespace ZelCore
