#include "HorizontalControlIM.h"
#include "LogCapture.h"
#include "PanelTour.h"

#include <cstdio>

using namespace ZelCore;

namespace {

// A panel that is shown with these conditions.
struct Fixture : PanelTour
{
    explicit Fixture(const QByteArray& ifText = "0") { show(ifText); }
    int rows() const { return all("m_labName").size(); }
    QLineEdit* note(int row = 0) const { return all<QLineEdit>("m_ediNote").value(row); }
    RangeSelectControlIM* strip() const { return panel->findChild<RangeSelectControlIM*>(); }
    QDoubleSpinBox* lower() const { return find<QDoubleSpinBox>("m_spbMinPullBar"); }
    QDoubleSpinBox* upper() const { return find<QDoubleSpinBox>("m_spbMaxPullBar"); }
    QString bounds() const { return lower()->text() + ' ' + upper()->text(); }
};

// Sends a wheel event as the window system does.
void turnWheelOver(const QWidget* widget)
{
    const QWidget* const window = widget->window();
    const QPoint place = widget->mapTo(window, widget->rect().center());
    QWheelEvent event(place, window->mapToGlobal(place), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window->windowHandle(), &event);
}

} // namespace

class tst_panel : public QObject
{
    Q_OBJECT

private slots:
    void transcripts_data();
    void transcripts();
    void loads();
    void unusualAdding();
    void addedRowsAreInSight();
    void changesBesideOpenFields();
    void warnings();
    void destroyedRows();
    void looksOfARow();
    void longBoundsFit();
    void sliderMoves();
    void sliderCloses();
    void wheelScrollsTheList();
    void resources();
    void nothingIsClipped();
};

void tst_panel::transcripts_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("locale");
    for (const QString run : {"tour-C", "loading-C", "reading-C", "adding-C", "bounds-C", "bounds-de_DE",
                              "bounds-ar_EG", "finishing-C", "slider-C", "notes-C"}) {
        QTest::newRow(qPrintable(run)) << run.section('-', 0, 0) + ".txt" << run.section('-', 1);
    }
}

// The transcript of the tour lists commands, log and output, the others commands and visible texts.
void tst_panel::transcripts()
{
    QFETCH(QString, file);
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    const auto reset = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
    const QStringList lines = PanelTour::linesOf(file);
    PanelTour tour;
    QStringList happened;
    LogCapture log;
    char* printed = nullptr;
    std::size_t size = 0;
    std::FILE* const standardOutput = std::exchange(stdout, open_memstream(&printed, &size));
    const auto take = [&] {
        // The place of the slider is the window system's.
        static const QRegularExpression place("^(\\d+ ?){4}$");
        QStringList logged = log.takeLines().replaceInStrings(place, "(x y width height)");
        logged.replaceInStrings(QRegularExpression("^"), "| ");
        std::fflush(stdout);
        if (size != 0) {
            logged << "* " + QString::fromUtf8(printed, static_cast<int>(size));
            std::rewind(stdout);
        }
        happened << (file == "tour.txt" ? logged.replaceInStrings("\n", "\\n") : QStringList())
                 << std::exchange(tour.reports, {});
    };
    tour.core.fault = [&](const QString& command) {
        take();
        happened << command;
        return std::nullopt;
    };
    for (const QString& step : lines.filter(QRegularExpression("^> "))) {
        happened << step;
        tour.perform(step.mid(2));
        take();
    }
    std::fclose(std::exchange(stdout, standardOutput));
    std::free(printed);
    for (int i = 0; i < qMax(happened.size(), lines.size()); ++i) { // with the lines before
        QCOMPARE(QStringList(happened.mid(i - 3, 4)).join('\n'), QStringList(lines.mid(i - 3, 4)).join('\n'));
    }
    QCOMPARE(log.warnings(), QStringList());
}

