#include "ConditionsFile.h"
#include "CoreSession.h"
#include "HostApplication.h"
#include "PanelFixture.h"
#include "QIfModuleMainView.h"
#include "UndoHistory.h"
#include "inspector/InspectorView.h"
#include "inspector/ShownConditions.h"
#include "inspector/StoredStatus.h"
#include "run/RunDock.h"

#include <QAction>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace ZelCore;

namespace {

ModuleConfiguration storing(const QByteArray& ifText)
{
    ModuleConfiguration configuration;
    configuration.binaryData["IFText"] = ifText;
    return configuration;
}

// A panel over the core of the workbench, and what follows it.
struct Fixture
{
    Fixture()
    {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(panel);
        layout->addWidget(&status);
        module.set(7, panel);
        window.show();
    }
    ~Fixture() { status.setParent(nullptr); }

    static std::unique_ptr<EmbeddedCore> open(const QString& store)
    {
        QString error;
        return EmbeddedCore::open(Flow::load(QStringLiteral(SAMPLE_FLOW), &error).value(), store, &error);
    }
    void press(const QString& name) const
    {
        QTest::mouseClick(
            panel->findChildren<QPushButton*>(name.section(' ', 0, 0)).value(name.section(' ', 1).toInt()),
            Qt::LeftButton);
    }
    ModuleConfiguration configuration()
    {
        module.refresh();
        return *module.configuration();
    }
    QString text()
    {
        module.refresh();
        return status.text();
    }

    QTemporaryDir folder;
    CoreSession session{QStringLiteral(SAMPLE_FLOW), open(folder.filePath("store.sqlite"))};
    CurrentModule module{session};
    StoredStatus status{module};
    UndoHistory history{module};
    QWidget window;
    QIfModuleMainView* panel = new QIfModuleMainView(7, &window);
};

} // namespace

/// What the workbench shows of the store beside a panel.
class tst_inspection : public QObject
{
    Q_OBJECT

private slots:
    void states();
    void liveRow();
    void longTexts();
    void whatAPanelShows();
    void refusedSaves();
    void undo();
    void run();
    void percentiles();
};

// Of a stored list beside the conditions "int0" from 1 to 5.9 and "float0" from 0.5 to 2.25 in a panel.
void tst_inspection::states()
{
    const QList<ConditionRecord> shown = {{"int0", 1.0, 5.9, "a"}, {"float0", 0.5, 2.25, "b"}};
    const QString bounds = "stored minimum is 0, shown 1; stored maximum is 6, shown 5";
    const QString maximum = "stored maximum is 2.251, shown 2.250";
    const QString noteOfInt = "stored note is \"\", shown \"a\"";
    const QString missing = "shown, but not stored";
    const std::tuple<QByteArray, QStringList, QStringList> rows[] = {
        {"%int0%:1:5:a;%float0%:0.500:2.250:b;", {"stored", "stored"}, {}},
        {"0", {missing, missing}, {"int0 is not stored", "float0 is not stored"}},
        {"%int0%:0:6:a;%float0%:0.500:2.251:b;",
         {bounds, maximum},
         {"int0 is not stored: " + bounds, "float0 is not stored: " + maximum}},
        {"%int0%:1:5:;%float0%:0.500:2.250:b;", {noteOfInt, "stored"}, {"int0 is not stored: " + noteOfInt}},
        {"%int0%:1:5:a;%float0%:0.500:2.250:b;%int1%:1:2:;",
         {"stored", "stored", "stored, but not shown"},
         {"int1 is not shown, but still stored"}},
        {"%int0%:1:5:a;%float0%:0.500:2.250:",
         {"stored", "cut by the length rule"},
         {"float0 is not stored: stored note is \"\", shown \"b\""}}};
    const int column = ModuleInspection::conditionColumns().indexOf("State");
    for (const auto& [stored, expected, sentences] : rows) {
        QStringList states;
        for (const auto& row : ModuleInspection::conditions(storing(stored), &shown)) {
            states << row.cells.at(column);
            QCOMPARE(row.remark, states.last() == "stored" ? QString() : states.last());
        }
        QCOMPARE(states, expected);
        QCOMPARE(ModuleInspection::differences(storing(stored), shown), sentences);
    }
}

void tst_inspection::liveRow()
{
    ModuleConfiguration configuration = storing("%float0%:1.000:2.000:a;%int0%:1:5:;%int1%:1:5:;");
    configuration.bindings = {{{7, SUBSCRIBE_TYPE_IO, "%float0%"}, "5.Radius", 2.5, {}, {}},
                              {{7, SUBSCRIBE_TYPE_IO, "%int0%"}, "5.Count", 7, {}, {}},
                              {{7, SUBSCRIBE_TYPE_RUNPARAM, "%int0%End"}, "5.Limit", 8, {}, {}}};
    configuration.uiData["@%int0%End"] = QByteArray("True", 5);
    const auto rows = ModuleInspection::conditions(configuration, nullptr);
    QCOMPARE(rows[0].cells, QStringList({"float0", "5.Radius", "2.5", "1", "2", "out", "stored", "a"}));
    QCOMPARE(rows[1].cells, QStringList({"int0", "5.Count", "7", "1", "8 (5.Limit)", "in", "stored", ""}));
    QCOMPARE(rows[2].cells, QStringList({"int1", "", "", "1", "5", "not bound", "stored", ""}));
    QVERIFY(rows[0].colour.red() > 100 && rows[1].colour.green() > 100);

    // The chosen row of a run instead.
    const QVector<Judgement::Result> results(3, {Judgement::Outcome::In, 1.5, 1.0, 2.0, {}});
    QCOMPARE(ModuleInspection::conditions(configuration, nullptr, results)[0].cells[2], "1.5");
}

