#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// Reads a table of comma-separated values row by row, in memory that does not grow with the file: UTF-8,
/// a header line, quoting by RFC 4180, lines that end in LF or CR LF. A header that has no comma and is split
/// by semicolons or tabs makes these the separator. Blank lines of a table with more than one column are
/// skipped. Files with the same header are read as one table.
///
/// Throws TextError with file and line for anything else.
class CsvReader
{
    Q_DECLARE_TR_FUNCTIONS(CsvReader)

public:
    /// The fields of a row; valid until the next row is read.
    using Row = std::vector<std::string_view>;

    /// Opens the first file and reads its header; "-" is standard input. At least one file.
    explicit CsvReader(QStringList files);

    /// The place in a row of the column with this name, the header's only one of it.
    int column(const QString& name) const;

    /// Reads a row; false at the end of the last file.
    bool next();
    const Row& row() const { return m_row; }
    /// The line of its file on which the row begins, from 1; the header is line 1.
    qint64 line() const { return m_line; }
    /// How much has been read, 0 to 1; of a pipe 0 until its end.
    double progress() const;

    /// The number in a field, under every locale with a decimal point; nothing when it holds none or one that
    /// is not finite.
    static std::optional<double> number(std::string_view field);
    /// The number in a field of the row, which may have a decimal comma where commas do not separate.
    std::optional<double> numberAt(int column);

private:
    [[noreturn]] void fail(qint64 line, const QString& text) const;
    QString shownName() const;
    /// Opens a file and reads its header into m_row.
    void open(const QString& file);
    bool readRow();
    /// Finds the fields of the row at m_begin; false when the buffer ends before it does.
    bool parseRow();
    void unquote(std::string_view& field);
    void fill();

    QStringList m_files;
    int m_fileIndex = 0;
    QFile m_file;
    QStringList m_header;
    char m_separator = ',';

    /// Rows not yet read lie from m_begin to m_end, where a line feed stops every search; further bytes let a
    /// search look beyond.
    std::vector<char> m_buffer;
    const char* m_begin = nullptr;
    const char* m_end = nullptr;
    bool m_isLastBlock = false;
    /// Where separators and line feeds not yet passed are, from m_searched on.
    const char* m_searched = nullptr;
    std::uint64_t m_found = 0;

    Row m_row;
    std::vector<std::size_t> m_doubledQuotes;
    qint64 m_line = 0;
    qint64 m_nextLine = 1;
};
