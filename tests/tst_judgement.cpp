#include "condition/ConditionName.h"
#include "judgement/SampleRun.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace ZelCore;
using namespace ConditionName;

namespace {

ModuleConfiguration configurationOf(const QByteArray& ifText, const QByteArray& mode = "1")
{
    ModuleConfiguration configuration;
    configuration.binaryData["IFText"] = ifText;
    configuration.runParameters["LogicalMode"] = mode;
    return configuration;
}

void bind(ModuleConfiguration& configuration, ENUM_IO_SUBSCRIBE_TYPE_ type, const QString& key,
          const QString& column, const QJsonValue& value = QJsonValue::Null, const QString& missing = {})
{
    configuration.bindings << ModuleBinding{{7, type, key}, "5." + column, value, column, missing};
}

} // namespace

class tst_judgement : public QObject
{
    Q_OBJECT

private slots:
    void bounds();
    void values();
    void modes();
    void totals();
    void histogram();

private:
    std::unique_ptr<SampleRun> open(const ModuleConfiguration& configuration, const QByteArray& table)
    {
        QFile file(m_folder.filePath("samples.csv"));
        const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(table) == table.size();
        file.close();
        return isWritten ? SampleRun::open(configuration, table.isEmpty() ? "" : file.fileName(), &m_error)
                         : nullptr;
    }
    // Whether the only row of the table is OK, then of each condition the outcome and its reason.
    QString judged(const ModuleConfiguration& configuration, const QByteArray& table)
    {
        const auto run = open(configuration, table);
        if (!run || !run->next(&m_error)) {
            return m_error;
        }
        QString all = run->isOk() ? "OK" : "not OK";
        for (const Judgement::Result& result : run->results()) {
            all += QStringList({"; in ", "; out ", "; none "})[int(result.outcome)] + result.reason();
        }
        return run->next(&m_error) || run->rows() != 1 ? "another row" : all;
    }

    QTemporaryDir m_folder;
    QString m_error;
};

// Of fields for the value, the lower and the upper bound; the bounds that have one are subscribed.
void tst_judgement::bounds()
{
    for (const auto& [fields, expected] : {std::pair("15,,", "OK; in 15 is within 10 to 20"),
                                           {"10,,", "OK; in 10 is within 10 to 20"},
                                           {"20,,", "OK; in 20 is within 10 to 20"},
                                           {"20.001,,", "not OK; out 20.001 is above 20"},
                                           {"-3,,", "not OK; out -3 is below 10"},
                                           {",,", "not OK; none \"\" is no number"},
                                           {"x,,", "not OK; none \"x\" is no number"},
                                           {"15,16,", "not OK; out 15 is below 16"},
                                           {"15,,14", "not OK; out 15 is above 14"},
                                           {"15,15,15", "OK; in 15 is within 15 to 15"},
                                           {"15,30,5", "not OK; out the minimum 30 is above the maximum 5"},
                                           {"15,x,", "not OK; none minimum: \"x\" is no number"},
                                           {"15,,nan", "not OK; none maximum: \"nan\" is no number"}}) {
        auto configuration = configurationOf("%int0%:10:20:;");
        bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), "int0");
        bind(configuration, SUBSCRIBE_TYPE_RUNPARAM, lowerBoundKey("int0"), "low");
        bind(configuration, SUBSCRIBE_TYPE_RUNPARAM, upperBoundKey("int0"), "high");
        const QList<QByteArray> bounds = QByteArray(fields).split(',').mid(1);
        configuration.uiData[lowerBoundSourceKey("int0")] =
            bounds[0].isEmpty() ? QByteArray("False\0", 6) : QByteArray("True\0", 5);
        configuration.uiData[upperBoundSourceKey("int0")] = bounds[1].isEmpty() ? "true" : "True";
        const QString judgement = judged(configuration, QByteArray("int0,low,high\n") + fields + '\n');
        QCOMPARE(fields + (": " + judgement), fields + QString(": ") + expected);
    }
}

// Without a binding, with a lost one, and from the flow instead of a table.
void tst_judgement::values()
{
    auto configuration = configurationOf("%int0%:10:20:;%int1%:10:20:;%int2%:10:20:;");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int1"), "a", {}, "it is gone");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int2"), {});
    QCOMPARE(judged(configuration, "a\n15\n"),
             QString("not OK; none not bound; none it is gone; none the flow gives 5. no column"));
    const auto run = open(configuration, "a\n15\n");
    QVERIFY(run && run->next(&m_error));
    const Judgement::Result unbound = run->results().first();
    QVERIFY(std::isnan(unbound.value) && unbound.minimum == 10.0 && unbound.maximum == 20.0);
    // A value without a column is the same for every row.
    configuration.bindings.last().value = 12;
    QVERIFY(judged(configuration, "a\n15\n").endsWith("; in 12 is within 10 to 20"));
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), "b");
    QVERIFY2(judged(configuration, "a\n15\n").contains("column b"), qPrintable(m_error));

    configuration = configurationOf("%int0%:1:9:;%int1%:1:9:;%int2%:1:9:;");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), "a", 5);
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int1"), "b");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int2"), "c", "text");
    QCOMPARE(judged(configuration, {}), QString("not OK; in 5 is within 1 to 9; none the flow gives 5.b no "
                                                "value; none \"text\" is no number"));
}

// What a list makes of 5 when all, or any, of its conditions have to be met.
void tst_judgement::modes()
{
    for (const auto& [list, all, any] : {std::tuple("0", true, false),
                                         {"%int0%:1:9:;", true, true},
                                         {"%int0%:6:9:;", false, false},
                                         {"%int0%:1:9:;%float0%:6.0:9:;", false, true},
                                         {"%int0%:1:9:;%int1%:1:9:;", false, true},
                                         {"%int1%:1:9:;", false, false}}) {
        for (const auto& [mode, isOk] : {std::pair("1", all), {"2", any}, {"", any}, {" 1x", all}}) {
            auto configuration = configurationOf(list, mode);
            bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), "a");
            bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("float0"), "a");
            QVERIFY2(judged(configuration, "a\n5\n").startsWith(isOk ? "OK" : "not OK"),
                     QByteArray(list) + mode);
        }
    }
}

void tst_judgement::totals()
{
    auto configuration = configurationOf("%int0%:1:9:;");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), "a");
    const auto run = open(configuration, "a\n1\n2\n99\nx\n3\n4,4\n5\n");
    QVERIFY(run);
    while (run->next(&m_error)) {
    }
    QVERIFY2(m_error.contains("line 7"), qPrintable(m_error));
    QCOMPARE(run->summary(), QString("5 rows, 3 OK, 2 not OK, pass rate 60.0 %"));
    QCOMPARE(run->totals().first().summary(), QString("3 in, 1 out, 1 without value"));
    QCOMPARE(run->totals().first().values.count(), 4);
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
        const double from = histogram.lowerEdge(bin);
        const double to = histogram.lowerEdge(bin + 1);
        const auto count = std::count_if(values.cbegin(), values.cend(),
                                         [&](double value) { return value >= from && value < to; });
        QCOMPARE(histogram.bins()[bin], qint64(count));
    }
    QCOMPARE(histogram.count(), 300);
    QCOMPARE(histogram.minimum(), *std::min_element(values.cbegin(), values.cend()));
}

QTEST_APPLESS_MAIN(tst_judgement)
#include "tst_judgement.moc"
