#include "EmbeddedCore.h"

#include "CoreError.h"
#include "Store.h"
#include "SubscribeTree.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace ZelCore;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("EmbeddedCore", text);
}

CommandResult failed(const QString& message)
{
    // Cut between characters where the record is too short for the text.
    QByteArray bytes = message.toUtf8();
    int length = std::min<int>(bytes.size(), sizeof(CommandResult::Message) - 1);
    while (length > 0 && length < bytes.size() &&
           (static_cast<unsigned char>(bytes[length]) & 0xC0) == 0x80) {
        --length;
    }
    bytes.truncate(length);
    return {Failed, bytes.constData()};
}

// The text of a name's field. One that fills its field may have been cut on its way here.
template <std::size_t N>
QString nameOf(const char (&field)[N])
{
    const auto text = TextOf(field);
    if (text.empty()) {
        throw CoreError(tr("the name is empty"));
    }
    if (text.size() >= N - 1) {
        throw CoreError(tr("the name %1 is too long: at most %2 bytes").arg(ToQString(text)).arg(N - 2));
    }
    return ToQString(text);
}

QByteArray bytesOf(const char* data, UInt length)
{
    return {data, static_cast<int>(length)};
}

// Bytes as a record hands them out: followed by a NUL, which counts.
void give(const QByteArray& bytes, ZEL_VALUE_CONTAINER__<char>& record)
{
    record.CreateList(static_cast<UInt>(bytes.size()) + 1);
    std::copy_n(bytes.constData(), bytes.size() + 1, record.Items());
}

template <typename T>
T& checkedRecord(T* record)
{
    if (!record) {
        throw CoreError(tr("the command carries no record"));
    }
    return *record;
}

template <typename Value>
const Value& found(const std::optional<Value>& value, UInt moduleId, const QString& name)
{
    if (!value) {
        throw CoreError(tr("module %1 has no parameter %2").arg(moduleId).arg(name));
    }
    return *value;
}

QString checkedKey(const FilterSourceTarget& target)
{
    if (target.Key.isEmpty()) {
        throw CoreError(tr("the name is empty"));
    }
    return target.Key;
}

} // namespace

std::unique_ptr<EmbeddedCore> EmbeddedCore::open(Flow flow, const QString& storeFile, QString* error)
{
    try {
        auto store = std::make_unique<Store>(storeFile, flow);
        return std::unique_ptr<EmbeddedCore>(new EmbeddedCore(std::move(flow), std::move(store)));
    } catch (const CoreError& failure) {
        *error = failure.text();
        return nullptr;
    }
}

EmbeddedCore::EmbeddedCore(Flow flow, std::unique_ptr<Store> store)
    : m_flow(std::move(flow))
    , m_store(std::move(store))
{}

EmbeddedCore::~EmbeddedCore() = default;

QString EmbeddedCore::storeFile() const
{
    return m_store->file();
}

CommandResult EmbeddedCore::Execute(ICommand& command)
{
    return dispatch<AddIOCommand, SetRunParamCommand, SetBinaryDataCommand, SetUIDataCommand,
                    DeleteUIDataCommand, SubscribeTreeQuery, BinaryDataQuery, RunParamQuery, UIDataQuery,
                    SetFilterSourceCommand, GetFilterSourceCommand, DelFilterSourceCommand>(command);
}

CommandResult EmbeddedCore::Execute(const void*, ICommand& command)
{
    return Execute(command);
}

std::future<CommandResult> EmbeddedCore::ExecuteAsync(const void*, ICommand& command)
{
    std::promise<CommandResult> promise;
    promise.set_value(Execute(command));
    return promise.get_future();
}

