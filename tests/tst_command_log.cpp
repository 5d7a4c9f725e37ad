#include "FakeCore.h"
#include "FlowModuleModel.h"
#include "commands/CommandLogView.h"
#include "faults/FaultInjector.h"
#include "inspector/InspectionTableModel.h"
#include "run/ResultModel.h"

#include <QAbstractItemModelTester>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

using namespace ZelCore;

namespace {

QString answerTo(ICommandService& service, const char* parameter, const char* value = "1")
{
    try {
        SetRunParamCommand command(7, parameter, value);
        const CommandStatus status = service.Execute(command).Status;
        return status == Success ? "done" : status == Failed ? "failed" : "unchanged";
    } catch (const ZelCommon::ZelException&) {
        return "thrown";
    }
}

Fault faultOf(const char* text)
{
    QString error;
    const auto fault = FaultPlan::parse(text, &error);
    Q_ASSERT_X(fault, text, qPrintable(error));
    return *fault;
}

} // namespace
Q_DECLARE_METATYPE(CommandStatus)

/// What lies between panel and core, and the models of the workbench's views.
class tst_command_log : public QObject
{
    Q_OBJECT

private slots:
    void log();
    void longestLog();
    void colours_data();
    void colours();
    void content_data();
    void content();
    void faults_data();
    void faults();
    void severalFaults();
    void refusedFaults_data();
    void refusedFaults();
    void models();
};

void tst_command_log::log()
{
    FakeCore core;
    FaultInjector faults(core);
    CommandTap tap(faults);
    CommandLogView view(tap);
    int executed = 0;
    connect(&tap, &CommandTap::executed, this, [&executed] { ++executed; });
    answerTo(tap, "LogicalMode", "1");

    view.show();
    answerTo(tap, "LogicalMode", "2");
    faults.arm(faultOf("answer=Exception,message=磁盘 full"));
    QCOMPARE(answerTo(tap, "LogicalMode", "3"), "thrown");
    auto* const pause = view.findChild<QPushButton*>();
    pause->click();
    answerTo(tap, "LogicalMode", "4");
    QCOMPARE(executed, 4);

    // Neither what ran while the view was hidden nor while it paused.
    const auto* const rows = qobject_cast<QSortFilterProxyModel*>(view.findChild<QTableView*>()->model());
    QTRY_COMPARE(rows->rowCount(), 2);
    const auto* const model = qobject_cast<CommandLogModel*>(rows->sourceModel());
    const QJsonDocument last = QJsonDocument::fromJson(model->jsonOf(1));
    QCOMPARE(last["number"].toInt(), 3);
    QCOMPARE(last["module"].toInt(), 7);
    QCOMPARE(last["content"].toString(), "3");
    QCOMPARE(last["status"].toString(), "Exception");
    QCOMPARE(last["message"].toString(), "磁盘 full");
    view.findChild<QLineEdit*>()->setText("FULL");
    QCOMPARE(rows->rowCount(), 1);
}

void tst_command_log::longestLog()
{
    CommandLogModel model;
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

void tst_command_log::colours_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<CommandStatus>("status");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("isColoured");
    QTest::newRow("done") << "SetBinaryData" << Success << "" << false;
    QTest::newRow("save refused") << "SetBinaryData" << Failed << "disk full" << true;
    QTest::newRow("save without effect") << "SetRunParam" << NothingChanged << "" << true;
    QTest::newRow("nothing bound") << "GetFilterSource" << NothingChanged << "" << false;
    QTest::newRow("nothing to remove") << "DeleteUIData" << NothingChanged << "" << false;
    QTest::newRow("never switched") << "QueryUIData" << Failed << "no parameter @%int0%Start" << false;
    QTest::newRow("switch not read") << "QueryUIData" << Failed << "disk I/O error" << true;
    QTest::newRow("list not read") << "QueryBinaryData" << Failed << "no parameter @%int0%Start" << true;
}

void tst_command_log::colours()
{
    QFETCH(QString, kind);
    QFETCH(CommandStatus, status);
    QFETCH(QString, message);
    CommandEntry entry;
    entry.text.kind = kind;
    entry.text.parameter = "@%int0%Start";
    entry.status = status;
    entry.message = message;
    CommandLogModel model;
    model.append({entry});
    QTEST(model.index(0, 0).data(Qt::ForegroundRole).isValid(), "isColoured");
}

void tst_command_log::content_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("content");
    QTest::newRow("control characters") << QByteArray("a\0\n", 3) << "a\\0\\u000a";
    QTest::newRow("just short enough") << QByteArray("0123456789") << "0123456789";
    QTest::newRow("cut") << QByteArray("01234567890") << "0123456789... (11 bytes)";
    QTest::newRow("not cut within a character") << QByteArray("01234567孔孔") << "01234567... (14 bytes)";
    QTest::newRow("nothing") << QByteArray("") << "";
}

