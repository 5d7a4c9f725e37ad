#pragma once

#include "FlowModuleModel.h"

#include <QHash>
#include <QMainWindow>

class CoreSession;
class PanelPlugin;
class QListView;
class QStackedWidget;

/// The window of the workbench: the flow's modules on the left, the chosen one's panel beside them.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Session and plug-in must outlive the window.
    MainWindow(const CoreSession& session, const PanelPlugin& plugin);

    /// The flow must have the module.
    void showModule(unsigned int moduleId);

private:
    QWidget* createPage(const FlowModule& module);
    void showCurrentModule();
    /// Names a file in the status line.
    void showFile(const char* name, const QString& text, const QString& file);

    const PanelPlugin& m_plugin;
    FlowModuleModel m_modules;
    QListView* m_moduleList;
    QStackedWidget* m_pages;
    QHash<unsigned int, QWidget*> m_pageOf;
};
