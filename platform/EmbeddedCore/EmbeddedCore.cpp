#include "EmbeddedCore.h"

#include "CoreError.h"
#include "Store.h"
#include "SubscribeTree.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace ZelCore;

namespace {

CommandResult failed(const QString& message)
{
    return {Failed, message.toUtf8().constData()};
}

// The text of a command's field. One that fills its field may have been cut on its way here.
template <std::size_t N>
QString textOf(const char (&field)[N])
{
    const auto text = TextOf(field);
    if (text.size() >= N - 1) {
        throw CoreError(EmbeddedCore::tr("%1 is too long: at most %2 bytes")
                            .arg(ToQString(text), QString::number(N - 2)));
    }
    return ToQString(text);
}

QString checkedName(const QString& name)
{
    if (name.isEmpty()) {
        throw CoreError(EmbeddedCore::tr("the name is empty"));
    }
    return name;
}

template <std::size_t N>
QString nameOf(const char (&field)[N])
{
    return checkedName(textOf(field));
}

QByteArray bytesOf(const char* data, UInt length)
{
    if (length > std::numeric_limits<int>::max() || (length > 0 && !data)) {
        throw CoreError(EmbeddedCore::tr("the command carries no data, or too much"));
    }
    // Not null, for the store, even when it is empty.
    return length == 0 ? QByteArray("") : QByteArray(data, static_cast<int>(length));
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
        throw CoreError(EmbeddedCore::tr("the command carries no record"));
    }
    return *record;
}

// A run parameter has no type of its own; the condition's name in its key tells it.
QStringList typesOfRunParam(const QString& key)
{
    QStringList numeric = {QStringLiteral("float"), QStringLiteral("int")};
    for (const QString& type : std::as_const(numeric)) {
        if (key.contains(type)) {
            return {type};
        }
    }
    return numeric;
}

