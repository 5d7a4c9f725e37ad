#pragma once

#include "PanelPlugin.h"
#include "Translations.h"
#include "WorkbenchOptions.h"
#include "WorkbenchSettings.h"

#include <QObject>

#include <memory>

class CoreSession;
class MainWindow;

/// Opens flows, one at a time: each in a window of its own over a core of its own.
class Workbench : public QObject
{
    Q_OBJECT

public:
    /// Options and translations must outlive it.
    Workbench(const WorkbenchOptions& options, Translations& translations,
              std::unique_ptr<PanelPlugin> plugin);
    ~Workbench() override;

    /// Opens the flow in place of the present one. False, and a sentence in error, when that can't be done;
    /// the present one stays open then.
    bool open(const QString& flowFile, QString* error);

    /// Null before a flow is open.
    MainWindow* window() const { return m_window.get(); }

private:
    void close();
    void showFlow(const QString& flowFile);
    void setLanguage(const QString& code);

    const WorkbenchOptions& m_options;
    Translations& m_translations;
    std::unique_ptr<PanelPlugin> m_plugin;
    WorkbenchSettings m_settings;
    std::unique_ptr<CoreSession> m_session;
    std::unique_ptr<MainWindow> m_window;
};
