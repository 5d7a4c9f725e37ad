#include "MainWindow.h"

#include "CoreSession.h"
#include "PanelPlugin.h"

#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

MainWindow::MainWindow(const CoreSession& session, const PanelPlugin& plugin)
    : m_plugin(plugin)
    , m_modules(session.flow())
    , m_moduleList(new QListView)
    , m_pages(new QStackedWidget)
{
    setWindowTitle(session.flow().name());
    resize(1100, 720);

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
    QWidget*& page = m_pageOf[module.id];
    if (!page) {
        page = createPage(module);
        m_pages->addWidget(page);
    }
    m_pages->setCurrentWidget(page);
}

QWidget* MainWindow::createPage(const FlowModule& module)
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

    QWidget* content = nullptr;
    if (module.kind == Flow::ifKind()) {
        content = m_plugin.createPanel(module.id, frame);
    }
    if (content) {
        frameLayout->setContentsMargins({});
    } else {
        auto* const text =
            new QLabel(module.kind == Flow::ifKind() ? tr("The plug-in could not make a panel.")
                                                     : tr("This module has no panel here."));
        text->setAlignment(Qt::AlignCenter);
        content = text;
    }
    frameLayout->addWidget(content);
    return page;
}
