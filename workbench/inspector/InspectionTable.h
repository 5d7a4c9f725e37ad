#pragma once

#include "RowTable.h"
#include "inspector/InspectionTableModel.h"

/// A table of an inspection, with columns as wide as their texts.
class InspectionTable : public RowTable
{
    Q_OBJECT

public:
    explicit InspectionTable(QWidget* parent = nullptr)
        : RowTable(parent)
    {
        setModel(&m_model);
        horizontalHeader()->setStretchLastSection(true);
        horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    }

    void setTable(const ModuleInspection::Table& table) { m_model.setTable(table); }

private:
    InspectionTableModel m_model;
};
