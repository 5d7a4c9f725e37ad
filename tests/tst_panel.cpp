#include "LogCapture.h"
#include "PanelFixture.h"
#include "QIfModuleMainView.h"

#include <QZelCommonControl/ButtonSelecterView.h>

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
auto failing(const QString& beginning)
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
    void hidingFinishesAnEdit();
    void failedSavesAreLogged();
    void unknownTypeWord();
    void refusedBinding();
    void deletingLog();
    void deletingInAnyState();
    void enterInAHostsDialogAddsAndDeletesNothing();
    void shownWithoutParent();
    void slotsOfTheInterface();
};

void tst_panel::showingLoads()
{
    Fixture f;
    f.show("%int0%:0:100:a;%float0%:0.500:2.250:孔;");
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
    const QStringList firstOnly("QueryBinaryData 7 IFText");
    for (const QString query : {"QueryBinaryData", "QueryRunParam"}) {
        f.core.fault = failing(query);
        reload(f);
        QCOMPARE(f.core.takeCommands(), query == "QueryRunParam" ? loadOf({"int0"}) : firstOnly);
        QCOMPARE(namesOf(f), QStringList("int0"));
        QCOMPARE(f.at<QComboBox>("cbox_determineType")->currentIndex(), 1);
    }
}

void tst_panel::storedMode()
{
    // What is stored, the mode that is shown, and what is stored afterwards.
    const std::tuple<QByteArray, int, QByteArray> cases[] = {
        {"1", 0, "1"}, {"2", 1, "2"}, {"0", 1, "2"}, {"", 1, "2"}, {"abc", 1, "2"}, {" 1x", 0, " 1x"}};
    for (const auto& [stored, shown, afterwards] : cases) {
        Fixture f;
        f.core.runParams["LogicalMode"] = stored;
        f.show();
        QCOMPARE(f.at<QComboBox>("cbox_determineType")->currentIndex(), shown);
        QCOMPARE(f.core.runParams["LogicalMode"], afterwards);
    }
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
    QTRY_VERIFY(f.at<QLineEdit>("m_ediNote", 3)->isVisible());
    QCOMPARE(log.warnings(), QStringList());
}

void tst_panel::addingBeyondTheLimit()
{
    Fixture f;
    f.show(QByteArray("%int0%:1:2:;").repeated(31));
    f.add("int");
    f.core.takeCommands();
    LogCapture log;
    NextWarning warning;
    f.add("float");
    QCOMPARE(warning.text, QString("最多添加: 32"));
    QVERIFY(warning.isPlainWarning && warning.hasParent);
    QCOMPARE(namesOf(f).size(), 32);
    QCOMPARE(f.core.takeCommands(), QStringList());
    QCOMPARE(log.lines(), QStringList());
    // The panel goes while its warning is open.
    NextWarning last([&f] { delete f.panel; });
    f.add("int");
    QVERIFY(!f.panel);
}

void tst_panel::addingWhenIosAreRefused()
{
    int created = 0;
    for (const char* const io : {"%int0% ", "%int0Out% ", "%int0Min% ", "%int0Max% "}) {
        Fixture f;
        f.show();
        f.core.fault = failing(QString("AddIO 7 ") + io);
        f.add("int");
        const QStringList commands = f.core.takeCommands();
        QCOMPARE(commands.filter("AddIO").size(), ++created);
        QVERIFY(commands.last().startsWith(QString("AddIO 7 ") + io));
        QCOMPARE(namesOf(f), QStringList("int0"));
    }
}

void tst_panel::hidingFinishesAnEdit()
{
    Fixture f;
    f.show("%int0%:0:100:a;%float0%:0.500:2.250:;");
    auto* const note = f.at<QLineEdit>("m_ediNote", 1);
    typeInto(note, "孔");
    QCOMPARE(f.core.takeCommands(), QStringList());
    // Nothing else in the window could take the focus. Stored are as many bytes as the text has characters.
    f.panel->hide();
    QCOMPARE(f.stored(), QByteArray("%int0%:0:100:a;%float0%:0.500:2.250:\xe5\xad"));
}

