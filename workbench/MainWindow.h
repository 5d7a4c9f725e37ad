#pragma once

#include "FlowModuleModel.h"

#include <QHash>
#include <QMainWindow>

class CoreSession;
class PanelPlugin;
class QListView;
class QMenu;
class QStackedWidget;

/// The window of the workbench: the flow's modules on the left, the chosen one's panel beside them.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Session and plug-in must outlive the window.
    MainWindow(CoreSession& session, const PanelPlugin& plugin);

    /// The flow must have the module.
    void showModule(unsigned int moduleId);

signals:
    /// The panel is null for a module that has none.
    void currentModuleChanged(unsigned int moduleId, QWidget* panel);

private:
    struct Page
    {
        QWidget* widget = nullptr;
        /// Null where the module has none.
        QWidget* panel = nullptr;
    };
    Page createPage(const FlowModule& module);
    /// Adds a dock of this name at an edge, and its switch to the menu of views.
    void addDock(const QString& name, const QString& title, QWidget* content, Qt::DockWidgetArea area);
    void showCurrentModule();
    /// Names a file in the status line.
    void showFile(const char* name, const QString& text, const QString& file);

    const PanelPlugin& m_plugin;
    FlowModuleModel m_modules;
    QListView* m_moduleList;
    QStackedWidget* m_pages;
    QHash<unsigned int, Page> m_pageOf;
    QMenu* m_viewMenu;
};
