#include "CoreSession.h"
#include "FakeCore.h"
#include "commands/CommandLogView.h"
#include "faults/FaultInjector.h"

#include <QAbstractItemModelTester>
#include <QJsonDocument>
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
    void text();
    void faults();
    void refusedFaults();
};

void tst_command_log::records()
{
    FakeCore core;
    FaultInjector faults(core);
    CommandTap tap(faults);
    CommandLogView view(tap);
    const QSignalSpy executed(&tap, &CommandTap::executed);
    const QSignalSpy recorded(&tap, &CommandTap::recorded);
    setMode(tap, "1");
    QVERIFY(executed.count() == 1 && recorded.isEmpty());

    view.show();
    setMode(tap, "2");
    Fault fault;
    fault.answer = Fault::Answer::Exception;
    fault.message = "磁盘 full";
    faults.arm(fault);
    QVERIFY_EXCEPTION_THROWN(setMode(tap, "3"), ZelCommon::ZelException);
    auto* const pause = view.findChild<QPushButton*>();
    pause->click();
    setMode(tap, "4");
    const auto* const rows = qobject_cast<QSortFilterProxyModel*>(view.findChild<QTableView*>()->model());
    QTRY_COMPARE(rows->rowCount(), 2);
    const auto* const model = qobject_cast<CommandLogModel*>(rows->sourceModel());
    const QJsonDocument last = QJsonDocument::fromJson(model->jsonOf(1));
    QCOMPARE(last["number"].toInt(), 3);
    QCOMPARE(last["module"].toInt(), 7);
    QCOMPARE(last["content"].toString(), QString("3"));
    QCOMPARE(last["status"].toString(), QString("Exception"));
    QCOMPARE(last["message"].toString(), fault.message);

    view.findChild<QLineEdit*>()->setText("FULL");
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

void tst_command_log::text()
{
    const std::pair<QByteArray, QString> contents[] = {{QByteArray("a\0\n", 3), "a\\0\\u000a"},
                                                       {"0123456789", "0123456789"},
                                                       {"01234567890", "0123456789... (11 bytes)"},
                                                       {"01234567孔孔", "01234567... (14 bytes)"},
                                                       {"", ""}};
    for (const auto& [data, content] : contents) {
        auto length = static_cast<UInt>(data.size());
        SetUIDataCommand command(7, "@%int0%Start", data.constData(), length);
        const CommandText text = CommandText::of(command, 10);
        QCOMPARE(text.content, content);
        QCOMPARE(text.kind + text.parameter, QString("SetUIData@%int0%Start"));
        QVERIFY(CommandText::kinds().contains(text.kind));
    }
    AddIOCommand nothing(7, nullptr, Input);
    QCOMPARE(CommandText::of(nothing).content, QString("class=1 (null)"));
}

// What five commands are answered, two of another parameter between three, and whether the fault stays armed.
void tst_command_log::faults()
{
    for (const auto& [fault, expected] : {std::pair("", "FSSSS"),
                                          {"when=2,answer=NothingChanged", "SNSSS"},
                                          {"when=every,answer=Exception", "EEEEE armed"},
                                          {"kind=SetRunParam,parameter=LogicalMode,when=2", "SSFSS"},
                                          {"parameter=Other,when=every", "SFSFS armed"},
                                          {"kind=AddIO", "SSSSS armed"},
                                          {"when=9", "SSSSS armed"},
                                          {"when=3,answer=Delay", "SSDSS"}}) {
        FakeCore core;
        FaultInjector injector(core);
        QString answers;
        injector.hold = [&answers](int milliseconds) { answers += milliseconds == 2000 ? "D" : "?"; };
        QString error;
        const auto parsed = FaultPlan::parse(fault, &error);
        QVERIFY2(parsed, qPrintable(error));
        QCOMPARE(FaultPlan::parse(parsed->text(), &error)->text(), parsed->text());
        injector.arm(*parsed);
        for (int i = 0; i < 5; ++i) {
            try {
                SetRunParamCommand command(7, i % 2 == 0 ? "LogicalMode" : "Other", "1");
                const CommandStatus status = injector.Execute(command).Status;
                if (answers.size() == i) {
                    answers += status == Success ? 'S' : status == Failed ? 'F' : 'N';
                }
            } catch (const ZelCommon::ZelException&) {
                answers += 'E';
            }
        }
        QCOMPARE(answers + (injector.plan().isArmed() ? " armed" : ""), QString(expected));
        injector.disarm();
        QCOMPARE(setMode(injector, "1").Status, Success);
    }
}

void tst_command_log::refusedFaults()
{
    QString error;
    for (const auto& [fault, word] : {std::pair("kind=Nothing", "SetBinaryData"),
                                      {"when=0", "when"},
                                      {"when=often", "when"},
                                      {"answer=Success", "NothingChanged"},
                                      {"what=ever", "parts"},
                                      {"kind", "SetBinaryData"}}) {
        QVERIFY2(!FaultPlan::parse(fault, &error), fault);
        QVERIFY2(error.contains(word) && error.contains(fault), qPrintable(error));
    }
    QCOMPARE(FaultPlan::parse("message=a,b=c", &error)->message, QString("a,b=c"));
}

QTEST_MAIN(tst_command_log)
#include "tst_command_log.moc"
