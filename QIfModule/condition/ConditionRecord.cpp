#include "condition/ConditionRecord.h"

#include "condition/ConditionName.h"

#include <QStringList>

#include <limits>

namespace {

QString boundText(const QString& name, double value)
{
    return ConditionName::isWrittenAsFloat(name) ? QString::number(value, 'f', 3)
                                                 : QString::number(truncatedToInt(value));
}

} // namespace

int truncatedToInt(double value)
{
    using Limits = std::numeric_limits<int>;
    return value == value // not a NaN
               ? static_cast<int>(qBound<double>(Limits::min(), value, Limits::max()))
               : 0;
}

QString ConditionRecord::toText(const QList<ConditionRecord>& conditions)
{
    QString text;
    for (const ConditionRecord& condition : conditions) {
        text += QLatin1Char('%') + condition.name + QLatin1String("%:") +
                boundText(condition.name, condition.minimum) + QLatin1Char(':') +
                boundText(condition.name, condition.maximum) + QLatin1Char(':') + condition.note +
                QLatin1Char(';');
    }
    return text.isEmpty() ? QStringLiteral("0") : text;
}

QByteArray ConditionRecord::toStored(const QString& text)
{
    return text.toUtf8().leftJustified(text.size(), '\0', true);
}

QList<StoredCondition> StoredCondition::fromStored(const QByteArray& bytes)
{
    return fromText(QString::fromUtf8(bytes.constData()));
}

QList<StoredCondition> StoredCondition::fromText(const QString& text)
{
    QList<StoredCondition> conditions;
    const auto pieces = text.splitRef(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QStringRef& piece : pieces) {
        const auto fields = piece.split(QLatin1Char(':'));
        if (fields.size() < 4) {
            continue;
        }
        StoredCondition condition;
        condition.name = fields[0].toString().remove(QLatin1Char('%'));
        condition.minimumText = fields[1].toString();
        condition.isFloat = fields[1].contains(QLatin1Char('.'));
        if (condition.isFloat) {
            condition.minimum = fields[1].toDouble();
            condition.maximum = fields[2].toDouble(&condition.hasValidMaximum);
        } else {
            condition.minimum = fields[1].toInt();
            condition.maximum = fields[2].toInt(&condition.hasValidMaximum);
        }
        condition.note = fields[3].toString();
        conditions << condition;
    }
    return conditions;
}
