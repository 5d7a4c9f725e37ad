#include "judgement/SampleRun.h"

#include "EmbeddedCore/TextError.h"

#include <cmath>
#include <utility>

QString SampleRun::ConditionTotals::summary() const
{
    return tr("%1 in, %2 out, %3 without value").arg(in).arg(out).arg(noValue);
}

std::unique_ptr<SampleRun> SampleRun::open(const ModuleConfiguration& configuration,
                                           const QStringList& csvFiles, QString* error)
{
    return attempt(error, [&] {
        auto table = csvFiles.isEmpty() ? nullptr : std::make_unique<CsvReader>(csvFiles);
        return std::unique_ptr<SampleRun>(new SampleRun(configuration, std::move(table)));
    });
}

SampleRun::SampleRun(const ModuleConfiguration& configuration, std::unique_ptr<CsvReader> table)
    : m_table(std::move(table))
    , m_judgement(configuration, m_table != nullptr)
    , m_totals(static_cast<std::size_t>(m_judgement.conditions().size()))
{
    if (m_table) {
        m_judgement.setTable(m_table.get());
    }
}

SampleRun::Step SampleRun::next(QString* error)
{
    try {
        if (m_table ? !m_table->next() : m_rows > 0) {
            return Step::AtEnd;
        }
    } catch (const TextError& failure) {
        *error = failure.text();
        return Step::Failed;
    }
    judge();
    return Step::Judged;
}

void SampleRun::judge()
{
    m_isOk = m_judgement.judge();
    ++m_rows;
    m_okRows += m_isOk ? 1 : 0;
    int condition = 0;
    for (ConditionTotals& totals : m_totals) {
        const Judgement::Outcome outcome = m_judgement.outcome(condition);
        ++(outcome == Judgement::Outcome::In    ? totals.in
           : outcome == Judgement::Outcome::Out ? totals.out
                                                : totals.noValue);
        const double value = m_judgement.number(condition, Judgement::Value);
        if (!std::isnan(value)) {
            totals.values.add(value);
        }
        ++condition;
    }
}

QVector<Judgement::Result> SampleRun::results() const
{
    QVector<Judgement::Result> results;
    for (int i = 0; i < conditions().size(); ++i) {
        results << m_judgement.result(i);
    }
    return results;
}

QString SampleRun::summary() const
{
    if (m_rows == 0) {
        return tr("no rows");
    }
    // Rounded half up, by halves of a per mille.
    qint64 perMille = (m_okRows * 2000 + m_rows) / (2 * m_rows);
    if (perMille == 1000 && m_okRows != m_rows) {
        perMille = 999;
    }
    return tr("%1 rows, %2 OK, %3 not OK, pass rate %4 %")
        .arg(QString::number(m_rows), QString::number(m_okRows), QString::number(m_rows - m_okRows),
             QStringLiteral("%1.%2").arg(perMille / 10).arg(perMille % 10));
}
