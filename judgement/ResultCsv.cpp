#include "judgement/ResultCsv.h"

#include "condition/ConditionName.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace {

constexpr Judgement::OperandKind kinds[] = {Judgement::Value, Judgement::Minimum, Judgement::Maximum};
constexpr std::string_view words[] = {",in", ",out", ",no value"}; // by outcome
constexpr std::string_view verdicts[] = {",not OK", ",OK"};

QByteArray quoted(const QString& text)
{
    QByteArray field = text.toUtf8();
    return '"' + field.replace('"', "\"\"") + '"';
}

char* write(std::string_view text, char* to)
{
    return std::copy(text.begin(), text.end(), to);
}

} // namespace

ResultCsv::ResultCsv(const SampleRun& run)
    : m_run(run)
{
    for (int i = 0; i < run.conditions().size(); ++i) {
        for (const Judgement::OperandKind kind : kinds) {
            const Judgement::Operand& operand = run.judgement().operand(i, kind);
            m_constants.push_back(operand.column.isEmpty()
                                      ? ',' + Judgement::numberText(operand.constant).toLatin1()
                                      : QByteArray());
        }
    }
    constexpr int lineAndResult = 40;
    m_longestRow = lineAndResult + run.conditions().size() * (3 * (Judgement::longestNumber + 1) + 10);
}

void ResultCsv::appendHeader(QByteArray* text) const
{
    *text += "line,result";
    for (const Judgement::Condition& condition : m_run.conditions()) {
        const QString& name = condition.name;
        for (const QString& column :
             {ConditionName::valueOutputIo(name), ConditionName::minimumOutputIo(name),
              ConditionName::maximumOutputIo(name), name}) {
            *text += ',' + quoted(column);
        }
    }
    *text += '\n';
}

void ResultCsv::appendRow(QByteArray* text) const
{
    const int size = text->size();
    text->resize(size + m_longestRow);
    char* to = text->data() + size;
    to = std::to_chars(to, to + Judgement::longestNumber, m_run.line()).ptr;
    to = write(verdicts[m_run.isOk() ? 1 : 0], to);
    auto constant = m_constants.cbegin();
    for (int i = 0; i < m_run.conditions().size(); ++i) {
        for (const Judgement::OperandKind kind : kinds) {
            if (constant->isEmpty()) {
                *to++ = ',';
                to = Judgement::writeNumber(m_run.judgement().number(i, kind), to);
            } else {
                to = write({constant->constData(), static_cast<std::size_t>(constant->size())}, to);
            }
            ++constant;
        }
        to = write(words[static_cast<std::size_t>(m_run.judgement().outcome(i))], to);
    }
    *to++ = '\n';
    text->resize(static_cast<int>(to - text->constData()));
}
