#pragma once

#include "commands/CommandTap.h"

#include <QAbstractTableModel>

#include <deque>

/// The last commands, a row each; the oldest make room for new ones.
class CommandLogModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int capacity = 10000;

    using QAbstractTableModel::QAbstractTableModel;

    /// In the order of execution.
    void append(QVector<CommandEntry> entries);
    void clear();
    /// The header texts follow the language.
    void retranslate();

    /// A row as one line of JSON, without a line end.
    QByteArray jsonOf(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    enum Column {
        Number,
        Time,
        Kind,
        Module,
        Parameter,
        Content,
        Status,
        Message,
        Microseconds,
        ColumnCount
    };

    std::deque<CommandEntry> m_entries;
};
