#include "WorkbenchSettings.h"

#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int maximumRecentFlows = 8;

const QString recentFlowsKey = QStringLiteral("recentFlows");
const QString languageKey = QStringLiteral("language");
const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");

} // namespace

WorkbenchSettings::WorkbenchSettings()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("if-workbench"),
                 QStringLiteral("if-workbench"))
{}

QStringList WorkbenchSettings::recentFlows() const
{
    QStringList files = m_settings.value(recentFlowsKey).toStringList();
    files.erase(std::remove_if(files.begin(), files.end(),
                               [](const QString& file) { return !QFileInfo::exists(file); }),
                files.end());
    return files;
}

void WorkbenchSettings::addRecentFlow(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList files = recentFlows();
    files.removeAll(path);
    files.prepend(path);
    m_settings.setValue(recentFlowsKey, QStringList(files.mid(0, maximumRecentFlows)));
}

QString WorkbenchSettings::language() const
{
    return m_settings.value(languageKey).toString();
}

void WorkbenchSettings::setLanguage(const QString& code)
{
    m_settings.setValue(languageKey, code);
}

QByteArray WorkbenchSettings::windowGeometry() const
{
    return m_settings.value(geometryKey).toByteArray();
}

QByteArray WorkbenchSettings::windowState() const
{
    return m_settings.value(stateKey).toByteArray();
}

void WorkbenchSettings::setWindow(const QByteArray& geometry, const QByteArray& state)
{
    m_settings.setValue(geometryKey, geometry);
    m_settings.setValue(stateKey, state);
}