template <typename... Commands>
CommandResult EmbeddedCore::dispatch(ICommand& command)
{
    try {
        std::optional<CommandStatus> status;
        const auto attempt = [this, &status](auto* typed) {
            if (typed) {
                status = execute(*typed);
            }
            return typed != nullptr;
        };
        (attempt(dynamic_cast<Commands*>(&command)) || ...);
        return status ? CommandResult(*status)
                      : failed(tr("unknown command %1").arg(QString::fromUtf8(command.Key())));
    } catch (const CoreError& failure) {
        return failed(failure.text());
    }
}

CommandStatus EmbeddedCore::execute(AddIOCommand& command)
{
    const UInt module = checkedModule(command.ModuleID);
    const IO_INFO__& info = checkedRecord(command.IOInfo);
    const QString name = nameOf(info.ParamName);
    const Store::Io io = {command.IoClass, ToQString(TextOf(info.VauleType))};
    if (io.ioClass != Input && io.ioClass != Output) {
        throw CoreError(tr("the IO %1 is neither an input nor an output").arg(name));
    }
    if (const auto present = m_store->io(module, name)) {
        // A condition that was deleted leaves its IOs; its name may be used again.
        if (present->ioClass != io.ioClass || present->valueType != io.valueType) {
            throw CoreError(tr("module %1 has the IO %2 with another class or type").arg(module).arg(name));
        }
        return Success;
    }
    m_store->addIo(module, name, io, info.ExtraData);
    return Success;
}

CommandStatus EmbeddedCore::execute(SetRunParamCommand& command)
{
    m_store->setValue(Store::Values::RunParameter, checkedModule(command.ModuleID), nameOf(command.ParamName),
                      ToQString(TextOf(command.Val)));
    return Success;
}

CommandStatus EmbeddedCore::execute(SetBinaryDataCommand& command)
{
    m_store->setValue(Store::Values::BinaryData, checkedModule(command.ModuleID), nameOf(command.ParamName),
                      bytesOf(command.Data, command.DataLen));
    return Success;
}

CommandStatus EmbeddedCore::execute(SetUIDataCommand& command)
{
    m_store->setValue(Store::Values::UiData, checkedModule(command.ModuleID), nameOf(command.ParamName),
                      bytesOf(command.Data, command.DataLen));
    return Success;
}

CommandStatus EmbeddedCore::execute(DeleteUIDataCommand& command)
{
    const bool removed = m_store->removeValue(Store::Values::UiData, checkedModule(command.ModuleID),
                                              nameOf(command.ParamName));
    return removed ? Success : NothingChanged;
}

CommandStatus EmbeddedCore::execute(SubscribeTreeQuery& command)
{
    const auto& condition = *command.Condition;
    const UInt module = checkedModule(condition.ModuleID);
    if (!SubscribeTree::isRange(condition.ModuleRange) ||
        condition.VarTypeNum > std::size(condition.VauleTypes)) {
        throw CoreError(tr("the range or the number of types is not of the catalogue"));
    }
    QStringList types;
    for (UInt i = 0; i < condition.VarTypeNum; ++i) {
        types << ToQString(TextOf(condition.VauleTypes[i]));
    }
    checkedRecord(command.Result) = SubscribeTree::build(m_flow, module, condition.ModuleRange, types);
    return Success;
}

CommandStatus EmbeddedCore::execute(BinaryDataQuery& command)
{
    const UInt module = checkedModule(command.Condition->ModuleID);
    const QString name = nameOf(command.Condition->ParamName);
    BINARY_DATA__& record = checkedRecord(command.Result);
    give(found(m_store->value(Store::Values::BinaryData, module, name), module, name), record);
    record.ModuleID = module;
    FillText(record.ParamName, command.Condition->ParamName);
    return Success;
}

CommandStatus EmbeddedCore::execute(RunParamQuery& command)
{
    const UInt module = checkedModule(command.Condition->ModuleID);
    const QString name = nameOf(command.Condition->ParamName);
    KADO_MODULE_PARAM__& record = checkedRecord(command.Result);
    FillText(record.strParamValue,
             found(m_store->value(Store::Values::RunParameter, module, name), module, name).constData());
    FillText(record.strParamName, command.Condition->ParamName);
    return Success;
}

