#include "HorizontalControlIM.h"
#include "LogCapture.h"
#include "PanelFixture.h"
#include "QIfModuleMainView.h"
#include "StyleSheet.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QLabel>
#include <QResource>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>

using namespace ZelCore;

namespace {

struct Fixture : PanelFixture<QIfModuleMainView>
{
    int rows() const { return all<QLabel>("m_labName").size(); }
    QLineEdit* note() const { return at<QLineEdit>("m_ediNote"); }
    QPushButton* deleteButton(int row = 0) const { return at<QPushButton>("m_btnDelete", row); }
    ButtonSelecterView* input() const { return panel->findChildren<ButtonSelecterView*>(QString()).first(); }
    void load() const
    {
        QShowEvent event;
        QApplication::sendEvent(panel, &event);
    }
    // Fails every command whose line begins so.
    void refuse(const QString& beginning)
    {
        core.fault = [beginning](int, const QString& line) {
            return line.startsWith(beginning) ? std::optional<CommandResult>(NothingChanged) : std::nullopt;
        };
    }
};

// Compiles only if programs may take the address of these members.
template <auto... Members>
constexpr bool exist = sizeof...(Members) > 0;

} // namespace

/// What the tour does not show.
class tst_panel : public QObject
{
    Q_OBJECT

private slots:
    void interface();
    void loads();
    void loadsDisturbNothing();
    void storedMode();
    void adding();
    void addingWhenTheLogFails();
    void addedRowsAreInSight();
    void sheetsOfARow();
    void addingBeyondTheLimit();
    void hiding();
    void unknownTypeWord();
    void refusedBinding();
    void keysInAHostsDialog();
    void wheelScrollsTheList();
    void losses();
    void dropDowns();
    void resources();
};

void tst_panel::interface()
{
    using Panel = QIfModuleMainView;
    using Row = HorizontalControlIM;
    using Strip = RangeSelectControlIM;
    using Parse = void(SUBSCRIBE_NODE__&, QJsonObject&, int);
    static_assert(
        exist<&Panel::InitUI, &Panel::InitConnect, &Panel::InitInstallFilter, &Panel::QueryIfModuleInfo,
              &Row::InitParent, &Row::InitObjectName, &Row::InitUI, &Row::InitConnect,
              &Row::QueryIfModuSubScribeInfo, &Strip::InitParent, &Strip::InitObjectName, &Strip::InitRange,
              &Strip::InitUI, &Strip::InitConnect, &Strip::InstallEventFilter,
              &Strip::QueryIfModuUIParamScribeInfo, static_cast<void (Row::*)(QString)>(&Row::DelIO),
              static_cast<void (Row::*)(QString)>(&Row::SetLabNote),
              static_cast<Parse Row::*>(&Row::ParseTreeNode),
              static_cast<Parse Strip::*>(&Strip::ParseTreeNode)>);
    QString declared;
    for (int i = Panel::staticMetaObject.methodOffset(); i < Panel::staticMetaObject.methodCount(); ++i) {
        declared += Panel::staticMetaObject.method(i).methodSignature() + ' ';
    }
    QCOMPARE(declared, QString("on_btn_close_clicked() on_btn_add_clicked() on_btn_continueRun_clicked() "
                               "on_btn_onceRun_clicked() on_btn_OK_clicked() onBtnDeleteOpt(QString) "
                               "onLogicValueChanged2SetParam() onSubscribeValueChanged2SetParam(QString) "
                               "on_cbox_determineType_currentIndexChanged(int) "));
}

