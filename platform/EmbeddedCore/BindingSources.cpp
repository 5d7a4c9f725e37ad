#include "BindingSources.h"

#include "IfModule.h"

#include <QHash>

using namespace ZelCore;

std::optional<QString> BindingSources::refusal(const Flow& flow, const FilterSourceTarget& target,
                                               const ModuleIo* io, const QString& source)
{
    QStringList types;
    if (target.Type == SUBSCRIBE_TYPE_IO) {
        if (!io || io->ioClass != Input) {
            return tr("module %1 has no input %2").arg(QString::number(target.ModuleID), target.Key);
        }
        types = io->valueType.isEmpty() ? QStringList() : QStringList(io->valueType);
    } else {
        types = IfModule::typesOfRunParameter(target.Key);
    }

    UInt sourceModule = 0;
    const FlowOutput* const output = flow.output(source, &sourceModule);
    if (!output) {
        return tr("the flow has no value %1").arg(source);
    }
    if (!flow.isBefore(sourceModule, target.ModuleID)) {
        return tr("%1 does not come before module %2").arg(source, QString::number(target.ModuleID));
    }
    if (!types.isEmpty() && !types.contains(output->type)) {
        return tr("%1 has type %2, not %3").arg(source, output->type, types.join(QStringLiteral(", ")));
    }
    return std::nullopt;
}

void BindingSources::resolve(ModuleConfiguration& configuration, const Flow& flow)
{
    QHash<QString, const ModuleIo*> ios;
    for (const ModuleIo& io : qAsConst(configuration.ios)) {
        ios[io.name] = &io;
    }
    for (ModuleBinding& binding : configuration.bindings) {
        UInt sourceModule = 0;
        const FlowOutput* const source = flow.output(binding.source, &sourceModule);
        binding.value = source ? source->value : QJsonValue::Null;
        binding.column = source ? source->column : QString();
        binding.missing =
            refusal(flow, binding.target, ios.value(binding.target.Key), binding.source).value_or(QString());
    }
}
