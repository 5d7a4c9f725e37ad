#pragma once

#include "Enumerations.h"
#include "FixedText.h"

namespace ZelCore {

/// The outcome of a command. Message is UTF-8, cut to 1023 bytes, empty when there is nothing to say.
struct CommandResult
{
    char Message[1024] = {};
    CommandStatus Status = None;
    int ErrorCode = 0;

    CommandResult(CommandStatus status)
        : Status(status)
    {}
    CommandResult(CommandStatus status, const char* message)
        : CommandResult(status, 0, message)
    {}
    CommandResult(CommandStatus status, int errorCode, const char* message)
        : Status(status)
        , ErrorCode(errorCode)
    {
        FillText(Message, message);
    }
};

} // namespace ZelCore
