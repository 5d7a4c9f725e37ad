#include "LogCapture.h"
#include "PanelFixture.h"
#include "QIfModuleMainView.h"

#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>

#include <QLabel>
#include <QToolButton>

using namespace ZelCore;
using Fixture = PanelFixture<QIfModuleMainView>;

namespace {

QStringList loadOf(const QStringList& names)
{
    QStringList commands("QueryBinaryData 7 IFText");
    for (const QString& name : names) {
        commands << QString("QueryUIData 7 @%%1%Start").arg(name)
                 << QString("QueryUIData 7 @%%1%End").arg(name)
                 << QString("GetFilterSource 7 1/%%1%").arg(name);
    }
    return commands << "QueryRunParam 7 LogicalMode";
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

QByteArray fullList()
{
    QByteArray text;
    for (int i = 0; i < 32; ++i) {
        text += "%int" + QByteArray::number(i) + "%:1:2:;";
    }
    return text;
}

ButtonSelecterView* inputSelecter(const Fixture& f)
{
    return f.panel->findChildren<ButtonSelecterView*>(QString()).value(0);
}

void reload(const Fixture& f)
{
    QMetaObject::invokeMethod(f.panel, "on_btn_close_clicked");
    QVERIFY(f.panel->isHidden());
    f.panel->show();
}

void edit(QWidget* field, const QString& text)
{
    typeInto(field, text);
    QTest::keyClick(field, Qt::Key_Return);
}

// Something is open in the first row.
void open(const Fixture& f, const QString& what)
{
    QTRY_VERIFY(f.at<QLineEdit>("m_ediNote")->isVisible());
    if (what == "slider") {
        QTest::mouseClick(f.at<QDoubleSpinBox>("m_spbMinPullBar")->findChild<QLineEdit*>(), Qt::LeftButton);
    } else if (what == "menu") {
        inputSelecter(f)->findChild<QToolButton*>()->click();
    } else if (what == "note") {
        typeInto(f.at<QLineEdit>("m_ediNote"), "unsaved");
    }
}

} // namespace

class tst_panel : public QObject
{
    Q_OBJECT

private slots:
    void showingLoads();
    void loadLog();
    void failedLoadsKeepWhatIsShown();
    void storedMode();
    void adding();
    void addingBeyondTheLimit();
    void addingWhenIosAreRefused();
    void everyEditStoresTheWholeList();
    void failedSavesAreLogged();
    void unknownTypeWord();
    void bindingTheInput();
    void refusedBinding();
    void deleting();
    void deletingLog();
    void deletingInAnyState_data();
    void deletingInAnyState();
    void enterInAHostsDialogAddsAndDeletesNothing();
    void destroyedInAnyState_data();
    void destroyedInAnyState();
    void destroyedUnderTheWarning();
    void exceptionsLeaveTheSlot();
    void shownWithoutParent();
    void slotsOfTheInterface();
};

void tst_panel::showingLoads()
{
    Fixture f;
    f.show("%int0%:0:100:a;%float0%:0.500:2.250:孔;");
    QCOMPARE(namesOf(f), QStringList({"int0", "float0"}));
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMaxPullBar")->value(), 100.0);
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMinPullBar", 1)->value(), 0.5);
    QCOMPARE(f.at<QLineEdit>("m_ediNote", 1)->text(), QString("孔"));
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMaxPullBar")->maximum(), 999999999.0);
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMaxPullBar", 1)->maximum(), 100000.0);

    // A focused note with unsaved text goes with its row and must not store half a list.
    open(f, "note");
    QShowEvent event;
    QApplication::sendEvent(f.panel, &event);
    QCOMPARE(f.core.takeCommands(), loadOf({"int0", "float0"}));
    QCOMPARE(namesOf(f), QStringList({"int0", "float0"}));
    QVERIFY(f.at<QLineEdit>("m_ediNote", 1)->isVisible());

    f.at<QPushButton>("btn_add")->setFocus();
    QApplication::sendEvent(f.panel, &event);
    QVERIFY2(f.at<QPushButton>("btn_add")->hasFocus(), "a load took the focus from beside the rows");

    // More than the panel itself adds.
    f.core.binaryData["IFText"] = QByteArray("%int0%:1:2:;").repeated(1000);
    reload(f);
    QCOMPARE(namesOf(f).size(), 1000);
    f.core.binaryData["IFText"] = "0";
    reload(f);
    QCOMPARE(namesOf(f), QStringList());
}

void tst_panel::loadLog()
{
    Fixture f;
    f.show();
    f.core.binaryData["IFText"] = QByteArray("%int0%:7:x:;\0%int1%:1:2:;", 24);
    f.core.uiData = {{"@%int0%Start", "False"}, {"@%int0%End", "False"}};
    LogCapture log;
    reload(f);
    QCOMPARE(log.takeLines(),
             QStringList({"[QIfModuleMainView]: QueryIfModuleInfo IFText data=%int0%:7:x:;",
                          "get in InitRange", "int:[7]", "HorizontalControlIM SetCurrentMin min:[7]",
                          "HorizontalControlIM SetCurrentMax max:[0]",
                          "[QIfModuleMainView]: SetRangeSelect num trans failed."}));
    f.core.binaryData["IFText"] = "%int0%:0.250:2:;";
    reload(f);
    QCOMPARE(log.lines().mid(2),
             QStringList({"float:[0.250]", "HorizontalControlIM SetCurrentMinD min:[0.25]",
                          "SetCurrentMinD min:[0.25]", "HorizontalControlIM SetCurrentMinD max:[2]",
                          "SetCurrentMaxD max:[2]"}));
    QCOMPARE(log.warnings(), QStringList());
}

void tst_panel::failedLoadsKeepWhatIsShown()
{
    Fixture f;
    f.core.runParams["LogicalMode"] = "2";
    f.show("%int0%:0:100:a;");
    f.core.runParams["LogicalMode"] = "1";
    const auto failedReload = [&f](const QString& query) {
        f.core.fault = failing(query);
        LogCapture log;
        reload(f);
        return log.lines().filter("errmeg=").join('\n');
    };
    QCOMPARE(failedReload("QueryBinaryData"),
             QString("[QIfModuleMainView]: QueryIfModuleInfo IFText id[7] failed. errmeg=没有"));
    QCOMPARE(f.core.takeCommands(), QStringList("QueryBinaryData 7 IFText"));
    QCOMPARE(namesOf(f), QStringList("int0"));
    QCOMPARE(failedReload("QueryRunParam"),
             QString("[QIfModuleMainView]: QueryIfModuleInfo LogicalMode id[7] failed. errmeg=没有"));
    QCOMPARE(f.core.takeCommands(), loadOf({"int0"}));
    QCOMPARE(namesOf(f), QStringList("int0"));
    QCOMPARE(f.at<QComboBox>("cbox_determineType")->currentIndex(), 1);
}

void tst_panel::storedMode()
{
    // What is stored, the mode that is shown, and what is stored afterwards.
    const auto shown = [](const QByteArray& stored) {
        Fixture f;
        f.core.runParams["LogicalMode"] = stored;
        f.show();
        return QByteArray::number(f.at<QComboBox>("cbox_determineType")->currentIndex()) + ' ' +
               f.core.runParams["LogicalMode"];
    };
    QCOMPARE(shown("1"), QByteArray("0 1"));
    QCOMPARE(shown("2"), QByteArray("1 2"));
    QCOMPARE(shown("0"), QByteArray("1 2"));
    QCOMPARE(shown(""), QByteArray("1 2"));
    QCOMPARE(shown("abc"), QByteArray("1 2"));
    QCOMPARE(shown(" 1x"), QByteArray("0  1x"));
}

void tst_panel::adding()
{
    Fixture f;
    f.show();
    LogCapture log;
    f.add("int");
    const QString flags = "flags=01110101111";
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
    QVERIFY(log.lines().contains("on_btn_add_clicked sort res=(\"float0\")"));
    f.add("int");
    QVERIFY(log.lines().contains("(\"int0\")"));
    QCOMPARE(f.stored(),
             QByteArray("%int0%:1:1000:;%float0%:1.000:1000.000:;%float1%:1.000:1000.000:;%int1%:1:1000:;"));
    QTRY_VERIFY(f.at<QLineEdit>("m_ediNote", 3)->isVisible());
    QCOMPARE(log.warnings(), QStringList());
}

void tst_panel::addingBeyondTheLimit()
{
    Fixture f;
    f.show(fullList().replace("%int31%:1:2:;", ""));
    f.add("int");
    QCOMPARE(namesOf(f).size(), 32);
    f.core.takeCommands();
    LogCapture log;
    NextWarning warning;
    f.add("float");
    QCOMPARE(warning.text, QString("最多添加: 32"));
    QVERIFY(warning.isPlainWarning && warning.hasParent);
    QCOMPARE(namesOf(f).size(), 32);
    QCOMPARE(f.core.takeCommands(), QStringList());
    QCOMPARE(log.lines(), QStringList());
}

void tst_panel::addingWhenIosAreRefused()
{
    int created = 0;
    for (const char* const io : {"%int0% ", "%int0Out% ", "%int0Min% ", "%int0Max% "}) {
        Fixture f;
        f.show();
        f.core.fault = failing(QString("AddIO 7 ") + io);
        LogCapture log;
        f.add("int");
        const QString word = created == 0 ? "input" : "output";
        QCOMPARE(f.core.takeCommands().filter("AddIO").size(), ++created);
        QCOMPARE(
            log.lines().last(),
            QString("[QIfModuleMainView]: on_btn_add_clicked AddIOCommand %1 failed. errmeg=没有").arg(word));
        QCOMPARE(namesOf(f), QStringList("int0"));
        QCOMPARE(f.stored(), QByteArray("0"));
        // The row is stored with the next edit.
        edit(f.at<QLineEdit>("m_ediNote"), "n");
        QCOMPARE(f.stored(), QByteArray("%int0%:1:1000:n;"));
    }
}

void tst_panel::everyEditStoresTheWholeList()
{
    Fixture f;
    f.show("%int0%:0:100:a;%float0%:0.500:2.250:;");
    auto* note = f.at<QLineEdit>("m_ediNote", 1);
    typeInto(note, "hole");
    QCOMPARE(f.core.takeCommands(), QStringList());
    QTest::keyClick(note, Qt::Key_Return);
    QCOMPARE(f.core.takeCommands(),
             QStringList("SetBinaryData 7 IFText=%int0%:0:100:a;%float0%:0.500:2.250:hole;"));

    auto* const lower = f.at<QDoubleSpinBox>("m_spbMinPullBar", 1);
    edit(lower, "-1.25");
    QCOMPARE(f.stored(), QByteArray("%int0%:0:100:a;%float0%:-1.250:2.250:hole;"));
    edit(f.at<QDoubleSpinBox>("m_spbMaxPullBar"), "99.9");
    QCOMPARE(f.stored(), QByteArray("%int0%:0:99:a;%float0%:-1.250:2.250:hole;"));
    // Refused, so what is shown is the loaded pair again, and that is stored.
    edit(lower, "50");
    QCOMPARE(lower->text(), QString("0.500"));
    QCOMPARE(f.stored(), QByteArray("%int0%:0:99:a;%float0%:0.500:2.250:hole;"));
    // Hiding finishes an edit, with nothing else in the window that could take the focus.
    typeInto(note, "hidden");
    f.panel->hide();
    QCOMPARE(f.stored(), QByteArray("%int0%:0:99:a;%float0%:0.500:2.250:hidden;"));
    f.panel->show();
    note = f.at<QLineEdit>("m_ediNote", 1);
    QTRY_VERIFY(note->isVisible());
    // As many bytes as the text has characters: the end is cut.
    edit(note, "孔");
    QCOMPARE(f.stored(), QByteArray("%int0%:0:99:a;%float0%:0.500:2.250:\xe5\xad"));
}

void tst_panel::failedSavesAreLogged()
{
    Fixture f;
    f.show("%int0%:0:100:a;");
    auto* const mode = f.at<QComboBox>("cbox_determineType");
    LogCapture log;
    mode->setCurrentIndex(1);
    mode->setCurrentIndex(0);
    QCOMPARE(f.core.takeCommands(),
             QStringList({"SetRunParam 7 LogicalMode=2", "SetRunParam 7 LogicalMode=1"}));
    QCOMPARE(log.lines(), QStringList());
    f.core.fault = failing("Set");
    mode->setCurrentIndex(1);
    edit(f.at<QLineEdit>("m_ediNote"), "b");
    QCOMPARE(
        log.lines(),
        QStringList({"[QIfModuleMainView]: on_cbox_determineType_currentIndexChanged failed. errmeg=没有",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam start.",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam send=%int0%:0:100:b;",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam failed. errmeg=没有",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam failed send = %int0%:0:100:b;"}));
    QCOMPARE(f.at<QLineEdit>("m_ediNote")->text(), QString("b"));
}

void tst_panel::unknownTypeWord()
{
    Fixture f;
    f.show("%other%:1.5:2:n;");
    QCOMPARE(namesOf(f), QStringList("other"));
    QVERIFY(!f.at<QWidget>("m_spbMinPullBar"));
    f.at<QComboBox>("cbox_typeSelect")->setItemText(0, "bool");
    LogCapture log;
    f.add("bool");
    QCOMPARE(log.lines().first(), QString("m_mapIMHorControls info start."));
    QCOMPARE(f.core.takeCommands().filter("AddIO").first(),
             QString("AddIO 7 %% class=1 type= flags=01110101111"));
    QCOMPARE(f.stored(), QByteArray("%other%:0:0:n;%%:0:0:;"));
    f.panel->hide();
    f.at<QPushButton>("m_btnDelete")->click();
    QCOMPARE(f.stored(), QByteArray("%%:0:0:;"));
}

void tst_panel::bindingTheInput()
{
    Fixture f;
    f.core.bindings["1/%int0%"] = "5.Count";
    f.show("%int0%:0:100:a;");
    QCOMPARE(inputSelecter(f)->findChild<QLineEdit*>()->text(), QString("5.Count"));
    emit inputSelecter(f)->sigEdiSubscribeInfoChanged("5.Other");
    emit inputSelecter(f)->sigQuerySubscribeMenuInfo(QString());
    QCOMPARE(f.core.takeCommands(),
             QStringList({"SetFilterSource 7 1/%int0%=5.Other", "QuerySubscribeTree 7 range=1 types=1 int"}));
}

void tst_panel::refusedBinding()
{
    for (const QString standing : {"5.Count", ""}) {
        Fixture f;
        if (!standing.isEmpty()) {
            f.core.bindings["1/%int0%"] = standing;
        }
        f.show("%int0%:0:100:a;");
        f.core.fault = failing("SetFilterSource");
        for (int i = 0; i < 2; ++i) {
            inputSelecter(f)->SetEdiSubscribeText("9.Refused");
            NextWarning warning;
            emit inputSelecter(f)->sigEdiSubscribeInfoChanged("9.Refused");
            QCOMPARE(warning.text, QString("未找到绑定数据"));
            QVERIFY(warning.isPlainWarning && !warning.hasParent);
            QCOMPARE(inputSelecter(f)->findChild<QLineEdit*>()->text(), standing);
        }
        // The row goes while its warning is open.
        NextWarning warning([&f] { f.at<QPushButton>("m_btnDelete")->click(); });
        emit inputSelecter(f)->sigEdiSubscribeInfoChanged("9.Refused");
        QCOMPARE(f.stored(), QByteArray("0"));
    }
}

void tst_panel::deleting()
{
    const auto deleteRow = [](int row, const QByteArray& stored, const QStringList& readded) {
        Fixture f;
        f.show("%int0%:1:2:a;%int1%:3:4:b;%float0%:1.000:2.000:c;");
        f.at<QPushButton>("m_btnDelete", row)->click();
        QCOMPARE(f.stored(), stored);
        f.add("int");
        QCOMPARE(namesOf(f), readded);
        while (auto* const button = f.at<QPushButton>("m_btnDelete")) {
            button->click();
        }
        QCOMPARE(f.stored(), QByteArray("0"));
    };
    deleteRow(0, "%int1%:3:4:b;%float0%:1.000:2.000:c;", {"int1", "float0", "int0"});
    deleteRow(1, "%int0%:1:2:a;%float0%:1.000:2.000:c;", {"int0", "float0", "int1"});
    deleteRow(2, "%int0%:1:2:a;%int1%:3:4:b;", {"int0", "int1", "int2"});
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
    const QString refused = "[HorizontalControlIM]: DelIO uiparam failed. errmeg=";
    QCOMPARE(log.lines().mid(0, 7),
             QStringList({"onBtnDeleteOpt name = float0", "onBtnDeleteOpt find name=[float0] index=[2]",
                          refused, refused, "onBtnDeleteOpt removeItem success.",
                          "onBtnDeleteOpt removeAt success.", "onBtnDeleteOpt delete ptr success."}));
    f.panel->onBtnDeleteOpt("nobody");
    QCOMPARE(f.core.takeCommands(), QStringList("SetBinaryData 7 IFText=%int0%:1:2:;%int1%:1:2:;"));
}

void tst_panel::deletingInAnyState_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("what");
    for (const char* const what : {"nothing", "slider", "menu"}) {
        QTest::addRow("mouse, %s open", what) << 0 << what;
        QTest::addRow("space, %s open", what) << int(Qt::Key_Space) << what;
        QTest::addRow("enter, %s open", what) << int(Qt::Key_Enter) << what;
    }
}

