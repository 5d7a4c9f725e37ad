#include "judgement/SampleRun.h"

#include "EmbeddedCore/CoreError.h"

#include <cmath>
#include <utility>

QString SampleRun::ConditionTotals::summary() const
{
    return tr("%1 in, %2 out, %3 without value").arg(in).arg(out).arg(noValue);
}

std::unique_ptr<SampleRun> SampleRun::open(const ModuleConfiguration& configuration, const QString& csvFile,
                                           QString* error)
{
    try {
        auto table = csvFile.isEmpty() ? nullptr : std::make_unique<CsvReader>(csvFile);
        return std::unique_ptr<SampleRun>(new SampleRun(configuration, std::move(table)));
    } catch (const CoreError& failure) {
        *error = failure.text();
        return nullptr;
    }
}

SampleRun::SampleRun(const ModuleConfiguration& configuration, std::unique_ptr<CsvReader> table)
    : m_table(std::move(table))
    , m_judgement(configuration, m_table.get())
    , m_totals(m_judgement.conditions().size())
{}

bool SampleRun::next(QString* error)
{
    try {
        if (m_table ? !m_table->next() : m_rows > 0) {
            return false;
        }
        judge(m_table ? m_table->row() : CsvReader::Row());
        return true;
    } catch (const CoreError& failure) {
        *error = failure.text();
        return false;
    }
}

void SampleRun::judge(const CsvReader::Row& row)
{
    m_isOk = m_judgement.judge(row, &m_results);
    ++m_rows;
    m_okRows += m_isOk ? 1 : 0;
    auto totals = m_totals.begin();
    for (const Judgement::Result& result : std::as_const(m_results)) {
        switch (result.outcome) {
        case Judgement::Outcome::In:
            ++totals->in;
            break;
        case Judgement::Outcome::Out:
            ++totals->out;
            break;
        case Judgement::Outcome::NoValue:
            ++totals->noValue;
            break;
        }
        if (!std::isnan(result.value)) {
            totals->values.add(result.value);
        }
        ++totals;
    }
}

QString SampleRun::summary() const
{
    if (m_rows == 0) {
        return tr("no rows");
    }
    const qint64 perMille = m_okRows * 1000 / m_rows;
    return tr("%1 rows, %2 OK, %3 not OK, pass rate %4 %")
        .arg(QString::number(m_rows), QString::number(m_okRows), QString::number(m_rows - m_okRows),
             QStringLiteral("%1.%2").arg(perMille / 10).arg(perMille % 10));
}
