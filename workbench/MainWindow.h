#pragma once

#include "FlowModuleModel.h"
#include "UndoHistory.h"
#include "inspector/InspectionTableModel.h"

#include <QHash>
#include <QMainWindow>

#include <functional>

class CoreSession;
class PanelPlugin;
class QDockWidget;
class QLabel;
class QListView;
class QMenu;
class QStackedWidget;
class StoredStatus;
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

protected:
    /// Lets Ctrl+Z through that a field has no use for.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Page
    {
        QWidget* widget = nullptr;
        /// Null where the module has none or its configuration can't be shown.
        QWidget* panel = nullptr;
    };
    Page createPage(const FlowModule& module);
    /// Adds a dock of this name at an edge, and its switch to the menu of views.
    void addDock(const QString& name, QWidget* content, Qt::DockWidgetArea area);
    QDockWidget* dock(const char* name) const;
    /// Size and docks of the first start: the panel comes before the docks on a small screen.
    void arrange();
    void createMenus();
    void retranslate();
    void showCurrentModule();
    void undo();
    void importConditions();
    void exportConditions();
    /// Has what is stored for the current module replaced, while its panel is hidden.
    void replaceStored(const std::function<bool(QString* error)>& replace);
    void showRecentFlows();
    void askForFlow();
    void showAbout();

    CoreSession& m_session;
    const PanelPlugin& m_plugin;
    WorkbenchSettings& m_settings;
    FlowModuleModel m_modules;
    CurrentModule m_module;
    UndoHistory m_history;
    QListView* m_moduleList;
    QStackedWidget* m_pages;
    StoredStatus* m_storedStatus;
    QHash<unsigned int, Page> m_pageOf;
    QLabel* m_flowLabel;
    QLabel* m_storeLabel;
    QLabel* m_faultLabel;
    QMenu* m_fileMenu;
    QMenu* m_recentMenu;
    QMenu* m_editMenu;
    QMenu* m_runMenu;
    QMenu* m_viewMenu;
    QMenu* m_languageMenu;
    QMenu* m_helpMenu;
    QAction* m_openAction;
    QAction* m_reloadAction;
    QAction* m_importAction;
    QAction* m_exportAction;
    QAction* m_quitAction;
    QAction* m_undoAction;
    QAction* m_aboutAction;
};
