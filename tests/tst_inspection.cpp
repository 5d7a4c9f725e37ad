#include "ConditionsFile.h"
#include "CoreSession.h"
#include "HostApplication.h"
#include "MainWindow.h"
#include "PanelPlugin.h"
#include "PanelTour.h"
#include "UndoHistory.h"
#include "WorkbenchSettings.h"
#include "commands/CommandLogView.h"
#include "inspector/InspectionTableModel.h"
#include "inspector/InspectorView.h"
#include "inspector/ShownConditions.h"
#include "inspector/StoredStatus.h"
#include "run/RunDock.h"

#include <QAbstractItemModelTester>

#include <sys/stat.h>

using namespace ZelCore;

namespace {

ModuleConfiguration storing(const QByteArray& ifText)
{
    ModuleConfiguration configuration;
    configuration.binaryData["IFText"] = ifText;
    return configuration;
}

Fault faultOf(const QString& text)
{
    QString error;
    return FaultPlan::parse(text, &error).value();
}

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

// A panel over the core of the workbench, and what follows it.
struct Fixture
{
    Fixture()
    {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(panel);
        layout->addWidget(status);
        module.set(7, panel);
        window.show();
    }
    // The n-th button of a name, "m_btnDelete 1".
    void press(const QString& button) const
    {
        const auto buttons = panel->findChildren<QPushButton*>(button.section(' ', 0, 0));
        QTest::mouseClick(buttons.at(button.section(' ', 1).toInt()), Qt::LeftButton);
    }
    ModuleConfiguration configuration()
    {
        module.refresh();
        return *module.configuration();
    }
    QString text()
    {
        module.refresh();
        return status->text();
    }

    QTemporaryDir folder;
    QString error;
    CoreSession session{SAMPLE_FLOW, EmbeddedCore::open(Flow::load(SAMPLE_FLOW, &error).value(),
                                                        folder.filePath("store.sqlite"), &error)};
    CurrentModule module{session};
    UndoHistory history{module};
    QWidget window;
    StoredStatus* status = new StoredStatus{module};
    QIfModuleMainView* panel = new QIfModuleMainView(7, &window);
};

} // namespace

/// What the workbench shows of the store and of the commands, in addition to a panel.
class tst_inspection : public QObject
{
    Q_OBJECT

private slots:
    void conditionTable();
    void whatAPanelShows();
    void unstoredEdits();
    void undo();
    void run();
    void percentiles();
    void log();
    void models();
    void faults();
    void drops();
};

// The states of stored lists while a panel shows "int0" from 1 to 5.9 and "float0" from 0.5 to 2.25.
void tst_inspection::conditionTable()
{
    const QList<ConditionRecord> shown = {{"int0", 1.0, 5.9, "a"}, {"float0", 0.5, 2.25, "b"}};
    const QString bounds = "stored minimum is 0, shown 1; stored maximum is 6, shown 5";
    const QString missing = "shown, but not stored";
    const std::pair<QByteArray, QStringList> rows[] = {
        {"%int0%:1:5:a;%float0%:0.500:2.250:b;", {"stored", "stored"}},
        {"0", {missing, missing}},
        {"%int0%:0:6:a;%float0%:0.500:2.251:b;", {bounds, "stored maximum is 2.251, shown 2.250"}},
        {"%int0%:1:5:;%float0%:0.500:2.250:b;", {"stored note is \"\", shown \"a\"", "stored"}},
        {"%float0%:0.500:2.250:b;%int1%:1:2:;", {"stored", "stored, but not shown", missing}},
        {"%int0%:1:5:a;%float0%:0.500:2.250:", {"stored", "cut by the length rule"}}};
    for (const auto& [stored, expected] : rows) {
        QStringList states;
        const auto table = ModuleInspection::conditions(storing(stored), &shown);
        for (const auto& row : table.rows) {
            states << row.cells.at(table.columns.indexOf("State"));
            QCOMPARE(row.remark, states.last() == "stored" ? QString() : states.last());
        }
        QCOMPARE(states, expected);
    }
    const auto stored = storing("%int0%:0:6:a;%int1%:1:2:;");
    QCOMPARE(ModuleInspection::differences(stored, shown),
             QStringList({"int0 is not stored: " + bounds, "int1 is not shown, but still stored",
                          "float0 is not stored"}));
    // Live values, and bounds that are bound to values of the flow.
    ModuleConfiguration configuration = storing("%float0%:1.000:2.000:a;%int0%:1:5:;%int1%:1:5:;");
    configuration.bindings = {{{7, SUBSCRIBE_TYPE_IO, "%float0%"}, "5.Radius", 2.5, {}, {}},
                              {{7, SUBSCRIBE_TYPE_IO, "%int0%"}, "5.Count", 7, {}, {}},
                              {{7, SUBSCRIBE_TYPE_RUNPARAM, "%int0%End"}, "5.Limit", 8, {}, {}}};
    configuration.uiData["@%int0%End"] = QByteArray("True", 5);
    const auto live = ModuleInspection::conditions(configuration, nullptr).rows;
    QCOMPARE(live[0].cells, QStringList({"float0", "5.Radius", "2.5", "1", "2", "out", "stored", "a"}));
    QCOMPARE(live[1].cells, QStringList({"int0", "5.Count", "7", "1", "8 (5.Limit)", "in", "stored", ""}));
    QCOMPARE(live[2].cells, QStringList({"int1", "", "", "1", "5", "not bound", "stored", ""}));
    QVERIFY(live[0].colour.red() > 100 && live[1].colour.green() > 100);
}

