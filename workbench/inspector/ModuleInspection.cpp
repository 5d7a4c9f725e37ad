#include "inspector/ModuleInspection.h"

#include "EmbeddedCore/Flow.h"
#include "EmbeddedCore/StoredWords.h"
#include "commands/CommandText.h"
#include "condition/ConditionName.h"
#include "judgement/IfConfiguration.h"

#include <algorithm>
#include <functional>
#include <tuple>

using namespace ZelCore;

namespace {

const QColor in(0x1e, 0x7a, 0x32);
const QColor out(0xb0, 0x20, 0x20);
const QColor noValue(0x90, 0x60, 0x00);
constexpr std::size_t longestText = 400; // bytes

/// A condition as it is stored, as it is shown, or both.
struct Compared
{
    const StoredCondition* stored = nullptr;
    const ConditionRecord* shown = nullptr;
};

template <typename Conditions>
auto find(const Conditions& conditions, const QString& name)
{
    const auto found = std::find_if(conditions.cbegin(), conditions.cend(),
                                    [&](const auto& each) { return each.name == name; });
    return found == conditions.cend() ? nullptr : &*found;
}

QString shortened(const QString& text)
{
    return CommandText::visible(text.toStdString(), longestText);
}

// The stored ones first.
QVector<Compared> compared(const QList<StoredCondition>& stored, const QList<ConditionRecord>& shown)
{
    QVector<Compared> all;
    for (const StoredCondition& condition : stored) {
        all << Compared{&condition, find(shown, condition.name)};
    }
    for (const ConditionRecord& condition : shown) {
        if (!find(stored, condition.name)) {
            all << Compared{nullptr, &condition};
        }
    }
    return all;
}

// What differs. Bounds are compared as they are stored for the name.
QString differenceOf(const StoredCondition& stored, const ConditionRecord& shown)
{
    const QStringList was = ConditionRecord::toText({stored}).split(QLatin1Char(':'));
    const QStringList is = ConditionRecord::toText({shown}).split(QLatin1Char(':'));
    QStringList parts;
    if (was[1] != is[1]) {
        parts << ModuleInspection::tr("stored minimum is %1, shown %2").arg(was[1], is[1]);
    }
    if (was[2] != is[2]) {
        parts << ModuleInspection::tr("stored maximum is %1, shown %2").arg(was[2], is[2]);
    }
    if (stored.note != shown.note) {
        parts << ModuleInspection::tr("stored note is \"%1\", shown \"%2\"")
                     .arg(shortened(stored.note), shortened(shown.note));
    }
    return parts.join(QStringLiteral("; "));
}

// A bound as it is resolved, and the source of a subscribed one.
QString boundText(const ModuleConfiguration& configuration, double bound, const QString& sourceKey,
                  const QString& key)
{
    const QString text = Judgement::numberText(bound);
    return IfConfiguration::isSubscribed(configuration, sourceKey)
               ? QStringLiteral("%1 (%2)").arg(
                     text, IfConfiguration::sourceOf(configuration, SUBSCRIBE_TYPE_RUNPARAM, key))
               : text;
}

} // namespace

ModuleInspection::Table ModuleInspection::conditions(const ModuleConfiguration& configuration,
                                                     const QList<ConditionRecord>* shown,
                                                     const QVector<Judgement::Result>& results)
{
    const QByteArray list = IfConfiguration::conditionList(configuration);
    const QList<StoredCondition> stored = StoredCondition::fromStored(list);
    // What is left of an entry that was cut may be too short to be read as one.
    const bool isLastCut = list.mid(list.lastIndexOf(';') + 1).count(':') >= 3;
    QVector<Judgement::Result> judged = results;
    if (judged.size() != stored.size()) {
        Judgement judgement(configuration, false);
        judgement.judge();
        judged.clear();
        for (int i = 0; i < stored.size(); ++i) {
            judged << judgement.result(i);
        }
    }
    QVector<Row> rows;
    const auto all = compared(stored, shown ? *shown : QList<ConditionRecord>());
    for (const Compared& each : all) {
        const QString& name = each.stored ? each.stored->name : each.shown->name;
        QStringList cells = {
            name, IfConfiguration::sourceOf(configuration, SUBSCRIBE_TYPE_IO, ConditionName::inputIo(name))};
        if (!each.stored) {
            const QString remark = tr("shown, but not stored");
            cells << QString() << Judgement::numberText(each.shown->minimum)
                  << Judgement::numberText(each.shown->maximum) << QString() << remark
                  << shortened(each.shown->note);
            rows << Row{cells, remark};
            continue;
        }
        const Judgement::Result& result = judged[rows.size()];
        const bool isIn = result.outcome == Judgement::Outcome::In;
        const bool hasValue = result.outcome != Judgement::Outcome::NoValue;
        QString remark;
        if (isLastCut && each.stored == &stored.last()) {
            remark = tr("cut by the length rule");
        } else if (shown) {
            remark = each.shown ? differenceOf(*each.stored, *each.shown) : tr("stored, but not shown");
        }
        cells << Judgement::numberText(result.value)
              << boundText(configuration, result.minimum, ConditionName::lowerBoundSourceKey(name),
                           ConditionName::lowerBoundKey(name))
              << boundText(configuration, result.maximum, ConditionName::upperBoundSourceKey(name),
                           ConditionName::upperBoundKey(name))
              << (isIn       ? tr("in")
                  : hasValue ? tr("out")
                             : result.problem)
              << (remark.isEmpty() ? tr("stored") : remark) << shortened(each.stored->note);
        rows << Row{cells, remark, resultColumn, isIn ? in : hasValue ? out : noValue};
    }
    return {{tr("Name"), tr("Input"), tr("Value"), tr("Minimum"), tr("Maximum"), tr("Result"), tr("State"),
             tr("Note")},
            rows};
}

