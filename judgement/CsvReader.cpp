#include "judgement/CsvReader.h"

#include "EmbeddedCore/TextError.h"
#include "judgement/ByteSearch.h"

#include <QtAlgorithms>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <utility>

namespace {

constexpr std::size_t blockSize = 1 << 18;
// A quote that is never closed must not fill the memory.
constexpr std::size_t longestRow = 1 << 20;

// What splits the first line outside quotes.
char separatorOf(std::string_view text)
{
    std::ptrdiff_t semicolons = 0;
    std::ptrdiff_t tabs = 0;
    bool isQuoted = false;
    for (const char c : text) {
        isQuoted = isQuoted != (c == '"');
        if (isQuoted) {
            continue;
        }
        if (c == ',') {
            return c;
        }
        if (c == '\n') {
            break;
        }
        semicolons += c == ';' ? 1 : 0;
        tabs += c == '\t' ? 1 : 0;
    }
    return semicolons == 0 && tabs == 0 ? ',' : semicolons >= tabs ? ';' : '\t';
}

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

QString textOf(std::string_view field)
{
    return QString::fromUtf8(field.data(), static_cast<int>(field.size()));
}

} // namespace

CsvReader::CsvReader(QStringList files)
    : m_files(std::move(files))
{
    open(m_files.first());
    for (const std::string_view name : m_row) {
        m_header << textOf(name);
    }
}

void CsvReader::open(const QString& file)
{
    constexpr QFile::OpenMode mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    m_file.close();
    m_file.setFileName(file);
    if (file == QLatin1String("-") ? !m_file.open(fileno(stdin), mode) : !m_file.open(mode)) {
        throw TextError(tr("%1: %2").arg(shownName(), m_file.errorString()));
    }
    m_begin = m_end = nullptr;
    m_nextLine = 1;
    fill();
    const std::string_view text(m_begin, static_cast<std::size_t>(m_end - m_begin));
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        m_begin += byteOrderMark.size();
    }
    const std::string_view firstLine = text.substr(0, text.find('\n'));
    if (firstLine.substr(0, 2) == "\xff\xfe" || firstLine.substr(0, 2) == "\xfe\xff" ||
        firstLine.find('\0') != std::string_view::npos) {
        fail(1, tr("the text is UTF-16 or no text; it has to be UTF-8"));
    }
    m_separator = separatorOf(text);
    m_searched = m_begin;
    m_found = ByteSearch::find(m_searched, m_separator, '\n');
    if (!readRow()) {
        throw TextError(tr("%1: the file is empty").arg(shownName()));
    }
}

int CsvReader::column(const QString& name) const
{
    const int count = m_header.count(name);
    if (count == 1) {
        return m_header.indexOf(name);
    }
    if (count > 1) {
        fail(1, tr("%1 columns have the name %2").arg(count).arg(name));
    }
    if (m_header.size() > 1) {
        fail(1, tr("there is no column %1").arg(name));
    }
    const QString only = m_header.first();
    for (const char separator : {'|', ':', ' '}) {
        if (only.contains(QLatin1Char(separator))) {
            fail(1, tr("there is no column %1; found one column '%2': separated by '%3'?")
                        .arg(name, only, QString(QLatin1Char(separator))));
        }
    }
    fail(1, tr("there is no column %1; found one column '%2'").arg(name, only));
}

bool CsvReader::next()
{
    do {
        while (!readRow()) {
            if (m_fileIndex + 1 == m_files.size()) {
                return false;
            }
            open(m_files.at(++m_fileIndex));
            if (!std::equal(
                    m_row.cbegin(), m_row.cend(), m_header.cbegin(), m_header.cend(),
                    [](std::string_view field, const QString& name) { return textOf(field) == name; })) {
                fail(1, tr("the header differs from that of %1").arg(m_files.first()));
            }
        }
    } while (m_header.size() > 1 && m_row.size() == 1 && m_row.front().empty());
    if (static_cast<int>(m_row.size()) != m_header.size()) {
        fail(m_line, tr("%1 fields where the header has %2").arg(m_row.size()).arg(m_header.size()));
    }
    return true;
}

double CsvReader::progress() const
{
    const double ofFile =
        m_file.size() > 0 ? static_cast<double>(m_file.pos()) / static_cast<double>(m_file.size()) : 0.0;
    return (m_fileIndex + ofFile) / m_files.size();
}

