#include "inspector/InspectionTableModel.h"

#include <QColor>

InspectionTableModel::InspectionTableModel(QObject* parent)
    : QAbstractTableModel(parent)
{}

void InspectionTableModel::setRows(const QStringList& columns, const ModuleInspection::Rows& rows)
{
    if (columns.size() != m_columns.size() || rows.size() != m_rows.size()) {
        beginResetModel();
        m_columns = columns;
        m_rows = rows;
        endResetModel();
        return;
    }
    m_columns = columns;
    m_rows = rows;
    if (!rows.isEmpty()) {
        emit dataChanged(index(0, 0), index(rows.size() - 1, columns.size() - 1));
    }
    emit headerDataChanged(Qt::Horizontal, 0, columns.size() - 1);
}

int InspectionTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int InspectionTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns.size();
}

QVariant InspectionTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const ModuleInspection::Row& row = m_rows[index.row()];
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
               ? QVariant(m_columns.value(section))
               : QAbstractTableModel::headerData(section, orientation, role);
}