void tst_panel::deletingInAnyState()
{
    QFETCH(int, key);
    QFETCH(QString, what);
    Fixture f;
    f.show("%int0%:1:2:a;%int1%:3:4:b;");
    open(f, what);
    open(f, "note");
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
    Fixture f;
    QDialog dialog;
    dialog.setLayout(new QVBoxLayout);
    dialog.layout()->addWidget(f.panel);
    f.core.binaryData["IFText"] = "%int0%:1:2:a;";
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    for (auto* const field : f.panel->findChildren<QLineEdit*>()) {
        if (field->isVisible()) {
            field->setFocus();
            QTest::keyClick(field, Qt::Key_Return);
        }
    }
    QCOMPARE(f.stored(), QByteArray("%int0%:1:2:a;"));
    QVERIFY(dialog.isVisible());
}

void tst_panel::destroyedInAnyState_data()
{
    QTest::addColumn<bool>("byHost");
    QTest::addColumn<QString>("what");
    for (const char* const what : {"new", "nothing", "note", "slider", "menu", "hidden"}) {
        QTest::addRow("panel, %s", what) << false << what;
        QTest::addRow("host, %s", what) << true << what;
    }
}

void tst_panel::destroyedInAnyState()
{
    QFETCH(bool, byHost);
    QFETCH(QString, what);
    Fixture f;
    if (what != "new") {
        f.show(fullList());
        open(f, what);
        f.panel->setVisible(what != "hidden");
    }
    f.core.takeCommands();
    delete (byHost ? f.container : f.panel.data());
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
    f.show(fullList());
    NextWarning warning([&f] { delete f.panel; });
    f.add("int");
    QVERIFY(!f.panel);
    QVERIFY(!warning.text.isEmpty());
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

void tst_panel::shownWithoutParent()
{
    Fixture f;
    f.core.binaryData["IFText"] = "%int0%:1:2:a;";
    f.panel->setParent(nullptr);
    const std::unique_ptr<QIfModuleMainView> owner(f.panel);
    f.panel->show();
    open(f, "slider");
    f.panel->hide();
    QCOMPARE(namesOf(f), QStringList("int0"));
}

void tst_panel::slotsOfTheInterface()
{
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
}

QTEST_MAIN(tst_panel)
#include "tst_panel.moc"
