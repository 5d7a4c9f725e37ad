#include "EmbeddedCore/TextError.h"
#include "judgement/ByteSearch.h"
#include "judgement/JudgementSql.h"
#include "judgement/ResultCsv.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <cmath>
#include <random>

using namespace ZelCore;

namespace {

/// What feeds an input, "%int0%", or a subscribed bound, "%int0%Start".
struct Source
{
    QString key;
    QString column;
    QJsonValue value = QJsonValue::Null;
};

ModuleConfiguration configurationOf(const QByteArray& ifText, const QVector<Source>& sources = {},
                                    const QByteArray& mode = "1")
{
    ModuleConfiguration configuration;
    configuration.binaryData["IFText"] = ifText;
    configuration.runParameters["LogicalMode"] = mode;
    for (const auto& [key, column, value] : sources) {
        const auto type = key.endsWith('%') ? SUBSCRIBE_TYPE_IO : SUBSCRIBE_TYPE_RUNPARAM;
        configuration.bindings << ModuleBinding{{7, type, key}, "5." + column, value, column, {}};
        if (type == SUBSCRIBE_TYPE_RUNPARAM) {
            configuration.uiData['@' + key] = QByteArray("True\0", 5);
        }
    }
    return configuration;
}

} // namespace

class tst_judgement : public QObject
{
    Q_OBJECT

private slots:
    void tables();
    void blockEdges();
    void byteSearch();
    void numbers();
    void reasons();
    void queries();
    void totals();
    void resultRows();
    void histogram();

private:
    QString fileOf(const QByteArray& content)
    {
        QFile file(m_folder.filePath("table.csv"));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName()
                                                                                        : QString();
    }
    // Of each row its line, its field of column b and, when it is one, the number; then what was thrown.
    static QString rowsOf(const QString& file)
    {
        QString read;
        try {
            CsvReader reader({file});
            const int column = reader.column("b");
            while (reader.next()) {
                const std::string field(reader.row()[std::size_t(column)]);
                const auto number = reader.numberAt(column);
                read += QString::number(reader.line()) + ' ' + QString::fromStdString(field) +
                        (number ? QString("=%1|").arg(*number) : "|");
            }
        } catch (const TextError& error) {
            read += error.text().remove(file + ": ");
        }
        return read;
    }
    std::unique_ptr<SampleRun> open(const ModuleConfiguration& configuration, const QByteArray& table)
    {
        return SampleRun::open(configuration, table.isEmpty() ? QStringList() : QStringList(fileOf(table)),
                               &m_error);
    }
    // Of each row whether it is OK and for each condition why.
    QStringList judged(const ModuleConfiguration& configuration, const QByteArray& table)
    {
        QStringList rows;
        m_run = open(configuration, table);
        while (m_run && m_run->next(&m_error) == SampleRun::Step::Judged) {
            rows << (m_run->isOk() ? "OK" : "not OK");
            for (const Judgement::Result& result : m_run->results()) {
                rows.last() += "; " + result.reason();
            }
        }
        return rows;
    }

    QTemporaryDir m_folder;
    QString m_error;
    std::unique_ptr<SampleRun> m_run;
};

