#include "judgement/JudgementSql.h"

#include <QLocale>
#include <QStringList>

#include <cmath>

namespace {

const QString always = QStringLiteral("1 = 1");
const QString never = QStringLiteral("1 = 0");

QString quoted(QString name)
{
    return QLatin1Char('"') + name.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

QString from(const QString& table)
{
    return QStringLiteral("\nFROM %1 AS t;\n").arg(quoted(table));
}

// With as many digits as the number needs, and an exponent, by which every engine takes it for one with a
// floating point.
QString textOf(const Judgement::Operand& operand)
{
    // With the table's name no engine takes a column that is missing for a text.
    return operand.column.isEmpty() ? QString::number(operand.constant, 'e', QLocale::FloatingPointShortest)
                                    : QStringLiteral("t.") + quoted(operand.column);
}

// Whether the lower operand is at most the upper one. A stored bound may be infinite or a NaN.
QString atMost(const Judgement::Operand& lower, const Judgement::Operand& upper)
{
    const auto isFinite = [](const Judgement::Operand& operand) {
        return !operand.column.isEmpty() || std::isfinite(operand.constant);
    };
    if (isFinite(lower) && isFinite(upper)) {
        return QStringLiteral("%1 <= %2").arg(textOf(lower), textOf(upper));
    }
    const bool isAlways = isFinite(lower) ? upper.constant > 0.0 : lower.constant < 0.0;
    return isAlways ? QStringLiteral("%1 = %1").arg(textOf(isFinite(lower) ? lower : upper)) : never;
}

struct Expressions
{
    /// Whether the condition is met: true, false, or NULL for no number.
    QString isIn;
    /// Whether it has no value.
    QString hasNone;
};

Expressions expressionsOf(const Judgement& judgement, int condition)
{
    QStringList nulls;
    for (const auto kind : {Judgement::Value, Judgement::Minimum, Judgement::Maximum}) {
        const Judgement::Operand& operand = judgement.operand(condition, kind);
        if (!operand.problem.isEmpty()) {
            return {never, always};
        }
        if (!operand.column.isEmpty()) {
            nulls << textOf(operand) + QStringLiteral(" IS NULL");
        }
    }
    const Judgement::Operand& value = judgement.operand(condition, Judgement::Value);
    return {QStringLiteral("%1 AND %2")
                .arg(atMost(judgement.operand(condition, Judgement::Minimum), value),
                     atMost(value, judgement.operand(condition, Judgement::Maximum))),
            nulls.isEmpty() ? never : nulls.join(QStringLiteral(" OR "))};
}

QString isOk(const Judgement& judgement)
{
    QStringList conditions;
    for (int i = 0; i < judgement.conditions().size(); ++i) {
        conditions << QStringLiteral("(%1)").arg(expressionsOf(judgement, i).isIn);
    }
    return conditions.isEmpty() ? (judgement.needsAll() ? always : never)
                                : conditions.join(judgement.needsAll() ? QStringLiteral("\n        AND ")
                                                                       : QStringLiteral("\n        OR "));
}

QString countOf(const QString& condition, const QString& name)
{
    return QStringLiteral(",\n    COUNT(CASE WHEN %1 THEN 1 END) AS %2").arg(condition, quoted(name));
}

} // namespace

QString JudgementSql::rows(const Judgement& judgement, const QString& table)
{
    QString text =
        QStringLiteral("SELECT t.*,\n    CASE WHEN %1\n        THEN 'OK' ELSE 'not OK' END AS \"result\"")
            .arg(isOk(judgement));
    for (int i = 0; i < judgement.conditions().size(); ++i) {
        const auto [isIn, hasNone] = expressionsOf(judgement, i);
        text += QStringLiteral(",\n    CASE WHEN %1 THEN 'no value' WHEN %2 THEN 'in' ELSE 'out' END AS %3")
                    .arg(hasNone, isIn, quoted(judgement.conditions().at(i).name));
    }
    return text + from(table);
}

QString JudgementSql::totals(const Judgement& judgement, const QString& table)
{
    // What is NULL is not OK either.
    QString text =
        QStringLiteral("SELECT COUNT(*) AS \"rows\"") + countOf(isOk(judgement), QStringLiteral("OK")) +
        QStringLiteral(",\n    COUNT(CASE WHEN %1 THEN NULL ELSE 1 END) AS \"not OK\"").arg(isOk(judgement));
    for (int i = 0; i < judgement.conditions().size(); ++i) {
        const auto [isIn, hasNone] = expressionsOf(judgement, i);
        const QString name = judgement.conditions().at(i).name;
        text += countOf(isIn, name + QStringLiteral(" in")) +
                countOf(QStringLiteral("NOT (%1 OR %2)").arg(hasNone, isIn), name + QStringLiteral(" out")) +
                countOf(hasNone, name + QStringLiteral(" no value"));
    }
    return text + from(table);
}
