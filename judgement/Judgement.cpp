#include "judgement/Judgement.h"

#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"
#include "judgement/IfConfiguration.h"

#include <QHash>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

using namespace ZelCore;

namespace {

constexpr int longestShownText = 40;

QString noNumber(const QString& text)
{
    return Judgement::tr("\"%1\" is no number").arg(text.left(longestShownText));
}

// A problem of a bound with the bound's kind in front.
QString named(Judgement::OperandKind kind, const QString& problem)
{
    return kind == Judgement::Value
               ? problem
               : Judgement::tr("%1: %2").arg(kind == Judgement::Minimum ? Judgement::tr("minimum")
                                                                        : Judgement::tr("maximum"),
                                             problem);
}

Judgement::Operand resolved(const ModuleBinding* binding, bool hasTable)
{
    Judgement::Operand operand;
    if (!binding) {
        operand.problem = Judgement::tr("not bound");
    } else if (!binding->missing.isEmpty()) {
        operand.problem = binding->missing;
    } else if (hasTable && !binding->column.isEmpty()) {
        operand.column = binding->column;
    } else if (binding->value.isDouble()) {
        // Without a column it is the same for every row.
        operand.constant = binding->value.toDouble();
    } else if (!binding->value.isNull()) {
        operand.problem = noNumber(binding->value.toVariant().toString());
    } else {
        operand.problem = hasTable ? Judgement::tr("the flow gives %1 no column").arg(binding->source)
                                   : Judgement::tr("the flow gives %1 no value").arg(binding->source);
    }
    return operand;
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

Judgement::Judgement(const ModuleConfiguration& configuration, bool hasTable)
    : m_needsAll(IfConfiguration::needsAll(configuration))
{
    QHash<std::pair<int, QString>, const ModuleBinding*> bindings;
    for (const ModuleBinding& binding : configuration.bindings) {
        bindings.insert({binding.target.Type, binding.target.Key}, &binding);
    }
    const auto add = [&](OperandKind kind, Operand operand) {
        if (!operand.problem.isEmpty()) {
            operand.problem = named(kind, operand.problem);
        }
        m_operands.push_back(std::move(operand));
    };
    const auto addBound = [&](OperandKind kind, double constant, const QString& sourceKey,
                              const QString& bindingKey) {
        add(kind, IfConfiguration::isSubscribed(configuration, sourceKey)
                      ? resolved(bindings.value({SUBSCRIBE_TYPE_RUNPARAM, bindingKey}), hasTable)
                      : Operand{constant, {}, {}});
    };
    const auto stored = StoredCondition::fromStored(IfConfiguration::conditionList(configuration));
    for (const StoredCondition& condition : stored) {
        const QString& name = condition.name;
        m_conditions << Condition{name, condition.note};
        add(Value, resolved(bindings.value({SUBSCRIBE_TYPE_IO, ConditionName::inputIo(name)}), hasTable));
        addBound(Minimum, condition.minimum, ConditionName::lowerBoundSourceKey(name),
                 ConditionName::lowerBoundKey(name));
        addBound(Maximum, condition.maximum, ConditionName::upperBoundSourceKey(name),
                 ConditionName::upperBoundKey(name));
    }
    for (const Operand& operand : m_operands) {
        m_numbers.push_back(operand.constant);
        m_hasNumber.push_back(operand.problem.isEmpty() ? 1 : 0);
    }
    m_isIn.resize(static_cast<std::size_t>(m_conditions.size()));
    m_hasValues.resize(m_isIn.size());
}

void Judgement::setTable(CsvReader* table)
{
    m_table = table;
    for (std::size_t i = 0; i < m_operands.size(); ++i) {
        if (!m_operands[i].column.isEmpty()) {
            m_sources.push_back({table->column(m_operands[i].column), i});
        }
    }
}

bool Judgement::judge()
{
    for (const Source& source : m_sources) {
        const auto number = m_table->numberAt(source.column);
        m_numbers[source.operand] = number.value_or(std::numeric_limits<double>::quiet_NaN());
        m_hasNumber[source.operand] = number ? 1 : 0;
    }
    std::size_t met = 0;
    const double* numbers = m_numbers.data();
    const char* hasNumber = m_hasNumber.data();
    for (std::size_t i = 0; i < m_isIn.size(); ++i) {
        const bool isIn = numbers[Minimum] <= numbers[Value] && numbers[Value] <= numbers[Maximum];
        const bool hasAll = hasNumber[Value] & hasNumber[Minimum] & hasNumber[Maximum];
        m_isIn[i] = isIn;
        m_hasValues[i] = hasAll;
        met += isIn ? 1 : 0;
        numbers += OperandCount;
        hasNumber += OperandCount;
    }
    return m_needsAll ? met == m_isIn.size() : met > 0;
}

Judgement::Result Judgement::result(int condition) const
{
    Result result = {outcome(condition),
                     number(condition, Value),
                     number(condition, Minimum),
                     number(condition, Maximum),
                     {}};
    // The first problem is reported.
    for (const OperandKind kind : {Value, Minimum, Maximum}) {
        const std::size_t index = indexOf(condition, kind);
        if (m_hasNumber[index]) {
            continue;
        }
        result.problem = m_operands[index].problem;
        if (result.problem.isEmpty()) {
            const std::string_view field =
                m_table->row()[static_cast<std::size_t>(m_table->column(m_operands[index].column))];
            result.problem =
                named(kind, noNumber(QString::fromUtf8(field.data(), static_cast<int>(field.size()))));
        }
        break;
    }
    return result;
}

char* Judgement::writeNumber(double number, char* to)
{
    constexpr int digits = 15;
    if (std::isnan(number)) {
        return to;
    }
    // No sign in front of a zero.
    char* const end = std::to_chars(to, to + longestNumber, number == 0.0 ? 0.0 : number,
                                    std::chars_format::general, digits)
                          .ptr;
    // What lies exactly between two texts of 15 digits has at most 22 binary places. The greater is shown for
    // it, as QString::number() does; to_chars() takes the even one.
    const double places = number * (1 << 22);
    if (places == std::trunc(places)) {
        double shown = 0.0;
        std::from_chars(to, end, shown);
        if (shown != number) {
            const QByteArray text = QByteArray::number(number, 'g', digits);
            return std::copy(text.cbegin(), text.cend(), to);
        }
    }
    return end;
}

QString Judgement::numberText(double number)
{
    char text[longestNumber];
    return QString::fromLatin1(text, static_cast<int>(writeNumber(number, text) - text));
}