CommandStatus EmbeddedCore::execute(UIDataQuery& command)
{
    const UInt module = checkedModule(command.Condition->ObjectID);
    const QString name = nameOf(command.Condition->ParamName);
    UI_OBJECT_PARAM_INFO__& record = checkedRecord(command.Result);
    give(found(m_store->value(Store::Values::UiData, module, name), module, name), record);
    FillText(record.ParamName, command.Condition->ParamName);
    return Success;
}

CommandStatus EmbeddedCore::execute(SetFilterSourceCommand& command)
{
    const UInt module = checkedModule(command.Target.ModuleID);
    const QString key = checkedKey(command.Target);
    if (command.SubscribeName.isEmpty()) {
        m_store->removeBinding(module, command.Target.Type, key);
        return Success;
    }
    checkSource(command.Target, command.SubscribeName);
    m_store->setBinding(module, command.Target.Type, key, command.SubscribeName);
    return Success;
}

CommandStatus EmbeddedCore::execute(GetFilterSourceCommand& command)
{
    const auto source = m_store->binding(checkedModule(command.Target.ModuleID), command.Target.Type,
                                         checkedKey(command.Target));
    if (!source) {
        return NothingChanged;
    }
    command.SubscribeName = *source;
    try {
        checkSource(command.Target, *source);
        command.SourceIsMissing = false;
    } catch (const CoreError&) {
        command.SourceIsMissing = true;
    }
    return Success;
}

CommandStatus EmbeddedCore::execute(DelFilterSourceCommand& command)
{
    QString key = checkedKey(command.Target);
    if (command.Target.Type == SUBSCRIBE_TYPE_IO) {
        for (const QLatin1String suffix : {QLatin1String(":input"), QLatin1String(":output")}) {
            if (key.endsWith(suffix)) {
                key.chop(suffix.size());
                break;
            }
        }
    }
    return m_store->removeBinding(checkedModule(command.Target.ModuleID), command.Target.Type, key)
               ? Success
               : NothingChanged;
}

UInt EmbeddedCore::checkedModule(UInt id) const
{
    if (!m_flow.module(id)) {
        throw CoreError(tr("the flow has no module %1").arg(id));
    }
    return id;
}

void EmbeddedCore::checkSource(const FilterSourceTarget& target, const QString& subscribeName) const
{
    const QStringList types = acceptedTypes(target);
    UInt sourceModule = 0;
    const FlowOutput* const source = m_flow.output(subscribeName, &sourceModule);
    if (!source) {
        throw CoreError(tr("the flow has no value %1").arg(subscribeName));
    }
    if (!m_flow.isBefore(sourceModule, target.ModuleID)) {
        throw CoreError(tr("%1 does not come before module %2").arg(subscribeName).arg(target.ModuleID));
    }
    if (!types.isEmpty() && !types.contains(source->type)) {
        throw CoreError(
            tr("%1 has type %2, not %3").arg(subscribeName, source->type, types.join(QStringLiteral(", "))));
    }
}

QStringList EmbeddedCore::acceptedTypes(const FilterSourceTarget& target) const
{
    if (target.Type == SUBSCRIBE_TYPE_IO) {
        const auto io = m_store->io(target.ModuleID, target.Key);
        if (!io || io->ioClass != Input) {
            throw CoreError(tr("module %1 has no input %2").arg(target.ModuleID).arg(target.Key));
        }
        return io->valueType.isEmpty() ? QStringList() : QStringList(io->valueType);
    }
    // A run parameter has no type of its own; the condition's name in its key tells it.
    const QStringList numeric = {QStringLiteral("float"), QStringLiteral("int")};
    for (const QString& type : numeric) {
        if (target.Key.contains(type)) {
            return {type};
        }
    }
    return numeric;
}
