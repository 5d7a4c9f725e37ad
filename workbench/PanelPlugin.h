#pragma once

#include <QCoreApplication>
#include <QLibrary>

#include <memory>

class QWidget;

/// A plug-in that makes configuration panels, known by its file and two symbols. It stays loaded until the
/// process ends: its resources and meta objects may outlive the panels.
class PanelPlugin
{
    Q_DECLARE_TR_FUNCTIONS(PanelPlugin)

public:
    /// Null, and a sentence in error, when the file can't be loaded or lacks a symbol.
    static std::unique_ptr<PanelPlugin> load(const QString& file, QString* error);

    /// The panel of a module, owned by the parent; null when the plug-in can't make one.
    QWidget* createPanel(unsigned int moduleId, QWidget* parent) const;
    /// To be called for each panel after a change of language.
    void retranslate(QWidget* panel) const;

private:
    using Create = bool (*)(unsigned int, QWidget*, QWidget**);
    using LanguageChanged = bool (*)(QWidget*);

    PanelPlugin(Create create, LanguageChanged languageChanged);

    Create m_create;
    LanguageChanged m_languageChanged;
};