void tst_judgement::tables()
{
    const std::pair<QByteArray, QString> tables[] = {
        {"a,b\r\n1,2\r\n3,4", "2 2=2|3 4=4|"},
        {"\xef\xbb\xbf\"b\"\n1\n\n2\n", "2 1=1|3 |4 2=2|"}, // a byte order mark; one column
        {"a,\"b\"\n1,\"x, \"\"y\"\"\nz\"\n3,4\n", "2 x, \"y\"\nz|4 4=4|"},
        {"b,a\n\"\"\"\",\"\"\r\nx\"y\",\r\n", "2 \"|3 x\"y\"|"},
        {"a,b\n\n,\n\n1,2\n", "3 |5 2=2|"},
        {"a,b\n1,2\n3\n", "2 2=2|line 3: 1 fields where the header has 2"},
        {"a,b\n1,2,3\n", "line 2: 3 fields where the header has 2"},
        {"a,b\n\"1\n\",\"2\n3,4\n", "line 3: a quote is not closed"},
        {"a,b\n1,\"2\"3\n", "line 2: text behind a closing quote"},
        {"a,b\n1,\"2\"\r", "line 2: text behind a closing quote"},
        {"a,b\n1,\"" + QByteArray(2000000, 'x'),
         "line 2: the row is too long; perhaps a quote is not closed"},
        {"a,c\n1,2\n", "line 1: there is no column b"},
        {"b,b\n1,2\n", "line 1: 2 columns have the name b"},
        {"", "the file is empty"},
        // Without a comma in the header semicolons or tabs separate, and a decimal comma is read.
        {"a;b\n1;2,5\n\"x;\";-0,5\n3;1.5\n4;1,5,5\n5;1.5,5\n",
         "2 2,5=2.5|3 -0,5=-0.5|4 1.5=1.5|5 1,5,5|6 1.5,5|"},
        {"a\tb\n1\t2,5\n", "2 2,5=2.5|"},
        {"a;b,b\n1;2,5\n", "2 5=5|"},
        {"a|b\n1|2\n", "line 1: there is no column b; found one column 'a|b': separated by '|'?"},
        {"\xff\xfe,b\n", "line 1: the text is UTF-16 or no text; it has to be UTF-8"},
        {QByteArray("a\0,\0b\0", 6), "line 1: the text is UTF-16 or no text; it has to be UTF-8"},
    };
    for (const auto& [content, expected] : tables) {
        QCOMPARE(content.left(40) + " -> " + rowsOf(fileOf(content)), content.left(40) + " -> " + expected);
    }
    QVERIFY(rowsOf(m_folder.filePath("missing.csv")).startsWith("No such file"));
}

// Rows of every kind at every place around the end of the reader's first block, one with a quoted field of
// each length up to more than a search looks at.
void tst_judgement::blockEdges()
{
    constexpr int blockSize = 1 << 18;
    for (int before = 0; before < 2 * ByteSearch::width; ++before) {
        QByteArray content = "a,b\n" + QByteArray(blockSize - before - 8, 'x') + ",12\n";
        content += "\"u\"\"v\",\"1\"\r\n\"\n\",\"\"\"\"\r\n,345\r\n";
        content += '"' + QByteArray(before, ',') + "\",6\n";
        QCOMPARE(QString::number(before) + rowsOf(fileOf(content)),
                 QString::number(before) + "2 12=12|3 1=1|4 \"|6 345=345|7 6=6|");
    }
}

// Vector instructions find the same bytes as the plain search of other processors.
void tst_judgement::byteSearch()
{
    std::mt19937 random(1);
    QByteArray bytes(ByteSearch::width, '\0');
    for (int round = 0; round < 1000; ++round) {
        std::generate(bytes.begin(), bytes.end(), [&random] { return ";,\n\0\x8a\xff"[random() % 6]; });
        QCOMPARE(ByteSearch::find(bytes.constData(), ',', '\n'),
                 ByteSearch::findPlainly(bytes.constData(), ',', '\n'));
    }
    QCOMPARE(ByteSearch::findPlainly(("a,\n" + QByteArray(61, 'x')).constData(), ',', '\n'),
             std::uint64_t(6));
}

// Numbers have a decimal point under every locale.
void tst_judgement::numbers()
{
    QLocale::setDefault(QLocale(QLocale::German));
    const auto reset = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    for (const char* const field : {"0", "-1.5", "1e-3", "12500.25", " \t+2", "3 ", ".5", "5.", "-0", "1E5",
                                    "0.1", "4.9e-324", "123456789012345678"}) {
        QVERIFY2(CsvReader::number(field) == QByteArray(field).toDouble(), field);
    }
    for (const char* const field : {"", " ", "x", "1,5", "1.5 mm", "nan", "inf", "-inf", "1e999", "1e-999",
                                    "0x10", "+-1", "++1", "- 1", "1e", "."}) {
        QVERIFY2(!CsvReader::number(field), field);
    }
}

