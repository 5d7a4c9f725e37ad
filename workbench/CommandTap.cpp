#include "CommandTap.h"

using namespace ZelCore;

CommandTap::CommandTap(ICommandService& core)
    : m_core(core)
{}

CommandResult CommandTap::Execute(ICommand& command)
{
    const CommandResult result = m_core.Execute(command);
    emit executed();
    return result;
}

CommandResult CommandTap::Execute(const void*, ICommand& command)
{
    return Execute(command);
}

std::future<CommandResult> CommandTap::ExecuteAsync(const void* sender, ICommand& command)
{
    return m_core.ExecuteAsync(sender, command);
}