void tst_panel::loads()
{
    Fixture f;
    f.show("%int0%:0:100:a;%float0%:0.500:2.250:孔;");
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMaxPullBar")->maximum(), 999999999.0);
    QCOMPARE(f.at<QDoubleSpinBox>("m_spbMaxPullBar", 1)->maximum(), 100000.0);
    const std::pair<const char*, QWidget*> columns[] = {
        {"lab_name", f.at<QLabel>("m_labName")},
        {"lab_note", f.note()},
        {"lab_condition", f.input()},
        {"lab_effectRange", f.panel->findChild<RangeSelectControlIM*>()}};
    for (const auto& [heading, column] : columns) {
        const auto* const label = f.at<QLabel>(heading);
        QCOMPARE(label->mapTo(f.panel, QPoint()).x(), column->mapTo(f.panel, QPoint()).x());
        QVERIFY2(label->width() >= column->width(), heading);
    }
    // A focused note with unsaved text goes with its row and must not store half a list.
    typeInto(f.note(), "unsaved");
    f.load();
    QVERIFY(f.core.takeCommands().filter("Set").isEmpty() && f.rows() == 2);
    // A note is typed on at its end.
    QTest::keyClicks(f.note(), "bc");
    QCOMPARE(f.note()->text() + f.note()->toolTip(), QString("abcabc"));
    // More than the panel itself adds.
    f.core.binaryData["IFText"] = QByteArray("%int0%:1:2:;").repeated(200);
    f.load();
    QVERIFY(f.rows() == 200 && f.deleteButton(199)->isVisible());
}

void tst_panel::loadsDisturbNothing()
{
    Fixture f;
    auto* const field = f.addField("host");
    field->setFocus();
    f.show("%int0%:0:100:a;");
    QVERIFY2(!field->hasSelectedText(), "a field of the host was entered once more");
    QSignalSpy focusChanges(qApp, &QApplication::focusChanged);
    for (QWidget* const focus : {f.panel->nextInFocusChain(), f.at<QWidget>("btn_add")}) {
        focus->setFocus();
        focusChanges.clear();
        f.load();
        QCOMPARE(focusChanges.count(), 0);
    }
    f.at<QWidget>("widget_2")->hide();
    f.panel->QueryIfModuleInfo();
    QVERIFY(f.at<QWidget>("widget_2")->isHidden());
}

void tst_panel::storedMode()
{
    Fixture f;
    f.show("%int0%:0:100:a;");
    const auto index = [&f] { return f.at<QComboBox>("cbox_determineType")->currentIndex(); };
    for (const QByteArray stored : {"1", "2", " 1x", "0", "1", "", "abc"}) {
        f.core.runParams["LogicalMode"] = stored;
        f.load();
        QCOMPARE(index(), stored.trimmed().startsWith('1') ? 0 : 1);
    }
    // A load that fails leaves the rows, or only the mode, as they are.
    f.core.runParams["LogicalMode"] = "1";
    for (const QString query : {"QueryBinaryData 7 IFText", "QueryRunParam 7 LogicalMode"}) {
        f.refuse(query);
        f.load();
        QCOMPARE(f.core.takeCommands().last(), query);
        QVERIFY(f.rows() == 1 && index() == 1);
    }
}

// No IO is asked for after one that was refused, and nothing is saved.
void tst_panel::adding()
{
    for (const QString io : {"%int0%", "%int0Out%", "%int0Min%", "%int0Max%"}) {
        Fixture f;
        f.show();
        f.refuse("AddIO 7 " + io);
        f.add("int");
        QVERIFY(f.core.takeCommands().last().startsWith("AddIO 7 " + io) && f.rows() == 1);
    }
}

void tst_panel::addingWhenTheLogFails()
{
    Fixture f;
    f.show();
    auto* const handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& line) {
            if (line.startsWith("m_mapIMHorControls")) {
                throw ZelCommon::ZelException("the log is full");
            }
        });
    QVERIFY_EXCEPTION_THROWN(f.panel->on_btn_add_clicked(), ZelCommon::ZelException);
    qInstallMessageHandler(handler);
    // What is registered is also there.
    f.panel->onLogicValueChanged2SetParam();
    QVERIFY(f.rows() == 1 && f.stored() == "%int0%:1:1000:;");
}

