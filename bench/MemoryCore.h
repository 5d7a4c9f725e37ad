#pragma once

#include "ZelCommon/Catalogue.h"
#include "ZelCommon/SynchronousService.h"

#include <QByteArray>
#include <QHash>

#include <algorithm>
#include <string_view>

/// The smallest core that a panel can work with: keeps bytes in memory, has no bindings and checks nothing.
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
            const auto& query = static_cast<BinaryDataQuery&>(command);
            const QByteArray bytes = binaryData.value(query.Condition->ParamName);
            query.Result->CreateList(static_cast<UInt>(bytes.size()) + 1);
            std::copy_n(bytes.constData(), bytes.size() + 1, query.Result->Items());
        } else if (key == "QueryRunParam") {
            FillText(static_cast<RunParamQuery&>(command).Result->strParamValue, "1");
        } else if (key == "QueryUIData") {
            return {Failed, "no such datum"};
        } else if (key == "GetFilterSource" || key == "DelFilterSource") {
            return NothingChanged;
        }
        return Success;
    }

    QHash<QByteArray, QByteArray> binaryData;
};
