#include "CommandLogView.h"
#include "CoreSession.h"
#include "FakeCore.h"
#include "FaultInjector.h"

#include <QAbstractItemModelTester>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

using namespace ZelCore;

namespace {

CommandResult setMode(ICommandService& service, const char* value)
{
    SetRunParamCommand command(7, "LogicalMode", value);
    return service.Execute(command);
}

} // namespace

class tst_command_log : public QObject
{
    Q_OBJECT

private slots:
    void records();
    void keepsTheLatest();
    void text_data();
    void text();
    void faults_data();
    void faults();
    void refusedFaults_data();
    void refusedFaults();
};

void tst_command_log::records()
{
    FakeCore core;
    FaultInjector faults(core);
    CommandTap tap(faults);
    CommandLogView view(tap);
    QSignalSpy executed(&tap, &CommandTap::executed);
    QSignalSpy recorded(&tap, &CommandTap::recorded);
    setMode(tap, "1");
    QCOMPARE(executed.count(), 1);
    QCOMPARE(recorded.count(), 0);

    view.show();
    setMode(tap, "2");
    Fault fault;
    fault.answer = Fault::Answer::Exception;
    fault.message = QStringLiteral("磁盘 full");
    faults.arm(fault);
    QVERIFY_EXCEPTION_THROWN(setMode(tap, "3"), ZelCommon::ZelException);
    auto* const pause = view.findChild<QPushButton*>();
    pause->click();
    setMode(tap, "4");
    const auto* const rows = view.findChild<QTableView*>()->model();
    QTRY_COMPARE(rows->rowCount(), 2);
    const QJsonObject last =
        QJsonDocument::fromJson(static_cast<const CommandLogModel*>(
                                    static_cast<const QSortFilterProxyModel*>(rows)->sourceModel())
                                    ->jsonOf(1))
            .object();
    QCOMPARE(last.value("number").toInt(), 3);
    QCOMPARE(last.value("module").toInt(), 7);
    QCOMPARE(last.value("content").toString(), QStringLiteral("3"));
    QCOMPARE(last.value("status").toString(), QStringLiteral("Exception"));
    QCOMPARE(last.value("message").toString(), fault.message);

    view.findChild<QLineEdit*>()->setText(QStringLiteral("FULL"));
    QCOMPARE(rows->rowCount(), 1);
    view.hide();
    pause->click();
    QVERIFY(!tap.isRecording());
}

void tst_command_log::keepsTheLatest()
{
    CommandLogModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    qint64 number = 0;
    for (const int batch : {1, CommandLogModel::capacity - 1, 3, 2 * CommandLogModel::capacity}) {
        QVector<CommandEntry> entries(batch);
        for (CommandEntry& entry : entries) {
            entry.number = ++number;
        }
        model.append(entries);
        QCOMPARE(model.rowCount(), int(qMin<qint64>(number, CommandLogModel::capacity)));
        QCOMPARE(model.index(model.rowCount() - 1, 0).data().toLongLong(), number);
        QCOMPARE(model.index(0, 0).data().toLongLong(), number - model.rowCount() + 1);
    }
}

void tst_command_log::text_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("content");
    QTest::newRow("control characters") << QByteArray("a\0\n", 3) << QStringLiteral("a\\0\\u000a");
    QTest::newRow("ten bytes") << QByteArray("0123456789") << QStringLiteral("0123456789");
    QTest::newRow("long") << QByteArray("01234567890") << QStringLiteral("0123456789... (11 bytes)");
    QTest::newRow("not within a character")
        << QByteArray("01234567孔孔") << QStringLiteral("01234567... (14 bytes)");
    QTest::newRow("nothing") << QByteArray() << QString();
}

void tst_command_log::text()
{
    QFETCH(QByteArray, data);
    auto length = static_cast<UInt>(data.size());
    SetUIDataCommand command(7, "@%int0%Start", data.constData(), length);
    const CommandText text = CommandText::of(command, 10);
    QTEST(text.content, "content");
    QCOMPARE(text.kind + text.parameter, QStringLiteral("SetUIData@%int0%Start"));
    QVERIFY(CommandText::kinds().contains(text.kind));

    AddIOCommand nothing(7, nullptr, Input);
    QCOMPARE(CommandText::of(nothing).content, QStringLiteral("class=1 (null)"));
}

void tst_command_log::faults_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("answers"); // of five commands: two of another parameter between three
    QTest::addColumn<bool>("staysArmed");
    const auto row = [](const char* fault, const char* answers, bool staysArmed = false) {
        QTest::newRow(fault) << QString::fromLatin1(fault) << QString::fromLatin1(answers) << staysArmed;
    };
    row("", "F S S S S");
    row("when=2,answer=NothingChanged", "S N S S S");
    row("when=every,answer=Exception", "E E E E E", true);
    row("kind=SetRunParam,parameter=LogicalMode,when=2", "S S F S S");
    row("parameter=Other,when=every", "S F S F S", true);
    row("kind=AddIO", "S S S S S", true);
    row("when=9", "S S S S S", true);
    row("when=3,answer=Delay", "S S D S S");
}

void tst_command_log::faults()
{
    QFETCH(QString, fault);
    FakeCore core;
    FaultInjector injector(core);
    bool isHeld = false;
    injector.hold = [&isHeld](int milliseconds) { isHeld = milliseconds == 2000; };
    QString error;
    const auto parsed = FaultPlan::parse(fault, &error);
    QVERIFY2(parsed, qPrintable(error));
    injector.arm(*parsed);
    QCOMPARE(FaultPlan::parse(parsed->text(), &error)->text(), parsed->text());
    QStringList answers;
    for (const char* const parameter : {"LogicalMode", "Other", "LogicalMode", "Other", "LogicalMode"}) {
        isHeld = false;
        try {
            SetRunParamCommand command(7, parameter, "1");
            const CommandStatus status = injector.Execute(command).Status;
            answers << (isHeld ? "D" : status == Success ? "S" : status == Failed ? "F" : "N");
        } catch (const ZelCommon::ZelException&) {
            answers << "E";
        }
    }
    QTEST(answers.join(' '), "answers");
    QTEST(injector.plan().isArmed(), "staysArmed");
    injector.disarm();
    QCOMPARE(setMode(injector, "1").Status, Success);
}

void tst_command_log::refusedFaults_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("kind=Nothing") << "SetBinaryData";
    QTest::newRow("when=0") << "when";
    QTest::newRow("when=often") << "when";
    QTest::newRow("answer=Success") << "NothingChanged";
    QTest::newRow("what=ever") << "parts";
    QTest::newRow("kind") << "SetBinaryData";
}

void tst_command_log::refusedFaults()
{
    QFETCH(QString, word);
    QString error;
    const QString fault = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(!FaultPlan::parse(fault, &error));
    QVERIFY2(error.contains(word) && error.contains(fault), qPrintable(error));
    QCOMPARE(FaultPlan::parse(QStringLiteral("message=a,b=c"), &error)->message, QStringLiteral("a,b=c"));
}

QTEST_MAIN(tst_command_log)
#include "tst_command_log.moc"
