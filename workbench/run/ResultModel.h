#pragma once

#include "judgement/Judgement.h"

#include <QAbstractTableModel>

/// The judged rows of a run as a table: line of the file, OK or not, and for each condition the outcome in
/// words. Holds the first rows only, so that its memory is bounded.
class ResultModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int capacity = 10000;

    struct Row
    {
        /// 0 where there is no file.
        qint64 line = 0;
        bool isOk = false;
        QVector<Judgement::Result> results;
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Empties the table for a run over these conditions.
    void begin(const QVector<Judgement::Condition>& conditions);
    /// How many rows there is still room for.
    int room() const { return capacity - m_rows.size(); }
    /// At most as many rows as there is room for, each with a result for each condition.
    void append(const QVector<Row>& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    enum Column { Line, Verdict, FirstCondition };

    QVector<Judgement::Condition> m_conditions;
    QVector<Row> m_rows;
};