// Where values and bounds come from, and why a row is OK or not.
void tst_judgement::reasons()
{
    const QByteArray one = "%int0%:10:20:;";
    const QByteArray three = "%int0%:10:20:;%int1%:10:20:;%int2%:10:20:;";
    auto bounds = configurationOf(one, {{"%int0%", "a"}, {"%int0%Start", "low"}, {"%int0%End", "high"}});
    QCOMPARE(
        judged(bounds, "a,low,high\n15,15,15\n15,16,20\n15,10,14\n15,30,5\nx,10,20\n15,,20\n15,10,nan\n"),
        QStringList({"OK; 15 is within 15 to 15", "not OK; 15 is below 16", "not OK; 15 is above 14",
                     "not OK; the minimum 30 is above the maximum 5", "not OK; \"x\" is no number",
                     "not OK; minimum: \"\" is no number", "not OK; maximum: \"nan\" is no number"}));
    // Constant again, with bindings left behind.
    bounds.uiData = {{"@%int0%Start", QByteArray("False\0", 6)}, {"@%int0%End", "true"}};
    QCOMPARE(judged(bounds, "a,low,high\n15,16,14\n"), QStringList("OK; 15 is within 10 to 20"));
    auto lost = configurationOf(three, {{"%int1%", "a"}, {"%int2%", ""}});
    lost.bindings[0].missing = "it is gone";
    QCOMPARE(judged(lost, "a\n15\n"),
             QStringList("not OK; not bound; it is gone; the flow gives 5. no column"));
    // A value without a column is the same for every row; without a table the flow's values are judged.
    QCOMPARE(judged(configurationOf(one, {{"%int0%", "", 12}}), "a\n15\n"),
             QStringList("OK; 12 is within 10 to 20"));
    const auto flow = configurationOf(three, {{"%int0%", "a", 15}, {"%int1%", "b"}, {"%int2%", "c", "text"}});
    QCOMPARE(judged(flow, {}), QStringList("not OK; 15 is within 10 to 20; the flow gives 5.b no value; "
                                           "\"text\" is no number"));
    // A mode that is not 1 means that any suffices.
    for (const auto& [mode, isOk] : {std::pair("1", "OK"), {" 1x", "OK"}, {"2", "not OK"}, {"", "not OK"}}) {
        QCOMPARE(judged(configurationOf("0", {}, mode), {}), QStringList(isOk));
    }
}

// SQLite judges every row, and all of them, as a run does.
void tst_judgement::queries()
{
    const QByteArray header = "a,\"b \"\"c\"\"\",count";
    QByteArray rows =
        "0.1,0,0\n0.3,0.3,1\n0.30000000000000004,NULL,-1\nNULL,1,NULL\n1e300,-1e300,2\n-0,0,-1\n"
        "5e-324,1,1\n0.1,-123456789.123,NULL\n1,-123456789.1235,1\n999999999,999999999,0\n"
        "0.09999999999999999,0,0";
    const QByteArray table = header + '\n' + rows + '\n';
    auto database = QSqlDatabase::addDatabase("QSQLITE");
    database.setDatabaseName(":memory:");
    QVERIFY(database.open());
    QSqlQuery query(R"(CREATE TABLE "the ""table" ()" + header + ')');
    QVERIFY(query.exec(R"(INSERT INTO "the ""table" VALUES ()" + rows.replace("\n", "),(") + ')'));
    const QStringList outcomes = {"in", "out", "no value"};
    const QString b = "b \"c\"";
    const std::pair<QByteArray, QVector<Source>> lists[] = {
        {"0", {}},
        {"%float0%:0.1:0.3:;%int1%:-1:1:;%float2%:-123456789.123:999999999:;",
         {{"%float0%", "a"}, {"%int1%", "count"}, {"%float2%", b}}},
        {"%float0%:1:0:;", {{"%float0%", "a"}}},
        {"%float0%:-inf:0.3:;%float1%:0.3:inf:;%float2%:nan:1:;",
         {{"%float0%", "a"}, {"%float1%", "a"}, {"%float2%", "a"}}},
        {"%float0%:5:1:;%float1%:-1:0:;",
         {{"%float0%", "a"}, {"%float0%Start", b}, {"%float1%", "", 0.25}, {"%float1%End", "a"}}},
        {"%float0%:0:1:;%float1%:0:1:;", {{"%float1%", "a"}}},
        {"%float0%:0:1:;", {{"%float0%", "a"}, {"%float0%Start", ""}}}};
    for (const auto& [list, sources] : lists) {
        for (const char* const mode : {"1", "2"}) {
            const auto run = open(configurationOf(list, sources, mode), table);
            QVERIFY2(run, qPrintable(m_error));
            const int count = run->conditions().size();
            QVERIFY2(query.exec(JudgementSql::rows(run->judgement(), "the \"table")), list);
            while (run->next(&m_error) == SampleRun::Step::Judged) {
                QVERIFY(query.next());
                QCOMPARE(query.value("result").toString(), run->isOk() ? "OK" : "not OK");
                for (int i = 0; i < count; ++i) {
                    QCOMPARE(query.value(run->conditions()[i].name).toString(),
                             outcomes[int(run->judgement().outcome(i))]);
                }
            }
            QVERIFY(!query.next());
            QVERIFY2(query.exec(JudgementSql::totals(run->judgement(), "the \"table")) && query.next(), list);
            QVector<qint64> totals = {run->rows(), run->okRows(), run->rows() - run->okRows()};
            for (int i = 0; i < count; ++i) {
                totals << run->totals(i).in << run->totals(i).out << run->totals(i).noValue;
            }
            for (int i = 0; i < totals.size(); ++i) {
                QCOMPARE(query.value(i).toLongLong(), totals[i]);
            }
        }
    }
}

