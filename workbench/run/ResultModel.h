#pragma once

#include "judgement/Judgement.h"

#include <QAbstractTableModel>

/// Judged rows of a run as a table: number, OK or not, and for each condition the outcome in words. Holds
/// the first rows that it is given only, so that its memory is bounded.
class ResultModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int capacity = 10000;

    struct Row
    {
        /// From 1, in the order of the run.
        qint64 number = 0;
        /// Of the file; 0 where there is none.
        qint64 line = 0;
        bool isOk = false;
        QVector<Judgement::Result> results;
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Empties the table for a run over conditions with these column titles.
    void begin(const QStringList& titles);
    /// How many rows there is still room for.
    int room() const { return capacity - m_rows.size(); }
    /// At most as many rows as there is room for, each with a result for each condition.
    void append(const QVector<Row>& rows);
    const Row& row(int index) const { return m_rows.at(index); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    enum Column { Number, Verdict, FirstCondition };

    QStringList m_titles;
    QVector<Row> m_rows;
};
