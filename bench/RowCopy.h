#pragma once

#include <QHBoxLayout>

#include <vector>

/// What can be seen of a row of widgets: enough to build another with the same classes, names, texts, sheets,
/// sizes and stretch factors, and nothing behind them.
struct RowCopy
{
    explicit RowCopy(const QBoxLayout& row);

    /// Fills an empty layout; the parent owns the widgets.
    void build(QBoxLayout* row, QWidget* parent) const;

    struct Item
    {
        QWidget* (*make)(QWidget* parent, const QString& text);
        QString name;
        QString text;
        QString sheet;
        QSize least;
        QSize most;
        bool isHidden;
        int stretch;
        std::vector<RowCopy> inner; // of a strip
    };
    QMargins margins;
    int spacing;
    std::vector<Item> items;
};