QStringList ModuleInspection::differences(const ModuleConfiguration& configuration,
                                          const QList<ConditionRecord>& shown)
{
    const auto stored = StoredCondition::fromStored(IfConfiguration::conditionList(configuration));
    QStringList sentences;
    for (const Compared& each : compared(stored, shown)) {
        if (!each.shown) {
            sentences << tr("%1 is not shown, but still stored").arg(each.stored->name);
        } else if (!each.stored) {
            sentences << tr("%1 is not stored").arg(each.shown->name);
        } else if (const QString difference = differenceOf(*each.stored, *each.shown);
                   !difference.isEmpty()) {
            sentences << tr("%1 is not stored: %2").arg(each.shown->name, difference);
        }
    }
    return sentences;
}

bool ModuleInspection::judgeAlike(const ModuleConfiguration& first, const ModuleConfiguration& second)
{
    const auto partsOf = [](const ModuleBinding& binding) {
        return std::tie(binding.target.Type, binding.target.Key, binding.source, binding.value,
                        binding.column, binding.missing);
    };
    return std::tie(first.binaryData, first.runParameters, first.uiData) ==
               std::tie(second.binaryData, second.runParameters, second.uiData) &&
           std::equal(first.bindings.cbegin(), first.bindings.cend(), second.bindings.cbegin(),
                      second.bindings.cend(),
                      [&](const auto& a, const auto& b) { return partsOf(a) == partsOf(b); });
}

ModuleInspection::Table ModuleInspection::ios(const ModuleConfiguration& configuration)
{
    QVector<Row> rows;
    for (const ModuleIo& io : configuration.ios) {
        QStringList flags;
        for (const auto& [name, flag] : StoredWords::ioFlags) {
            if (io.flags.*flag) {
                flags << QLatin1String(name);
            }
        }
        rows << Row{{io.name, io.ioClass == Input ? tr("input") : tr("output"), io.valueType,
                     flags.join(QStringLiteral(", "))}};
    }
    return {{tr("Name"), tr("Class"), tr("Type"), tr("Flags")}, rows};
}

ModuleInspection::Table ModuleInspection::bindings(const ModuleConfiguration& configuration)
{
    QVector<Row> rows;
    for (const ModuleBinding& binding : configuration.bindings) {
        const bool isIo = binding.target.Type == SUBSCRIBE_TYPE_IO;
        rows << Row{{binding.target.Key, isIo ? tr("IO") : tr("run parameter"), binding.source,
                     binding.value.toVariant().toString(),
                     binding.missing.isEmpty() ? tr("bound") : binding.missing},
                    binding.missing};
    }
    return {{tr("Key"), tr("Kind"), tr("Source"), tr("Value"), tr("State")}, rows};
}

ModuleInspection::Table ModuleInspection::values(const ModuleConfiguration& configuration)
{
    QVector<Row> rows;
    const auto add = [&rows](const QString& kind, const QMap<QString, QByteArray>& values) {
        for (auto it = values.cbegin(); it != values.cend(); ++it) {
            rows << Row{{kind, it.key(), CommandText::visible(it.value().toStdString(), longestText)}};
        }
    };
    add(tr("run parameter"), configuration.runParameters);
    add(tr("UI data"), configuration.uiData);
    return {{tr("Kind"), tr("Name"), tr("Value")}, rows};
}

ModuleInspection::Table ModuleInspection::outputs(const FlowModule& module)
{
    QVector<Row> rows;
    const std::function<void(const QVector<FlowOutput>&)> add = [&](const QVector<FlowOutput>& outputs) {
        for (const FlowOutput& output : outputs) {
            if (!output.isGroup()) {
                rows << Row{
                    {output.subscribeName, output.type, output.value.toVariant().toString(), output.column}};
            }
            add(output.children);
        }
    };
    add(module.outputs);
    return {{tr("Output"), tr("Type"), tr("Value"), tr("CSV column")}, rows};
}
