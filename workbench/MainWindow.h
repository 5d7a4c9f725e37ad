#pragma once

#include "CurrentModule.h"
#include "UndoHistory.h"
#include "Widgets.h"
#include "inspector/InspectionTableModel.h"

#include <QHash>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QStackedWidget>

#include <functional>

class CoreSession;
struct FlowModule;
class PanelPlugin;
class QDockWidget;
class QMenu;
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
    /// Has a property, such as a title, follow the language; the text is marked by QT_TR_NOOP.
    void setTranslated(QObject* object, const char* property, const char* text);
    QMenu* addMenu(const char* title);
    QAction* addMenuAction(QMenu* menu, const char* text, const std::function<void()>& act,
                           const QKeySequence& shortcut = {});
    /// Adds a dock of this name at an edge, and its switch to the menu of views.
    void addDock(const char* name, const char* title, QWidget* content, Qt::DockWidgetArea area);
    QDockWidget* dock(const char* name) const;
    /// Size and docks of the first start: the panel comes before the docks on a small screen.
    void arrange();
    void createMenus();
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
    QListWidget* m_moduleList = Widgets::named("moduleList", new QListWidget);
    QStackedWidget* m_pages = new QStackedWidget;
    QHash<unsigned int, Page> m_pageOf;
    QLabel* m_flowLabel = Widgets::named("flowLabel", new QLabel);
    QLabel* m_storeLabel = Widgets::named("storeLabel", new QLabel);
    QMenu* m_runMenu;
    QMenu* m_viewMenu;
    QMenu* m_languageMenu;
    struct Translated
    {
        QObject* object;
        const char* property;
        const char* text;
    };
    QVector<Translated> m_translated;
};
