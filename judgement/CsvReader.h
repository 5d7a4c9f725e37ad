#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QString>
#include <QStringList>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads a table of comma-separated values row by row, in memory that does not grow with the file: UTF-8,
/// a header line, quoting by RFC 4180, lines that end in LF or CR LF. Blank lines of a table with more than
/// one column are passed over.
///
/// Throws CoreError with file and line for what is no such table.
class CsvReader
{
    Q_DECLARE_TR_FUNCTIONS(CsvReader)

public:
    /// The fields of a row; valid until the next row is read.
    using Row = std::vector<std::string_view>;

    /// Opens the file and reads its header.
    explicit CsvReader(const QString& file);

    /// The place in a row of the column with this name, the header's only one of it.
    int column(const QString& name) const;

    /// Reads a row; false at the end of the file.
    bool next();
    const Row& row() const { return m_row; }
    /// The line on which the row begins, from 1; the header is line 1.
    qint64 line() const { return m_line; }
    /// How much of the file has been read, 0 to 1.
    double progress() const;

    /// The number in a field, under every locale with a decimal point; nothing when it holds none or one
    /// that is not finite.
    static std::optional<double> number(std::string_view field);

private:
    [[noreturn]] void fail(qint64 line, const QString& text) const;
    bool readRow();
    /// Append a field to the row's text; return what ended it: a comma, a line feed or the end.
    int readPlainField();
    int readQuotedField();
    int get();
    int peek();
    bool fill();

    QFile m_file;
    QStringList m_header;

    QByteArray m_buffer;
    const char* m_at = nullptr;
    const char* m_end = nullptr;
    qint64 m_nextLine = 1;

    std::string m_text;
    std::vector<std::size_t> m_fieldEnds;
    Row m_row;
    qint64 m_line = 0;
};