void tst_panel::addedRowsAreInSight()
{
    Fixture f;
    f.show(QByteArray("%int0%:1:2:;").repeated(20));
    f.core.uiData["@%int1%Start"] = "True";
    f.add("int");
    QCOMPARE(f.core.lastTimeOut, 5000u);
    auto* const note = f.at<QLineEdit>("m_ediNote", 20);
    QVERIFY(!note->visibleRegion().isEmpty());
    // Tab leads to note, selector, bounds, switches, and delete.
    QString order;
    note->setFocus();
    for (int i = 0; i < 7; ++i) {
        QWidget* const focus = QApplication::focusWidget();
        order += (focus->inherits("QToolButton") ? focus->parent() : focus)->objectName() + ' ';
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    QCOMPARE(order, QString("m_ediNote  m_bsvMinNumSubscribe m_spbMaxPullBar m_btnMinSwitch m_btnMaxSwitch "
                            "m_btnDelete "));
}

void tst_panel::sheetsOfARow()
{
    Fixture f;
    f.show();
    f.add("float");
    QFile file(QStringLiteral(":/qss_im/HorizontalControlIM.qss"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString sheet = QString::fromLatin1(file.readAll());
    QStringList styled;
    for (const QWidget* const widget : f.panel->findChildren<QWidget*>()) {
        if (widget->styleSheet() == sheet) {
            styled << (widget->inherits("QDialog") ? QStringLiteral("strip") : widget->objectName());
        }
    }
    styled.sort();
    QCOMPARE(styled.join(' '),
             "m_btnDelete m_btnLine m_ediNote m_labName m_spbMaxPullBar m_spbMinPullBar strip");
}

void tst_panel::addingBeyondTheLimit()
{
    Fixture f;
    f.show(QByteArray("%int0%:1:2:;").repeated(31));
    f.add("int");
    f.core.takeCommands();
    LogCapture log;
    // The panel goes while its warning is open.
    NextWarning warning([&f] { delete f.panel; });
    f.add("float");
    QVERIFY(warning.text == "最多添加: 32" && warning.hasParent && !f.panel);
    QVERIFY(f.core.takeCommands().isEmpty() && log.lines().isEmpty());
}

void tst_panel::hiding()
{
    // Whether another field can take the focus: Qt finishes a field then, edited or not. Where, what is
    // typed, and what is saved.
    const std::tuple<bool, const char*, QString, QString> cases[] = {
        {false, "m_ediNote", "b", "0:100:b"},
        {false, "m_ediNote", "b\r", ""},
        {false, "m_ediNote", "", ""},
        {false, "m_spbMaxPullBar", "7", "0:7:a"},
        {false, "m_spbMaxPullBar", "-7\r", ""},
        {false, "m_spbMaxPullBar", "Up", "0:101:a"},
        {true, "m_ediNote", "b", "0:100:b"},
        {true, "m_ediNote", "", "0:100:a"},
        {true, "btn_add", "", ""}};
    for (const auto& [hasField, edited, keys, saved] : cases) {
        Fixture f;
        QWidget* const field = hasField ? f.addField("") : nullptr;
        f.show("%int0%:0:100:a;");
        auto* const widget = f.at<QWidget>(edited);
        widget->setFocus();
        if (keys == "Up") {
            QTest::keyClick(widget, Qt::Key_Up);
        } else if (!keys.isEmpty()) {
            typeInto(widget, keys);
        }
        f.core.takeCommands();
        f.panel->on_btn_close_clicked();
        QCOMPARE(f.core.takeCommands().join(' '),
                 saved.isEmpty() ? "" : "SetBinaryData 7 IFText=%int0%:" + saved + ';');
        QCOMPARE(QApplication::focusWidget(), hasField ? field : widget);
    }
    Fixture f;
    f.addField("");
    f.show("%int0%:0:100:a;");
    typeInto(f.note(), "b");
    f.window.hide();
    QCOMPARE(f.stored(), QByteArray("%int0%:0:100:b;"));
}

void tst_panel::unknownTypeWord()
{
    Fixture f;
    f.show();
    f.at<QComboBox>("cbox_typeSelect")->setItemText(0, "bool");
    f.add("bool");
    QVERIFY(f.core.takeCommands().contains("AddIO 7 %% class=1 type= flags=01110101111"));
    QCOMPARE(f.stored(), QByteArray("%%:0:0:;"));
}

// The tour shows a binding that is refused. Here the row goes while its warning is open.
void tst_panel::refusedBinding()
{
    Fixture f;
    f.show("%int0%:0:100:a;");
    f.refuse("SetFilterSource");
    NextWarning warning([&f] { f.deleteButton()->click(); });
    emit f.input()->sigEdiSubscribeInfoChanged("9.Refused");
    QVERIFY(warning.text == "未找到绑定数据" && !warning.hasParent);
    QCOMPARE(f.stored(), QByteArray("0"));
}

void tst_panel::keysInAHostsDialog()
{
    Fixture f;
    QDialog dialog;
    (new QVBoxLayout(&dialog))->addWidget(f.panel);
    f.core.binaryData["IFText"] = "%int0%:1:2:a;";
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    f.core.takeCommands();
    for (const char* const name : {"m_ediNote", "m_spbMaxPullBar", "m_btnMinSwitch", "btn_add"}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            auto* const widget = f.at<QWidget>(key == Qt::Key_Escape ? "m_spbMaxPullBar" : name);
            widget->setFocus();
            QTest::keyClick(widget, key);
        }
    }
    // Return in a field, and leaving it, save what stands there, and nothing else happens.
    QStringList commands = f.core.takeCommands();
    commands.removeDuplicates();
    QCOMPARE(commands, QStringList("SetBinaryData 7 IFText=%int0%:1:2:a;"));
    for (const auto* const button : f.panel->findChildren<QPushButton*>()) {
        QVERIFY2(button->isVisible() && !button->autoDefault(), qPrintable(button->objectName()));
    }
}

void tst_panel::wheelScrollsTheList()
{
    Fixture f;
    f.show(QByteArray("%int0%:1:2:;").repeated(20));
    auto* const bar = f.at<QScrollArea>("scrollArea")->verticalScrollBar();
    for (const char* const name : {"m_spbMinPullBar", "m_spbMaxPullBar", "cbox_determineType"}) {
        auto* const widget = f.at<QWidget>(name);
        for (const bool hasFocus : {false, true}) {
            f.at<QWidget>(hasFocus ? name : "btn_add")->setFocus();
            bar->setValue(0);
            const QImage before = widget->grab().toImage();
            const QPoint place = widget->mapTo(&f.window, widget->rect().center());
            QWheelEvent event(place, f.window.mapToGlobal(place), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                              false);
            QSpontaneKeyEvent::setSpontaneous(&event); // from the window system
            qApp->notify(f.window.windowHandle(), &event);
            QVERIFY2(widget->hasFocus() == hasFocus && (bar->value() == 0) == hasFocus, name);
            QVERIFY2((widget->grab().toImage() != before) == hasFocus, name);
        }
    }
}

void tst_panel::losses()
{
    Fixture f;
    f.show("%int0%:1:2:;%int1%:1:2:a;%int2%:1:2:b;");
    f.core.takeCommands();
    const auto warning = [&f] {
        return f.note()->actions().isEmpty() ? "" : f.note()->actions().first()->toolTip();
    };
    const std::pair<QString, QString> cases[] = {
        {"孔", "保存时末尾丢失的字节数：2"},
        {"é孔\U0001F529", "保存时末尾丢失的字节数：5\n不再恢复的条件：int2"},
        {"孔孔孔孔孔孔孔孔孔孔", "保存时末尾丢失的字节数：20\n不再恢复的条件：int1, int2"},
        {"x:y", "注释只恢复为：x"},
        {"x;y", "注释只恢复为：x"},
        {"x;%int9%:1:2:y", "注释只恢复为：x\n另外恢复的条件：int9"},
        {"x", ""}};
    for (const auto& [text, expected] : cases) {
        typeInto(f.note(), text);
        QCOMPARE(warning(), expected);
        QVERIFY(f.at<QLineEdit>("m_ediNote", 1)->actions().isEmpty() && f.note()->hasFocus());
    }
    QVERIFY(f.core.takeCommands().isEmpty() && f.note()->size() == QSize(100, 30));
    typeInto(f.note(), "孔孔孔孔");
    f.deleteButton(2)->click();
    f.deleteButton(1)->click();
    QCOMPARE(warning(), QString("保存时末尾丢失的字节数：8\n注释只恢复为：孔\uFFFD\uFFFD"));
}

void tst_panel::dropDowns()
{
    Fixture f;
    f.show();
    for (auto* const combo : f.panel->findChildren<QComboBox*>()) {
        combo->showPopup();
        QVERIFY(combo->view()->visualRect(combo->model()->index(1, 0)).height() >= 30);
        QCOMPARE(combo->itemDelegate()->parent(), combo->view()); // the view's own
        combo->hidePopup();
    }
}

void tst_panel::resources()
{
    QString sheets;
    for (const QString name : {"HorizontalControlIM", "QIfModuleMainView"}) {
        QFile file(":/qss_im/" + name + ".qss");
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray sheet = file.readAll();
        QCOMPARE(sheet.count("\r\n"), sheet.count('\n'));
        QCOMPARE(QResource(file.fileName()).compressionAlgorithm(), QResource::ZlibCompression);
        sheets += QString::fromUtf8(sheet).simplified();
    }
    QVERIFY(!StyleSheet::set(":/qss_im/none.qss", {}));
    for (const char* const rule :
         {"QPushButton#m_btnMaxSwitch:hover { background-color: rgb(231,105,0); background-image: "
          "url(:/img_im/ImageResource/ic_btn_linkswitch_normal.png); }",
          "combo_ic_top_normal.png); background-repeat: repeat; background-position: bottom; }",
          "combo_ic_down_normal.png); background-repeat: repeat; background-position: up; }",
          "QComboBox QAbstractItemView { padding: 4px 2px 5px 2px; font: 11pt; outline: 0; background-color: "
          "white; }",
          "QWidget#QZelIfModuleMainView { background-color: white; border: 1px solid rgb(38,38,38); }",
          "QScrollBar::handle:vertical, QScrollBar::handle:horizontal { border: 1px solid rgb(191,191,191);",
          "QScrollBar::add-line:vertical, QScrollBar::add-line:horizontal { height: 0px; }",
          "QScrollBar::sub-page:vertical, QScrollBar::sub-page:horizontal { background: none; }"}) {
        QVERIFY2(sheets.contains(rule), rule);
    }
    // Every image that a rule names is in the bundle.
    for (const QString& part : sheets.split("url(").mid(1)) {
        QVERIFY2(QFile::exists(part.section(')', 0, 0)), qPrintable(part));
    }
    QString images;
    for (const QFileInfo& file : QDir(":/img_im/ImageResource").entryInfoList(QDir::Files, QDir::Name)) {
        const QImage image(file.filePath());
        images += QString("%1 %2x%3 ").arg(file.baseName()).arg(image.width()).arg(image.height());
        QVERIFY2(image.format() == QImage::Format_ARGB32, qPrintable(file.baseName()));
        QCOMPARE(QResource(file.filePath()).compressionAlgorithm(), QResource::NoCompression);
    }
    QCOMPARE(
        images,
        QString("combo_ic_down_click 20x16 combo_ic_down_normal 20x16 combo_ic_top_click 20x16 "
                "combo_ic_top_normal 20x16 combo_ic_triangle_click 16x16 combo_ic_triangle_normal 16x16 "
                "ic_add_highlight 20x20 ic_add_normal 20x20 ic_btn_editswitch_click 26x26 "
                "ic_btn_editswitch_normal 26x26 ic_btn_linkswitch_click 26x26 ic_btn_linkswitch_normal 26x26 "
                "ic_dark_delete_click 24x24 ic_dark_delete_normal 24x24 ic_link_gray_click 32x32 "
                "ic_link_gray_normal 32x32 img_none 24x24 msg_close_normal 24x24 "));
}

QTEST_MAIN(tst_panel)
#include "tst_panel.moc"
