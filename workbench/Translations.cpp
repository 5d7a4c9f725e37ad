#include "Translations.h"

#include "WorkbenchSettings.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace {
const QString english = QStringLiteral("en");
const QString chinese = QStringLiteral("zh_CN");
} // namespace

QVector<Translations::Language> Translations::languages()
{
    return {{chinese, QStringLiteral("中文")}, {english, QStringLiteral("English")}};
}

Translations::Translations()
{
    const QString chosen = WorkbenchSettings().value(QStringLiteral("language")).toString();
    const bool isChinese = QLocale::system().uiLanguages().value(0).startsWith(QLatin1String("zh"));
    setLanguage(!chosen.isEmpty() ? chosen : isChinese ? chinese : english);
}

void Translations::setLanguage(const QString& code)
{
    m_translators.clear(); // a translator that goes is removed from the application
    m_language = code;
    const QString share = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/");
    const QString own = share + QStringLiteral("if-workbench/i18n");
    const QString panels = share + QStringLiteral("qifmodule/i18n");
    const QString qts = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    for (const auto& [catalogue, folder] : {std::pair(QStringLiteral("qtbase"), qts),
                                            {QStringLiteral("if-workbench"), own},
                                            {QStringLiteral("QZelCommonControl"), panels},
                                            {QStringLiteral("QIfModule"), panels}}) {
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(catalogue + QLatin1Char('_') + code, folder)) {
            QCoreApplication::installTranslator(translator.get());
            m_translators.push_back(std::move(translator));
        }
    }
    QGuiApplication::setApplicationDisplayName(QCoreApplication::translate("main", "If Workbench"));
}