std::optional<double> CsvReader::number(std::string_view field)
{
    while (!field.empty() && isBlank(field.front())) {
        field.remove_prefix(1);
    }
    while (!field.empty() && isBlank(field.back())) {
        field.remove_suffix(1);
    }
    if (field.size() > 1 && field[0] == '+' && field[1] != '-') {
        field.remove_prefix(1);
    }
    const char* const end = field.data() + field.size();
    double value = 0.0;
    const auto [stop, failure] = std::from_chars(field.data(), end, value);
    if (failure != std::errc() || stop != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    if (value == 0.0 &&
        field.substr(0, field.find_first_of("eE")).find_first_of("123456789") != std::string_view::npos) {
        return std::nullopt; // too small for a number that is not 0
    }
    return value;
}

std::optional<double> CsvReader::numberAt(int column)
{
    const std::string_view field = m_row[static_cast<std::size_t>(column)];
    if (m_separator != ',') {
        const std::size_t comma = field.find(',');
        if (comma != std::string_view::npos && field.find('.') == std::string_view::npos) {
            char& decimal = m_buffer[static_cast<std::size_t>(field.data() - m_buffer.data()) + comma];
            decimal = '.';
            const auto value = number(field);
            decimal = ',';
            return value;
        }
    }
    return number(field);
}

void CsvReader::fail(qint64 line, const QString& text) const
{
    throw TextError(tr("%1: line %2: %3").arg(shownName(), QString::number(line), text));
}

QString CsvReader::shownName() const
{
    const QString file = m_files.at(m_fileIndex);
    return file == QLatin1String("-") ? tr("standard input") : file;
}

bool CsvReader::readRow()
{
    m_line = m_nextLine;
    while (m_begin == m_end) {
        if (m_isLastBlock) {
            return false;
        }
        fill();
    }
    while (!parseRow()) {
        fill();
    }
    for (const std::size_t place : m_doubledQuotes) {
        unquote(m_row[place]);
    }
    return true;
}

bool CsvReader::parseRow()
{
    m_row.clear();
    m_doubledQuotes.clear();
    qint64 nextLine = m_line;
    const auto needsMore = [this](const char* at) { return at >= m_end && !m_isLastBlock; };
    const char* at = m_begin;
    for (bool isLast = false; !isLast; ++at) {
        const char* begin = at;
        const char* end = nullptr;
        if (*at == '"') {
            ++begin;
            bool isDoubled = false;
            for (end = begin;; end += 2) {
                end = std::find(end, m_end, '"');
                if (needsMore(end)) {
                    return false;
                }
                if (end == m_end) {
                    fail(nextLine, tr("a quote is not closed"));
                }
                if (end[1] != '"') {
                    break;
                }
                isDoubled = true;
            }
            if (isDoubled) {
                m_doubledQuotes.push_back(m_row.size());
            }
            nextLine += std::count(begin, end, '\n');
            at = end + 1;
            if (*at == '\r') {
                if (needsMore(at + 1)) {
                    return false;
                }
                at += at[1] == '\n' && at + 1 != m_end ? 1 : 0;
            }
            if (*at != m_separator && *at != '\n') {
                fail(nextLine, tr("text behind a closing quote"));
            }
            if (at - m_searched < ByteSearch::width) {
                m_found &= ~std::uint64_t(0) << (at - m_searched);
            } else {
                m_searched = at;
                m_found = ByteSearch::find(m_searched, m_separator, '\n');
            }
        } else {
            while (m_found == 0) {
                m_searched += ByteSearch::width;
                m_found = ByteSearch::find(m_searched, m_separator, '\n');
            }
            at = m_searched + qCountTrailingZeroBits(m_found);
            end = at;
            end -= *at == '\n' && at != m_end && at != begin && at[-1] == '\r' ? 1 : 0;
        }
        if (needsMore(at)) {
            return false;
        }
        m_found &= m_found - 1;
        isLast = *at == '\n';
        m_row.emplace_back(begin, end - begin);
    }
    m_begin = std::min(at, m_end);
    m_nextLine = nextLine + 1;
    return true;
}

void CsvReader::unquote(std::string_view& field)
{
    char* const begin = m_buffer.data() + (field.data() - m_buffer.data());
    char* end = begin;
    for (std::size_t i = 0; i < field.size(); ++i) {
        *end++ = field[i];
        i += field[i] == '"' ? 1 : 0;
    }
    field = std::string_view(begin, static_cast<std::size_t>(end - begin));
}

void CsvReader::fill()
{
    const auto kept = static_cast<std::size_t>(m_end - m_begin);
    if (kept > longestRow) {
        fail(m_line, tr("the row is too long; perhaps a quote is not closed"));
    }
    std::copy(m_begin, m_end, m_buffer.begin());
    m_buffer.resize(std::max(m_buffer.size(), kept + blockSize + ByteSearch::width));
    const qint64 size = m_file.read(m_buffer.data() + kept, blockSize);
    if (size < 0) {
        throw TextError(tr("%1: %2").arg(shownName(), m_file.errorString()));
    }
    m_isLastBlock = size == 0;
    m_begin = m_buffer.data();
    m_end = m_begin + kept + size;
    m_buffer[kept + static_cast<std::size_t>(size)] = '\n';
    m_searched = m_begin;
    m_found = ByteSearch::find(m_searched, m_separator, '\n');
}
