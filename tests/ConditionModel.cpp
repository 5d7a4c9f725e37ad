#include "ConditionModel.h"

#include <algorithm>
#include <cmath>

QByteArray ConditionModel::text() const
{
    QString text;
    for (const Row& row : rows) {
        const auto number = [&row](double value) {
            if (!row.hasStrip()) {
                value = 0.0;
            }
            return row.name.contains("float") ? QString::number(value, 'f', 3)
                                              : QString::number(std::trunc(value) + 0.0, 'f', 0);
        };
        text +=
            QStringList({'%' + row.name + '%', number(row.lower.value), number(row.upper.value), row.note})
                .join(':') +
            ';';
    }
    return text.isEmpty() ? QByteArray("0") : text.toUtf8().left(text.size());
}

void ConditionModel::load(const QByteArray& stored)
{
    rows.clear();
    const QStringList entries = QString::fromUtf8(stored.constData()).split(';');
    for (const QString& entry : entries) {
        const QStringList fields = entry.split(':');
        if (fields.size() < 4) {
            continue;
        }
        Row row;
        row.name = fields[0];
        row.name.remove('%');
        row.note = fields[3];
        const double limit = row.name.contains("int") ? 999999999.0 : 100000.0;
        const auto bound = [&](const QString& text) {
            const double value = fields[1].contains('.') ? text.toDouble() : text.toInt();
            return Bound{std::clamp(value, -limit, limit), value};
        };
        row.lower = bound(fields[1]);
        row.upper = bound(fields[2]);
        rows << row;
    }
}

void ConditionModel::add(const QString& type)
{
    Row row;
    for (int number = 0; row.name.isEmpty() || names().contains(row.name); ++number) {
        row.name = type + QString::number(number);
    }
    rows << row;
}

void ConditionModel::remove(const QString& name)
{
    for (int i = 0; i < rows.size(); ++i) {
        if (rows[i].name == name) {
            rows.removeAt(i);
        }
    }
}

void ConditionModel::finishBounds(Row& row)
{
    if (row.lower.value > row.upper.value) {
        row.lower.value = row.lower.accepted;
        row.upper.value = row.upper.accepted;
    }
}

QStringList ConditionModel::names() const
{
    QStringList names;
    for (const Row& row : rows) {
        names << row.name;
    }
    return names;
}