void tst_command_log::content()
{
    QFETCH(QByteArray, data);
    auto length = static_cast<UInt>(data.size());
    SetUIDataCommand command(7, "@%int0%Start", data.constData(), length);
    QTEST(CommandText::of(command, 10).content, "content");
}

void tst_command_log::faults_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QStringList>("answers"); // to LogicalMode and Other in turn
    QTest::addColumn<bool>("staysArmed");
    const QStringList done = {"done", "done", "done", "done"};
    QTest::newRow("next") << "" << QStringList{"failed", "done", "done", "done"} << false;
    QTest::newRow("second") << "when=2,answer=NothingChanged"
                            << QStringList{"done", "unchanged", "done", "done"} << false;
    QTest::newRow("every") << "when=every,answer=Exception"
                           << QStringList{"thrown", "thrown", "thrown", "thrown"} << true;
    QTest::newRow("second of a parameter") << "kind=SetRunParam,parameter=Other,when=2"
                                           << QStringList{"done", "done", "done", "failed"} << false;
    QTest::newRow("another kind") << "kind=AddIO" << done << true;
    QTest::newRow("not yet") << "when=9" << done << true;
    QTest::newRow("delay") << "when=3,answer=Delay" << QStringList{"done", "done", "held done", "done"}
                           << false;
}

void tst_command_log::faults()
{
    QFETCH(QString, fault);
    FakeCore core;
    FaultInjector injector(core);
    QString held;
    injector.hold = [&held](int milliseconds) { held = milliseconds == 2000 ? "held " : "?"; };
    injector.arm(faultOf(faultOf(qPrintable(fault)).text().toUtf8()));
    QStringList answers;
    for (const char* const parameter : {"LogicalMode", "Other", "LogicalMode", "Other"}) {
        const QString answer = answerTo(injector, parameter);
        answers << std::exchange(held, QString()) + answer;
    }
    QTEST(answers, "answers");
    QTEST(injector.plan().isArmed(), "staysArmed");
    injector.disarm();
    QCOMPARE(answerTo(injector, "LogicalMode"), "done");
}

// The first that is due answers; the others strike the commands that follow.
void tst_command_log::severalFaults()
{
    FakeCore core;
    FaultInjector injector(core);
    for (const char* const fault : {"answer=Failed", "answer=Exception", "when=2,answer=NothingChanged"}) {
        injector.arm(faultOf(fault));
    }
    QStringList answers;
    for (int i = 0; i < 4; ++i) {
        answers << answerTo(injector, "LogicalMode");
    }
    QCOMPARE(answers, QStringList({"failed", "thrown", "unchanged", "done"}));
    QVERIFY(!injector.plan().isArmed());
}

void tst_command_log::refusedFaults_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("kind=Nothing") << "SetBinaryData";
    QTest::newRow("kind") << "SetBinaryData";
    QTest::newRow("when=0") << "when";
    QTest::newRow("when=often") << "when";
    QTest::newRow("answer=Success") << "NothingChanged";
    QTest::newRow("what=ever") << "parts";
}

void tst_command_log::refusedFaults()
{
    QFETCH(QString, word);
    QString error;
    QVERIFY(!FaultPlan::parse(QTest::currentDataTag(), &error));
    QVERIFY2(error.contains(word) && error.contains(QTest::currentDataTag()), qPrintable(error));
}

// Views ask for the data of no item too, as on Ctrl+C in an empty table.
void tst_command_log::models()
{
    QString error;
    const auto flow = Flow::load(QStringLiteral(SAMPLE_FLOW), &error);
    QVERIFY2(flow, qPrintable(error));
    const Flow noFlow;
    FlowModuleModel modules(*flow);
    FlowModuleModel noModules(noFlow);
    InspectionTableModel inspection;
    ResultModel results;
    CommandLogModel commands;
    QAbstractItemModel* const all[] = {&modules, &noModules, &inspection, &results, &commands};
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
    for (QAbstractItemModel* const model : all) {
        testers.push_back(std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest));
        QVERIFY(!model->data({}).isValid());
    }
    QCOMPARE(modules.rowCount(), 5);
    inspection.setRows({"Name"}, {{{"int0"}, "remark"}});
    results.begin({{"int0", "note"}});
    results.append({{2, true, {{}}}});
    commands.append(QVector<CommandEntry>(2));
    inspection.setRows({"Name"}, {});
    commands.clear();
}

QTEST_MAIN(tst_command_log)
#include "tst_command_log.moc"
