#pragma once

#include <QAbstractItemModel>

namespace TabSeparated {

/// Rows of a table as lines of cells separated by tabs, the column titles first where they are wanted.
inline QString textOf(const QAbstractItemModel& table, const QModelIndexList& rows, bool withTitles)
{
    QStringList lines;
    const auto addLine = [&](const auto& cellOf) {
        QStringList cells;
        for (int column = 0; column < table.columnCount(); ++column) {
            cells << cellOf(column).toString().simplified();
        }
        lines << cells.join(QLatin1Char('\t'));
    };
    if (withTitles) {
        addLine([&](int column) { return table.headerData(column, Qt::Horizontal, Qt::DisplayRole); });
    }
    for (const QModelIndex& row : rows) {
        addLine([&](int column) { return row.siblingAtColumn(column).data(); });
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace TabSeparated
