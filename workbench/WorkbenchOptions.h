#pragma once

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

/// The command line of the workbench. Paths that are not given are found beside the program: plug-in and
/// sample flow in ../lib and ../share of its folder.
class WorkbenchOptions
{
    Q_DECLARE_TR_FUNCTIONS(WorkbenchOptions)

public:
    WorkbenchOptions();

    /// False, and a sentence in error, for what it does not understand.
    bool parse(const QStringList& arguments, QString* error);

    bool asksForHelp() const;
    bool asksForVersion() const;
    /// Needs an application object.
    QString helpText() const { return m_parser.helpText(); }

    /// Where to write a picture of the window; empty for a window that stays open.
    QString screenshotFile() const;
    /// The module to show first; nothing for the first If module.
    std::optional<unsigned int> moduleId() const { return m_moduleId; }

    /// These need an application object for their defaults.
    QString flowFile() const;
    QString pluginFile() const;
    /// One file for each flow by default, in the user's data folder, which is made when it is missing.
    QString storeFile(const QString& flowName) const;

private:
    QString valueOr(const QString& option, const QString& fromProgramFolder) const;

    QCommandLineParser m_parser;
    std::optional<unsigned int> m_moduleId;
};