void tst_inspection::whatAPanelShows()
{
    PanelTour f;
    f.show("%int0%:1:5:a;%other%:0:0:x;%float0%:0.500:2.250:b;%int1%:3:4:;");
    f.perform("click m_btnDelete");
    f.perform("click btn_add");
    QCOMPARE(ConditionRecord::toText(ShownConditions::read(*f.panel)),
             "%other%:0:0:x;%float0%:0.500:2.250:b;%int1%:3:4:;%int0%:1:1000:;");
}

// The line that a fault causes when a button is pressed stays until a later save succeeds.
void tst_inspection::unstoredEdits()
{
    const std::tuple<QString, QString, QString, QString> rows[] = {
        {"kind=SetBinaryData,message=full", "btn_add", "not stored: full\nint1 is not stored", "btn_add"},
        {"kind=SetBinaryData,answer=Exception,message=gone", "m_btnDelete",
         "not stored: gone\nint0 is not shown, but still stored", "btn_add"},
        {"kind=SetBinaryData", "btn_add", "not stored: SetBinaryData\nint1 is not stored", "btn_add"},
        {"kind=AddIO,message=no", "btn_add", "%int1% is not stored: no\nint1 is not stored", "m_btnDelete 1"},
        {"kind=SetUIData,message=full", "m_btnMinSwitch", "not stored: full", "m_btnMinSwitch"}};
    for (const auto& [fault, button, text, further] : rows) {
        Fixture f;
        f.press("btn_add");
        QVERIFY2(f.text().startsWith("All is stored"), qPrintable(f.text()));
        f.session.faults().arm(faultOf(fault));
        f.press(button);
        QCOMPARE(f.text(), text);
        f.press(further);
        QVERIFY2(f.text().startsWith("All is stored"), qPrintable(fault + f.text()));
    }
    // An edit is reported before it is finished, too.
    Fixture f;
    f.press("btn_add");
    QTest::keyClicks(f.panel->findChild<QLineEdit*>("m_ediNote"), "a");
    QTRY_COMPARE(f.status->text(), R"(int0 is not stored: stored note is "", shown "a")");
}

// Conditions, bindings and bound sources are as before the change, and shown again.
void tst_inspection::undo()
{
    Fixture f;
    f.press("btn_add");
    f.press("m_btnMaxSwitch");
    const auto bind = [&f](ENUM_IO_SUBSCRIBE_TYPE_ type, const char* key, const char* source) {
        SetFilterSourceCommand command({7, type, key}, source);
        QCOMPARE(f.session.tap().Execute(command).Status, Success);
    };
    bind(SUBSCRIBE_TYPE_IO, "%int0%", "5.ObjectCount");
    bind(SUBSCRIBE_TYPE_RUNPARAM, "%int0%End", "5.ObjectCount");
    QVector<ModuleConfiguration> before = {f.configuration()};
    bind(SUBSCRIBE_TYPE_IO, "%int0%", "5.ObjectNumber");
    for (const QString button : {"m_btnMinSwitch", "btn_add", "m_btnMaxSwitch", "m_btnDelete", "btn_add"}) {
        before << f.configuration();
        f.press(button);
    }
    while (!before.isEmpty()) {
        f.panel->hide();
        QVERIFY2(f.history.undo(&f.error), qPrintable(f.error));
        f.panel->show();
        QVERIFY(ModuleInspection::judgeAlike(f.configuration(), before.takeLast()));
        QVERIFY2(f.text().startsWith("All is stored"), qPrintable(f.text()));
    }
    QCOMPARE(f.configuration().binding(SUBSCRIBE_TYPE_IO, "%int0%")->source, "5.ObjectCount");
}

