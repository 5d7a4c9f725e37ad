#pragma once

/// All that a client of the platform core needs: the container, the command service, the commands
/// with their conditions and records, and the function that executes them.
/// Records, conditions and commands are a binary contract with the core; BinaryLayout.h checks it.

#include "Any.h"
#include "BinaryLayout.h"
#include "CommandResult.h"
#include "Commands.h"
#include "Conditions.h"
#include "Enumerations.h"
#include "ExecuteCommand.h"
#include "ICommandService.h"
#include "IocContainar.h"
#include "Records.h"
#include "ZelException.h"
#include "ZelValueContainer.h"