void tst_panel::failedSavesAreLogged()
{
    Fixture f;
    f.show("%int0%:0:100:a;");
    auto* const mode = f.at<QComboBox>("cbox_determineType");
    LogCapture log;
    mode->setCurrentIndex(1);
    QCOMPARE(log.lines(), QStringList());
    f.core.fault = failing("Set");
    mode->setCurrentIndex(0);
    typeInto(f.at<QLineEdit>("m_ediNote"), "b");
    QTest::keyClick(f.at<QLineEdit>("m_ediNote"), Qt::Key_Return);
    QCOMPARE(
        log.lines(),
        QStringList({"[QIfModuleMainView]: on_cbox_determineType_currentIndexChanged failed. errmeg=没有",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam start.",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam send=%int0%:0:100:b;",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam failed. errmeg=没有",
                     "[QIfModuleMainView]: onLogicValueChanged2SetParam failed send = %int0%:0:100:b;"}));
}

void tst_panel::unknownTypeWord()
{
    Fixture f;
    f.show();
    f.at<QComboBox>("cbox_typeSelect")->setItemText(0, "bool");
    LogCapture log;
    f.add("bool");
    QCOMPARE(log.lines().first(), QString("m_mapIMHorControls info start."));
    QCOMPARE(f.core.takeCommands().filter("AddIO").first(),
             QString("AddIO 7 %% class=1 type= flags=01110101111"));
    QVERIFY(!f.at<QWidget>("m_spbMinPullBar"));
    QCOMPARE(f.stored(), QByteArray("%%:0:0:;"));
    f.panel->hide();
    f.at<QPushButton>("m_btnDelete")->click();
    QCOMPARE(f.stored(), QByteArray("0"));
}

void tst_panel::refusedBinding()
{
    for (const QString standing : {"5.Count", ""}) {
        Fixture f;
        if (!standing.isEmpty()) {
            f.core.bindings["1/%int0%"] = standing;
        }
        f.show("%int0%:0:100:a;");
        QCOMPARE(inputSelecter(f)->findChild<QLineEdit*>()->text(), standing);
        emit inputSelecter(f)->sigQuerySubscribeMenuInfo(QString());
        QCOMPARE(f.core.takeCommands(), QStringList("QuerySubscribeTree 7 range=1 types=1 int"));
        f.core.fault = failing("SetFilterSource");
        inputSelecter(f)->SetEdiSubscribeText("9.Refused");
        NextWarning warning;
        emit inputSelecter(f)->sigEdiSubscribeInfoChanged("9.Refused");
        QCOMPARE(f.core.takeCommands().first(), QString("SetFilterSource 7 1/%int0%=9.Refused"));
        QCOMPARE(warning.text, QString("未找到绑定数据"));
        QVERIFY(warning.isPlainWarning && !warning.hasParent);
        QCOMPARE(inputSelecter(f)->findChild<QLineEdit*>()->text(), standing);
        // The row goes while its warning is open.
        NextWarning last([&f] { f.at<QPushButton>("m_btnDelete")->click(); });
        emit inputSelecter(f)->sigEdiSubscribeInfoChanged("9.Refused");
        QCOMPARE(f.stored(), QByteArray("0"));
    }
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

void tst_panel::deletingInAnyState()
{
    for (const char* const what : {"slider", "menu"}) {
        for (const Qt::Key key : {Qt::Key_unknown, Qt::Key_Space, Qt::Key_Enter}) {
            Fixture f;
            f.show("%int0%:1:2:a;%int1%:3:4:b;");
            open(f, what);
            open(f, "note");
            auto* const button = f.at<QPushButton>("m_btnDelete");
            if (key == Qt::Key_unknown) {
                QTest::mouseClick(button, Qt::LeftButton);
            } else {
                QTest::keyClick(button, key);
            }
            QCOMPARE(f.stored(), QByteArray("%int1%:3:4:b;"));
        }
    }
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
