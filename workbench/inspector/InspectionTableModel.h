#pragma once

#include "inspector/ModuleInspection.h"

#include <QAbstractTableModel>

/// Rows of an inspection; one with a remark is coloured and has it as its tool tip.
class InspectionTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Views keep their place when only the cells have changed.
    void setTable(const ModuleInspection::Table& table);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    ModuleInspection::Table m_table;
};
