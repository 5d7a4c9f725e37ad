#include "judgement/Judgement.h"

#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"
#include "judgement/IfConfiguration.h"

#include <cmath>

using namespace ZelCore;

namespace {

constexpr int longestShownText = 40;

QString named(const QString& what, const QString& problem)
{
    return what.isEmpty() ? problem : Judgement::tr("%1: %2").arg(what, problem);
}

QString noNumber(const QString& text)
{
    return Judgement::tr("\"%1\" is no number").arg(text.left(longestShownText));
}

} // namespace

QString Judgement::Result::reason() const
{
    switch (outcome) {
    case Outcome::In:
        return tr("%1 is within %2 to %3").arg(numberText(value), numberText(minimum), numberText(maximum));
    case Outcome::Out:
        if (minimum > maximum) {
            return tr("the minimum %1 is above the maximum %2").arg(numberText(minimum), numberText(maximum));
        }
        return value < minimum ? tr("%1 is below %2").arg(numberText(value), numberText(minimum))
                               : tr("%1 is above %2").arg(numberText(value), numberText(maximum));
    case Outcome::NoValue:
        break;
    }
    return problem;
}

Judgement::Judgement(const ModuleConfiguration& configuration, const CsvReader* table)
    : m_needsAll(IfConfiguration::needsAll(configuration))
{
    const auto boundOperand = [&](double constant, const QString& sourceKey, const QString& bindingKey,
                                  const QString& what) {
        // The datum ends at its NUL.
        if (qstrcmp(configuration.uiData.value(sourceKey).constData(), ModuleParameter::subscribedBound) ==
            0) {
            return resolved(configuration.binding(SUBSCRIBE_TYPE_RUNPARAM, bindingKey), table, what);
        }
        Operand operand;
        operand.constant = constant;
        return operand;
    };
    const auto stored = StoredCondition::fromStored(IfConfiguration::conditionList(configuration));
    for (const StoredCondition& condition : stored) {
        const QString& name = condition.name;
        m_conditions << Condition{name, condition.note};
        m_operands << Operands{
            resolved(configuration.binding(SUBSCRIBE_TYPE_IO, ConditionName::inputIo(name)), table,
                     QString()),
            boundOperand(condition.minimum, ConditionName::lowerBoundSourceKey(name),
                         ConditionName::lowerBoundKey(name), tr("minimum")),
            boundOperand(condition.maximum, ConditionName::upperBoundSourceKey(name),
                         ConditionName::upperBoundKey(name), tr("maximum"))};
    }
}

Judgement::Operand Judgement::resolved(const ModuleBinding* binding, const CsvReader* table,
                                       const QString& what)
{
    Operand operand;
    operand.what = what;
    QString problem;
    if (!binding) {
        problem = tr("not bound");
    } else if (!binding->missing.isEmpty()) {
        problem = binding->missing;
    } else if (table && !binding->column.isEmpty()) {
        operand.column = table->column(binding->column);
    } else if (binding->value.isDouble()) {
        // Without a column it is the same for every row.
        operand.constant = binding->value.toDouble();
    } else if (!binding->value.isNull()) {
        problem = noNumber(binding->value.toVariant().toString());
    } else {
        problem = table ? tr("the flow gives %1 no column").arg(binding->source)
                        : tr("the flow gives %1 no value").arg(binding->source);
    }
    if (!problem.isEmpty()) {
        operand.problem = named(what, problem);
    }
    return operand;
}

bool Judgement::judge(const CsvReader::Row& row, QVector<Result>* results) const
{
    results->resize(m_operands.size());
    int met = 0;
    auto result = results->begin();
    for (const Operands& operands : m_operands) {
        result->problem.clear();
        result->value = numberOf(operands.value, row, &result->problem);
        result->minimum = numberOf(operands.minimum, row, &result->problem);
        result->maximum = numberOf(operands.maximum, row, &result->problem);
        const bool isIn = result->minimum <= result->value && result->value <= result->maximum;
        result->outcome = !result->problem.isEmpty() ? Outcome::NoValue : isIn ? Outcome::In : Outcome::Out;
        met += isIn ? 1 : 0;
        ++result;
    }
    return m_needsAll ? met == m_operands.size() : met > 0;
}

double Judgement::numberOf(const Operand& operand, const CsvReader::Row& row, QString* problem)
{
    QString own = operand.problem;
    if (operand.column >= 0) {
        const std::string_view field = row[static_cast<std::size_t>(operand.column)];
        if (const auto number = CsvReader::number(field)) {
            return *number;
        }
        own = named(operand.what, noNumber(QString::fromUtf8(field.data(), static_cast<int>(field.size()))));
    }
    // The first problem is the one that is told.
    if (problem->isEmpty()) {
        *problem = own;
    }
    return operand.constant;
}

QString Judgement::numberText(double number)
{
    constexpr int digits = 15;
    return std::isnan(number) ? QString() : QString::number(number, 'g', digits);
}
