#include "inspector/ModuleInspection.h"

#include "EmbeddedCore/StoredWords.h"
#include "commands/CommandText.h"
#include "judgement/IfConfiguration.h"

#include <algorithm>

using namespace ZelCore;

namespace {

// As it is stored for the name: what is compared must be what the panel would write.
QString entryOf(const ConditionRecord& condition)
{
    return ConditionRecord::toText({condition});
}

QString number(double value)
{
    return QString::number(value, 'g', 12);
}

QString typeOf(const StoredCondition& condition)
{
    return condition.isFloat ? QStringLiteral("float") : QStringLiteral("int");
}

} // namespace

QStringList ModuleInspection::conditionColumns()
{
    return {tr("Name"), tr("Type"), tr("Minimum"), tr("Maximum"), tr("Note"), tr("State")};
}

ModuleInspection::Rows ModuleInspection::conditions(const ModuleConfiguration& configuration,
                                                    const QList<ConditionRecord>* shown)
{
    const QByteArray list = IfConfiguration::conditionList(configuration);
    const QList<StoredCondition> stored = StoredCondition::fromStored(list);
    // What is left of an entry that was cut may be too short to be read as one.
    const QByteArray rest = list.mid(list.lastIndexOf(';') + 1);
    const bool isLastCut = rest.count(':') >= 3;
    Rows rows;
    const auto add = [&rows](const QStringList& cells, const QString& remark) {
        rows << Row{cells + QStringList(remark.isEmpty() ? tr("stored") : remark), remark};
    };
    for (const StoredCondition& condition : stored) {
        QString remark;
        if (shown) {
            const auto same = std::find_if(shown->cbegin(), shown->cend(), [&](const ConditionRecord& each) {
                return each.name == condition.name;
            });
            if (same == shown->cend()) {
                remark = tr("not shown");
            } else if (entryOf(*same) != entryOf(condition)) {
                remark = tr("shown otherwise: %1").arg(entryOf(*same));
            }
        }
        if (isLastCut && &condition == &stored.last()) {
            remark = tr("cut by the length rule");
        }
        add({condition.name, typeOf(condition), number(condition.minimum), number(condition.maximum),
             condition.note},
            remark);
    }
    if (shown) {
        for (const ConditionRecord& condition : *shown) {
            if (std::none_of(stored.cbegin(), stored.cend(),
                             [&](const StoredCondition& each) { return each.name == condition.name; })) {
                add({condition.name, QString(), number(condition.minimum), number(condition.maximum),
                     condition.note},
                    tr("shown, but not stored"));
            }
        }
    }
    return rows;
}

QStringList ModuleInspection::ioColumns()
{
    return {tr("Name"), tr("Class"), tr("Type"), tr("Flags")};
}

ModuleInspection::Rows ModuleInspection::ios(const ModuleConfiguration& configuration)
{
    Rows rows;
    for (const ModuleIo& io : configuration.ios) {
        QStringList flags;
        for (const auto& [name, flag] : StoredWords::ioFlags) {
            if (io.flags.*flag) {
                flags << QLatin1String(name);
            }
        }
        rows << Row{{io.name, io.ioClass == Input ? tr("input") : tr("output"), io.valueType,
                     flags.join(QStringLiteral(", "))},
                    QString()};
    }
    return rows;
}

QStringList ModuleInspection::bindingColumns()
{
    return {tr("Key"), tr("Kind"), tr("Source"), tr("Value"), tr("State")};
}

ModuleInspection::Rows ModuleInspection::bindings(const ModuleConfiguration& configuration)
{
    Rows rows;
    for (const ModuleBinding& binding : configuration.bindings) {
        const bool isIo = binding.target.Type == SUBSCRIBE_TYPE_IO;
        rows << Row{{binding.target.Key, isIo ? tr("IO") : tr("run parameter"), binding.source,
                     binding.value.toVariant().toString(),
                     binding.missing.isEmpty() ? tr("bound") : binding.missing},
                    binding.missing};
    }
    return rows;
}

QStringList ModuleInspection::valueColumns()
{
    return {tr("Kind"), tr("Name"), tr("Value")};
}

ModuleInspection::Rows ModuleInspection::values(const ModuleConfiguration& configuration)
{
    Rows rows;
    const auto add = [&rows](const QString& kind, const QMap<QString, QByteArray>& values) {
        for (auto it = values.cbegin(); it != values.cend(); ++it) {
            rows << Row{{kind, it.key(), CommandText::visible(it.value().toStdString())}, QString()};
        }
    };
    add(tr("run parameter"), configuration.runParameters);
    add(tr("UI data"), configuration.uiData);
    return rows;
}