void tst_inspection::longTexts()
{
    Fixture f;
    InspectorView view(f.module);
    view.show();
    const QByteArray list = "%int0%:1:5:" + QByteArray(200000, 'n') + ';';
    SetBinaryDataCommand command(7, "IFText", list.constData(), static_cast<UInt>(list.size()));
    QCOMPARE(f.session.tap().Execute(command).Status, Success);
    f.module.refresh();
    const QString shown = view.findChild<QPlainTextEdit*>("inspectorBytes")->toPlainText();
    QVERIFY2(shown.size() < 4200 && shown.endsWith("nnn... (200012 bytes)"), qPrintable(shown.right(40)));
}

void tst_inspection::whatAPanelShows()
{
    PanelFixture<QIfModuleMainView> f;
    f.show("%int0%:1:5:a;%other%:0:0:x;%float0%:0.500:2.250:b;%int1%:3:4:;");
    f.at<QPushButton>("m_btnDelete")->click();
    f.add("int");
    QCOMPARE(ConditionRecord::toText(ShownConditions::read(*f.panel)),
             "%other%:0:0:x;%float0%:0.500:2.250:b;%int1%:3:4:;%int0%:1:1000:;");
}

// The line stays until a later save succeeds.
void tst_inspection::refusedSaves()
{
    struct
    {
        const char* fault;
        const char* button; // pressed while the fault is armed
        const char* text;
        const char* further; // pressed when it is not
    } const rows[] = {
        {"kind=SetBinaryData,message=disk full", "btn_add", "not stored: disk full\nint1 is not stored",
         "btn_add"},
        {"kind=SetBinaryData,answer=Exception,message=gone", "m_btnDelete",
         "not stored: gone\nint0 is not shown, but still stored", "btn_add"},
        {"kind=SetBinaryData", "btn_add", "not stored: SetBinaryData\nint1 is not stored", "btn_add"},
        {"kind=AddIO,message=no IO", "btn_add", "%int1% is not stored: no IO\nint1 is not stored",
         "m_btnDelete 1"},
        {"kind=SetUIData,message=disk full", "m_btnMinSwitch", "not stored: disk full", "m_btnMinSwitch"}};
    for (const auto& row : rows) {
        Fixture f;
        f.press("btn_add");
        QVERIFY2(f.text().startsWith("All is stored"), qPrintable(f.text()));
        QString error;
        f.session.faults().arm(FaultPlan::parse(row.fault, &error).value());
        f.press(row.button);
        QCOMPARE(f.text(), row.text);
        f.press(row.further);
        QVERIFY2(f.text().startsWith("All is stored"), qPrintable(row.fault + f.text()));
    }
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
    QString error;
    QVector<ModuleConfiguration> before = {f.configuration()};
    bind(SUBSCRIBE_TYPE_IO, "%int0%", "5.ObjectNumber");
    for (const char* const button :
         {"m_btnMinSwitch", "btn_add", "m_btnMaxSwitch", "m_btnDelete", "btn_add"}) {
        before << f.configuration();
        f.press(button);
    }
    while (!before.isEmpty()) {
        f.panel->hide();
        QVERIFY2(f.history.undo(&error), qPrintable(error));
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
    const auto textOf = [&dock](const char* label) { return dock.findChild<QLabel*>(label)->text(); };
    dock.runActions().last()->trigger();
    QTRY_VERIFY(textOf("runTotals").startsWith("569 rows, no conditions"));

    QString error;
    QVERIFY2(ConditionsFile::import(QStringLiteral(SAMPLE_CONDITIONS), f.session.core(), 7, &error),
             qPrintable(error));
    f.module.refresh();
    QVERIFY(textOf("runTotals").contains("outdated"));
    dock.runActions().last()->trigger();
    QTRY_VERIFY(textOf("runTotals").contains("322 OK, 247 not OK") &&
                textOf("runTotals").contains("no further rows"));
    dock.findChild<QCheckBox*>("onlyNotOk")->click();
    const auto* const rows = dock.findChild<QTableView*>("resultTable")->model();
    QCOMPARE(rows->rowCount(), 247);
    QCOMPARE(rows->headerData(2, Qt::Horizontal).toString(), "float0  radius\n5.Mean.Radius");
    QCOMPARE(rows->index(4, 0).data().toInt(), 5);
    QCOMPARE(textOf("statistics"), "minimum 6.981, 1 % 8.571, median 13.37, 99 % 24.25, maximum 28.11");

    // A pipe without a writer must not stop the window.
    const QString pipe = f.folder.filePath("pipe.csv");
    QCOMPARE(mkfifo(pipe.toLocal8Bit(), 0600), 0);
    auto* const source = dock.findChild<QComboBox*>("sourceBox");
    source->addItem("pipe.csv", pipe);
    source->setCurrentIndex(source->count() - 1);
    dock.runActions().last()->trigger();
    QCOMPARE(textOf("runProblem"), pipe + " is not a regular file.");
}

void tst_inspection::percentiles()
{
    ValueSample values;
    for (int i = 0; i < 1000000; ++i) {
        values.add(double(i));
    }
    for (const double part : {0.01, 0.5, 0.99}) {
        QVERIFY(std::abs(values.quantile(part) / 1e6 - part) < 0.005);
    }
}

HOST_TEST_MAIN(tst_inspection)
#include "tst_inspection.moc"