void tst_panel::loads()
{
    Fixture f("%int0%:0:100:a;%float0%:0.500:2.250:孔;");
    const std::pair<const char*, QWidget*> columns[] = {{"lab_name", f.find("m_labName")},
                                                        {"lab_note", f.note()},
                                                        {"lab_condition", f.find("input")},
                                                        {"lab_effectRange", f.strip()}};
    for (const auto& [heading, column] : columns) {
        const QWidget* const label = f.find(heading);
        QCOMPARE(label->mapTo(f.panel, QPoint()).x(), column->mapTo(f.panel, QPoint()).x());
        QVERIFY2(label->width() >= column->width(), heading);
    }
    // In a dialog without a default button Return would click the first that is auto-default.
    for (const auto* const button : f.panel->findChildren<QPushButton*>()) {
        QVERIFY2(!button->autoDefault(), qPrintable(button->objectName()));
    }
    // A focused note with unsaved text goes with its row and must not store half a list.
    f.perform("type m_ediNote unsaved");
    f.panel->QueryIfModuleInfo();
    QVERIFY(f.core.takeCommands().filter("Set").isEmpty() && f.rows() == 2);
    QCOMPARE(f.note()->text() + f.note()->toolTip(), QString("aa"));
    // The focus stays where it is.
    auto* const field = new QLineEdit("host", &f.host);
    field->show();
    QSignalSpy focusChanges(qApp, &QApplication::focusChanged);
    for (auto* const focus : QWidgetList{field, f.panel->nextInFocusChain(), f.find("btn_add")}) {
        focus->setFocus();
        focusChanges.clear();
        f.panel->QueryIfModuleInfo();
        QCOMPARE(focusChanges.count(), 0);
        QVERIFY2(!field->hasSelectedText(), "a field of the host is entered once more");
    }
    // More rows than a user can add are loaded, also into a hidden list.
    f.core.parameters["IFText"] = QByteArray("%int0%:1:2:;").repeated(200);
    f.panel->QueryIfModuleInfo();
    QVERIFY(f.rows() == 200 && f.find("m_btnDelete:199")->isVisible());
    f.find("widget_2")->hide();
    f.panel->QueryIfModuleInfo();
    QVERIFY(f.find("widget_2")->isHidden());
}

void tst_panel::unusualAdding()
{
    Fixture f;
    {
        LogCapture log;
        log.failure = "m_mapIMHorControls";
        QVERIFY_EXCEPTION_THROWN(f.panel->on_btn_add_clicked(), ZelCommon::ZelException);
    }
    // The registered row is in the list, and is stored.
    f.panel->onLogicValueChanged2SetParam();
    QVERIFY(f.rows() == 1 && f.stored() == "%int0%:1:1000:;");
    // A type word that is neither int nor float.
    f.find<QComboBox>("cbox_typeSelect")->setItemText(0, "bool");
    f.perform("click btn_add");
    QVERIFY(f.core.takeCommands().contains("AddIO 7 %% class=1 type= flags=01110101111"));
    QCOMPARE(f.stored(), QByteArray("%int0%:1:1000:;%%:0:0:;"));
}

