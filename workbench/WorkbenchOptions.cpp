#include "WorkbenchOptions.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

namespace {

const QString flowOption = QStringLiteral("flow");
const QString storeOption = QStringLiteral("store");
const QString moduleOption = QStringLiteral("module");
const QString pluginOption = QStringLiteral("plugin");
const QString screenshotOption = QStringLiteral("screenshot");
const QString runOption = QStringLiteral("run");
const QString dumpOption = QStringLiteral("dump");
const QString faultOption = QStringLiteral("fault");
const QString helpOption = QStringLiteral("help");
const QString versionOption = QStringLiteral("version");

} // namespace

WorkbenchOptions::WorkbenchOptions()
{
    m_parser.setApplicationDescription(
        tr("Shows an inspection flow and the configuration panels of its If modules."));
    m_parser.addOptions({
        {flowOption, tr("Inspection flow to open, a JSON file."), tr("file")},
        {storeOption, tr("Store of the modules' parameters, made when it is missing."), tr("file")},
        {moduleOption, tr("Module to show first, to run or to dump."), tr("id")},
        {pluginOption, tr("Plug-in that makes the panels."), tr("file")},
        {screenshotOption, tr("Write a picture of the window and end; needs no display."), tr("file.png")},
        {runOption, tr("Judge the rows of a CSV file, print the results as CSV and end; needs no display."),
         tr("file.csv")},
        {dumpOption, tr("Print all that the store holds for the module as JSON and end; needs no display.")},
        {faultOption,
         tr("Arm a fault, such as kind=SetBinaryData,parameter=IFText,when=next,answer=Failed,message=full. "
            "May be given again."),
         tr("fault")},
        {helpOption, tr("Show this text.")},
        {versionOption, tr("Show the version.")},
    });
}

bool WorkbenchOptions::parse(const QStringList& arguments, QString* error)
{
    if (!m_parser.parse(arguments)) {
        *error = m_parser.errorText();
        return false;
    }
    if (!m_parser.positionalArguments().isEmpty()) {
        *error = tr("Unexpected argument '%1'.").arg(m_parser.positionalArguments().first());
        return false;
    }
    if (m_parser.isSet(runOption) + m_parser.isSet(dumpOption) + m_parser.isSet(screenshotOption) > 1) {
        *error = tr("--run, --dump and --screenshot exclude each other.");
        return false;
    }
    if (m_parser.isSet(runOption) && runFile().isEmpty()) {
        *error = tr("--run needs the name of a file.");
        return false;
    }
    const QStringList faults = m_parser.values(faultOption);
    for (const QString& text : faults) {
        const auto fault = FaultPlan::parse(text, error);
        if (!fault) {
            return false;
        }
        m_faults << *fault;
    }
    if (m_parser.isSet(moduleOption)) {
        bool isNumber = false;
        m_moduleId = m_parser.value(moduleOption).toUInt(&isNumber);
        if (!isNumber) {
            *error = tr("'%1' is no module id.").arg(m_parser.value(moduleOption));
            return false;
        }
    }
    return true;
}

bool WorkbenchOptions::asksForHelp() const
{
    return m_parser.isSet(helpOption);
}

bool WorkbenchOptions::asksForVersion() const
{
    return m_parser.isSet(versionOption);
}

QString WorkbenchOptions::screenshotFile() const
{
    return m_parser.value(screenshotOption);
}

QString WorkbenchOptions::runFile() const
{
    return m_parser.value(runOption);
}

bool WorkbenchOptions::asksForDump() const
{
    return m_parser.isSet(dumpOption);
}

std::optional<unsigned int> WorkbenchOptions::moduleOf(const Flow& flow, QString* error) const
{
    if (m_moduleId && !flow.module(*m_moduleId)) {
        *error = tr("The flow %1 has no module %2.").arg(flowFile(), QString::number(*m_moduleId));
        return std::nullopt;
    }
    return m_moduleId ? *m_moduleId : flow.firstIfId();
}

QString WorkbenchOptions::flowFile() const
{
    return valueOr(flowOption, QStringLiteral("../share/if-workbench/nuclei.json"));
}

QString WorkbenchOptions::pluginFile() const
{
    const QString installed = QStringLiteral(INSTALLED_PLUGIN_FOLDER "/libQIfModule.so");
    return valueOr(pluginOption, QFile::exists(fromProgramFolder(installed))
                                     ? installed
                                     : QStringLiteral("../lib/libQIfModule.so"));
}

QString WorkbenchOptions::storeFile(const QString& flowName) const
{
    if (m_parser.isSet(storeOption)) {
        return m_parser.value(storeOption);
    }
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
    folder.mkpath(QStringLiteral("."));
    QString name = flowName;
    name.replace(
        QRegularExpression(QStringLiteral("[^\\w-]"), QRegularExpression::UseUnicodePropertiesOption),
        QStringLiteral("_"));
    return folder.filePath(name + QStringLiteral(".sqlite"));
}

QString WorkbenchOptions::fromProgramFolder(const QString& file)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1Char('/') + file);
}

QString WorkbenchOptions::valueOr(const QString& option, const QString& file) const
{
    return m_parser.isSet(option) ? m_parser.value(option) : fromProgramFolder(file);
}
