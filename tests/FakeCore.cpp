#include "FakeCore.h"

#include <algorithm>
#include <utility>

using namespace ZelCore;

namespace {

QString visibleBytes(const char* bytes, UInt length)
{
    return QString::fromUtf8(bytes, static_cast<int>(length)).replace(QChar::Null, QLatin1String("\\0"));
}

CommandResult give(const QMap<QString, QByteArray>& from, const QString& key, ZEL_VALUE_CONTAINER__<char>& to)
{
    const auto found = from.constFind(key);
    if (found == from.constEnd()) {
        return {Failed, "no such parameter"};
    }
    to.CreateList(static_cast<UInt>(found->size() + 1));
    std::copy_n(found->constData(), found->size() + 1, to.Items());
    return Success;
}

} // namespace

FakeCore::FakeCore()
{
    auto& container = ZelCommon::IocContainar::Instance();
    container.Clear();
    container.RegisterType(ZelCommon::IocContainar::KeyOf<ICommandService>(),
                           ZelCommon::Any(std::function<ICommandService*()>([this] { return this; })));
    container.Build();
}

FakeCore::~FakeCore()
{
    ZelCommon::IocContainar::Instance().Clear();
}

CommandResult FakeCore::Execute(ICommand& command)
{
    const Answer answer = answerTo(command);
    m_commands << answer.line;
    if (fault) {
        if (const auto result = fault(m_count++, answer.line)) {
            return *result;
        }
    }
    return answer.apply();
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

FakeCore::Answer FakeCore::answerTo(ICommand& command)
{
    const auto head = [&command](UInt module, const QString& rest) {
        return QStringLiteral("%1 %2 %3").arg(QLatin1String(command.Key())).arg(module).arg(rest);
    };
    const auto remove = [](auto& map, const QString& key) {
        return CommandResult(map.remove(key) != 0 ? Success : NothingChanged, "");
    };

    if (auto* const c = dynamic_cast<AddIOCommand*>(&command)) {
        const auto flags = reinterpret_cast<const char*>(&c->IOInfo->ExtraData);
        QString line = head(c->ModuleID, ToQString(TextOf(c->IOInfo->ParamName)));
        line += QStringLiteral(" class=%1 type=%2 flags=")
                    .arg(c->IoClass)
                    .arg(ToQString(TextOf(c->IOInfo->VauleType)));
        std::for_each(flags, flags + sizeof(IO_EXTRA_DATA__),
                      [&line](char flag) { line += QLatin1Char(flag ? '1' : '0'); });
        return {line, [this, c] {
                    lastIo = *c->IOInfo;
                    return CommandResult(Success);
                }};
    }
    if (auto* const c = dynamic_cast<SetRunParamCommand*>(&command)) {
        const QString name = ToQString(TextOf(c->ParamName));
        return {head(c->ModuleID, name + QLatin1Char('=') + ToQString(TextOf(c->Val))), [this, c, name] {
                    runParams[name] = c->Val;
                    return CommandResult(Success);
                }};
    }
    if (auto* const c = dynamic_cast<SetBinaryDataCommand*>(&command)) {
        const QString name = ToQString(TextOf(c->ParamName));
        return {head(c->ModuleID, name + QLatin1Char('=') + visibleBytes(c->Data, c->DataLen)),
                [this, c, name] {
                    binaryData[name] = QByteArray(c->Data, static_cast<int>(c->DataLen));
                    lastTimeOut = c->TimeOut;
                    return CommandResult(Success);
                }};
    }
    if (auto* const c = dynamic_cast<SetUIDataCommand*>(&command)) {
        const QString name = ToQString(TextOf(c->ParamName));
        return {head(c->ModuleID, name + QLatin1Char('=') + visibleBytes(c->Data, c->DataLen)),
                [this, c, name] {
                    uiData[name] = QByteArray(c->Data, static_cast<int>(c->DataLen));
                    return CommandResult(Success);
                }};
    }
    if (auto* const c = dynamic_cast<DeleteUIDataCommand*>(&command)) {
        const QString name = ToQString(TextOf(c->ParamName));
        return {head(c->ModuleID, name), [this, name, remove] { return remove(uiData, name); }};
    }
    if (auto* const c = dynamic_cast<QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__>*>(&command)) {
        const QString name = ToQString(TextOf(c->Condition->ParamName));
        return {head(c->Condition->ModuleID, name),
                [this, c, name] { return give(binaryData, name, *c->Result); }};
    }
    if (auto* const c = dynamic_cast<QueryCommand<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__>*>(&command)) {
        const QString name = ToQString(TextOf(c->Condition->ParamName));
        return {head(c->Condition->ModuleID, name), [this, c, name]() -> CommandResult {
                    if (!runParams.contains(name)) {
                        return {Failed, "no such parameter"};
                    }
                    FillText(c->Result->strParamName, c->Condition->ParamName);
                    FillText(c->Result->strParamValue, runParams[name].constData());
                    return Success;
                }};
    }
    if (auto* const c =
            dynamic_cast<QueryCommand<UI_OBJECT_PARAM_INFO_CONDITION__, UI_OBJECT_PARAM_INFO__>*>(&command)) {
        const QString name = ToQString(TextOf(c->Condition->ParamName));
        return {head(c->Condition->ObjectID, name),
                [this, c, name] { return give(uiData, name, *c->Result); }};
    }
    if (auto* const c = dynamic_cast<QueryCommand<SUBSCRIBE_CONDITION__, SUBSCRIBE_TREE__>*>(&command)) {
        return {head(c->Condition->ModuleID, QStringLiteral("range=%1 types=%2 %3")
                                                 .arg(c->Condition->ModuleRange)
                                                 .arg(c->Condition->VarTypeNum)
                                                 .arg(ToQString(TextOf(c->Condition->VauleTypes[0])))),
                [this, c] {
                    *c->Result = subscribeTree;
                    return CommandResult(Success);
                }};
    }
    if (auto* const c = dynamic_cast<FilterSourceCommand*>(&command)) {
        const QString key = QStringLiteral("%1/%2").arg(c->Target.Type).arg(c->Target.Key);
        if (auto* const set = dynamic_cast<SetFilterSourceCommand*>(c)) {
            return {head(c->Target.ModuleID, key + QLatin1Char('=') + set->SubscribeName), [this, key, set] {
                        bindings[key] = set->SubscribeName;
                        return CommandResult(Success);
                    }};
        }
        if (auto* const get = dynamic_cast<GetFilterSourceCommand*>(c)) {
            return {head(c->Target.ModuleID, key), [this, key, get] {
                        get->SubscribeName = bindings.value(key);
                        get->SourceIsMissing = missingSources.contains(get->SubscribeName);
                        return CommandResult(bindings.contains(key) ? Success : NothingChanged);
                    }};
        }
        return {head(c->Target.ModuleID, key), [this, key, remove] { return remove(bindings, key); }};
    }
    return {QLatin1String(command.Key()), [] { return CommandResult(Failed, "unknown command"); }};
}
