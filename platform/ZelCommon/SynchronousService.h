#pragma once

#include "core_client/ICommandService.h"

#include <future>

namespace ZelCore {

/// A service that treats every sender alike and executes each command before it returns.
class SynchronousService : public ICommandService
{
public:
    using ICommandService::Execute;
    CommandResult Execute(const void*, ICommand& command) final { return Execute(command); }
    /// The future is ready, with a result or an exception.
    std::future<CommandResult> ExecuteAsync(const void*, ICommand& command) final
    {
        std::packaged_task<CommandResult()> task([this, &command] { return Execute(command); });
        task();
        return task.get_future();
    }
};

} // namespace ZelCore
