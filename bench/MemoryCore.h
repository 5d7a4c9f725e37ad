#pragma once

#include "ZelCommon/FilterSourceCommands.h"
#include "ZelCommon/SynchronousService.h"
#include "core_client/core_client.h"

#include <QByteArray>
#include <QHash>

#include <algorithm>
#include <functional>
#include <string_view>

/// Makes a service the one that commands go to.
inline void registerService(ZelCore::ICommandService& service)
{
    auto& container = ZelCommon::IocContainar::Instance();
    container.RegisterType(
        ZelCommon::IocContainar::KeyOf<ZelCore::ICommandService>(),
        ZelCommon::Any(std::function<ZelCore::ICommandService*()>([&service] { return &service; })));
    container.Build();
}

/// The least core that a panel can live on: keeps bytes in memory, knows no bindings and checks nothing.
class MemoryCore : public ZelCore::SynchronousService
{
public:
    using SynchronousService::Execute;
    ZelCore::CommandResult Execute(ZelCore::ICommand& command) override
    {
        using namespace ZelCore;
        const std::string_view key = command.Key();
        if (key == "SetBinaryData") {
            const auto& set = static_cast<SetBinaryDataCommand&>(command);
            binaryData[set.ParamName] = QByteArray(set.Data, static_cast<int>(set.DataLen));
        } else if (key == "QueryBinaryData") {
            const auto& query = static_cast<QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__>&>(command);
            const QByteArray bytes = binaryData.value(query.Condition->ParamName);
            query.Result->CreateList(static_cast<UInt>(bytes.size()) + 1);
            std::copy_n(bytes.constData(), bytes.size() + 1, query.Result->Items());
        } else if (key == "QueryRunParam") {
            FillText(static_cast<QueryCommand<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__>&>(command)
                         .Result->strParamValue,
                     "1");
        } else if (key == "QueryUIData") {
            return {Failed, "no such datum"};
        } else if (key == "GetFilterSource" || key == "DelFilterSource") {
            return NothingChanged;
        }
        return Success;
    }

    QHash<QByteArray, QByteArray> binaryData;
};
