#pragma once

#include "FilterSourceCommands.h"
#include "core_client/core_client.h"

namespace ZelCore {

using SubscribeTreeQuery = QueryCommand<SUBSCRIBE_CONDITION__, SUBSCRIBE_TREE__>;
using BinaryDataQuery = QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__>;
using RunParamQuery = QueryCommand<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__>;
using UIDataQuery = QueryCommand<UI_OBJECT_PARAM_INFO_CONDITION__, UI_OBJECT_PARAM_INFO__>;

namespace Detail {

template <typename... Commands, typename Visitor>
bool visitAnyOf(ICommand& command, Visitor& visitor)
{
    const auto attempt = [&visitor](auto* typed) {
        if (typed) {
            visitor(*typed);
        }
        return typed != nullptr;
    };
    return (attempt(dynamic_cast<Commands*>(&command)) || ...);
}

} // namespace Detail

/// Calls the visitor with the command as what it is in the catalogue, the platform's own commands included.
/// False for a command that is not in the catalogue.
template <typename Visitor>
bool visitCommand(ICommand& command, Visitor&& visitor)
{
    return Detail::visitAnyOf<AddIOCommand, SetRunParamCommand, SetBinaryDataCommand, SetUIDataCommand,
                              DeleteUIDataCommand, SubscribeTreeQuery, BinaryDataQuery, RunParamQuery,
                              UIDataQuery, SetFilterSourceCommand, GetFilterSourceCommand,
                              DelFilterSourceCommand>(command, visitor);
}

} // namespace ZelCore
