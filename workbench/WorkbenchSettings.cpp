#include "WorkbenchSettings.h"

#include <QFileInfo>

#include <algorithm>

namespace {
constexpr int maximumRecentFlows = 8;
const QString recentFlowsKey = QStringLiteral("recentFlows");
} // namespace

WorkbenchSettings::WorkbenchSettings()
    : QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("if-workbench"),
                QStringLiteral("if-workbench"))
{}

QStringList WorkbenchSettings::recentFlows() const
{
    QStringList files = value(recentFlowsKey).toStringList();
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
    setValue(recentFlowsKey, QStringList(files.mid(0, maximumRecentFlows)));
}
