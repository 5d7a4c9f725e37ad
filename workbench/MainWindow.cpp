#include "MainWindow.h"

#include "CoreSession.h"
#include "PanelPlugin.h"
#include "Translations.h"
#include "WorkbenchSettings.h"
#include "commands/CommandLogView.h"
#include "faults/FaultsView.h"
#include "inspector/InspectorView.h"
#include "run/RunDock.h"

#include <QActionGroup>
#include <QApplication>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

// The flow file that is dragged; empty for anything else.
QString draggedFlow(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

} // namespace

MainWindow::MainWindow(CoreSession& session, const PanelPlugin& plugin, WorkbenchSettings& settings)
    : m_session(session)
    , m_plugin(plugin)
    , m_settings(settings)
    , m_modules(session.flow())
    , m_moduleList(new QListView)
    , m_pages(new QStackedWidget)
    , m_flowLabel(new QLabel)
    , m_storeLabel(new QLabel)
    , m_faultLabel(new QLabel)
{
    resize(1400, 860);
    setAcceptDrops(true);
    createMenus();

    m_moduleList->setObjectName(QStringLiteral("moduleList"));
    m_moduleList->setModel(&m_modules);
    m_moduleList->setSpacing(3);
    connect(m_moduleList->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainWindow::showCurrentModule);

    auto* const splitter = new QSplitter;
    splitter->addWidget(m_moduleList);
    splitter->addWidget(m_pages);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({230, 870});
    splitter->setChildrenCollapsible(false);
    setCentralWidget(splitter);

    auto* const inspector = new InspectorView(session);
    addDock(QStringLiteral("inspectorDock"), inspector, Qt::RightDockWidgetArea);
    connect(this, &MainWindow::currentModuleChanged, inspector, &InspectorView::setModule);
    auto* const runDock = new RunDock(session);
    addDock(QStringLiteral("runDock"), runDock, Qt::BottomDockWidgetArea);
    connect(this, &MainWindow::currentModuleChanged, runDock, &RunDock::showModule);
    addDock(QStringLiteral("commandLogDock"), new CommandLogView(session.tap()), Qt::BottomDockWidgetArea);
    addDock(QStringLiteral("faultsDock"), new FaultsView(session.faults()), Qt::RightDockWidgetArea);
    tabifyDockWidget(dock("runDock"), dock("commandLogDock"));
    tabifyDockWidget(dock("inspectorDock"), dock("faultsDock"));
    dock("runDock")->raise();
    dock("inspectorDock")->raise();
    resizeDocks({dock("inspectorDock")}, {480}, Qt::Horizontal);

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
    restoreGeometry(settings.windowGeometry());
    restoreState(settings.windowState());
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
    m_quitAction = m_fileMenu->addAction(QString(), this, &QWidget::close, QKeySequence::Quit);

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
    m_quitAction->setText(tr("&Quit"));
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
    for (const Page& page : qAsConst(m_pageOf)) {
        if (page.text) {
            page.text->setText(tr("This module has no panel here."));
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
    event->acceptProposedAction();
    emit flowChosen(draggedFlow(*event->mimeData()));
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
    const FlowModule& module = m_modules.moduleAt(m_moduleList->currentIndex());
    Page& page = m_pageOf[module.id];
    if (!page.widget) {
        page = createPage(module);
        m_pages->addWidget(page.widget);
    }
    m_pages->setCurrentWidget(page.widget);
    emit currentModuleChanged(module.id, page.panel);
}

void MainWindow::addDock(const QString& name, QWidget* content, Qt::DockWidgetArea area)
{
    auto* const added = new QDockWidget(this);
    added->setObjectName(name);
    added->setWidget(content);
    addDockWidget(area, added);
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
    if (module.kind == Flow::ifKind()) {
        page.panel = m_plugin.createPanel(module.id, frame);
    }
    if (page.panel) {
        frameLayout->setContentsMargins({});
        frameLayout->addWidget(page.panel);
    } else {
        page.text = new QLabel(tr("This module has no panel here."));
        page.text->setAlignment(Qt::AlignCenter);
        frameLayout->addWidget(page.text);
    }
    return page;
}
