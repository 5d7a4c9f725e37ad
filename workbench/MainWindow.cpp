#include "MainWindow.h"

#include "ConditionsFile.h"
#include "CoreSession.h"
#include "LanguageChange.h"
#include "PanelPlugin.h"
#include "Translations.h"
#include "WorkbenchApplication.h"
#include "WorkbenchSettings.h"
#include "commands/CommandLogView.h"
#include "faults/FaultsView.h"
#include "inspector/InspectorView.h"
#include "inspector/StoredStatus.h"
#include "run/RunDock.h"

#include <QActionGroup>
#include <QApplication>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize preferredSize(1400, 860);
// A screen with less room starts without the docks at the right, or below.
constexpr int widthForRightDocks = 1280;
constexpr int heightForLowerDocks = 740;
const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");

QString conditionFiles()
{
    return MainWindow::tr("Conditions (*.json)");
}

// The flow file that is dragged; empty for anything else, and while a dialog waits for an answer: it would go
// with the window.
QString draggedFlow(const QMimeData& data)
{
    const QList<QUrl> urls = QApplication::activeModalWidget() ? QList<QUrl>() : data.urls();
    const QString file = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return file.endsWith(QLatin1String(".json"), Qt::CaseInsensitive) ? file : QString();
}

} // namespace

MainWindow::MainWindow(CoreSession& session, const PanelPlugin& plugin, WorkbenchSettings& settings)
    : m_session(session)
    , m_plugin(plugin)
    , m_settings(settings)
    , m_module(session)
    , m_history(m_module)
{
    setAcceptDrops(true);
    createMenus();

    setTranslated(m_moduleList, "accessibleName", QT_TR_NOOP("modules of the flow"));
    for (const FlowModule& module : session.flow().modules()) {
        m_moduleList->addItem(
            QStringLiteral("%1  %2\n%3").arg(QString::number(module.id), module.name, module.kind));
    }
    m_moduleList->setSpacing(3);
    connect(m_moduleList, &QListWidget::currentRowChanged, this, &MainWindow::showModuleAt);

    auto* const splitter = new QSplitter;
    splitter->addWidget(m_moduleList);
    auto* const centre = new QWidget;
    auto* const centreLayout = new QVBoxLayout(centre);
    centreLayout->setContentsMargins({});
    centreLayout->addWidget(m_pages, 1);
    centreLayout->addWidget(new StoredStatus(m_module));
    splitter->addWidget(centre);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({230, 870});
    splitter->setChildrenCollapsible(false);
    setCentralWidget(splitter);

    auto* const inspector = new InspectorView(m_module);
    addDock("inspectorDock", QT_TR_NOOP("Inspector"), inspector, Qt::RightDockWidgetArea);
    auto* const runDock = new RunDock(m_module);
    addDock("runDock", QT_TR_NOOP("Run"), runDock, Qt::BottomDockWidgetArea);
    connect(runDock, &RunDock::resultsChosen, inspector, &InspectorView::setResults);
    for (QAction* const action : runDock->runActions()) {
        m_runMenu->addAction(action);
        connect(action, &QAction::triggered, this, [this] {
            dock("runDock")->show();
            dock("runDock")->raise();
        });
    }
    addDock("commandLogDock", QT_TR_NOOP("Commands"), new CommandLogView(session.tap()),
            Qt::BottomDockWidgetArea);
    addDock("faultsDock", QT_TR_NOOP("Faults"), new FaultsView(session.faults()), Qt::RightDockWidgetArea);
    tabifyDockWidget(dock("runDock"), dock("commandLogDock"));
    tabifyDockWidget(dock("inspectorDock"), dock("faultsDock"));
    dock("runDock")->raise();
    dock("inspectorDock")->raise();

    for (QLabel* const label : {m_flowLabel, m_storeLabel}) {
        label->setContentsMargins(4, 0, 12, 0);
        statusBar()->addWidget(label);
    }

    auto* const faultLabel = Widgets::named("faultLabel", new QLabel);
    faultLabel->setStyleSheet(QStringLiteral("background: #b02020; color: white; padding: 0 8px"));
    setTranslated(faultLabel, "text", QT_TR_NOOP("Faults are armed"));
    statusBar()->addPermanentWidget(faultLabel);
    const auto showFaults = [=] { faultLabel->setVisible(m_session.faults().plan().isArmed()); };
    connect(&session.faults(), &FaultInjector::planChanged, this, showFaults);
    showFaults();

    new LanguageChange(this, [this] { retranslate(); });
    arrange();
    restoreGeometry(settings.value(geometryKey).toByteArray());
    restoreState(settings.value(stateKey).toByteArray());
}

