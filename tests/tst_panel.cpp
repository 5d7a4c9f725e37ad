#include "LogCapture.h"
#include "PanelFixture.h"
#include "QIfModuleMainView.h"

#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>

#include <QAbstractItemView>
#include <QLabel>
#include <QScrollArea>
#include <QSignalSpy>
#include <QToolButton>
#include <QTranslator>

using namespace ZelCore;
using Fixture = PanelFixture<QIfModuleMainView>;

namespace {

QStringList loadOf(const QStringList& names)
{
    QStringList commands("QueryBinaryData 7 IFText");
    for (const QString& name : names) {
        commands << QStringLiteral("QueryUIData 7 @%%1%Start").arg(name)
                 << QStringLiteral("QueryUIData 7 @%%1%End").arg(name)
                 << QStringLiteral("GetFilterSource 7 1/%%1%").arg(name);
    }
    return commands << QStringLiteral("QueryRunParam 7 LogicalMode");
}

// Fails every command whose line begins so.
std::function<std::optional<CommandResult>(int, const QString&)> failing(const QString& beginning)
{
    return [beginning](int, const QString& line) {
        return line.startsWith(beginning) ? std::optional(CommandResult(NothingChanged, "没有"))
                                          : std::nullopt;
    };
}

QStringList namesOf(const Fixture& f)
{
    QStringList names;
    for (const QLabel* const label : f.all<QLabel>("m_labName")) {
        names << label->text();
    }
    return names;
}

} // namespace

class tst_panel : public QObject
{
    Q_OBJECT

private slots:
    void form();
    void showingLoads();
    void loadLog();
    void loadFailures_data();
    void loadFailures();
    void storedMode_data();
    void storedMode();
    void adding();
    void addingBeyondTheLimit();
    void addingWhenIosAreRefused_data();
    void addingWhenIosAreRefused();
    void everyEditStoresTheWholeList();
    void failedSaveIsLogged();
    void modeIsStored();
    void unknownTypeWord();
    void bindingTheInput();
    void refusedBinding_data();
    void refusedBinding();
    void deleting_data();
    void deleting();
    void deletingLog();
    void deletingInAnyState_data();
    void deletingInAnyState();
    void enterInAHostsDialogAddsAndDeletesNothing();
    void destroyedInAnyState_data();
    void destroyedInAnyState();
    void destroyedUnderTheWarning();
    void withoutParent();
    void exceptionsLeaveTheSlot();
    void slotsAndTexts();
};

void tst_panel::form()
{
    Fixture f;
    QCOMPARE(f.core.takeCommands(), QStringList());
    QCOMPARE(f.panel->objectName(), QStringLiteral("QIfModuleMainView"));
    QCOMPARE(f.at<QWidget>("widget")->minimumHeight(), 80);
    QCOMPARE(f.at<QWidget>("widget")->maximumHeight(), 80);
    QVERIFY(f.at<QScrollArea>("scrollArea")->widgetResizable());
    QCOMPARE(f.at<QVBoxLayout>("verL_infoList")->contentsMargins(), QMargins(0, 10, 0, 0));
    QCOMPARE(f.at<QComboBox>("cbox_determineType")->geometry(), QRect(40, 30, 181, 31));
    QVERIFY(f.at<QComboBox>("cbox_determineType")->view()->inherits("QListView"));
    for (const char* const name :
         {"lab_determineType", "lab_help", "lab_name", "lab_note", "lab_condition", "lab_effectRange",
          "btn_add", "scrollArea", "cbox_typeSelect", "cbox_determineType"}) {
        QVERIFY2(f.at<QWidget>(name)->styleSheet().contains(QLatin1String("QLabel#lab_help")), name);
    }
}

void tst_panel::showingLoads()
{
    Fixture f;
    f.show("%int0%:0:100:a;%float0%:0.500:2.250:孔;");
    QCOMPARE(namesOf(f), QStringList({"int0", "float0"}));
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMaxPullBar")->value(), 100.0);
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMinPullBar", 1)->value(), 0.5);
    QCOMPARE(f.at<QLineEdit>("m_ediNote", 1)->text(), QStringLiteral("孔"));
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMaxPullBar")->maximum(), 999999999.0);
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMaxPullBar", 1)->maximum(), 100000.0);

    // A focused note with unsaved text goes with its row and must not store half a list.
    typeInto(f.at<QLineEdit>("m_ediNote"), QStringLiteral("unsaved"));
    f.core.takeCommands();
    QShowEvent event;
    QApplication::sendEvent(f.panel, &event);
    QCOMPARE(f.core.takeCommands(), loadOf({"int0", "float0"}));
    QCOMPARE(namesOf(f), QStringList({"int0", "float0"}));

    f.core.binaryData[QStringLiteral("IFText")] = "0";
    f.panel->hide();
    f.panel->show();
    QCOMPARE(namesOf(f), QStringList());
}

