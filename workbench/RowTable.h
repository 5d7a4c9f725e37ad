#pragma once

#include <QHeaderView>
#include <QTableView>

/// A table of rows, each one line high; Tab leaves it.
class RowTable : public QTableView
{
    Q_OBJECT

public:
    explicit RowTable(QWidget* parent = nullptr)
        : QTableView(parent)
    {
        setSelectionBehavior(SelectRows);
        setWordWrap(false);
        setTabKeyNavigation(false);
        verticalHeader()->hide();
    }
};
