#include "EmbeddedCore.h"

#include "BindingSources.h"
#include "IfModule.h"
#include "Store.h"
#include "SubscribeTree.h"
#include "TextError.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace ZelCore;

namespace {

// The text of a command's field. One that fills its field may have been cut on its way here.
template <std::size_t N>
QString textOf(const char (&field)[N])
{
    const auto text = TextOf(field);
    require(
        text.size() < N - 1,
        EmbeddedCore::tr("%1 is too long: at most %2 bytes").arg(ToQString(text), QString::number(N - 2)));
    return ToQString(text);
}

QString checkedName(const QString& name)
{
    require(!name.isEmpty(), EmbeddedCore::tr("the name is empty"));
    return name;
}

template <std::size_t N>
QString nameOf(const char (&field)[N])
{
    return checkedName(textOf(field));
}

QByteArray bytesOf(const char* data, UInt length)
{
    require(length <= std::numeric_limits<int>::max() && (length == 0 || data),
            EmbeddedCore::tr("the command carries no data, or too much"));
    // Not null, for the store, even when it is empty.
    return length == 0 ? QByteArray("") : QByteArray(data, static_cast<int>(length));
}

template <typename T>
T& checkedRecord(T* record)
{
    require(record != nullptr, EmbeddedCore::tr("the command carries no record"));
    return *record;
}

QByteArray storedValue(const Store& store, Store::Values values, UInt moduleId, const QString& name)
{
    const auto value = store.value(values, moduleId, name);
    require(value.has_value(),
            EmbeddedCore::tr("module %1 has no parameter %2").arg(QString::number(moduleId), name));
    return *value;
}

// Answers with the stored bytes, followed by a NUL, which counts.
template <typename Query>
void give(const Store& store, Store::Values values, UInt moduleId, Query& query)
{
    auto& record = checkedRecord(query.Result);
    const QByteArray bytes = storedValue(store, values, moduleId, nameOf(query.Condition->ParamName));
    record.CreateList(static_cast<UInt>(bytes.size()) + 1);
    std::copy_n(bytes.constData(), bytes.size() + 1, record.Items());
    FillText(record.ParamName, query.Condition->ParamName);
}

} // namespace

std::unique_ptr<EmbeddedCore> EmbeddedCore::open(Flow flow, const QString& storeFile, QString* error)
{
    return attempt(error, [&] {
        auto store = std::make_unique<Store>(storeFile, flow);
        return std::unique_ptr<EmbeddedCore>(new EmbeddedCore(std::move(flow), std::move(store)));
    });
}

std::unique_ptr<const EmbeddedCore> EmbeddedCore::openReadOnly(Flow flow, const QString& storeFile,
                                                               QString* error)
{
    return attempt(error, [&] {
        auto store = std::make_unique<Store>(storeFile);
        return std::unique_ptr<const EmbeddedCore>(new EmbeddedCore(std::move(flow), std::move(store)));
    });
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
    return attempt(error, [&] {
        auto found = std::optional(m_store->configuration(*m_flow.module(checkedModule(moduleId))));
        BindingSources::resolve(*found, m_flow);
        return found;
    });
}

CommandResult EmbeddedCore::Execute(ICommand& command)
{
    try {
        CommandStatus status = None;
        if (!visitCommand(command, [this, &status](auto& typed) { status = execute(typed); })) {
            throw TextError(tr("unknown command %1").arg(QString::fromUtf8(command.Key())));
        }
        return status;
    } catch (const TextError& failure) {
        return {Failed, failure.what()};
    }
}

CommandStatus EmbeddedCore::execute(AddIOCommand& command)
{
    const UInt module = checkedModule(command.ModuleID);
    const IO_INFO__& info = checkedRecord(command.IOInfo);
    const QString name = nameOf(info.ParamName);
    const ModuleIo io = {name, command.IoClass, textOf(info.VauleType), info.ExtraData};
    require(io.ioClass == Input || io.ioClass == Output,
            tr("the IO %1 is neither an input nor an output").arg(name));
    require(info.Num() == 0, tr("the IO %1 has sub-items, which are not kept").arg(name));
    if (const auto present = m_store->io(module, name)) {
        // A condition that was deleted leaves its IOs; its name may be used again.
        require(present->ioClass == io.ioClass && present->valueType == io.valueType,
                tr("module %1 has the IO %2 with another class or type").arg(QString::number(module), name));
        return Success;
    }
    m_store->addIo(module, io);
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
    require(SubscribeTree::isRange(condition.ModuleRange) &&
                condition.VarTypeNum <= std::size(condition.VauleTypes),
            tr("the range or the number of types is not of the catalogue"));
    QStringList types;
    for (UInt i = 0; i < condition.VarTypeNum; ++i) {
        types << textOf(condition.VauleTypes[i]);
    }
    checkedRecord(command.Result) = SubscribeTree::build(m_flow, module, condition.ModuleRange, types);
    return Success;
}

CommandStatus EmbeddedCore::execute(BinaryDataQuery& command)
{
    const UInt module = checkedModule(checkedRecord(command.Condition).ModuleID);
    give(*m_store, Store::Values::BinaryData, module, command);
    command.Result->ModuleID = module;
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
    const UInt module = checkedModule(checkedRecord(command.Condition).ObjectID);
    give(*m_store, Store::Values::UiData, module, command);
    return Success;
}

CommandStatus EmbeddedCore::execute(SetFilterSourceCommand& command)
{
    const FilterSourceTarget target = checkedTarget(command.Target);
    if (command.SubscribeName.isEmpty()) {
        m_store->removeBinding(target);
        return Success;
    }
    if (const auto refused = refusal(target, command.SubscribeName)) {
        throw TextError(*refused);
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
    command.SourceIsMissing = refusal(target, *source).has_value();
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
    require(m_flow.module(id) != nullptr, tr("the flow has no module %1").arg(id));
    return id;
}

FilterSourceTarget EmbeddedCore::checkedTarget(const FilterSourceTarget& target) const
{
    require(target.Type == SUBSCRIBE_TYPE_IO || target.Type == SUBSCRIBE_TYPE_RUNPARAM,
            tr("%1 is neither an IO nor a run parameter").arg(target.Key));
    return {checkedModule(target.ModuleID), target.Type, checkedName(target.Key)};
}

std::optional<QString> EmbeddedCore::refusal(const FilterSourceTarget& target,
                                             const QString& subscribeName) const
{
    const auto io =
        target.Type == SUBSCRIBE_TYPE_IO ? m_store->io(target.ModuleID, target.Key) : std::nullopt;
    return BindingSources::refusal(m_flow, target, io ? &*io : nullptr, subscribeName);
}
