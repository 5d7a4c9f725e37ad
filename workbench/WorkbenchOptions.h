#pragma once

#include "EmbeddedCore/Flow.h"
#include "faults/FaultPlan.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

/// The command line of the workbench. Paths that are not given are found relative to the program: plug-in and
/// sample flow in ../lib and ../share of its folder.
class WorkbenchOptions
{
    Q_DECLARE_TR_FUNCTIONS(WorkbenchOptions)

public:
    /// What to do; all but Show need no display.
    enum class Task { Show, Run, Dump, Sql, Export, Import };

    /// Needs an application object, and its translators for texts in another language.
    WorkbenchOptions();

    /// False, and a sentence in error, for what it does not understand.
    bool parse(const QStringList& arguments, QString* error);

    bool asksForHelp() const { return isSet("help"); }
    bool asksForVersion() const { return isSet("version"); }
    QString helpText() const { return m_parser.helpText(); }

    Task task() const { return m_task; }
    /// Where to write a picture of the window; empty for a window that stays open.
    QString screenshotFile() const { return value("screenshot"); }
    /// Faults to arm in the first flow's core.
    QVector<Fault> faults() const { return m_faults; }
    /// The CSV files to run.
    QStringList runFiles() const
    {
        return m_parser.values(QStringLiteral("run")) + m_parser.positionalArguments();
    }
    bool asksForSummary() const { return isSet("summary"); }
    bool failsOnNotOk() const { return isSet("fail-on-not-ok"); }
    /// The table for SQL.
    QString tableName() const { return isSet("table") ? value("table") : QStringLiteral("samples"); }
    /// The file to export to, to import or to use in place of a store; empty for none.
    QString conditionsFile() const;
    /// The module to show first: the one asked for, else the first If module, 0 where
    /// there is none. Nothing, and a sentence in error, when the flow lacks the one asked for.
    std::optional<unsigned int> moduleOf(const Flow& flow, QString* error) const;

    /// The same for what works without a window: it has to be an If module, and the flow's only one when none
    /// is asked for.
    std::optional<unsigned int> onlyIfModuleOf(const Flow& flow, QString* error) const;

    QString flowFile() const;
    /// Whether neither flow nor store is given: the sample is shown.
    bool opensSample() const;
    /// What the sample's store holds at first, see ConditionsFile.
    QString sampleConditions() const;
    QString pluginFile() const;
    /// One file for each flow file by default, in the user's data folder, which is made when the task may
    /// make a store.
    QString storeFile(const QString& flowFile, const QString& flowName) const;

private:
    /// Takes the task; returns what is wrong with the combination of options, empty when nothing is.
    QString misuse();
    static QString storeFolder();
    static QString fromProgramFolder(const QString& file);
    bool isSet(const char* option) const { return m_parser.isSet(QString::fromLatin1(option)); }
    QString value(const char* option) const { return m_parser.value(QString::fromLatin1(option)); }
    QString valueOr(const char* option, const QString& file) const;

    QCommandLineParser m_parser;
    Task m_task = Task::Show;
    std::optional<unsigned int> m_moduleId;
    QVector<Fault> m_faults;
};
