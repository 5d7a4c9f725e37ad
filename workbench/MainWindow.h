#pragma once

#include "FlowModuleModel.h"

#include <QHash>
#include <QMainWindow>

class CoreSession;
class PanelPlugin;
class QDockWidget;
class QLabel;
class QListView;
class QMenu;
class QStackedWidget;
class WorkbenchSettings;

/// The window of the workbench: the flow's modules on the left, the chosen one's panel beside them.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Session and plug-in must outlive the window.
    MainWindow(CoreSession& session, const PanelPlugin& plugin, WorkbenchSettings& settings);

    /// The flow must have the module.
    void showModule(unsigned int moduleId);
    /// Marks the language in the menu and tells the panels of it; the texts follow the application's.
    void setLanguage(const QString& code);
    /// Keeps place, size and docks for the next start.
    void remember();

signals:
    /// A flow is to be opened in place of this one.
    void flowChosen(QString file);
    void languageChosen(QString code);
    /// The panel is null for a module that has none.
    void currentModuleChanged(unsigned int moduleId, QWidget* panel);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Page
    {
        QWidget* widget = nullptr;
        /// Null where the module has none; a text tells so.
        QWidget* panel = nullptr;
        QLabel* text = nullptr;
    };
    Page createPage(const FlowModule& module);
    /// Adds a dock of this name at an edge, and its switch to the menu of views.
    void addDock(const QString& name, QWidget* content, Qt::DockWidgetArea area);
    QDockWidget* dock(const char* name) const;
    void createMenus();
    void retranslate();
    void showCurrentModule();
    void showRecentFlows();
    void askForFlow();
    void showAbout();

    CoreSession& m_session;
    const PanelPlugin& m_plugin;
    WorkbenchSettings& m_settings;
    FlowModuleModel m_modules;
    QListView* m_moduleList;
    QStackedWidget* m_pages;
    QHash<unsigned int, Page> m_pageOf;
    QLabel* m_flowLabel;
    QLabel* m_storeLabel;
    QLabel* m_faultLabel;
    QMenu* m_fileMenu;
    QMenu* m_recentMenu;
    QMenu* m_viewMenu;
    QMenu* m_languageMenu;
    QMenu* m_helpMenu;
    QAction* m_openAction;
    QAction* m_reloadAction;
    QAction* m_quitAction;
    QAction* m_aboutAction;
};
