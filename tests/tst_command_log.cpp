#include "FakeCore.h"
#include "FlowModuleModel.h"
#include "TabSeparated.h"
#include "commands/CommandLogView.h"
#include "faults/FaultInjector.h"
#include "inspector/InspectionTableModel.h"
#include "run/ResultModel.h"

#include <QAbstractItemModelTester>
#include <QJsonDocument>
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

Fault faultOf(const QString& text)
{
    QString error;
    return FaultPlan::parse(text, &error).value();
}

} // namespace

/// What lies between panel and core, and the models of the workbench's views.
class tst_command_log : public QObject
{
    Q_OBJECT

private slots:
    void log();
    void longestLog();
    void colours();
    void content();
    void faults();
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
    view.findChild<QPushButton*>()->click(); // pause
    answerTo(tap, "LogicalMode", "4");
    QCOMPARE(executed, 4);

    const auto* const rows = qobject_cast<QSortFilterProxyModel*>(view.findChild<QTableView*>()->model());
    QTRY_COMPARE(rows->rowCount(), 2);
    const auto* const model = qobject_cast<CommandLogModel*>(rows->sourceModel());
    const QJsonDocument last = QJsonDocument::fromJson(model->jsonOf(1));
    QCOMPARE(last["number"].toInt(), 3);
    QCOMPARE(last["module"].toInt(), 7);
    QCOMPARE(last["content"].toString(), "3");
    QCOMPARE(last["status"].toString(), "Exception");
    QCOMPARE(last["message"].toString(), "磁盘 full");
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

// Only what is wrong has one.
void tst_command_log::colours()
{
    const std::tuple<const char*, CommandStatus, const char*, bool> cases[] = {
        {"SetBinaryData", Success, "", false},
        {"SetBinaryData", Failed, "disk full", true},
        {"SetRunParam", NothingChanged, "", true},
        {"GetFilterSource", NothingChanged, "", false},
        {"DeleteUIData", NothingChanged, "", false},
        {"QueryUIData", Failed, "no parameter @%int0%Start", false}, // never switched
        {"QueryUIData", Failed, "disk I/O error", true},
        {"QueryBinaryData", Failed, "no parameter @%int0%Start", true}};
    for (const auto& [kind, status, message, isColoured] : cases) {
        CommandEntry entry;
        entry.text.kind = kind;
        entry.text.parameter = "@%int0%Start";
        entry.status = status;
        entry.message = message;
        CommandLogModel model;
        model.append({entry});
        QVERIFY2(model.index(0, 0).data(Qt::ForegroundRole).isValid() == isColoured, kind);
    }
}

void tst_command_log::content()
{
    for (const auto& [data, content] : {std::pair(QByteArray("a\0\n", 3), "a\\0\\u000a"),
                                        {"0123456789", "0123456789"},
                                        {"01234567890", "0123456789... (11 bytes)"},
                                        {"01234567孔孔", "01234567... (14 bytes)"},
                                        {"", ""}}) {
        auto length = static_cast<UInt>(data.size());
        SetUIDataCommand command(7, "@%int0%Start", data.constData(), length);
        QCOMPARE(CommandText::of(command, 10).content, content);
    }
}

// Of faults, what LogicalMode and Other are answered in turn, and whether one stays armed.
void tst_command_log::faults()
{
    const std::tuple<QStringList, QString, bool> rows[] = {
        {{""}, "failed done done done", false},
        {{"when=2,answer=NothingChanged"}, "done unchanged done done", false},
        {{"when=every,answer=Exception"}, "thrown thrown thrown thrown", true},
        {{"kind=SetRunParam,parameter=Other,when=2"}, "done done done failed", false},
        {{"kind=AddIO"}, "done done done done", true},
        {{"when=3,answer=Delay"}, "done done held 2000 done done", false},
        // The first that is due answers, the others strike the commands that follow.
        {{"answer=Failed", "answer=Exception", "when=2,answer=NothingChanged"},
         "failed thrown unchanged done",
         false}};
    for (const auto& [faults, expected, stayArmed] : rows) {
        FakeCore core;
        FaultInjector injector(core);
        QStringList answers;
        injector.hold = [&answers](int milliseconds) { answers << "held" << QString::number(milliseconds); };
        for (const QString& fault : faults) {
            injector.arm(faultOf(faultOf(fault).text()));
        }
        for (const char* const parameter : {"LogicalMode", "Other", "LogicalMode", "Other"}) {
            answers << answerTo(injector, parameter);
        }
        QCOMPARE(answers.join(' '), expected);
        QCOMPARE(injector.plan().isArmed(), stayArmed);
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
}

// Views ask for the data of no item too, as on Ctrl+C in an empty table.
void tst_command_log::models()
{
    QString error;
    const Flow flow = Flow::load(QStringLiteral(SAMPLE_FLOW), &error).value();
    const Flow noFlow;
    FlowModuleModel modules(flow);
    FlowModuleModel noModules(noFlow);
    InspectionTableModel inspection;
    ResultModel results;
    CommandLogModel commands;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
    for (QAbstractItemModel* const model :
         std::initializer_list<QAbstractItemModel*>{&modules, &noModules, &inspection, &results, &commands}) {
        testers.push_back(std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest));
        QVERIFY(!model->data({}).isValid());
    }
    inspection.setRows({"Name"}, {{{"int0"}, "remark"}});
    results.begin({"int0"});
    results.append({{1, 2, true, {{}}}});
    QCOMPARE(TabSeparated::textOf(results, {results.index(0, 0)}, true), "Row\tResult\tint0\n1\tOK\t");
    commands.append(QVector<CommandEntry>(2));
    inspection.setRows({"Name"}, {});
    commands.clear();
}

QTEST_MAIN(tst_command_log)
#include "tst_command_log.moc"