void tst_panel::loadLog()
{
    Fixture f;
    f.show();
    f.core.binaryData[QStringLiteral("IFText")] = QByteArray("%int0%:7:x:;\0%int1%:1:2:;", 24);
    f.core.uiData = {{QStringLiteral("@%int0%Start"), "False"}, {QStringLiteral("@%int0%End"), "False"}};
    LogCapture log;
    f.panel->hide();
    f.panel->show();
    QCOMPARE(log.lines(),
             QStringList({"[QIfModuleMainView]: QueryIfModuleInfo IFText data=%int0%:7:x:;",
                          "get in InitRange", "int:[7]", "HorizontalControlIM SetCurrentMin min:[7]",
                          "HorizontalControlIM SetCurrentMax max:[0]",
                          "[QIfModuleMainView]: SetRangeSelect num trans failed."}));
    log.takeLines();
    f.core.binaryData[QStringLiteral("IFText")] = "%int0%:0.250:2:;";
    f.panel->hide();
    f.panel->show();
    QCOMPARE(log.lines().mid(2),
             QStringList({"float:[0.250]", "HorizontalControlIM SetCurrentMinD min:[0.25]",
                          "SetCurrentMinD min:[0.25]", "HorizontalControlIM SetCurrentMinD max:[2]",
                          "SetCurrentMaxD max:[2]"}));
    QCOMPARE(log.warnings(), QStringList());
}

void tst_panel::loadFailures_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<QString>("line");
    QTest::newRow("list") << "QueryBinaryData" << QStringList("QueryBinaryData 7 IFText")
                          << "[QIfModuleMainView]: QueryIfModuleInfo IFText id[7] failed. errmeg=没有";
    QTest::newRow("mode") << "QueryRunParam" << loadOf({"int0"})
                          << "[QIfModuleMainView]: QueryIfModuleInfo LogicalMode id[7] failed. errmeg=没有";
}

void tst_panel::loadFailures()
{
    QFETCH(QString, query);
    QFETCH(QString, line);
    Fixture f;
    f.core.runParams[QStringLiteral("LogicalMode")] = "2";
    f.show("%int0%:0:100:a;");
    f.core.runParams[QStringLiteral("LogicalMode")] = "1";
    f.core.fault = failing(query);
    LogCapture log;
    f.panel->hide();
    f.panel->show();
    QTEST(f.core.takeCommands(), "commands");
    QCOMPARE(log.lines().filter(QStringLiteral("errmeg=")), QStringList(line));
    QCOMPARE(namesOf(f), QStringList("int0"));
    QCOMPARE(f.at<QComboBox>("cbox_determineType")->currentIndex(), 1);
}

void tst_panel::storedMode_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("afterwards");
    QTest::newRow("all") << QByteArray("1") << 0 << QByteArray("1");
    QTest::newRow("any") << QByteArray("2") << 1 << QByteArray("2");
    QTest::newRow("zero") << QByteArray("0") << 1 << QByteArray("2");
    QTest::newRow("empty") << QByteArray("") << 1 << QByteArray("2");
    QTest::newRow("no number") << QByteArray("abc") << 1 << QByteArray("2");
    QTest::newRow("number and more") << QByteArray(" 1x") << 0 << QByteArray(" 1x");
}

void tst_panel::storedMode()
{
    QFETCH(QByteArray, stored);
    Fixture f;
    f.core.runParams[QStringLiteral("LogicalMode")] = stored;
    f.show();
    QTEST(f.at<QComboBox>("cbox_determineType")->currentIndex(), "index");
    QTEST(f.core.runParams.value(QStringLiteral("LogicalMode")), "afterwards");
}

