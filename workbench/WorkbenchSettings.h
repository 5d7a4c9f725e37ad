#pragma once

#include <QSettings>
#include <QStringList>

/// What the workbench remembers of its user between two starts: the code of the chosen "language", of the
/// window what saveGeometry() and saveState() make, and the latest flows.
class WorkbenchSettings : public QSettings
{
    Q_OBJECT

public:
    WorkbenchSettings();

    /// Flow files, the latest first, absolute, at most eight. Files that are gone are left out.
    QStringList recentFlows() const;
    void addRecentFlow(const QString& file);
};
