#include "ConditionName.h"
#include "EmbeddedCore/SampleRun.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace ZelCore;
using namespace ConditionName;

namespace {

// A module with these conditions: "int0" is bound to the column of its name, its bounds to columns "low" and
// "high" where they are subscribed.
ModuleConfiguration configurationOf(const QByteArray& ifText, const QByteArray& mode = "1")
{
    ModuleConfiguration configuration;
    configuration.binaryData[QStringLiteral("IFText")] = ifText;
    configuration.runParameters[QStringLiteral("LogicalMode")] = mode;
    return configuration;
}

void bind(ModuleConfiguration& configuration, ENUM_IO_SUBSCRIBE_TYPE_ type, const QString& key,
          const QString& column, const QJsonValue& value = QJsonValue::Null, const QString& missing = {})
{
    ModuleBinding binding;
    binding.target = {7, type, key};
    binding.source = QStringLiteral("5.") + column;
    binding.column = column;
    binding.value = value;
    binding.missing = missing;
    configuration.bindings << binding;
}

QString outcomeOf(const Judgement::Result& result)
{
    switch (result.outcome) {
    case Judgement::Outcome::In:
        return QStringLiteral("in");
    case Judgement::Outcome::Out:
        return QStringLiteral("out");
    case Judgement::Outcome::NoValue:
        break;
    }
    return QStringLiteral("none");
}

} // namespace

class tst_judgement : public QObject
{
    Q_OBJECT

private slots:
    void oneCondition_data();
    void oneCondition();
    void unbound();
    void modes_data();
    void modes();
    void flowValues();
    void totals();
    void histogram();

private:
    QString tableOf(const QByteArray& content)
    {
        QFile file(m_folder.filePath(QStringLiteral("samples.csv")));
        return file.open(QIODevice::WriteOnly) && file.write(content) > 0 ? file.fileName() : QString();
    }
    QTemporaryDir m_folder;
};

void tst_judgement::oneCondition_data()
{
    QTest::addColumn<QByteArray>("fields"); // value, lower and upper bound where they are subscribed
    QTest::addColumn<QString>("subscribed");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* fields, const char* subscribed, const char* outcome, const char* reason) {
        QTest::addRow("%s %s", fields, subscribed)
            << QByteArray(fields) << QString::fromLatin1(subscribed) << QString::fromLatin1(outcome)
            << QString::fromLatin1(reason);
    };
    row("15,,", "", "in", "15 is within 10 to 20");
    row("10,,", "", "in", "10 is within 10 to 20");
    row("20,,", "", "in", "20 is within 10 to 20");
    row("20.001,,", "", "out", "20.001 is above 20");
    row("-3,,", "", "out", "-3 is below 10");
    row(",,", "", "none", "\"\" is no number");
    row("x,,", "", "none", "\"x\" is no number");
    row("15,16,", "low", "out", "15 is below 16");
    row("15,,14", "high", "out", "15 is above 14");
    row("15,15,15", "low high", "in", "15 is within 15 to 15");
    row("15,30,5", "low high", "out", "the minimum 30 is above the maximum 5");
    row("15,x,", "low", "none", "minimum: \"x\" is no number");
    row("15,,nan", "high", "none", "maximum: \"nan\" is no number");
}

void tst_judgement::oneCondition()
{
    QFETCH(QByteArray, fields);
    QFETCH(QString, subscribed);
    auto configuration = configurationOf("%int0%:10:20:;");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), QStringLiteral("int0"));
    bind(configuration, SUBSCRIBE_TYPE_RUNPARAM, lowerBoundKey("int0"), QStringLiteral("low"));
    bind(configuration, SUBSCRIBE_TYPE_RUNPARAM, upperBoundKey("int0"), QStringLiteral("high"));
    configuration.uiData[lowerBoundSourceKey("int0")] =
        subscribed.contains("low") ? QByteArray("True\0", 5) : QByteArray("False\0", 6);
    configuration.uiData[upperBoundSourceKey("int0")] = subscribed.contains("high") ? "True" : "true";

    QString error;
    const auto run = SampleRun::open(configuration, tableOf("int0,low,high\n" + fields + '\n'), &error);
    QVERIFY2(run && run->next(&error), qPrintable(error));
    QTEST(outcomeOf(run->results().first()), "outcome");
    QTEST(run->results().first().reason(), "reason");
    QCOMPARE(run->isOk(), run->results().first().outcome == Judgement::Outcome::In);
    QVERIFY(!run->next(&error));
}