void tst_panel::adding()
{
    Fixture f;
    f.show();
    LogCapture log;
    f.add("int");
    const QString flags = QStringLiteral("flags=01110101111");
    QCOMPARE(f.core.takeCommands(),
             QStringList(
                 {"QueryUIData 7 @%int0%Start", "QueryUIData 7 @%int0%End", "GetFilterSource 7 1/%int0%",
                  "AddIO 7 %int0% class=1 type=int " + flags, "AddIO 7 %int0Out% class=2 type=int " + flags,
                  "AddIO 7 %int0Min% class=2 type=int " + flags,
                  "AddIO 7 %int0Max% class=2 type=int " + flags, "SetBinaryData 7 IFText=%int0%:1:1000:;"}));
    QCOMPARE(f.core.lastTimeOut, 5000u);
    QCOMPARE(
        log.takeLines(),
        QStringList(
            {"on_btn_add_clicked int start.", "on_btn_add_clicked int end.", "()", "get in InitRange",
             "[QueryIfModuUIParamScribeInfo]: Start UI_OBJECT_PARAM_INFO_CONDITION falied.no such parameter",
             "[QueryIfModuUIParamScribeInfo]: End UI_OBJECT_PARAM_INFO_CONDITION falied.no such parameter",
             "m_mapIMHorControls info start.", "int0", "m_mapIMHorControls info end.",
             "[QIfModuleMainView]: onLogicValueChanged2SetParam start.",
             "[QIfModuleMainView]: onLogicValueChanged2SetParam send=%int0%:1:1000:;",
             "[QIfModuleMainView]: onLogicValueChanged2SetParam end."}));
    f.add("float");
    f.add("float");
    QVERIFY(log.lines().contains(QStringLiteral("on_btn_add_clicked sort res=(\"float0\")")));
    f.add("int");
    QVERIFY(log.lines().contains(QStringLiteral("(\"int0\")")));
    QCOMPARE(f.stored(),
             QByteArray("%int0%:1:1000:;%float0%:1.000:1000.000:;%float1%:1.000:1000.000:;%int1%:1:1000:;"));
    QTRY_VERIFY(f.at<QLineEdit>("m_ediNote", 3)->isVisible());
    QCOMPARE(log.warnings(), QStringList());
}

void tst_panel::addingBeyondTheLimit()
{
    Fixture f;
    f.show();
    for (int i = 0; i < 31; ++i) {
        f.add(i % 2 ? "int" : "float");
    }
    f.add("int");
    QCOMPARE(namesOf(f).size(), 32);
    f.core.takeCommands();
    LogCapture log;
    NextWarning warning;
    f.add("float");
    QCOMPARE(warning.text, QStringLiteral("最多添加: 32"));
    QVERIFY(warning.isPlainWarning && warning.hasParent);
    QCOMPARE(namesOf(f).size(), 32);
    QCOMPARE(f.core.takeCommands(), QStringList());
    QCOMPARE(log.lines(), QStringList());
}

void tst_panel::addingWhenIosAreRefused_data()
{
    QTest::addColumn<QString>("io");
    QTest::addColumn<int>("created");
    QTest::addColumn<QString>("word");
    QTest::newRow("input") << "AddIO 7 %int0% " << 1 << "input";
    QTest::newRow("output") << "AddIO 7 %int0Out% " << 2 << "output";
    QTest::newRow("minimum") << "AddIO 7 %int0Min% " << 3 << "output";
    QTest::newRow("maximum") << "AddIO 7 %int0Max% " << 4 << "output";
}

void tst_panel::addingWhenIosAreRefused()
{
    QFETCH(QString, io);
    QFETCH(int, created);
    QFETCH(QString, word);
    Fixture f;
    f.show();
    f.core.fault = failing(io);
    LogCapture log;
    f.add("int");
    QCOMPARE(f.core.takeCommands().filter(QStringLiteral("AddIO")).size(), created);
    QCOMPARE(log.lines().last(),
             QStringLiteral("[QIfModuleMainView]: on_btn_add_clicked AddIOCommand %1 failed. errmeg=没有")
                 .arg(word));
    QCOMPARE(namesOf(f), QStringList("int0"));
    QCOMPARE(f.stored(), QByteArray("0"));

    // The row is stored with the next edit.
    typeInto(f.at<QLineEdit>("m_ediNote"), QStringLiteral("n"));
    QTest::keyClick(f.at<QLineEdit>("m_ediNote"), Qt::Key_Return);
    QCOMPARE(f.stored(), QByteArray("%int0%:1:1000:n;"));
}