void MainWindow::arrange()
{
    // A screen's bars are left out of its room, the window's frame is not.
    const QSize room = WorkbenchApplication::isOnScreen() ? screen()->availableSize()
                                                          : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    for (const char* const name : {"inspectorDock", "faultsDock"}) {
        dock(name)->setVisible(room.width() >= widthForRightDocks);
    }
    for (const char* const name : {"runDock", "commandLogDock"}) {
        dock(name)->setVisible(room.height() >= heightForLowerDocks);
    }
    layout()->activate(); // what is hidden no longer counts
    resize(preferredSize.boundedTo(room - QSize(4, 32)));
    // What the list, the panel and the bars leave.
    resizeDocks({dock("inspectorDock")}, {std::min(540, width() - 230 - 640)}, Qt::Horizontal);
    resizeDocks({dock("runDock")}, {std::min(310, height() - 540)}, Qt::Vertical);
}

void MainWindow::setTranslated(QObject* object, const char* property, const char* text)
{
    m_translated << Translated{object, property, text};
}

QMenu* MainWindow::addMenu(const char* title)
{
    QMenu* const menu = menuBar()->addMenu(QString());
    setTranslated(menu, "title", title);
    return menu;
}

QAction* MainWindow::addMenuAction(QMenu* menu, const char* text, const std::function<void()>& act,
                                   const QKeySequence& shortcut)
{
    QAction* const action = menu->addAction(QString(), this, act, shortcut);
    setTranslated(action, "text", text);
    return action;
}

void MainWindow::createMenus()
{
    QMenu* const file = addMenu(QT_TR_NOOP("&File"));
    addMenuAction(
        file, QT_TR_NOOP("&Open flow..."), [this] { askForFlow(); }, QKeySequence::Open);
    QMenu* const recent = file->addMenu(QString());
    setTranslated(recent, "title", QT_TR_NOOP("&Recent flows"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] {
        recent->clear();
        for (const QString& flow : m_settings.recentFlows()) {
            recent->addAction(flow, this, [this, flow] { emit flowChosen(flow); });
        }
    });
    addMenuAction(
        file, QT_TR_NOOP("Re&load flow"), [this] { emit flowChosen(m_session.flowFile()); },
        QKeySequence::Refresh);
    file->addSeparator();
    auto* const import =
        addMenuAction(file, QT_TR_NOOP("&Import conditions..."), [this] { importConditions(); });
    auto* const write =
        addMenuAction(file, QT_TR_NOOP("&Export conditions..."), [this] { exportConditions(); });
    file->addSeparator();
    addMenuAction(
        file, QT_TR_NOOP("&Quit"), [this] { close(); }, QKeySequence::Quit);

    auto* const undo = addMenuAction(
        addMenu(QT_TR_NOOP("&Edit")), QT_TR_NOOP("&Undo"),
        [this] { replaceStored([this](QString* error) { return m_history.undo(error); }); },
        QKeySequence::Undo);
    const auto updateActions = [=] {
        import->setEnabled(m_module.panel());
        write->setEnabled(m_module.panel());
        undo->setEnabled(m_module.panel() && m_history.canUndo());
    };
    connect(&m_history, &UndoHistory::changed, this, updateActions);
    updateActions();
    qApp->installEventFilter(this);

    m_runMenu = addMenu(QT_TR_NOOP("&Run"));
    m_viewMenu = addMenu(QT_TR_NOOP("&View"));

    m_languageMenu = menuBar()->addMenu(QStringLiteral("&Language / 语言"));
    auto* const languages = new QActionGroup(this);
    for (const Translations::Language& language : Translations::languages()) {
        QAction* const action = languages->addAction(language.name);
        action->setCheckable(true);
        action->setData(language.code);
    }
    m_languageMenu->addActions(languages->actions());
    connect(languages, &QActionGroup::triggered, this,
            [this](const QAction* action) { emit languageChosen(action->data().toString()); });

    addMenuAction(addMenu(QT_TR_NOOP("&Help")), QT_TR_NOOP("&About"), [this] { showAbout(); });
}

void MainWindow::retranslate()
{
    setWindowTitle(m_session.flow().name());
    for (const Translated& each : qAsConst(m_translated)) {
        each.object->setProperty(each.property, tr(each.text));
    }
    m_flowLabel->setText(tr("Flow: %1").arg(QFileInfo(m_session.flowFile()).fileName()));
    m_flowLabel->setToolTip(QFileInfo(m_session.flowFile()).absoluteFilePath());
    m_storeLabel->setText(tr("Store: %1").arg(QFileInfo(m_session.storeFile()).fileName()));
    m_storeLabel->setToolTip(QFileInfo(m_session.storeFile()).absoluteFilePath());
    for (auto it = m_pageOf.cbegin(); it != m_pageOf.cend(); ++it) {
        for (auto* const model : it->widget->findChildren<InspectionTableModel*>()) {
            model->setTable(ModuleInspection::outputs(*m_session.flow().module(it.key())));
        }
    }
}

void MainWindow::setLanguage(const QString& code)
{
    const auto actions = m_languageMenu->actions();
    for (QAction* const action : actions) {
        action->setChecked(action->data().toString() == code);
    }
    for (const Page& page : qAsConst(m_pageOf)) {
        if (page.panel) {
            m_plugin.retranslate(page.panel);
        }
    }
}

