#include "Workbench.h"

#include "ConditionsFile.h"
#include "CoreSession.h"
#include "MainWindow.h"
#include "WorkbenchApplication.h"

#include <QFileInfo>

#include <utility>

Workbench::Workbench(const WorkbenchOptions& options, Translations& translations,
                     std::unique_ptr<PanelPlugin> plugin)
    : m_options(options)
    , m_translations(translations)
    , m_plugin(std::move(plugin))
{}

Workbench::~Workbench() = default;

bool Workbench::open(const QString& flowFile, QString* error)
{
    auto flow = Flow::load(flowFile, error);
    if (!flow) {
        return false;
    }
    const bool isFirst = !m_session;
    const auto moduleId = m_session ? std::optional(flow->firstIfId()) : m_options.moduleOf(*flow, error);
    if (!moduleId) {
        return false;
    }
    const QString storeFile = m_options.storeFile(flowFile, flow->name());

    if (m_session && QFileInfo(m_session->storeFile()) == QFileInfo(storeFile)) {
        // A store has one owner; the present one is closed only if the store can be read.
        if (!EmbeddedCore::openReadOnly(*flow, storeFile, error)) {
            return false;
        }
        close();
    }
    const bool isFirstSample = isFirst && m_options.opensSample() && !QFileInfo::exists(storeFile);
    auto core = EmbeddedCore::open(std::move(*flow), storeFile, error);
    if (!core ||
        (isFirstSample && !ConditionsFile::import(m_options.sampleConditions(), *core, *moduleId, error))) {
        return false;
    }
    close();
    m_session = std::make_unique<CoreSession>(flowFile, std::move(core));
    if (isFirst) {
        for (const Fault& fault : m_options.faults()) {
            m_session->faults().arm(fault);
        }
    }
    m_window = std::make_unique<MainWindow>(*m_session, *m_plugin, m_settings);
    connect(m_window.get(), &MainWindow::flowChosen, this, &Workbench::showFlow, Qt::QueuedConnection);
    connect(m_window.get(), &MainWindow::languageChosen, this, &Workbench::setLanguage);
    m_window->setLanguage(m_translations.language());
    if (*moduleId != 0) {
        m_window->showModule(*moduleId);
    }
    m_settings.addRecentFlow(flowFile);
    return true;
}

void Workbench::close()
{
    if (m_window) {
        m_window->remember();
    }
    m_window.reset();
    m_session.reset();
}

void Workbench::showFlow(const QString& flowFile)
{
    QString error = WorkbenchApplication::refusal(flowFile);
    if (error.isEmpty() && open(flowFile, &error)) {
        m_window->show();
    } else {
        WorkbenchApplication::tellError(error);
    }
}

void Workbench::setLanguage(const QString& code)
{
    m_translations.setLanguage(code);
    m_settings.setValue(QStringLiteral("language"), code);
    m_window->setLanguage(code);
}
