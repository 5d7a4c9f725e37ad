#pragma once

#include <QHeaderView>
#include <QTableView>

namespace Widgets {

/// The widget, once it has the object name.
template <typename Widget>
Widget* named(const char* name, Widget* widget)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

/// A table of rows, each one line high; Tab leaves it.
inline QTableView* createTable(const char* name)
{
    auto* const table = named(name, new QTableView);
    table->setSelectionBehavior(QTableView::SelectRows);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    return table;
}

} // namespace Widgets
