#pragma once

#include "judgement/Histogram.h"
#include "judgement/Judgement.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

#include <memory>
#include <vector>

/// A module's judgement on sample values, row by row, and the totals so far; its memory does not grow with
/// the rows. To stop it, ask for no further row.
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

    enum class Step { Judged, AtEnd, Failed };

    /// A run over the rows of CSV files with one header, see CsvReader, or without files over the one set of
    /// values that the flow gives. Null, and a sentence in error, when a file can't be read or lacks a
    /// column.
    static std::unique_ptr<SampleRun> open(const ModuleConfiguration& configuration,
                                           const QStringList& csvFiles, QString* error);

    /// Judges the next row; Failed, with a sentence in error, where a file is broken.
    Step next(QString* error);

    /// Of the row judged last.
    bool isOk() const { return m_isOk; }
    const Judgement& judgement() const { return m_judgement; }
    /// One for each condition; only until next() is called again.
    QVector<Judgement::Result> results() const;
    /// The line of its file on which it begins; 0 for the values of the flow.
    qint64 line() const { return m_table ? m_table->line() : 0; }

    /// 0 to 1; 0 while its end is not known.
    double progress() const { return m_table ? m_table->progress() : 0.0; }
    const QVector<Judgement::Condition>& conditions() const { return m_judgement.conditions(); }
    const ConditionTotals& totals(int condition) const
    {
        return m_totals[static_cast<std::size_t>(condition)];
    }
    qint64 rows() const { return m_rows; }
    qint64 okRows() const { return m_okRows; }
    /// "569 rows, 357 OK, 212 not OK, pass rate 62.7 %"; 100 % means all.
    QString summary() const;

private:
    SampleRun(const ModuleConfiguration& configuration, std::unique_ptr<CsvReader> table);
    void judge();

    std::unique_ptr<CsvReader> m_table;
    Judgement m_judgement;
    bool m_isOk = false;
    std::vector<ConditionTotals> m_totals;
    qint64 m_rows = 0;
    qint64 m_okRows = 0;
};
