#include "PanelPlugin.h"

#include <QCoreApplication>

std::unique_ptr<PanelPlugin> PanelPlugin::load(const QString& file, QString* error)
{
    QLibrary library(file);
    if (!library.load()) {
        *error = tr("The plug-in can't be loaded: %1").arg(library.errorString());
        return nullptr;
    }
    const auto resolve = [&](const char* symbol) {
        const QFunctionPointer function = library.resolve(symbol);
        if (!function) {
            *error = tr("The plug-in %1 has no function %2.").arg(file, QLatin1String(symbol));
        }
        return function;
    };
    const QFunctionPointer create = resolve("CreateModuParamConfigInstance");
    const QFunctionPointer languageChanged = create ? resolve("LangChanged") : nullptr;
    if (!languageChanged) {
        library.unload();
        return nullptr;
    }
    return std::unique_ptr<PanelPlugin>(new PanelPlugin(reinterpret_cast<Create>(create),
                                                        reinterpret_cast<LanguageChanged>(languageChanged)));
}

PanelPlugin::PanelPlugin(Create create, LanguageChanged languageChanged)
    : m_create(create)
    , m_languageChanged(languageChanged)
{}

QWidget* PanelPlugin::createPanel(unsigned int moduleId, QWidget* parent) const
{
    QWidget* panel = nullptr;
    return m_create(moduleId, parent, &panel) ? panel : nullptr;
}

void PanelPlugin::retranslate(QWidget* panel) const
{
    m_languageChanged(panel);
}
