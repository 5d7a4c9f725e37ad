#include "MainWindow.h"

#include "ConditionsFile.h"
#include "CoreSession.h"
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
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize preferredSize(1400, 860);
// A screen with less room starts without the docks at the right, or below.
constexpr int widthForRightDocks = 1280;
constexpr int heightForLowerDocks = 740;

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
    , m_modules(session.flow())
    , m_module(session)
    , m_history(m_module)
    , m_moduleList(new QListView)
    , m_pages(new QStackedWidget)
    , m_storedStatus(new StoredStatus(m_module))
    , m_flowLabel(new QLabel)
    , m_storeLabel(new QLabel)
    , m_faultLabel(new QLabel)
{
    setAcceptDrops(true);
    createMenus();

    m_moduleList->setObjectName(QStringLiteral("moduleList"));
    m_moduleList->setModel(&m_modules);
    m_moduleList->setSpacing(3);
    connect(m_moduleList->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::showCurrentModule);

    auto* const splitter = new QSplitter;
    splitter->addWidget(m_moduleList);
    auto* const centre = new QWidget;
    auto* const centreLayout = new QVBoxLayout(centre);
    centreLayout->setContentsMargins({});
    centreLayout->addWidget(m_pages, 1);
    centreLayout->addWidget(m_storedStatus);
    splitter->addWidget(centre);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({230, 870});
    splitter->setChildrenCollapsible(false);
    setCentralWidget(splitter);

    auto* const inspector = new InspectorView(m_module);
    addDock(QStringLiteral("inspectorDock"), inspector, Qt::RightDockWidgetArea);
    auto* const runDock = new RunDock(m_module);
    addDock(QStringLiteral("runDock"), runDock, Qt::BottomDockWidgetArea);
    connect(runDock, &RunDock::resultsChosen, inspector, &InspectorView::setResults);
    for (QAction* const action : runDock->runActions()) {
        m_runMenu->addAction(action);
        connect(action, &QAction::triggered, this, [this] {
            dock("runDock")->show();
            dock("runDock")->raise();
        });
    }
    addDock(QStringLiteral("commandLogDock"), new CommandLogView(session.tap()), Qt::BottomDockWidgetArea);
    addDock(QStringLiteral("faultsDock"), new FaultsView(session.faults()), Qt::RightDockWidgetArea);
    tabifyDockWidget(dock("runDock"), dock("commandLogDock"));
    tabifyDockWidget(dock("inspectorDock"), dock("faultsDock"));
    dock("runDock")->raise();
    dock("inspectorDock")->raise();

    m_flowLabel->setObjectName(QStringLiteral("flowLabel"));
    m_storeLabel->setObjectName(QStringLiteral("storeLabel"));
    for (QLabel* const label : {m_flowLabel, m_storeLabel}) {
        label->setContentsMargins(4, 0, 12, 0);
        statusBar()->addWidget(label);
    }

    m_faultLabel->setObjectName(QStringLiteral("faultLabel"));
    m_faultLabel->setStyleSheet(QStringLiteral("background: #b02020; color: white; padding: 0 8px"));
    statusBar()->addPermanentWidget(m_faultLabel);
    const auto showFaults = [this] { m_faultLabel->setVisible(m_session.faults().plan().isArmed()); };
    connect(&session.faults(), &FaultInjector::planChanged, this, showFaults);
    showFaults();

    retranslate();
    arrange();
    restoreGeometry(settings.windowGeometry());
    restoreState(settings.windowState());
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

void MainWindow::createMenus()
{
    m_fileMenu = menuBar()->addMenu(QString());
    m_openAction = m_fileMenu->addAction(QString(), this, &MainWindow::askForFlow, QKeySequence::Open);
    m_recentMenu = m_fileMenu->addMenu(QString());
    connect(m_recentMenu, &QMenu::aboutToShow, this, &MainWindow::showRecentFlows);
    m_reloadAction = m_fileMenu->addAction(
        QString(), this, [this] { emit flowChosen(m_session.flowFile()); }, QKeySequence::Refresh);
    m_fileMenu->addSeparator();
    m_importAction = m_fileMenu->addAction(QString(), this, &MainWindow::importConditions);
    m_exportAction = m_fileMenu->addAction(QString(), this, &MainWindow::exportConditions);
    m_fileMenu->addSeparator();
    m_quitAction = m_fileMenu->addAction(QString(), this, &QWidget::close, QKeySequence::Quit);

    m_editMenu = menuBar()->addMenu(QString());
    m_undoAction = m_editMenu->addAction(QString(), this, &MainWindow::undo, QKeySequence::Undo);
    const auto updateActions = [this] {
        m_importAction->setEnabled(m_module.panel());
        m_exportAction->setEnabled(m_module.panel());
        m_undoAction->setEnabled(m_module.panel() && m_history.canUndo());
    };
    connect(&m_history, &UndoHistory::changed, this, updateActions);
    updateActions();
    qApp->installEventFilter(this);

    m_runMenu = menuBar()->addMenu(QString());
    m_viewMenu = menuBar()->addMenu(QString());

    m_languageMenu = menuBar()->addMenu(QString());
    auto* const languages = new QActionGroup(this);
    for (const Translations::Language& language : Translations::languages()) {
        QAction* const action = m_languageMenu->addAction(language.name);
        action->setCheckable(true);
        action->setData(language.code);
        languages->addAction(action);
    }
    connect(languages, &QActionGroup::triggered, this,
            [this](const QAction* action) { emit languageChosen(action->data().toString()); });

    m_helpMenu = menuBar()->addMenu(QString());
    m_aboutAction = m_helpMenu->addAction(QString(), this, &MainWindow::showAbout);
}

void MainWindow::retranslate()
{
    setWindowTitle(m_session.flow().name());
    m_fileMenu->setTitle(tr("&File"));
    m_openAction->setText(tr("&Open flow..."));
    m_recentMenu->setTitle(tr("&Recent flows"));
    m_reloadAction->setText(tr("Re&load flow"));
    m_importAction->setText(tr("&Import conditions..."));
    m_exportAction->setText(tr("&Export conditions..."));
    m_quitAction->setText(tr("&Quit"));
    m_editMenu->setTitle(tr("&Edit"));
    m_undoAction->setText(tr("&Undo"));
    m_runMenu->setTitle(tr("&Run"));
    m_viewMenu->setTitle(tr("&View"));
    m_languageMenu->setTitle(QStringLiteral("&Language / 语言"));
    m_helpMenu->setTitle(tr("&Help"));
    m_aboutAction->setText(tr("&About"));
    m_moduleList->setAccessibleName(tr("modules of the flow"));
    m_flowLabel->setText(tr("Flow: %1").arg(QFileInfo(m_session.flowFile()).fileName()));
    m_flowLabel->setToolTip(QFileInfo(m_session.flowFile()).absoluteFilePath());
    m_storeLabel->setText(tr("Store: %1").arg(QFileInfo(m_session.storeFile()).fileName()));
    m_storeLabel->setToolTip(QFileInfo(m_session.storeFile()).absoluteFilePath());
    const QHash<QString, QString> dockTitles = {{QStringLiteral("inspectorDock"), tr("Inspector")},
                                                {QStringLiteral("runDock"), tr("Run")},
                                                {QStringLiteral("commandLogDock"), tr("Commands")},
                                                {QStringLiteral("faultsDock"), tr("Faults")}};
    m_faultLabel->setText(tr("Faults are armed"));
    for (QDockWidget* const each : findChildren<QDockWidget*>()) {
        each->setWindowTitle(dockTitles.value(each->objectName()));
    }
    for (auto it = m_pageOf.cbegin(); it != m_pageOf.cend(); ++it) {
        for (auto* const model : it->widget->findChildren<InspectionTableModel*>()) {
            model->setRows(ModuleInspection::outputColumns(),
                           ModuleInspection::outputs(*m_session.flow().module(it.key())));
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
    m_settings.setWindow(saveGeometry(), saveState());
}

void MainWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
    QMainWindow::changeEvent(event);
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

void MainWindow::undo()
{
    replaceStored([this](QString* error) { return m_history.undo(error); });
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
    const QString file = QFileDialog::getSaveFileName(this, tr("Export conditions"),
                                                      QStringLiteral("conditions.json"), conditionFiles());
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

void MainWindow::showRecentFlows()
{
    m_recentMenu->clear();
    const QStringList files = m_settings.recentFlows();
    for (const QString& file : files) {
        m_recentMenu->addAction(file, this, [this, file] { emit flowChosen(file); });
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
    m_moduleList->setCurrentIndex(m_modules.indexOf(moduleId));
}

void MainWindow::showCurrentModule()
{
    if (!m_moduleList->currentIndex().isValid()) {
        return;
    }
    const FlowModule& module = m_modules.moduleAt(m_moduleList->currentIndex());
    Page& page = m_pageOf[module.id];
    if (!page.widget) {
        page = createPage(module);
        m_pages->addWidget(page.widget);
    }
    m_pages->setCurrentWidget(page.widget);
    m_module.set(module.id, page.panel);
}

void MainWindow::addDock(const QString& name, QWidget* content, Qt::DockWidgetArea area)
{
    auto* const added = new QDockWidget(this);
    added->setObjectName(name);
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
        outputs->setRows(ModuleInspection::outputColumns(), ModuleInspection::outputs(module));
        frameLayout->addWidget(InspectorView::createTable(*outputs, QStringLiteral("outputTable")));
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
