#include "EmbeddedCore/CoreError.h"
#include "EmbeddedCore/CsvReader.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_csv_reader : public QObject
{
    Q_OBJECT

private slots:
    void reading_data();
    void reading();
    void numbers_data();
    void numbers();
    void longFileInConstantMemory();

private:
    QString fileOf(const QByteArray& content)
    {
        QFile file(m_folder.filePath(QStringLiteral("table.csv")));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName()
                                                                                        : QString();
    }
    QTemporaryDir m_folder;
};

void tst_csv_reader::reading_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("rows"); // line and fields of column b; what was thrown last
    const auto row = [](const char* tag, const QByteArray& content, const QStringList& rows) {
        QTest::newRow(tag) << content << rows;
    };
    row("line feeds", "a,b\n1,2\n3,4\n", {"2 2", "3 4"});
    row("carriage returns, no end", "a,b\r\n1,2\r\n3,4", {"2 2", "3 4"});
    row("byte order mark",
        "\xef\xbb\xbf"
        "b,a\n1,2\n",
        {"2 1"});
    row("quotes", "a,\"b\"\n1,\"x, \"\"y\"\"\nz\"\n3,4\n", {"2 x, \"y\"\nz", "4 4"});
    row("empty fields and lines", "a,b\n\n,\n\n1,2\n", {"3 ", "5 2"});
    row("no rows", "a,b\n", {});
    row("too few fields", "a,b\n1,2\n3\n", {"2 2", "line 3: 1 fields where the header has 2"});
    row("too many fields", "a,b\n1,2,3\n", {"line 2: 3 fields where the header has 2"});
    row("open quote", "a,b\n1,\"2\n3,4\n", {"line 2: a quote is not closed"});
    row("text behind a quote", "a,b\n1,\"2\"3\n", {"line 2: text behind a closing quote"});
    row("no such column", "a,c\n1,2\n", {"line 1: there is no column b"});
    row("the column twice", "b,b\n1,2\n", {"line 1: 2 columns have the name b"});
    row("empty file", "", {"the file is empty"});
}

void tst_csv_reader::reading()
{
    QFETCH(QByteArray, content);
    const QString file = fileOf(content);
    QStringList rows;
    try {
        CsvReader reader(file);
        const int column = reader.column(QStringLiteral("b"));
        while (reader.next()) {
            const std::string_view field = reader.row()[static_cast<std::size_t>(column)];
            rows
                << QStringLiteral("%1 %2").arg(reader.line()).arg(QString::fromStdString(std::string(field)));
        }
    } catch (const CoreError& error) {
        QVERIFY2(error.text().startsWith(file), qPrintable(error.text()));
        rows << error.text().mid(file.size() + 2);
    }
    QTEST(rows, "rows");
    QVERIFY_EXCEPTION_THROWN(CsvReader(QStringLiteral("/nowhere/table.csv")), CoreError);
}

void tst_csv_reader::numbers_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<bool>("isNumber");
    const auto row = [](const char* field, bool isNumber) {
        QTest::newRow(field) << QByteArray(field) << isNumber;
    };
    for (const char* const field : {"0", "-1.5", "1e-3", "12500.25"}) {
        row(field, true);
    }
    for (const char* const field : {"", "x", "1,5", "1.5 mm", "nan", "inf", "1e999", "0x10"}) {
        row(field, false);
    }
}

void tst_csv_reader::numbers()
{
    QFETCH(QByteArray, field);
    QLocale::setDefault(QLocale(QLocale::German));
    const auto reset = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    const auto number = CsvReader::number({field.constData(), static_cast<std::size_t>(field.size())});
    QTEST(number.has_value(), "isNumber");
    QCOMPARE(number.value_or(0.0), number ? field.toDouble() : 0.0);
}

void tst_csv_reader::longFileInConstantMemory()
{
    // Rows of which each is longer than the one before cross the reader's buffer at every place.
    QByteArray content = "a,b\n";
    for (int i = 0; i < 2000; ++i) {
        content += QByteArray(i % 700, 'x') + ',' + QByteArray::number(i) + (i % 2 ? "\r\n" : "\n");
    }
    CsvReader reader(fileOf(content));
    int rows = 0;
    while (reader.next()) {
        QCOMPARE(CsvReader::number(reader.row()[1]).value_or(-1.0), double(rows));
        QCOMPARE(reader.line(), rows + 2);
        ++rows;
    }
    QCOMPARE(rows, 2000);
    QCOMPARE(reader.progress(), 1.0);
}

QTEST_APPLESS_MAIN(tst_csv_reader)
#include "tst_csv_reader.moc"
