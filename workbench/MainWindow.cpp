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
#include "inspector/InspectionTable.h"
#include "inspector/InspectorView.h"
#include "inspector/StoredStatus.h"
#include "run/RunDock.h"

#include <QActionGroup>
#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
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
    m_ui.setupUi(this);
    m_ui.splitter->setSizes({230, 870});
    m_ui.centreLayout->addWidget(new StoredStatus(m_module));
    for (const FlowModule& module : session.flow().modules()) {
        m_ui.moduleList->addItem(
            QStringLiteral("%1  %2\n%3").arg(QString::number(module.id), module.name, module.kind));
    }
    connect(m_ui.moduleList, &QListWidget::currentRowChanged, this, &MainWindow::showModuleAt);

    auto* const inspector = new InspectorView(m_module);
    auto* const run = new RunDock(m_module);
    connect(run, &RunDock::resultsChosen, inspector, &InspectorView::setResults);
    for (QAction* const action : run->runActions()) {
        m_ui.runMenu->addAction(action);
        connect(action, &QAction::triggered, m_ui.runDock, &QWidget::show);
        connect(action, &QAction::triggered, m_ui.runDock, &QWidget::raise);
    }
    fillDock(m_ui.inspectorDock, inspector);
    fillDock(m_ui.runDock, run);
    fillDock(m_ui.commandLogDock, new CommandLogView(session.tap()));
    fillDock(m_ui.faultsDock, new FaultsView(session.faults()));
    tabifyDockWidget(m_ui.runDock, m_ui.commandLogDock);
    tabifyDockWidget(m_ui.inspectorDock, m_ui.faultsDock);
    m_ui.runDock->raise();
    m_ui.inspectorDock->raise();

    connectActions();
    addLanguages();
    fillStatusBar();
    qApp->installEventFilter(this);
    new LanguageChange(this, [this] { retranslate(); });
    arrange();
    restoreGeometry(settings.value(geometryKey).toByteArray());
    restoreState(settings.value(stateKey).toByteArray());
}

void MainWindow::fillDock(QDockWidget* dock, QWidget* content)
{
    dock->setWidget(content);
    // A dock behind another one, as a tab, counts as visible; Tab must not go there.
    connect(dock, &QDockWidget::visibilityChanged, content, &QWidget::setEnabled);
    m_ui.viewMenu->addAction(dock->toggleViewAction());
}

void MainWindow::fillStatusBar()
{
    for (QLabel* const label : {m_ui.flowLabel, m_ui.storeLabel}) {
        label->setContentsMargins(4, 0, 12, 0);
        statusBar()->addWidget(label);
    }
    statusBar()->addPermanentWidget(m_ui.faultLabel);
    const auto showFaults = [this] { m_ui.faultLabel->setVisible(m_session.faults().plan().isArmed()); };
    connect(&m_session.faults(), &FaultInjector::planChanged, this, showFaults);
    showFaults();
}

void MainWindow::arrange()
{
    // A screen's bars are left out of its room, the window's frame is not.
    const QSize room = WorkbenchApplication::isOnScreen() ? screen()->availableSize()
                                                          : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    for (QDockWidget* const dock : {m_ui.inspectorDock, m_ui.faultsDock}) {
        dock->setVisible(room.width() >= widthForRightDocks);
    }
    for (QDockWidget* const dock : {m_ui.runDock, m_ui.commandLogDock}) {
        dock->setVisible(room.height() >= heightForLowerDocks);
    }
    layout()->activate(); // what is hidden no longer counts
    resize(preferredSize.boundedTo(room - QSize(4, 32)));
    // What the list, the panel and the bars leave.
    resizeDocks({m_ui.inspectorDock}, {std::min(540, width() - 230 - 640)}, Qt::Horizontal);
    resizeDocks({m_ui.runDock}, {std::min(310, height() - 540)}, Qt::Vertical);
}

void MainWindow::connectActions()
{
    connect(m_ui.openAction, &QAction::triggered, this, &MainWindow::askForFlow);
    connect(m_ui.recentMenu, &QMenu::aboutToShow, this, &MainWindow::showRecentFlows);
    connect(m_ui.reloadAction, &QAction::triggered, this, [this] { emit flowChosen(m_session.flowFile()); });
    connect(m_ui.importAction, &QAction::triggered, this, &MainWindow::importConditions);
    connect(m_ui.exportAction, &QAction::triggered, this, &MainWindow::exportConditions);
    connect(m_ui.quitAction, &QAction::triggered, this, &MainWindow::close);
    connect(m_ui.undoAction, &QAction::triggered, this,
            [this] { replaceStored([this](QString* error) { return m_history.undo(error); }); });
    connect(m_ui.aboutAction, &QAction::triggered, this, &MainWindow::showAbout);
    const auto updateActions = [this] {
        m_ui.importAction->setEnabled(m_module.panel());
        m_ui.exportAction->setEnabled(m_module.panel());
        m_ui.undoAction->setEnabled(m_module.panel() && m_history.canUndo());
    };
    connect(&m_history, &UndoHistory::changed, this, updateActions);
    updateActions();
}

void MainWindow::addLanguages()
{
    auto* const languages = new QActionGroup(this);
    for (const Translations::Language& language : Translations::languages()) {
        QAction* const action = languages->addAction(language.name);
        action->setCheckable(true);
        action->setData(language.code);
    }
    m_ui.languageMenu->addActions(languages->actions());
    connect(languages, &QActionGroup::triggered, this,
            [this](const QAction* action) { emit languageChosen(action->data().toString()); });
}

void MainWindow::showRecentFlows()
{
    m_ui.recentMenu->clear();
    for (const QString& flow : m_settings.recentFlows()) {
        m_ui.recentMenu->addAction(flow, this, [this, flow] { emit flowChosen(flow); });
    }
}

void MainWindow::retranslate()
{
    m_ui.retranslateUi(this);
    setWindowTitle(m_session.flow().name());
    m_ui.flowLabel->setText(tr("Flow: %1").arg(QFileInfo(m_session.flowFile()).fileName()));
    m_ui.flowLabel->setToolTip(QFileInfo(m_session.flowFile()).absoluteFilePath());
    m_ui.storeLabel->setText(tr("Store: %1").arg(QFileInfo(m_session.storeFile()).fileName()));
    m_ui.storeLabel->setToolTip(QFileInfo(m_session.storeFile()).absoluteFilePath());
    for (auto it = m_pageOf.cbegin(); it != m_pageOf.cend(); ++it) {
        if (auto* const table = it->widget->findChild<InspectionTable*>()) {
            table->setTable(ModuleInspection::outputs(*m_session.flow().module(it.key())));
        }
    }
}

void MainWindow::setLanguage(const QString& code)
{
    const auto actions = m_ui.languageMenu->actions();
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
    m_ui.moduleList->setCurrentRow(static_cast<int>(m_session.flow().module(moduleId) - modules.constData()));
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
        m_ui.pages->addWidget(page.widget);
    }
    m_ui.pages->setCurrentWidget(page.widget);
    m_module.set(module.id, page.panel);
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
        auto* const outputs = new InspectionTable;
        outputs->setTable(ModuleInspection::outputs(module));
        frameLayout->addWidget(outputs);
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