void tst_panel::everyEditStoresTheWholeList()
{
    Fixture f;
    f.show("%int0%:0:100:a;%float0%:0.500:2.250:;");
    const auto finish = [](QWidget* field) { QTest::keyClick(field, Qt::Key_Return); };

    auto* const note = f.at<QLineEdit>("m_ediNote", 1);
    typeInto(note, QStringLiteral("hole"));
    QCOMPARE(f.core.takeCommands(), QStringList());
    finish(note);
    QCOMPARE(f.core.takeCommands(),
             QStringList("SetBinaryData 7 IFText=%int0%:0:100:a;%float0%:0.500:2.250:hole;"));

    auto* const lower = f.at<QDoubleSpinBox>("m_spbMinPullBar", 1);
    typeInto(lower, QStringLiteral("-1.25"));
    finish(lower);
    QCOMPARE(f.stored(), QByteArray("%int0%:0:100:a;%float0%:-1.250:2.250:hole;"));

    auto* const upper = f.at<QDoubleSpinBox>("m_spbMaxPullBar");
    typeInto(upper, QStringLiteral("99.9"));
    finish(upper);
    QCOMPARE(f.stored(), QByteArray("%int0%:0:99:a;%float0%:-1.250:2.250:hole;"));

    // Refused, so what is shown is the loaded pair again, and that is stored.
    typeInto(lower, QStringLiteral("50"));
    finish(lower);
    QCOMPARE(lower->text(), QStringLiteral("0.500"));
    QCOMPARE(f.stored(), QByteArray("%int0%:0:99:a;%float0%:0.500:2.250:hole;"));

    // As many bytes as the text has characters: the end is cut.
    typeInto(note, QStringLiteral("孔"));
    finish(note);
    QCOMPARE(f.stored(), QByteArray("%int0%:0:99:a;%float0%:0.500:2.250:\xe5\xad"));
}