void tst_panel::addedRowsAreInSight()
{
    Fixture f(QByteArray("%int0%:1:2:;").repeated(20));
    f.core.parameters["@%int1%Start"] = "True";
    f.find<QPushButton>("btn_add")->click();
    QCOMPARE(f.core.lastTimeOut, 5000u);
    QCoreApplication::processEvents();
    QCOMPARE(f.note(20)->visibleRegion(), QRegion(f.note(20)->rect()));
    // Tab leads to note, selector, bounds, switches, and delete.
    QString order;
    f.note(20)->setFocus();
    for (int i = 0; i < 7; ++i) {
        QWidget* const focus = QApplication::focusWidget();
        order += (focus->inherits("QToolButton") ? focus->parent() : focus)->objectName() + ' ';
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    QCOMPARE(order, QString("m_ediNote  m_bsvMinNumSubscribe m_spbMaxPullBar m_btnMinSwitch m_btnMaxSwitch "
                            "m_btnDelete "));
}

void tst_panel::changesBesideOpenFields()
{
    // An add moves the list, which closes an open slider, but stores nothing before the new row's IOs exist.
    Fixture f("%int0%:60:5:;");
    f.perform("click m_spbMinPullBar");
    f.perform("refuse AddIO");
    f.core.takeCommands();
    f.find<QPushButton>("btn_add")->click();
    QCOMPARE(f.core.takeCommands().filter(QRegularExpression("^(AddIO|Set)")),
             QStringList("AddIO 7 %int1% class=1 type=int flags=01110101111"));
    // A row that is deleted moves the focus from its note to a bound, which is no edit to finish.
    f.perform("click m_ediNote");
    LogCapture log;
    f.panel->onBtnDeleteOpt("int0");
    QCOMPARE(log.takeLines().filter("onRangeEditFinish"), QStringList());
}

// A row, and then the panel, is deleted while a warning about it is open.
void tst_panel::warnings()
{
    Fixture f("%int0%:0:100:a;" + QByteArray("%int1%:1:2:;").repeated(31));
    LogCapture log;
    f.afterEvent = [&f] { f.find<QPushButton>("m_btnDelete")->click(); };
    emit f.find<ButtonSelecterView>("input")->sigEdiSubscribeInfoChanged("5.Refused");
    QCOMPARE(f.rows(), 31);
    auto* const add = f.find<QPushButton>("btn_add");
    f.afterEvent = [] {};
    add->click();
    f.core.takeCommands();
    log.takeLines();
    f.afterEvent = [&f] { delete f.panel; };
    add->click();
    QCOMPARE(f.reports + f.core.takeCommands() + log.takeLines(),
             QStringList({"! 未找到绑定数据", "! 最多添加: 32 (over the panel)"}));
}

// A row that the host destroyed is not read again.
void tst_panel::destroyedRows()
{
    Fixture f("%int0%:1:2:a;%int1%:3:4:b;");
    delete f.panel->findChild<HorizontalControlIM*>();
    f.panel->QueryIfModuleInfo();
    QCOMPARE(f.rows(), 2);
    delete f.panel->findChild<HorizontalControlIM*>();
    f.perform("click btn_add");
    f.perform("click lab_help");
    QCOMPARE(f.core.parameters["IFText"], QByteArray("%int1%:3:4:b;%int0%:1:1000:;"));
}

void tst_panel::looksOfARow()
{
    Fixture f("%int0%:0:100:a;");
    QStringList styled;
    for (const auto* const widget : f.panel->findChildren<QWidget*>()) {
        if (widget->styleSheet() == f.note()->styleSheet()) {
            styled << (widget == f.strip() ? "strip" : widget->objectName());
        }
    }
    styled.sort();
    QCOMPARE(styled.join(' '),
             "m_btnDelete m_btnLine m_ediNote m_labName m_spbMaxPullBar m_spbMinPullBar strip");
    // The widgets of the strip for constant bounds, for subscribed ones, and for constant ones again.
    QVERIFY(f.strip()->size() == QSize(230, 30) && (f.strip()->windowFlags() & Qt::FramelessWindowHint));
    const QString edit = "background-image: url(:/img_im/ImageResource/ic_btn_editswitch_normal.png);";
    const QString link = "background-image: url(:/img_im/ImageResource/ic_btn_linkswitch_normal.png);";
    for (const QString& sheet : {QString(), edit, link}) {
        QString shown;
        for (int i = 0; i < f.strip()->layout()->count(); ++i) {
            const QWidget* const widget = f.strip()->layout()->itemAt(i)->widget();
            const QSize size = widget->maximumSize();
            shown += widget->isHidden()
                         ? QString()
                         : widget->objectName() + QString(" %1x%2 ").arg(size.width()).arg(size.height());
        }
        QCOMPARE(shown, QString("m_%1Min%2 80x30 m_btnMinSwitch 30x30 m_btnLine 10x1 m_%1Max%2 80x30 "
                                "m_btnMaxSwitch 30x30 ")
                            .arg(sheet == edit ? "bsv" : "spb", sheet == edit ? "NumSubscribe" : "PullBar"));
        for (const char* const name : {"m_btnMinSwitch", "m_btnMaxSwitch"}) {
            QCOMPARE(f.find(name)->styleSheet(), sheet);
            f.find<QPushButton>(name)->click();
        }
    }
    f.core.takeCommands();
    f.strip()->onQuerySubscribeMenuInfo("int"); // not sent by a selector
    QCOMPARE(f.core.takeCommands(), QStringList("QuerySubscribeTree 7 range=1 types=1 int"));
}

void tst_panel::longBoundsFit()
{
    Fixture f("%int0%:0:100:;");
    auto* const edit = f.lower()->findChild<QLineEdit*>();
    f.perform("type m_spbMinPullBar 23328824");
    f.strip()->SetCurrentMax(23328825);
    f.upper()->setFocus();
    QVERIFY(edit->fontMetrics().horizontalAdvance("23328824.000") <= edit->width() - 4);
    QCOMPARE(edit->text() + f.lower()->toolTip(), QString("23328824.00023328824.000"));
    // What does not fit even so ends in an ellipsis.
    f.strip()->SetCurrentMin(-999999999);
    const QImage picture = edit->grab().toImage();
    bool isElided = false;
    const QSignalBlocker quiet(edit);
    for (int length = 13; length > 0; --length) {
        edit->setText(QString("-999999999.000").left(length) + QChar(0x2026));
        isElided = isElided || edit->grab().toImage() == picture;
    }
    QVERIFY(isElided);
}

void tst_panel::sliderMoves()
{
    Fixture f("%int0%:1:1000:;");
    QSignalSpy lower(f.strip(), &RangeSelectControlIM::sigMinRangeChanged);
    QSignalSpy upper(f.strip(), &RangeSelectControlIM::sigMaxRangeChanged);
    const auto refuseEdit = [&f] {
        f.lower()->setValue(2000);
        f.strip()->onRangeEditFinish();
    };
    f.strip()->onQmlRangeSliderValueChanged(10, 90);
    QVERIFY(f.bounds() == "10.000 90.000" && lower.count() == 1 && upper.isEmpty());
    refuseEdit();
    QCOMPARE(f.bounds(), QString("10.000 90.000"));
    LogCapture log;
    f.strip()->onRangeSliderLowerValueChanged(3);
    f.strip()->onRangeSliderUpperValueChanged(4);
    QVERIFY(f.bounds() == "3.000 4.000" && lower.count() == 2 && upper.count() == 1);
    QCOMPARE(log.takeLines(),
             QStringList("[RangeSelectControlIM]: onRangeSliderLowerValueChanged start. value=[3]"));
    refuseEdit();
    QVERIFY(f.bounds() == "3.000 4.000" && f.strip()->GetCurrentMin() == 3 &&
            f.strip()->GetCurrentMax() == 4);
    f.strip()->SetRange(0, 10);
    QVERIFY(f.upper()->maximum() == 10 && f.strip()->GetMaxRange() == 999999999);
    // A bound that the slider sets is no unfinished edit: hiding stores nothing.
    f.perform("disable ok");
    f.lower()->setFocus();
    f.strip()->onQmlRangeSliderValueChanged(5, 6);
    f.core.takeCommands();
    f.perform("hide");
    QCOMPARE(f.core.takeCommands(), QStringList());
}

void tst_panel::sliderCloses()
{
    // What is done while a bound has the focus, whether it closes the slider, and whether it finishes the
    // edit.
    const std::tuple<const char*, std::function<void(Fixture&)>, bool, bool> cases[] = {
        {"layout", [](Fixture& f) { QApplication::postEvent(&f.host, new QEvent(QEvent::LayoutRequest)); },
         true, false},
        {"focus elsewhere", [](Fixture& f) { f.note()->setFocus(); }, true, true},
        {"focus in the other field", [](Fixture& f) { f.upper()->setFocus(); }, false, true},
        {"Escape", [](Fixture& f) { QTest::keyClick(f.lower(), Qt::Key_Escape); }, true, false},
        {"another key", [](Fixture& f) { QTest::keyClick(f.lower(), Qt::Key_1); }, false, false},
        {"wheel over the list", [](Fixture& f) { turnWheelOver(f.find("widget_2")); }, true, false},
        {"wheel in the slider", [](Fixture& f) { turnWheelOver(f.find("slider")); }, false, false},
        {"the list moves", [](Fixture& f) { f.find("widget_2")->move(0, -30); }, true, false},
        {"the window moves", [](Fixture& f) { f.host.move(50, 50); }, false, false}};
    for (const auto& [what, act, isClosed, isFinished] : cases) {
        Fixture f("%int0%:1:1000:;");
        for (const auto* const spinBox : {f.upper(), f.lower(), f.lower()}) {
            QTest::mouseClick(spinBox->findChild<QLineEdit*>(), Qt::LeftButton);
            QVERIFY(f.find("slider"));
        }
        QCOMPARE(f.find("slider")->geometry(), QRect(f.lower()->mapToGlobal(QPoint(0, 30)), QSize(230, 25)));
        f.core.takeCommands();
        act(f);
        QCoreApplication::sendPostedEvents(&f.host, QEvent::LayoutRequest);
        QVERIFY2(!f.find("slider") == isClosed, what);
        QVERIFY2(f.lower()->hasFocus() != isFinished, what);
        QVERIFY2(f.core.takeCommands().size() == int(isClosed) + int(isFinished), what);
    }
}

void tst_panel::wheelScrollsTheList()
{
    Fixture f(QByteArray("%int0%:1:2:;").repeated(20));
    auto* const bar = f.find<QScrollArea>("scrollArea")->verticalScrollBar();
    for (const char* const name : {"m_spbMinPullBar", "m_spbMaxPullBar", "cbox_determineType"}) {
        QWidget* const widget = f.find(name);
        for (const bool hasFocus : {false, true}) {
            f.find(hasFocus ? name : "btn_add")->setFocus();
            bar->setValue(0);
            const QImage before = widget->grab().toImage();
            turnWheelOver(widget);
            QVERIFY2(widget->hasFocus() == hasFocus && (bar->value() == 0) == hasFocus, name);
            QVERIFY2((widget->grab().toImage() != before) == hasFocus, name);
        }
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
    for (const QString& rule : PanelTour::linesOf("rules.txt")) {
        QVERIFY2(sheets.contains(rule), qPrintable(rule));
    }
    // Every image that a rule names is in the bundle.
    for (const QString& part : sheets.split("url(").mid(1)) {
        QVERIFY2(QFile::exists(part.section(')', 0, 0)), qPrintable(part));
    }
    QStringList images;
    for (const QFileInfo& file : QDir(":/img_im/ImageResource").entryInfoList(QDir::Files, QDir::Name)) {
        const QImage image(file.filePath());
        images << QString("%1 %2 x %3").arg(file.fileName()).arg(image.width()).arg(image.height());
        QVERIFY2(image.format() == QImage::Format_ARGB32, qPrintable(file.fileName()));
        QCOMPARE(QResource(file.filePath()).compressionAlgorithm(), QResource::NoCompression);
    }
    QCOMPARE(images, PanelTour::linesOf("images.txt"));
    // Without the bundle each class logs that its sheet is missing.
    Q_CLEANUP_RESOURCE(QSS_IM);
    const auto restore = qScopeGuard([] { Q_INIT_RESOURCE(QSS_IM); });
    LogCapture log;
    Fixture f("%int0%:1:2:;");
    const QString line = "[%1]: InitUI %2 qss file open failed.";
    QCOMPARE(log.takeLines().filter("qss"),
             QStringList({line.arg("QIfModuleMainView", "QIfModuleMainView"),
                          line.arg("RangeSelectControlIM", "HorizontalControlIM"),
                          line.arg("HorizontalControlIM", "HorizontalControlIM")}));
    QCOMPARE(log.warnings().filter(QRegularExpression("^(?!QMetaObject::connectSlots)")), QStringList());
}

// Whatever the host's language, fonts and scale are; run once for each scale factor, which a process can't
// change. The last test: the settings stay.
void tst_panel::nothingIsClipped()
{
    const std::pair<const char*, const char*> hosts[] = {
        {"de_DE", "DejaVu Sans"}, {"ar_EG", "DejaVu Sans"}, {"zh_CN", "WenQuanYi Micro Hei"}};
    for (const auto& [locale, font] : hosts) {
        QLocale::setDefault(QLocale(locale));
        QApplication::setLayoutDirection(QLocale().textDirection());
        QApplication::setFont(QFont(font));

        // The longest names, and bounds of all lengths; what is longer than these is elided.
        QString list;
        for (int digits = 1; digits < 8; ++digits) {
            const QString number(digits, '8');
            list += QString("%int%1%:-%2:%2:;").arg(22 + digits).arg(number);
            list +=
                digits < 6 ? QString("%float%1%:-%2.888:%2.888:;").arg(22 + digits).arg(number) : QString();
        }
        Fixture tour(list.toUtf8());
        QCOMPARE(tour.shown(), list.toUtf8());

        for (const auto* const label : tour.panel->findChildren<QLabel*>()) {
            QVERIFY2(label->isHidden() || label->width() >= label->sizeHint().width(),
                     qPrintable(label->text()));
        }
        for (const auto* const edit : tour.all<QLineEdit>("qt_spinbox_lineedit")) {
            // What QLineEdit leaves for a text.
            const int room =
                edit->contentsRect().width() - edit->textMargins().left() - edit->textMargins().right() - 4;
            QVERIFY2(edit->fontMetrics().horizontalAdvance(edit->text()) <= room, qPrintable(edit->text()));
        }
        for (auto* const combo : tour.panel->findChildren<QComboBox*>()) {
            const int width = combo->fontMetrics().horizontalAdvance(combo->currentText());
            QVERIFY2(width <= combo->width() - 20, qPrintable(combo->currentText()));
            combo->showPopup();
            QVERIFY(combo->view()->visualRect(combo->model()->index(1, 0)).height() >= 30);
            combo->hidePopup();
        }
        QRegion covered;
        for (const char* const name : {"m_labName", "m_ediNote", "m_spbMinPullBar", "m_btnMinSwitch",
                                       "m_spbMaxPullBar", "m_btnMaxSwitch", "m_btnDelete"}) {
            for (const QWidget* const widget : tour.all(name)) {
                const QRect place(widget->mapTo(tour.find("widget_2"), QPoint()), widget->size());
                QVERIFY2(tour.find("widget_2")->rect().contains(place) && !covered.intersects(place), name);
                covered += place;
            }
        }
    }
}

QTEST_MAIN(tst_panel)
#include "tst_panel.moc"
