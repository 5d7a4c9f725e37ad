#pragma once

#include "EmbeddedCore/Flow.h"
#include "faults/FaultPlan.h"

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
    /// Faults to arm in the first flow's core.
    QVector<Fault> faults() const { return m_faults; }
    /// The CSV file whose rows to judge without a window; empty for none.
    QString runFile() const;
    /// Whether to print what the core holds for the module, without a window.
    bool asksForDump() const;
    /// The module to show first, to run or to print: the one asked for, else the first If module, 0 where
    /// there is none. Nothing, and a sentence in error, when the flow lacks the one asked for.
    std::optional<unsigned int> moduleOf(const Flow& flow, QString* error) const;

    /// These need an application object for their defaults.
    QString flowFile() const;
    QString pluginFile() const;
    /// One file for each flow by default, in the user's data folder, which is made when it is missing.
    QString storeFile(const QString& flowName) const;

private:
    static QString fromProgramFolder(const QString& file);
    QString valueOr(const QString& option, const QString& file) const;

    QCommandLineParser m_parser;
    std::optional<unsigned int> m_moduleId;
    QVector<Fault> m_faults;
};
