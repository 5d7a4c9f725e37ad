#include "inspector/InspectionTableModel.h"

#include <QColor>

void InspectionTableModel::setTable(const ModuleInspection::Table& table)
{
    const int rows = table.rows.size();
    const int columns = table.columns.size();
    if (rows != rowCount() || columns != columnCount()) {
        beginResetModel();
        m_table = table;
        endResetModel();
        return;
    }
    m_table = table;
    if (rows > 0) {
        emit dataChanged(index(0, 0), index(rows - 1, columns - 1));
    }
    emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
}

int InspectionTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_table.rows.size();
}

int InspectionTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_table.columns.size();
}

QVariant InspectionTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const ModuleInspection::Row& row = m_table.rows[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return row.cells.value(index.column());
    case Qt::ToolTipRole:
        return row.remark.isEmpty() ? row.cells.value(index.column()) : row.remark;
    case Qt::ForegroundRole:
        return index.column() == row.colouredCell ? row.colour : QVariant();
    case Qt::BackgroundRole:
        return row.remark.isEmpty() ? QVariant() : QColor(255, 225, 205);
    default:
        return {};
    }
}

QVariant InspectionTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && role == Qt::DisplayRole
               ? QVariant(m_table.columns.value(section))
               : QAbstractTableModel::headerData(section, orientation, role);
}