void tst_inspection::run()
{
    Fixture f;
    RunDock dock(f.module);
    InspectorView inspector(f.module);
    connect(&dock, &RunDock::resultsChosen, &inspector, &InspectorView::setResults);
    inspector.show();
    const auto textOf = [&dock](const char* label) { return dock.findChild<QLabel*>(label)->text(); };
    dock.runActions().last()->trigger();
    QTRY_VERIFY(textOf("runTotals").startsWith("569 rows, no conditions"));

    QVERIFY2(ConditionsFile::import(SAMPLE_CONDITIONS, f.session.core(), 7, &f.error), qPrintable(f.error));
    f.module.refresh();
    QVERIFY(textOf("runTotals").contains("outdated"));
    dock.runActions().last()->trigger();
    QTRY_VERIFY(textOf("runTotals").endsWith("322 OK, 247 not OK, pass rate 56.6 %; no further rows"));
    QCOMPARE(textOf("statistics"), "minimum 6.981, 1 % 8.571, median 13.37, 99 % 24.25, maximum 28.11");

    // The fifth that is not OK, copied and inspected.
    dock.findChild<QCheckBox*>("onlyNotOk")->click();
    auto* const table = dock.findChild<QTableView*>("resultTable");
    QCOMPARE(table->model()->rowCount(), 247);
    table->selectRow(4);
    table->actions().first()->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(),
             "Row\tResult\tfloat0 radius 5.Mean.Radius\tfloat1 texture 5.Mean.Texture\t"
             "float2 concave points 5.Mean.ConcavePoints\n"
             "5\tnot OK\t20.29 is above 15.5\t14.34 is within 9 to 25\t0.1043 is above 0.055");
    auto* const conditions = inspector.findChild<QTableView*>("conditionTable")->model();
    for (const auto* model : QVector<QAbstractItemModel*>{table->model(), conditions}) {
        QVERIFY(!model->data({}, Qt::DisplayRole).isValid()); // Ctrl+C with no current item
    }
    QCOMPARE(conditions->index(0, 2).data().toString(), "20.29");
    const QPersistentModelIndex third = conditions->index(2, 0);

    // A pipe without a writer must not stop the window.
    const QString pipe = f.folder.filePath("pipe.csv");
    QCOMPARE(mkfifo(pipe.toLocal8Bit(), 0600), 0);
    dock.findChild<QComboBox*>("sourceBox")->setItemData(1, pipe);
    dock.runActions().last()->trigger();
    QCOMPARE(textOf("runProblem"), pipe + " is not a regular file.");

    // A list that is too long to be shown, cut between two characters.
    const QByteArray list = "%int0%:1:5:" + QByteArray("孔").repeated(70000) + ';';
    SetBinaryDataCommand command(7, "IFText", list.constData(), static_cast<UInt>(list.size()));
    QCOMPARE(f.session.tap().Execute(command).Status, Success);
    f.module.refresh();
    const QString shown = inspector.findChild<QPlainTextEdit*>("inspectorBytes")->toPlainText();
    QCOMPARE(shown, "%int0%:1:5:" + QString("孔").repeated((4096 - 11) / 3) + "... (210012 bytes)");
    QVERIFY(!third.isValid());
}

void tst_inspection::percentiles()
{
    ValueSample values;
    for (int i = 0; i < 1000000; ++i) {
        values.add(double(i));
    }
    QVERIFY(std::abs(values.quantile(0.99) - 990000) < 5000);
}

