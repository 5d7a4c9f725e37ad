#pragma once

#include "CurrentModule.h"
#include "UndoHistory.h"
#include "ui_MainWindow.h"

#include <QHash>

#include <functional>

class CoreSession;
struct FlowModule;
class PanelPlugin;
class WorkbenchSettings;

/// The window of the workbench: the flow's modules on the left, the panel of the chosen one on the right.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Session and plug-in must outlive the window.
    MainWindow(CoreSession& session, const PanelPlugin& plugin, WorkbenchSettings& settings);

    /// The flow must have the module.
    void showModule(unsigned int moduleId);
    /// Marks the language in the menu and reports it to the panels; the texts follow the application's.
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
    void fillStatusBar();
    /// Has the dock show this, and adds its switch to the menu of views.
    void fillDock(QDockWidget* dock, QWidget* content);
    /// Size and docks of the first start: the panel comes before the docks on a small screen.
    void arrange();
    void connectActions();
    void addLanguages();
    void showRecentFlows();
    void retranslate();
    void showModuleAt(int row);
    void importConditions();
    void exportConditions();
    /// Has what is stored for the current module replaced, while its panel is hidden.
    void replaceStored(const std::function<bool(QString* error)>& replace);
    void askForFlow();
    void showAbout();

    CoreSession& m_session;
    const PanelPlugin& m_plugin;
    WorkbenchSettings& m_settings;
    CurrentModule m_module;
    UndoHistory m_history;
    QHash<unsigned int, Page> m_pageOf;
    Ui::MainWindow m_ui;
};
