#include "FakeCore.h"

#include "commands/CommandText.h"

#include <algorithm>
#include <utility>

using namespace ZelCore;

CommandResult FakeCore::Execute(ICommand& command)
{
    const QString line = CommandText::of(command).line();
    m_commands << line;
    if (fault) {
        if (const auto result = fault(m_count++, line)) {
            return *result;
        }
    }
    return apply(command);
}

CommandResult FakeCore::Execute(const void*, ICommand& command)
{
    return Execute(command);
}

std::future<CommandResult> FakeCore::ExecuteAsync(const void*, ICommand&)
{
    qFatal("the panel executes every command synchronously");
}

QStringList FakeCore::takeCommands()
{
    return std::exchange(m_commands, {});
}

CommandResult FakeCore::apply(ICommand& command)
{
    const auto nameIn = [](const auto& field) { return ToQString(TextOf(field)); };
    const auto remove = [](auto& map, const QString& key) {
        return CommandResult(map.remove(key) != 0 ? Success : NothingChanged, "");
    };
    const auto give = [&](const auto& from, const auto& condition, ZEL_VALUE_CONTAINER__<char>& to) {
        const auto found = from.constFind(nameIn(condition.ParamName));
        if (found == from.constEnd()) {
            return CommandResult(Failed, "no such parameter");
        }
        to.CreateList(static_cast<UInt>(found->size() + 1));
        std::copy_n(found->constData(), found->size() + 1, to.Items());
        return CommandResult(Success);
    };

    if (auto* const c = dynamic_cast<AddIOCommand*>(&command)) {
        // A core may write into what it is sent; the next command must not carry it.
        if (c->IOInfo->Num() != 0) {
            return {Failed, "sub-items"};
        }
        c->IOInfo->CreateList(2);
        c->IOInfo->ExtraData.CanSubscribe = true;
        return Success;
    }
    if (auto* const c = dynamic_cast<SetRunParamCommand*>(&command)) {
        runParams[nameIn(c->ParamName)] = c->Val;
        return Success;
    }
    if (auto* const c = dynamic_cast<SetBinaryDataCommand*>(&command)) {
        binaryData[nameIn(c->ParamName)] = QByteArray(c->Data, static_cast<int>(c->DataLen));
        lastTimeOut = c->TimeOut;
        return Success;
    }
    if (auto* const c = dynamic_cast<SetUIDataCommand*>(&command)) {
        uiData[nameIn(c->ParamName)] = QByteArray(c->Data, static_cast<int>(c->DataLen));
        return Success;
    }
    if (auto* const c = dynamic_cast<DeleteUIDataCommand*>(&command)) {
        return remove(uiData, nameIn(c->ParamName));
    }
    if (auto* const c = dynamic_cast<QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__>*>(&command)) {
        return give(binaryData, *c->Condition, *c->Result);
    }
    if (auto* const c = dynamic_cast<QueryCommand<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__>*>(&command)) {
        BINARY_DATA__ text;
        const CommandResult result = give(runParams, *c->Condition, text);
        FillText(c->Result->strParamName, c->Condition->ParamName);
        FillText(c->Result->strParamValue, text.Num() == 0 ? "" : text.Items());
        return result;
    }
    if (auto* const c =
            dynamic_cast<QueryCommand<UI_OBJECT_PARAM_INFO_CONDITION__, UI_OBJECT_PARAM_INFO__>*>(&command)) {
        return give(uiData, *c->Condition, *c->Result);
    }
    if (auto* const c = dynamic_cast<QueryCommand<SUBSCRIBE_CONDITION__, SUBSCRIBE_TREE__>*>(&command)) {
        *c->Result = subscribeTree;
        return Success;
    }
    if (auto* const c = dynamic_cast<FilterSourceCommand*>(&command)) {
        const QString key = QStringLiteral("%1/%2").arg(c->Target.Type).arg(c->Target.Key);
        if (auto* const set = dynamic_cast<SetFilterSourceCommand*>(c)) {
            bindings[key] = set->SubscribeName;
            return Success;
        }
        if (auto* const get = dynamic_cast<GetFilterSourceCommand*>(c)) {
            get->SubscribeName = bindings.value(key);
            get->SourceIsMissing = missingSources.contains(get->SubscribeName);
            return bindings.contains(key) ? Success : NothingChanged;
        }
        return remove(bindings, key);
    }
    return {Failed, "unknown command"};
}