void tst_panel::failedSaveIsLogged()
{
    Fixture f;
    f.show("%int0%:0:100:a;");
    f.core.fault = failing(QStringLiteral("SetBinaryData"));
    LogCapture log;
    typeInto(f.at<QLineEdit>("m_ediNote"), QStringLiteral("b"));
    QTest::keyClick(f.at<QLineEdit>("m_ediNote"), Qt::Key_Return);
    QCOMPARE(
        log.lines(),
        QStringList({"[QIfModuleMainView]: onLogicValueChanged2SetParam start.",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam send=%int0%:0:100:b;",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam failed. errmeg=没有",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam failed send = %int0%:0:100:b;"}));
    QCOMPARE(f.at<QLineEdit>("m_ediNote")->text(), QStringLiteral("b"));
}

void tst_panel::modeIsStored()
{
    Fixture f;
    f.show();
    LogCapture log;
    f.at<QComboBox>("cbox_determineType")->setCurrentIndex(1);
    f.at<QComboBox>("cbox_determineType")->setCurrentIndex(0);
    QCOMPARE(f.core.takeCommands(),
             QStringList({"SetRunParam 7 LogicalMode=2", "SetRunParam 7 LogicalMode=1"}));
    QCOMPARE(log.lines(), QStringList());
    f.core.fault = failing(QStringLiteral("SetRunParam"));
    f.at<QComboBox>("cbox_determineType")->setCurrentIndex(1);
    QCOMPARE(
        log.lines(),
        QStringList("[QIfModuleMainView]: on_cbox_determineType_currentIndexChanged failed. errmeg=没有"));
}

void tst_panel::unknownTypeWord()
{
    Fixture f;
    f.show("%other%:1.5:2:n;");
    QCOMPARE(namesOf(f), QStringList("other"));
    QVERIFY(!f.at<QWidget>("m_spbMinPullBar"));
    f.at<QComboBox>("cbox_typeSelect")->setItemText(0, QStringLiteral("bool"));
    LogCapture log;
    f.add("bool");
    QCOMPARE(log.lines().first(), QStringLiteral("m_mapIMHorControls info start."));
    QCOMPARE(f.core.takeCommands().filter(QStringLiteral("AddIO")).first(),
             QStringLiteral("AddIO 7 %% class=1 type= flags=01110101111"));
    QCOMPARE(f.stored(), QByteArray("%other%:0:0:n;%%:0:0:;"));
    f.panel->hide();
    f.at<QPushButton>("m_btnDelete")->click();
    QCOMPARE(f.stored(), QByteArray("%%:0:0:;"));
}

void tst_panel::bindingTheInput()
{
    Fixture f;
    f.core.bindings[QStringLiteral("1/%int0%")] = QStringLiteral("5.Count");
    f.show("%int0%:0:100:a;");
    auto* const selecter = f.panel->findChildren<ButtonSelecterView*>(QString()).value(0);
    QVERIFY(selecter);
    QCOMPARE(selecter->findChild<QLineEdit*>()->text(), QStringLiteral("5.Count"));
    emit selecter->sigEdiSubscribeInfoChanged(QStringLiteral("5.Other"));
    QCOMPARE(f.core.takeCommands(), QStringList("SetFilterSource 7 1/%int0%=5.Other"));
    emit selecter->sigQuerySubscribeMenuInfo(QString());
    QCOMPARE(f.core.takeCommands(), QStringList("QuerySubscribeTree 7 range=1 types=1 int"));
}

void tst_panel::refusedBinding_data()
{
    QTest::addColumn<QString>("standing");
    QTest::newRow("bound before") << "5.Count";
    QTest::newRow("not bound before") << "";
}

void tst_panel::refusedBinding()
{
    QFETCH(QString, standing);
    Fixture f;
    if (!standing.isEmpty()) {
        f.core.bindings[QStringLiteral("1/%int0%")] = standing;
    }
    f.show("%int0%:0:100:a;");
    auto* const selecter = f.panel->findChildren<ButtonSelecterView*>(QString()).value(0);
    auto* const field = selecter->findChild<QLineEdit*>();
    f.core.fault = failing(QStringLiteral("SetFilterSource"));
    for (int i = 0; i < 2; ++i) {
        selecter->SetEdiSubscribeText(QStringLiteral("9.Refused"));
        NextWarning warning;
        emit selecter->sigEdiSubscribeInfoChanged(QStringLiteral("9.Refused"));
        QCOMPARE(warning.text, QStringLiteral("未找到绑定数据"));
        QVERIFY(warning.isPlainWarning && !warning.hasParent);
        QCOMPARE(field->text(), standing);
    }
    // The row goes while its warning is open.
    NextWarning warning([&f] { f.at<QPushButton>("m_btnDelete")->click(); });
    emit selecter->sigEdiSubscribeInfoChanged(QStringLiteral("9.Refused"));
    QCOMPARE(f.stored(), QByteArray("0"));
}

void tst_panel::deleting_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QStringList>("readded");
    QTest::newRow("first") << 0 << QByteArray("%int1%:3:4:b;%float0%:1.000:2.000:c;")
                           << QStringList({"int1", "float0", "int0"});
    QTest::newRow("middle") << 1 << QByteArray("%int0%:1:2:a;%float0%:1.000:2.000:c;")
                            << QStringList({"int0", "float0", "int1"});
    QTest::newRow("last") << 2 << QByteArray("%int0%:1:2:a;%int1%:3:4:b;")
                          << QStringList({"int0", "int1", "int2"});
}

void tst_panel::deleting()
{
    QFETCH(int, row);
    QFETCH(QStringList, readded);
    Fixture f;
    f.show("%int0%:1:2:a;%int1%:3:4:b;%float0%:1.000:2.000:c;");
    QTest::mouseClick(f.at<QPushButton>("m_btnDelete", row), Qt::LeftButton);
    QTEST(f.stored(), "stored");
    f.add("int");
    QCOMPARE(namesOf(f), readded);
    while (auto* const button = f.at<QPushButton>("m_btnDelete")) {
        button->click();
    }
    QCOMPARE(f.stored(), QByteArray("0"));
}

void tst_panel::deletingLog()
{
    Fixture f;
    f.show("%int0%:1:2:;%int1%:1:2:;%float0%:1.000:2.000:;");
    LogCapture log;
    f.at<QPushButton>("m_btnDelete", 2)->click();
    QCOMPARE(f.core.takeCommands(),
             QStringList({"DelFilterSource 7 1/%float0%:input", "DelFilterSource 7 1/%float0Out%:output",
                          "DelFilterSource 7 1/%float0Min%:output", "DelFilterSource 7 1/%float0Max%:output",
                          "DelFilterSource 7 0/%float0%Start", "DelFilterSource 7 0/%float0%End",
                          "DeleteUIData 7 @%float0%Start", "DeleteUIData 7 @%float0%End",
                          "SetBinaryData 7 IFText=%int0%:1:2:;%int1%:1:2:;"}));
    const QString refused = QStringLiteral("[HorizontalControlIM]: DelIO uiparam failed. errmeg=");
    QCOMPARE(log.lines().mid(0, 7),
             QStringList({"onBtnDeleteOpt name = float0", "onBtnDeleteOpt find name=[float0] index=[2]",
                          refused, refused, "onBtnDeleteOpt removeItem success.",
                          "onBtnDeleteOpt removeAt success.", "onBtnDeleteOpt delete ptr success."}));
    f.panel->onBtnDeleteOpt(QStringLiteral("nobody"));
    QCOMPARE(f.core.takeCommands(), QStringList("SetBinaryData 7 IFText=%int0%:1:2:;%int1%:1:2:;"));
}

void tst_panel::deletingInAnyState_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("open");
    for (const char* const open : {"nothing", "slider", "menu"}) {
        QTest::addRow("mouse, %s open", open) << 0 << open;
        QTest::addRow("space, %s open", open) << int(Qt::Key_Space) << open;
        QTest::addRow("enter, %s open", open) << int(Qt::Key_Enter) << open;
    }
}

void tst_panel::deletingInAnyState()
{
    QFETCH(int, key);
    QFETCH(QString, open);
    Fixture f;
    f.show("%int0%:1:2:a;%int1%:3:4:b;");
    QTRY_VERIFY(f.at<QLineEdit>("m_ediNote")->isVisible());
    if (open == QLatin1String("slider")) {
        QTest::mouseClick(f.at<QDoubleSpinBox>("m_spbMinPullBar")->findChild<QLineEdit*>(), Qt::LeftButton);
    } else if (open == QLatin1String("menu")) {
        f.panel->findChild<ButtonSelecterView*>()->findChild<QToolButton*>()->click();
    }
    typeInto(f.at<QLineEdit>("m_ediNote"), QStringLiteral("unsaved"));
    auto* const button = f.at<QPushButton>("m_btnDelete");
    if (key == 0) {
        QTest::mouseClick(button, Qt::LeftButton);
    } else {
        QTest::keyClick(button, static_cast<Qt::Key>(key));
    }
    QCOMPARE(f.stored(), QByteArray("%int1%:3:4:b;"));
    QApplication::processEvents();
    QCOMPARE(namesOf(f), QStringList("int1"));
}

void tst_panel::enterInAHostsDialogAddsAndDeletesNothing()
{
    FakeCore core;
    core.binaryData[QStringLiteral("IFText")] = "%int0%:1:2:a;";
    core.runParams[QStringLiteral("LogicalMode")] = "1";
    QDialog dialog;
    dialog.setLayout(new QVBoxLayout);
    auto* const panel = new QIfModuleMainView(7, &dialog);
    dialog.layout()->addWidget(panel);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    for (auto* const edit : panel->findChildren<QLineEdit*>()) {
        if (edit->isVisible()) {
            edit->setFocus();
            QTest::keyClick(edit, Qt::Key_Return);
        }
    }
    QCOMPARE(core.binaryData.value(QStringLiteral("IFText")), QByteArray("%int0%:1:2:a;"));
    QVERIFY(dialog.isVisible());
}

void tst_panel::destroyedInAnyState_data()
{
    QTest::addColumn<bool>("byHost");
    QTest::addColumn<QString>("state");
    for (const bool byHost : {false, true}) {
        for (const char* const state : {"new", "rows", "note", "slider", "hidden"}) {
            QTest::addRow("%s, %s", byHost ? "host" : "panel", state) << byHost << QString::fromLatin1(state);
        }
    }
}

void tst_panel::destroyedInAnyState()
{
    QFETCH(bool, byHost);
    QFETCH(QString, state);
    Fixture f;
    if (state != QLatin1String("new")) {
        QByteArray text;
        for (int i = 0; i < 32; ++i) {
            text += "%int" + QByteArray::number(i) + "%:1:2:;";
        }
        f.show(text);
        QTRY_VERIFY(f.at<QLineEdit>("m_ediNote")->isVisible());
    }
    if (state == QLatin1String("note")) {
        typeInto(f.at<QLineEdit>("m_ediNote"), QStringLiteral("unsaved"));
    } else if (state == QLatin1String("slider")) {
        QTest::mouseClick(f.at<QDoubleSpinBox>("m_spbMinPullBar")->findChild<QLineEdit*>(), Qt::LeftButton);
    } else if (state == QLatin1String("hidden")) {
        f.panel->hide();
    }
    f.core.takeCommands();
    if (byHost) {
        delete f.container;
    } else {
        delete f.panel;
    }
    QVERIFY(!f.panel);
    QCOMPARE(f.core.takeCommands(), QStringList());
    QApplication::processEvents();
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
        QVERIFY2(!qobject_cast<const QmlRangeSliderView*>(widget), "a slider outlives its panel");
    }
}

