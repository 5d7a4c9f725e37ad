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

void ResultModel::begin(const QStringList& titles)
{
    beginResetModel();
    m_titles = titles;
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
    return parent.isValid() ? 0 : FirstCondition + m_titles.size();
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
    const bool isNumber = index.column() == Number;
    switch (role) {
    case Qt::DisplayRole:
        return isNumber ? QVariant(row.number) : row.isOk ? tr("OK") : tr("not OK");
    case Qt::ToolTipRole:
        return row.line > 0 ? tr("line %1 of the file").arg(row.line) : QVariant();
    case Qt::ForegroundRole:
        return isNumber || row.isOk ? QVariant() : notMet;
    default:
        return {};
    }
}

QVariant ResultModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == Number    ? tr("Row")
           : section == Verdict ? tr("Result")
                                : m_titles.value(section - FirstCondition);
}