void tst_inspection::log()
{
    FakeCore core;
    FaultInjector faults(core);
    CommandTap tap(faults);
    CommandLogView view(tap);
    answerTo(tap, "LogicalMode", "1");
    view.show();
    answerTo(tap, "LogicalMode", "2");
    faults.arm(faultOf("answer=Exception,message=磁盘 full"));
    QCOMPARE(answerTo(tap, "LogicalMode", "3\n"), "thrown");
    view.findChild<QPushButton*>()->click(); // pause
    answerTo(tap, "LogicalMode", "4");

    const auto* const rows = qobject_cast<QSortFilterProxyModel*>(view.findChild<QTableView*>()->model());
    QTRY_COMPARE(rows->rowCount(), 2);
    const QString last = static_cast<CommandLogModel*>(rows->sourceModel())->jsonOf(1);
    QVERIFY2(last.startsWith(R"({"content":"3\\u000a","kind":"SetRunParam","message":"磁盘 full",)") &&
                 last.contains(R"("module":7,"number":3,"parameter":"LogicalMode","status":"Exception",)"),
             qPrintable(last));
    // Only a command that went wrong has a colour.
    const std::tuple<const char*, CommandStatus, const char*, bool> cases[] = {
        {"SetBinaryData", Failed, "disk full", true},
        {"SetRunParam", NothingChanged, "", true},
        {"GetFilterSource", NothingChanged, "", false},
        {"QueryUIData", Failed, "no parameter @%int0%Start", false}, // never switched
        {"QueryUIData", Failed, "disk I/O error", true},
        {"QueryBinaryData", Failed, "no parameter @%int0%Start", true}};
    for (const auto& [kind, status, message, isColoured] : cases) {
        CommandLogModel model;
        model.append({{1, {}, {kind, {}, "@%int0%Start", {}}, status, message}});
        QVERIFY2(model.index(0, 0).data(Qt::ForegroundRole).isValid() == isColoured, kind);
    }
}

// Empty, filled and emptied again, and for an index that does not exist, as a view that copies its current
// one has.
void tst_inspection::models()
{
    CommandLogModel log;
    InspectionTableModel table;
    ResultModel results;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
    for (QAbstractItemModel* const model :
         std::initializer_list<QAbstractItemModel*>{&log, &table, &results}) {
        testers.push_back(std::make_unique<QAbstractItemModelTester>(model));
        QVERIFY(!model->data({}, Qt::DisplayRole).isValid());
    }
    int number = 0;
    for (const int batch : {1, CommandLogModel::capacity - 1, 3, 2 * CommandLogModel::capacity}) {
        QVector<CommandEntry> entries(batch);
        entries.last().number = number += batch;
        log.append(entries);
        QCOMPARE(log.rowCount(), qMin(number, CommandLogModel::capacity));
        QCOMPARE(log.index(log.rowCount() - 1, 0).data().toInt(), number);
    }
    table.setTable({{"Name", "Value"}, {{{"a", "1"}}}});
    results.begin({"float0"});
    results.append({{1, 2, false, QVector<Judgement::Result>(1)}});
    QVERIFY(table.rowCount() == 1 && results.columnCount() == 3);
    log.clear();
    table.setTable({});
    results.begin({});
    QVERIFY(log.rowCount() == 0 && table.columnCount() == 0 && results.rowCount() == 0);
}

// The armed faults, the answers to LogicalMode and Other in turn, and whether a fault stays armed.
void tst_inspection::faults()
{
    const std::tuple<QStringList, QString, bool> rows[] = {
        {{""}, "failed done done done", false},
        {{"when=2,answer=NothingChanged"}, "done unchanged done done", false},
        {{"when=every,answer=Exception"}, "thrown thrown thrown thrown", true},
        {{"kind=SetRunParam,parameter=Other,when=2"}, "done done done failed", false},
        {{"kind=AddIO"}, "done done done done", true},
        {{"when=3,answer=Delay"}, "done done held 2000 done done", false},
        // The first that is due answers, the others strike the commands that follow.
        {{"", "answer=Exception", "when=2,answer=NothingChanged"}, "failed thrown unchanged done", false}};
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

// A dropped flow file replaces the open flow, but not while a dialog of the window waits for an answer.
void tst_inspection::drops()
{
    Fixture f;
    const auto plugin =
        PanelPlugin::load(QCoreApplication::applicationDirPath() + "/../lib/libQIfModule.so", &f.error);
    QVERIFY2(plugin, qPrintable(f.error));
    WorkbenchSettings settings;
    MainWindow window(f.session, *plugin, settings);
    const QSignalSpy chosen(&window, &MainWindow::flowChosen);
    const auto drop = [&](const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent event({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
        return enter.isAccepted() && event.isAccepted();
    };
    const QUrl flow("file:///a/flow.JSON");
    QVERIFY(!drop({}) && !drop({QUrl("file:///a/samples.csv")}) && !drop({QUrl("http://a/flow.json")}) &&
            !drop({flow, flow}));
    {
        QDialog dialog(&window);
        dialog.setModal(true);
        dialog.show();
        QVERIFY(!drop({flow}));
    }
    QCOMPARE(chosen.count(), 0);
    QVERIFY(drop({flow}));
    QCOMPARE(chosen.value(0), QVariantList{"/a/flow.JSON"});
}

HOST_TEST_MAIN(tst_inspection)
#include "tst_inspection.moc"