void tst_panel::destroyedUnderTheWarning()
{
    Fixture f;
    QByteArray text;
    for (int i = 0; i < 32; ++i) {
        text += "%int" + QByteArray::number(i) + "%:1:2:;";
    }
    f.show(text);
    NextWarning warning([&f] { delete f.panel; });
    f.add("int");
    QVERIFY(!f.panel);
    QVERIFY(!warning.text.isEmpty());
}

void tst_panel::withoutParent()
{
    FakeCore core;
    core.binaryData[QStringLiteral("IFText")] = "%int0%:1:2:a;";
    core.runParams[QStringLiteral("LogicalMode")] = "1";
    QIfModuleMainView panel(7, nullptr);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    QTest::mouseClick(panel.findChild<QDoubleSpinBox*>()->findChild<QLineEdit*>(), Qt::LeftButton);
    panel.hide();
    QCOMPARE(panel.findChildren<QDoubleSpinBox*>().size(), 2);
}

void tst_panel::exceptionsLeaveTheSlot()
{
    Fixture f;
    f.show("%int0%:1:2:a;");
    f.core.fault = [](int, const QString&) -> std::optional<CommandResult> {
        throw ZelCommon::ZelException("gone");
    };
    QVERIFY_EXCEPTION_THROWN(f.panel->onLogicValueChanged2SetParam(), ZelCommon::ZelException);
    QVERIFY_EXCEPTION_THROWN(f.panel->on_btn_add_clicked(), ZelCommon::ZelException);
    QShowEvent event;
    QVERIFY_EXCEPTION_THROWN(f.panel->eventFilter(f.panel, &event), ZelCommon::ZelException);
    f.core.fault = nullptr;
    // A row that could not be built leaves nothing behind.
    QCOMPARE(namesOf(f), QStringList("int0"));
    QCOMPARE(f.all<QDoubleSpinBox>("m_spbMinPullBar").size(), 1);
}

