#include "judgement/CsvReader.h"

#include "EmbeddedCore/CoreError.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int endOfFile = -1;
constexpr int bufferSize = 1 << 16;
// In bytes and fields: a quote that is never closed must not fill the memory.
constexpr std::size_t longestRow = 1 << 20;

} // namespace

CsvReader::CsvReader(const QString& file)
    : m_file(file)
    , m_buffer(bufferSize, Qt::Uninitialized)
{
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        throw CoreError(tr("%1: %2").arg(file, m_file.errorString()));
    }
    fill();
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if (std::string_view(m_at, m_end - m_at).substr(0, byteOrderMark.size()) == byteOrderMark) {
        m_at += byteOrderMark.size();
    }
    if (!readRow()) {
        throw CoreError(tr("%1: the file is empty").arg(file));
    }
    for (const std::string_view name : m_row) {
        m_header << QString::fromUtf8(name.data(), static_cast<int>(name.size()));
    }
}

int CsvReader::column(const QString& name) const
{
    const int count = m_header.count(name);
    if (count != 1) {
        fail(1, count == 0 ? tr("there is no column %1").arg(name)
                           : tr("%1 columns have the name %2").arg(count).arg(name));
    }
    return m_header.indexOf(name);
}

bool CsvReader::next()
{
    do {
        if (!readRow()) {
            return false;
        }
    } while (m_header.size() > 1 && m_row.size() == 1 && m_row.front().empty());
    if (static_cast<int>(m_row.size()) != m_header.size()) {
        fail(m_line, tr("%1 fields where the header has %2").arg(m_row.size()).arg(m_header.size()));
    }
    return true;
}

double CsvReader::progress() const
{
    return m_file.size() > 0 ? static_cast<double>(m_file.pos()) / static_cast<double>(m_file.size()) : 0.0;
}

std::optional<double> CsvReader::number(std::string_view field)
{
    bool isNumber = false;
    const double value =
        QByteArray::fromRawData(field.data(), static_cast<int>(field.size())).toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

void CsvReader::fail(qint64 line, const QString& text) const
{
    throw CoreError(tr("%1: line %2: %3").arg(m_file.fileName(), QString::number(line), text));
}

bool CsvReader::readRow()
{
    m_text.clear();
    m_fieldEnds.clear();
    m_row.clear();
    m_line = m_nextLine;
    if (peek() == endOfFile) {
        return false;
    }
    int last = ',';
    while (last == ',') {
        last = peek() == '"' ? readQuotedField() : readPlainField();
        m_fieldEnds.push_back(m_text.size());
    }
    std::size_t begin = 0;
    for (const std::size_t end : m_fieldEnds) {
        m_row.push_back(std::string_view(m_text).substr(begin, end - begin));
        begin = end;
    }
    return true;
}

int CsvReader::readPlainField()
{
    for (;;) {
        const char* const stop =
            std::find_if(m_at, m_end, [](char c) { return c == ',' || c == '\n' || c == '\r'; });
        m_text.append(m_at, stop);
        m_at = stop;
        const int c = get();
        if (c == ',' || c == '\n' || c == endOfFile) {
            return c;
        }
        if (c != '\r' || peek() != '\n') {
            m_text.push_back(static_cast<char>(c));
        }
    }
}

int CsvReader::readQuotedField()
{
    const qint64 line = m_nextLine;
    get();
    for (int c = get(); c != '"' || peek() == '"'; c = get()) {
        if (c == endOfFile) {
            fail(line, tr("a quote is not closed"));
        }
        if (c == '"') {
            get();
        }
        m_text.push_back(static_cast<char>(c));
    }
    int last = get();
    if (last == '\r' && peek() == '\n') {
        last = get();
    }
    if (last != ',' && last != '\n' && last != endOfFile) {
        fail(m_nextLine, tr("text behind a closing quote"));
    }
    return last;
}

int CsvReader::get()
{
    const int c = peek();
    if (c != endOfFile) {
        ++m_at;
        m_nextLine += c == '\n' ? 1 : 0;
    }
    return c;
}

int CsvReader::peek()
{
    return m_at != m_end || fill() ? static_cast<unsigned char>(*m_at) : endOfFile;
}

bool CsvReader::fill()
{
    if (m_text.size() + m_fieldEnds.size() > longestRow) {
        fail(m_line, tr("the row is too long; perhaps a quote is not closed"));
    }
    const qint64 size = m_file.read(m_buffer.data(), m_buffer.size());
    if (size < 0) {
        throw CoreError(tr("%1: %2").arg(m_file.fileName(), m_file.errorString()));
    }
    m_at = m_buffer.constData();
    m_end = m_at + size;
    return size > 0;
}
