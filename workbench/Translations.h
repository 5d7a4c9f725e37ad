#pragma once

#include <QString>
#include <QTranslator>
#include <QVector>

#include <memory>
#include <vector>

/// The language of all that the process shows: Qt's own texts, the workbench's, the controls' and the
/// panels'. Catalogues lie in ../share/if-workbench/i18n and ../share/qifmodule/i18n of the program's folder;
/// a text without an entry is shown as it was written.
class Translations
{
public:
    struct Language
    {
        /// As locales name it: "en", "zh_CN".
        QString code;
        /// In the language itself.
        QString name;
    };
    static QVector<Language> languages();

    /// Sets the language that the user has chosen before, else Chinese on a Chinese system and English on
    /// others. Needs an application object.
    Translations();

    /// Widgets receive LanguageChange; for panels, PanelPlugin::retranslate() has to be called.
    void setLanguage(const QString& code);
    QString language() const { return m_language; }

private:
    QString m_language;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