void tst_panel::slotsAndTexts()
{
    Fixture f;
    f.show("%int0%:1:2:a;");
    QStringList declared;
    const QMetaObject& meta = QIfModuleMainView::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        declared << QString::fromLatin1(meta.method(i).methodSignature());
    }
    QCOMPARE(declared,
             QStringList({"on_btn_close_clicked()", "on_btn_add_clicked()", "on_btn_continueRun_clicked()",
                          "on_btn_onceRun_clicked()", "on_btn_OK_clicked()", "onBtnDeleteOpt(QString)",
                          "onLogicValueChanged2SetParam()", "onSubscribeValueChanged2SetParam(QString)",
                          "on_cbox_determineType_currentIndexChanged(int)"}));
    for (const char* const slot :
         {"on_btn_continueRun_clicked", "on_btn_onceRun_clicked", "on_btn_OK_clicked"}) {
        QVERIFY(QMetaObject::invokeMethod(f.panel, slot));
    }
    QCOMPARE(f.core.takeCommands(), QStringList());

    f.at<QLabel>("lab_help")->clear();
    QVERIFY(f.panel->RetranslateUi());
    QCOMPARE(f.at<QLabel>("lab_help")->text(), QStringLiteral("条件符合，判断结果为OK"));
    QCOMPARE(f.at<QLabel>("lab_determineType")->text(), QStringLiteral("  判断方式"));

    QVERIFY(QMetaObject::invokeMethod(f.panel, "on_btn_close_clicked"));
    QVERIFY(f.panel->isHidden());
}

QTEST_MAIN(tst_panel)
#include "tst_panel.moc"
