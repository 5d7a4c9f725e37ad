#pragma once

#include "ICommandService.h"
#include "IocContainar.h"

#include <QDebug>
#include <QString>

namespace ZelCore {

/// Executes a command on the service that the host registered, resolved afresh each time.
/// Without a service the result is Failed. Throws ZelException as the resolution does.
inline CommandResult ExecuteCommand(ICommand& command)
{
    auto* const service = ZelCommon::IocContainar::Instance().Resolve<ICommandService>();
    return service ? service->Execute(command) : CommandResult(Failed, "no command service is registered");
}

inline bool IsSuccess(const CommandResult& result)
{
    return result.Status == Success;
}

/// Logs a failure as one debug line: text, the core's message and an end.
inline void LogFailure(const QString& text, const CommandResult& result, const QString& end = {})
{
    qDebug().noquote().nospace() << text << ToQString(TextOf(result.Message)) << end;
}

/// Executes a command and logs a failure behind text, which ends in "errmeg=" or the like.
/// Returns whether the status was Success.
inline bool ExecuteOrLog(ICommand& command, const QString& text)
{
    const CommandResult result = ExecuteCommand(command);
    if (!IsSuccess(result)) {
        LogFailure(text, result);
    }
    return IsSuccess(result);
}

} // namespace ZelCore