void MainWindow::remember()
{
    m_settings.setValue(geometryKey, saveGeometry());
    m_settings.setValue(stateKey, saveState());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    remember();
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!draggedFlow(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QString file = draggedFlow(*event->mimeData());
    if (!file.isEmpty()) {
        event->acceptProposedAction();
        emit flowChosen(file);
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        const auto* edit = qobject_cast<const QLineEdit*>(watched);
        edit = edit ? edit : watched->findChild<const QLineEdit*>();
        return edit && !edit->isUndoAvailable();
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::importConditions()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Import conditions"), QString(), conditionFiles());
    if (!file.isEmpty()) {
        replaceStored([&](QString* error) {
            *error = WorkbenchApplication::refusal(file);
            return error->isEmpty() && ConditionsFile::import(file, m_session.core(), m_module.id(), error);
        });
    }
}

void MainWindow::exportConditions()
{
    const QString file = WorkbenchApplication::fileToSave(
        this, tr("Export conditions"), QStringLiteral("conditions.json"), conditionFiles());
    QString error = m_module.error();
    if (!file.isEmpty() &&
        !(m_module.configuration() && ConditionsFile::write(file, *m_module.configuration(), &error))) {
        WorkbenchApplication::tellError(error);
    }
}

void MainWindow::replaceStored(const std::function<bool(QString*)>& replace)
{
    // Hiding the panel saves an unfinished edit, showing it loads what is stored.
    QWidget* const panel = m_module.panel();
    QString error;
    panel->hide();
    const bool isDone = replace(&error);
    m_module.refresh();
    panel->show();
    if (!isDone) {
        WorkbenchApplication::tellError(error);
    }
}

void MainWindow::askForFlow()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Open flow"), QFileInfo(m_session.flowFile()).absolutePath(),
                                     tr("Inspection flows (*.json)"));
    if (!file.isEmpty()) {
        emit flowChosen(file);
    }
}

void MainWindow::showAbout()
{
    QMessageBox::about(this, QString(),
                       tr("<b>If Workbench %1</b><p>Shows an inspection flow and the configuration panels of "
                          "its If modules.<p>Qt %2")
                           .arg(QCoreApplication::applicationVersion(), QLatin1String(qVersion())));
}

void MainWindow::showModule(unsigned int moduleId)
{
    const auto& modules = m_session.flow().modules();
    m_moduleList->setCurrentRow(static_cast<int>(m_session.flow().module(moduleId) - modules.constData()));
}

void MainWindow::showModuleAt(int row)
{
    if (row < 0) {
        return;
    }
    const FlowModule& module = m_session.flow().modules().at(row);
    Page& page = m_pageOf[module.id];
    if (!page.widget) {
        page = createPage(module);
        m_pages->addWidget(page.widget);
    }
    m_pages->setCurrentWidget(page.widget);
    m_module.set(module.id, page.panel);
}

void MainWindow::addDock(const char* name, const char* title, QWidget* content, Qt::DockWidgetArea area)
{
    auto* const added = Widgets::named(name, new QDockWidget(this));
    setTranslated(added, "windowTitle", title);
    added->setWidget(content);
    addDockWidget(area, added);
    // A dock behind another one, as a tab, counts as visible; Tab must not go there.
    connect(added, &QDockWidget::visibilityChanged, content, &QWidget::setEnabled);
    m_viewMenu->addAction(added->toggleViewAction());
}

QDockWidget* MainWindow::dock(const char* name) const
{
    return findChild<QDockWidget*>(QString::fromLatin1(name));
}

MainWindow::Page MainWindow::createPage(const FlowModule& module)
{
    Page page;
    page.widget = new QWidget;
    auto* const heading = new QLabel(QStringLiteral("<b>%1</b>").arg(module.name.toHtmlEscaped()));
    // What an open slider did is saved when the widget two levels above its panel is hidden: the page.
    auto* const frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    auto* const pageLayout = new QVBoxLayout(page.widget);
    pageLayout->addWidget(heading);
    pageLayout->addWidget(frame, 1);
    auto* const frameLayout = new QVBoxLayout(frame);
    QString error;
    if (module.kind != Flow::ifKind()) {
        auto* const outputs = new InspectionTableModel(page.widget);
        outputs->setTable(ModuleInspection::outputs(module));
        frameLayout->addWidget(InspectorView::createTable(*outputs, "outputTable"));
    } else if (!m_session.core().configuration(module.id, &error)) {
        auto* const text = new QLabel(error);
        text->setTextFormat(Qt::PlainText);
        text->setWordWrap(true);
        frameLayout->addWidget(text);
    } else if ((page.panel = m_plugin.createPanel(module.id, frame))) {
        frameLayout->setContentsMargins({});
        frameLayout->addWidget(page.panel);
    }
    return page;
}