// Totals count up to a row that can't be read. 100 % means all rows; any other rate is rounded to the
// nearest.
void tst_judgement::totals()
{
    const auto configuration = configurationOf("%int0%:1:9:;", {{"%int0%", "a"}});
    judged(configuration, "a\n1\n2\n99\nx\n3\n4,4\n5\n");
    QVERIFY2(m_error.contains("line 7"), qPrintable(m_error));
    QCOMPARE(m_run->summary(), QString("5 rows, 3 OK, 2 not OK, pass rate 60.0 %"));
    QCOMPARE(m_run->totals(0).summary(), QString("3 in, 1 out, 1 without value"));
    QCOMPARE(m_run->totals(0).values.count(), 4);
    for (const auto& [good, bad, rate] :
         {std::tuple(3, 0, "100.0"), {0, 3, "0.0"}, {1, 15, "6.3"}, {3000, 1, "99.9"}, {1, 2000, "0.0"}}) {
        judged(configuration, "a\n" + QByteArray("1\n").repeated(good) + QByteArray("0\n").repeated(bad));
        QVERIFY2(m_run->summary().endsWith(QString("rate %1 %").arg(rate)), rate);
    }
}

// Numbers have at most 15 digits, and a row does not depend on what stood in the buffer before.
void tst_judgement::resultRows()
{
    const auto run = open(
        configurationOf("%int0%:1:9:;%float0%:0.100:1e300:;", {{"%int0%", "a"}, {"%float0%", "b"}}, "2"),
        "a,b\n5,0.30000000000000004\n-0,1e-7\n10,12345678901234567890\nx,100000\n5,2.384185791015625e-07\n");
    const ResultCsv csv(*run);
    QByteArray text;
    csv.appendHeader(&text);
    while (run->next(&m_error) == SampleRun::Step::Judged) {
        csv.appendRow(&text);
    }
    QCOMPARE(text.replace('"', ""), QByteArray("line,result,%int0Out%,%int0Min%,%int0Max%,int0,"
                                               "%float0Out%,%float0Min%,%float0Max%,float0\n"
                                               "2,OK,5,1,9,in,0.3,0.1,1e+300,in\n"
                                               "3,not OK,0,1,9,out,1e-07,0.1,1e+300,out\n"
                                               "4,OK,10,1,9,out,1.23456789012346e+19,0.1,1e+300,in\n"
                                               "5,OK,,1,9,no value,100000,0.1,1e+300,in\n"
                                               "6,OK,5,1,9,in,2.38418579101563e-07,0.1,1e+300,out\n"));
}

// Every value is counted in the bin that it lies in, however the bins have widened meanwhile.
void tst_judgement::histogram()
{
    Histogram histogram;
    QVector<double> values;
    for (int i = 0; i < 300; ++i) {
        values << (i % 2 ? -1 : 1) * std::pow(1.1, i / 3) + i % 7;
        histogram.add(values.last());
    }
    for (int bin = 0; bin < Histogram::binCount; ++bin) {
        const auto count = std::count_if(values.cbegin(), values.cend(), [&](double value) {
            return value >= histogram.lowerEdge(bin) && value < histogram.lowerEdge(bin + 1);
        });
        QCOMPARE(histogram.bins()[std::size_t(bin)], qint64(count));
    }
    QCOMPARE(histogram.minimum(), *std::min_element(values.cbegin(), values.cend()));
}

QTEST_GUILESS_MAIN(tst_judgement)
#include "tst_judgement.moc"
