#pragma once

#include <QByteArray>
#include <QSettings>
#include <QStringList>

/// What the workbench remembers of its user between two starts.
class WorkbenchSettings
{
public:
    WorkbenchSettings();

    /// Flow files, the latest first, absolute, at most eight. Files that are gone are left out.
    QStringList recentFlows() const;
    void addRecentFlow(const QString& file);

    /// Code of the chosen language; empty until one is chosen.
    QString language() const;
    void setLanguage(const QString& code);

    /// As QWidget::saveGeometry() and QMainWindow::saveState() make them; empty at the first start.
    QByteArray windowGeometry() const;
    QByteArray windowState() const;
    void setWindow(const QByteArray& geometry, const QByteArray& state);

private:
    QSettings m_settings;
};
