#pragma once

#include "judgement/SampleRun.h"

#include <QByteArray>

#include <vector>

/// The results of a run as CSV, the same in every language: line, result, and for each condition what its
/// outputs carry and the outcome. Constant bounds are formatted once.
class ResultCsv
{
public:
    /// The run must outlive this.
    explicit ResultCsv(const SampleRun& run);

    void appendHeader(QByteArray* text) const;
    /// Appends the row judged last.
    void appendRow(QByteArray* text) const;

private:
    const SampleRun& m_run;
    /// For each operand the text of its constant, with a comma in front; empty for one from a column.
    std::vector<QByteArray> m_constants;
    int m_longestRow;
};
