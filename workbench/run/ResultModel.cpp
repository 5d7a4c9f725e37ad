#include "run/ResultModel.h"

#include <QColor>

namespace {

const QColor notMet(0xb0, 0x20, 0x20);
const QColor noValue(0x90, 0x60, 0x00);

QVariant colourOf(Judgement::Outcome outcome)
{
    switch (outcome) {
    case Judgement::Outcome::In:
        break;
    case Judgement::Outcome::Out:
        return notMet;
    case Judgement::Outcome::NoValue:
        return noValue;
    }
    return {};
}

} // namespace

void ResultModel::begin(const QVector<Judgement::Condition>& conditions)
{
    beginResetModel();
    m_conditions = conditions;
    m_rows.clear();
    endResetModel();
}

void ResultModel::append(const QVector<Row>& rows)
{
    if (rows.isEmpty()) {
        return;
    }
    beginInsertRows({}, m_rows.size(), m_rows.size() + rows.size() - 1);
    m_rows += rows;
    endInsertRows();
}

int ResultModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int ResultModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : FirstCondition + m_conditions.size();
}

QVariant ResultModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const Row& row = m_rows.at(index.row());
    if (index.column() >= FirstCondition) {
        const Judgement::Result& result = row.results.at(index.column() - FirstCondition);
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
            return result.reason();
        }
        return role == Qt::ForegroundRole ? colourOf(result.outcome) : QVariant();
    }
    const bool isLine = index.column() == Line;
    switch (role) {
    case Qt::DisplayRole:
        return isLine ? row.line > 0 ? QVariant(row.line) : QVariant() : row.isOk ? tr("OK") : tr("not OK");
    case Qt::ForegroundRole:
        return isLine || row.isOk ? QVariant() : notMet;
    default:
        return {};
    }
}

QVariant ResultModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical) {
        // The number of the object.
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    }
    if (section >= FirstCondition) {
        const Judgement::Condition& condition = m_conditions.at(section - FirstCondition);
        return role == Qt::DisplayRole   ? QVariant(condition.name)
               : role == Qt::ToolTipRole ? QVariant(condition.note)
                                         : QVariant();
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    return section == Line ? tr("Line") : tr("Result");
}
