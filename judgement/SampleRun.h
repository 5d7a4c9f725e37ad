#pragma once

#include "judgement/Histogram.h"
#include "judgement/Judgement.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

#include <memory>

/// A module's judgement on sample values, row by row, and the totals so far; its memory does not grow with
/// the rows. Whoever drives it stops by asking for no further row.
class SampleRun
{
    Q_DECLARE_TR_FUNCTIONS(SampleRun)

public:
    struct ConditionTotals
    {
        qint64 in = 0;
        qint64 out = 0;
        qint64 noValue = 0;
        /// The values under test, where there is one.
        Histogram values;

        /// "357 in, 212 out, 0 without value".
        QString summary() const;
    };

    /// A run over the rows of a CSV file, or with an empty name over the one set of values that the flow
    /// gives. Null, and a sentence in error, when the file can't be read or lacks a column.
    static std::unique_ptr<SampleRun> open(const ModuleConfiguration& configuration, const QString& csvFile,
                                           QString* error);

    /// Judges the next row. False at the end, and with a sentence in error where the file is broken.
    bool next(QString* error);

    /// Of the row judged last.
    bool isOk() const { return m_isOk; }
    const QVector<Judgement::Result>& results() const { return m_results; }
    /// The line of the file on which it begins; 0 for the values of the flow.
    qint64 line() const { return m_table ? m_table->line() : 0; }

    /// 0 to 1.
    double progress() const { return m_table ? m_table->progress() : 0.0; }
    const QVector<Judgement::Condition>& conditions() const { return m_judgement.conditions(); }
    /// One for each condition.
    const QVector<ConditionTotals>& totals() const { return m_totals; }
    qint64 rows() const { return m_rows; }
    qint64 okRows() const { return m_okRows; }
    /// "569 rows, 357 OK, 212 not OK, pass rate 62.7 %"; the rate is rounded down, so that 100 % means all.
    QString summary() const;

private:
    SampleRun(const ModuleConfiguration& configuration, std::unique_ptr<CsvReader> table);
    void judge(const CsvReader::Row& row);

    std::unique_ptr<CsvReader> m_table;
    Judgement m_judgement;
    QVector<Judgement::Result> m_results;
    bool m_isOk = false;
    QVector<ConditionTotals> m_totals;
    qint64 m_rows = 0;
    qint64 m_okRows = 0;
};
