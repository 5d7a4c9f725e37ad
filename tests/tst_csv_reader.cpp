#include "EmbeddedCore/CoreError.h"
#include "judgement/CsvReader.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_csv_reader : public QObject
{
    Q_OBJECT

private slots:
    void reading();
    void numbers();
    void longFileInConstantMemory();

private:
    QString fileOf(const QByteArray& content)
    {
        QFile file(m_folder.filePath("table.csv"));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName()
                                                                                        : "";
    }
    QTemporaryDir m_folder;
};

// Of each row its line and its field of column b, then what was thrown.
void tst_csv_reader::reading()
{
    const std::pair<QByteArray, QByteArray> tables[] = {
        {"a,b\n1,2\n3,4\n", "2 2|3 4|"},
        {"a,b\r\n1,2\r\n3,4", "2 2|3 4|"},
        {"\xef\xbb\xbf\"b\",a\n1,2\n", "2 1|"}, // a byte order mark
        {"a,\"b\"\n1,\"x, \"\"y\"\"\nz\"\n3,4\n", "2 x, \"y\"\nz|4 4|"},
        {"a,b\n\n,\n\n1,2\n", "3 |5 2|"},
        {"a,b\n", ""},
        {"a,b\n1,2\n3\n", "2 2|line 3: 1 fields where the header has 2"},
        {"a,b\n1,2,3\n", "line 2: 3 fields where the header has 2"},
        {"a,b\n1,\"2\n3,4\n", "line 2: a quote is not closed"},
        {"a,b\n1,\"2\"3\n", "line 2: text behind a closing quote"},
        {"a,c\n1,2\n", "line 1: there is no column b"},
        {"b,b\n1,2\n", "line 1: 2 columns have the name b"},
        {"", "the file is empty"},
    };
    for (const auto& [content, expected] : tables) {
        const QString file = fileOf(content);
        std::string read;
        try {
            CsvReader reader(file);
            const auto column = static_cast<std::size_t>(reader.column("b"));
            while (reader.next()) {
                read += std::to_string(reader.line()) + ' ' + std::string(reader.row()[column]) + '|';
            }
        } catch (const CoreError& error) {
            QVERIFY2(error.text().startsWith(file), qPrintable(error.text()));
            read += error.text().mid(file.size() + 2).toStdString();
        }
        QCOMPARE(content + " -> " + read.c_str(), content + " -> " + expected);
    }
    QVERIFY_EXCEPTION_THROWN(CsvReader("/nowhere/table.csv"), CoreError);
}

void tst_csv_reader::numbers()
{
    QLocale::setDefault(QLocale(QLocale::German));
    const auto reset = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    for (const char* const field : {"0", "-1.5", "1e-3", "12500.25"}) {
        QCOMPARE(CsvReader::number(field).value_or(-1.0), QByteArray(field).toDouble());
    }
    for (const char* const field : {"", "x", "1,5", "1.5 mm", "nan", "inf", "1e999", "0x10"}) {
        QVERIFY2(!CsvReader::number(field), field);
    }
}

// Rows of which each is longer than the one before cross the reader's buffer at every place.
void tst_csv_reader::longFileInConstantMemory()
{
    QByteArray content = "a,b\n";
    for (int i = 0; i < 2000; ++i) {
        content += QByteArray(i % 700, 'x') + ',' + QByteArray::number(i) + (i % 2 ? "\r\n" : "\n");
    }
    CsvReader reader(fileOf(content));
    for (int i = 0; i < 2000; ++i) {
        QVERIFY(reader.next());
        QCOMPARE(CsvReader::number(reader.row()[1]).value_or(-1.0), double(i));
        QCOMPARE(reader.line(), i + 2);
    }
    QVERIFY(!reader.next());
    QCOMPARE(reader.progress(), 1.0);
}

QTEST_APPLESS_MAIN(tst_csv_reader)
#include "tst_csv_reader.moc"
