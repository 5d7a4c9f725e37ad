#include "MainWindow.h"

#include "CoreSession.h"
#include "InspectorView.h"
#include "PanelPlugin.h"

#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

MainWindow::MainWindow(CoreSession& session, const PanelPlugin& plugin)
    : m_plugin(plugin)
    , m_modules(session.flow())
    , m_moduleList(new QListView)
    , m_pages(new QStackedWidget)
    , m_viewMenu(menuBar()->addMenu(tr("&View")))
{
    setWindowTitle(session.flow().name());
    resize(1400, 860);

    m_moduleList->setObjectName(QStringLiteral("moduleList"));
    m_moduleList->setAccessibleName(tr("modules of the flow"));
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
    addDock(QStringLiteral("inspectorDock"), tr("Inspector"), inspector, Qt::RightDockWidgetArea);
    connect(this, &MainWindow::currentModuleChanged, inspector, &InspectorView::setModule);
    resizeDocks({findChild<QDockWidget*>(QStringLiteral("inspectorDock"))}, {480}, Qt::Horizontal);

    showFile("flowLabel", tr("Flow: %1"), session.flowFile());
    showFile("storeLabel", tr("Store: %1"), session.storeFile());
}

void MainWindow::showFile(const char* name, const QString& text, const QString& file)
{
    auto* const label = new QLabel(text.arg(QFileInfo(file).fileName()));
    label->setObjectName(QString::fromLatin1(name));
    label->setToolTip(QFileInfo(file).absoluteFilePath());
    label->setContentsMargins(4, 0, 12, 0);
    statusBar()->addWidget(label);
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

void MainWindow::addDock(const QString& name, const QString& title, QWidget* content, Qt::DockWidgetArea area)
{
    auto* const dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setWidget(content);
    addDockWidget(area, dock);
    m_viewMenu->addAction(dock->toggleViewAction());
}

MainWindow::Page MainWindow::createPage(const FlowModule& module)
{
    auto* const page = new QWidget;
    auto* const heading = new QLabel(QStringLiteral("<b>%1</b>").arg(module.name.toHtmlEscaped()));
    // What an open slider did is saved when the widget two levels above its panel is hidden: the page.
    auto* const frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    auto* const pageLayout = new QVBoxLayout(page);
    pageLayout->addWidget(heading);
    pageLayout->addWidget(frame, 1);
    auto* const frameLayout = new QVBoxLayout(frame);

    const bool isIf = module.kind == Flow::ifKind();
    QWidget* const panel = isIf ? m_plugin.createPanel(module.id, frame) : nullptr;
    if (panel) {
        frameLayout->setContentsMargins({});
        frameLayout->addWidget(panel);
    } else {
        auto* const text = new QLabel(isIf ? tr("The plug-in could not make a panel.")
                                           : tr("This module has no panel here."));
        text->setAlignment(Qt::AlignCenter);
        frameLayout->addWidget(text);
    }
    return {page, panel};
}