void tst_judgement::unbound()
{
    auto configuration = configurationOf("%int0%:10:20:;%int1%:10:20:;%int2%:10:20:;");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int1"), QStringLiteral("a"), {},
         QStringLiteral("it is gone"));
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int2"), QString());
    QString error;
    const auto run = SampleRun::open(configuration, tableOf("a\n15\n"), &error);
    QVERIFY(run && run->next(&error));
    QStringList reasons;
    for (const Judgement::Result& result : run->results()) {
        QVERIFY(std::isnan(result.value) && result.minimum == 10.0 && result.maximum == 20.0);
        reasons << outcomeOf(result) + QLatin1Char(' ') + result.reason();
    }
    QCOMPARE(reasons, QStringList({"none not bound", "none it is gone", "none the flow gives 5. no column"}));

    // A value without a column is the same for every row.
    configuration.bindings.last().value = 12;
    const auto second = SampleRun::open(configuration, tableOf("a\n15\n"), &error);
    QVERIFY(second && second->next(&error));
    QCOMPARE(second->results().last().reason(), QStringLiteral("12 is within 10 to 20"));

    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), QStringLiteral("b"));
    QVERIFY(!SampleRun::open(configuration, tableOf("a\n15\n"), &error));
    QVERIFY2(error.contains("column b"), qPrintable(error));
}

void tst_judgement::modes_data()
{
    QTest::addColumn<QByteArray>("ifText");
    QTest::addColumn<bool>("all");
    QTest::addColumn<bool>("any");
    const auto row = [](const char* tag, const char* ifText, bool all, bool any) {
        QTest::newRow(tag) << QByteArray(ifText) << all << any;
    };
    row("none", "0", true, false);
    row("in", "%int0%:1:9:;", true, true);
    row("out", "%int0%:6:9:;", false, false);
    row("in and out", "%int0%:1:9:;%float0%:6.0:9:;", false, true);
    row("in and not bound", "%int0%:1:9:;%int1%:1:9:;", false, true);
    row("not bound", "%int1%:1:9:;", false, false);
}

void tst_judgement::modes()
{
    QFETCH(QByteArray, ifText);
    QFETCH(bool, all);
    QFETCH(bool, any);
    for (const auto& [mode, isOk] : {std::pair("1", all), {"2", any}, {"", any}, {" 1x", all}}) {
        auto configuration = configurationOf(ifText, mode);
        bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), QStringLiteral("a"));
        bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("float0"), QStringLiteral("a"));
        QString error;
        const auto run = SampleRun::open(configuration, tableOf("a\n5\n"), &error);
        QVERIFY(run && run->next(&error));
        QCOMPARE(run->isOk(), isOk);
    }
}

void tst_judgement::flowValues()
{
    auto configuration = configurationOf("%int0%:1:9:;%int1%:1:9:;%int2%:1:9:;");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), QStringLiteral("a"), 5);
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int1"), QStringLiteral("b"));
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int2"), QStringLiteral("c"), "text");
    QString error;
    const auto run = SampleRun::open(configuration, QString(), &error);
    QVERIFY(run && run->next(&error));
    QStringList reasons;
    for (const Judgement::Result& result : run->results()) {
        reasons << result.reason();
    }
    QCOMPARE(reasons,
             QStringList({"5 is within 1 to 9", "the flow gives 5.b no value", "\"text\" is no number"}));
    QVERIFY(!run->next(&error));
    QCOMPARE(run->rows(), 1);
}

void tst_judgement::totals()
{
    auto configuration = configurationOf("%int0%:1:9:;");
    bind(configuration, SUBSCRIBE_TYPE_IO, inputIo("int0"), QStringLiteral("a"));
    QString error;
    const auto run = SampleRun::open(configuration, tableOf("a\n1\n2\n99\nx\n3\n4,4\n5\n"), &error);
    QVERIFY(run);
    while (run->next(&error)) {
    }
    QVERIFY2(error.contains("line 7"), qPrintable(error));
    QCOMPARE(run->summary(), QStringLiteral("5 rows, 3 OK, 2 not OK, pass rate 60.0 %"));
    QCOMPARE(run->totals().first().summary(), QStringLiteral("3 in, 1 out, 1 without value"));
    QCOMPARE(run->totals().first().values.count(), 4);
}

void tst_judgement::histogram()
{
    // Every value is counted in the bin that it lies in, however the bins have widened meanwhile.
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