QByteArray storedValue(const Store& store, Store::Values values, UInt moduleId, const QString& name)
{
    const auto value = store.value(values, moduleId, name);
    if (!value) {
        throw CoreError(
            EmbeddedCore::tr("module %1 has no parameter %2").arg(QString::number(moduleId), name));
    }
    return *value;
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

std::optional<ModuleConfiguration> EmbeddedCore::configuration(UInt moduleId, QString* error) const
{
    try {
        checkedModule(moduleId);
        ModuleConfiguration found;
        found.binaryData = m_store->allValues(Store::Values::BinaryData, moduleId);
        found.runParameters = m_store->allValues(Store::Values::RunParameter, moduleId);
        found.uiData = m_store->allValues(Store::Values::UiData, moduleId);
        found.ios = m_store->allIos(moduleId);
        found.bindings = m_store->allBindings(moduleId);
        for (ModuleBinding& binding : found.bindings) {
            UInt sourceModule = 0;
            const FlowOutput* const source = m_flow.output(binding.source, &sourceModule);
            binding.value = source ? source->value : QJsonValue::Null;
            binding.column = source ? source->column : QString();
            binding.missing = refusal(binding.target, binding.source);
        }
        return found;
    } catch (const CoreError& failure) {
        *error = failure.text();
        return std::nullopt;
    }
}

CommandResult EmbeddedCore::Execute(ICommand& command)
{
    return dispatch<AddIOCommand, SetRunParamCommand, SetBinaryDataCommand, SetUIDataCommand,
                    DeleteUIDataCommand, SubscribeTreeQuery, BinaryDataQuery, RunParamQuery, UIDataQuery,
                    SetFilterSourceCommand, GetFilterSourceCommand, DelFilterSourceCommand>(command);
}

template <typename... Commands>
CommandResult EmbeddedCore::dispatch(ICommand& command)
{
    try {
        CommandStatus status = None;
        const auto attempt = [this, &status](auto* typed) {
            if (typed) {
                status = execute(*typed);
            }
            return typed != nullptr;
        };
        const bool isKnown = (attempt(dynamic_cast<Commands*>(&command)) || ...);
        return isKnown ? CommandResult(status)
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
    const Store::Io io = {command.IoClass, textOf(info.VauleType)};
    if (io.ioClass != Input && io.ioClass != Output) {
        throw CoreError(tr("the IO %1 is neither an input nor an output").arg(name));
    }
    if (info.Num() != 0) {
        throw CoreError(tr("the IO %1 has sub-items, which are not kept").arg(name));
    }
    if (const auto present = m_store->io(module, name)) {
        // A condition that was deleted leaves its IOs; its name may be used again.
        if (present->ioClass != io.ioClass || present->valueType != io.valueType) {
            throw CoreError(
                tr("module %1 has the IO %2 with another class or type").arg(QString::number(module), name));
        }
        return Success;
    }
    m_store->addIo(module, name, io, info.ExtraData);
    return Success;
}

CommandStatus EmbeddedCore::execute(SetRunParamCommand& command)
{
    m_store->setValue(Store::Values::RunParameter, checkedModule(command.ModuleID), nameOf(command.ParamName),
                      textOf(command.Val));
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
    const auto& condition = checkedRecord(command.Condition);
    const UInt module = checkedModule(condition.ModuleID);
    if (!SubscribeTree::isRange(condition.ModuleRange) ||
        condition.VarTypeNum > std::size(condition.VauleTypes)) {
        throw CoreError(tr("the range or the number of types is not of the catalogue"));
    }
    QStringList types;
    for (UInt i = 0; i < condition.VarTypeNum; ++i) {
        types << textOf(condition.VauleTypes[i]);
    }
    checkedRecord(command.Result) = SubscribeTree::build(m_flow, module, condition.ModuleRange, types);
    return Success;
}

CommandStatus EmbeddedCore::execute(BinaryDataQuery& command)
{
    const auto& condition = checkedRecord(command.Condition);
    BINARY_DATA__& record = checkedRecord(command.Result);
    const UInt module = checkedModule(condition.ModuleID);
    give(storedValue(*m_store, Store::Values::BinaryData, module, nameOf(condition.ParamName)), record);
    record.ModuleID = module;
    FillText(record.ParamName, condition.ParamName);
    return Success;
}

CommandStatus EmbeddedCore::execute(RunParamQuery& command)
{
    const auto& condition = checkedRecord(command.Condition);
    KADO_MODULE_PARAM__& record = checkedRecord(command.Result);
    const UInt module = checkedModule(condition.ModuleID);
    const QByteArray value =
        storedValue(*m_store, Store::Values::RunParameter, module, nameOf(condition.ParamName));
    FillText(record.strParamName, condition.ParamName);
    FillText(record.strParamValue, value.constData());
    return Success;
}

CommandStatus EmbeddedCore::execute(UIDataQuery& command)
{
    const auto& condition = checkedRecord(command.Condition);
    UI_OBJECT_PARAM_INFO__& record = checkedRecord(command.Result);
    const UInt module = checkedModule(condition.ObjectID);
    give(storedValue(*m_store, Store::Values::UiData, module, nameOf(condition.ParamName)), record);
    FillText(record.ParamName, condition.ParamName);
    return Success;
}

CommandStatus EmbeddedCore::execute(SetFilterSourceCommand& command)
{
    const FilterSourceTarget target = checkedTarget(command.Target);
    if (command.SubscribeName.isEmpty()) {
        m_store->removeBinding(target);
        return Success;
    }
    const QString refused = refusal(target, command.SubscribeName);
    if (!refused.isEmpty()) {
        throw CoreError(refused);
    }
    m_store->setBinding(target, command.SubscribeName);
    return Success;
}

CommandStatus EmbeddedCore::execute(GetFilterSourceCommand& command)
{
    const FilterSourceTarget target = checkedTarget(command.Target);
    const auto source = m_store->binding(target);
    if (!source) {
        return NothingChanged;
    }
    command.SourceIsMissing = !refusal(target, *source).isEmpty();
    command.SubscribeName = *source;
    return Success;
}

CommandStatus EmbeddedCore::execute(DelFilterSourceCommand& command)
{
    FilterSourceTarget target = checkedTarget(command.Target);
    if (target.Type == SUBSCRIBE_TYPE_IO) {
        for (const QLatin1String suffix : {QLatin1String(":input"), QLatin1String(":output")}) {
            if (target.Key.endsWith(suffix)) {
                target.Key.chop(suffix.size());
                break;
            }
        }
    }
    return m_store->removeBinding(target) ? Success : NothingChanged;
}

UInt EmbeddedCore::checkedModule(UInt id) const
{
    if (!m_flow.module(id)) {
        throw CoreError(tr("the flow has no module %1").arg(id));
    }
    return id;
}

FilterSourceTarget EmbeddedCore::checkedTarget(const FilterSourceTarget& target) const
{
    if (target.Type != SUBSCRIBE_TYPE_IO && target.Type != SUBSCRIBE_TYPE_RUNPARAM) {
        throw CoreError(tr("%1 is neither an IO nor a run parameter").arg(target.Key));
    }
    return {checkedModule(target.ModuleID), target.Type, checkedName(target.Key)};
}

QString EmbeddedCore::refusal(const FilterSourceTarget& target, const QString& subscribeName) const
{
    QStringList types;
    if (target.Type == SUBSCRIBE_TYPE_IO) {
        const auto io = m_store->io(target.ModuleID, target.Key);
        if (!io || io->ioClass != Input) {
            return tr("module %1 has no input %2").arg(QString::number(target.ModuleID), target.Key);
        }
        types = io->valueType.isEmpty() ? QStringList() : QStringList(io->valueType);
    } else {
        types = typesOfRunParam(target.Key);
    }

    UInt sourceModule = 0;
    const FlowOutput* const source = m_flow.output(subscribeName, &sourceModule);
    if (!source) {
        return tr("the flow has no value %1").arg(subscribeName);
    }
    if (!m_flow.isBefore(sourceModule, target.ModuleID)) {
        return tr("%1 does not come before module %2").arg(subscribeName, QString::number(target.ModuleID));
    }
    if (!types.isEmpty() && !types.contains(source->type)) {
        return tr("%1 has type %2, not %3")
            .arg(subscribeName, source->type, types.join(QStringLiteral(", ")));
    }
    return {};
}
