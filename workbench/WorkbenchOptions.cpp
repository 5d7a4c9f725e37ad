#include "WorkbenchOptions.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

namespace {

const QString flowOption = QStringLiteral("flow");
const QString storeOption = QStringLiteral("store");
const QString moduleOption = QStringLiteral("module");
const QString pluginOption = QStringLiteral("plugin");
const QString screenshotOption = QStringLiteral("screenshot");
const QString runOption = QStringLiteral("run");
const QString summaryOption = QStringLiteral("summary");
const QString failOption = QStringLiteral("fail-on-not-ok");
const QString dumpOption = QStringLiteral("dump");
const QString sqlOption = QStringLiteral("sql");
const QString tableOption = QStringLiteral("table");
const QString exportOption = QStringLiteral("export");
const QString importOption = QStringLiteral("import");
const QString conditionsOption = QStringLiteral("conditions");
const QString faultOption = QStringLiteral("fault");
const QString helpOption = QStringLiteral("help");
const QString versionOption = QStringLiteral("version");

} // namespace

WorkbenchOptions::WorkbenchOptions()
{
    m_parser.setApplicationDescription(tr(
        "Shows an inspection flow and the configuration panels of its If modules. With --run, --dump, --sql, "
        "--export or --import it works without a display.\n\n"
        "Exit codes: 0 done, 1 failed, 2 wrong usage, 3 some rows are not OK (with --fail-on-not-ok)."));
    m_parser.addOptions({
        {flowOption, tr("Inspection flow to open, a JSON file."), tr("file")},
        {storeOption,
         tr("Store of the modules' parameters; the window and --import make it when it is missing. By "
            "default a "
            "file for each flow file in %1.")
             .arg(storeFolder()),
         tr("file")},
        {moduleOption, tr("Module to show first, or to work on without a display."), tr("id")},
        {pluginOption, tr("Plug-in that makes the panels."), tr("file")},
        {screenshotOption, tr("Write a picture of the window and end; needs no display."), tr("file.png")},
        {runOption,
         tr("Judge the rows of CSV files with the same header, - for standard input, and print the results "
            "as "
            "CSV."),
         tr("file.csv ...")},
        {summaryOption, tr("With --run: print the totals only.")},
        {failOption, tr("With --run: exit code 3 when some rows are not OK.")},
        {dumpOption, tr("Print all that the store holds for the module as JSON.")},
        {sqlOption, tr("Print SQL queries that judge a table with the columns of the CSV file.")},
        {tableOption, tr("With --sql: the table's name, samples by default."), tr("name")},
        {exportOption, tr("Write the module's conditions to a file, - for standard output."),
         tr("file.json")},
        {importOption, tr("Replace the module's conditions by those of a file."), tr("file.json")},
        {conditionsOption,
         tr("With --run, --dump and --sql: take the conditions from a file instead of the store."),
         tr("file.json")},
        {faultOption,
         tr("Arm a fault, such as kind=SetBinaryData,parameter=IFText,when=next,answer=Failed,message=full. "
            "May be given again."),
         tr("fault")},
        {{QStringLiteral("h"), helpOption}, tr("Show this text.")},
        {versionOption, tr("Show the version.")},
    });
}

bool WorkbenchOptions::parse(const QStringList& arguments, QString* error)
{
    if (!m_parser.parse(arguments)) {
        *error = m_parser.errorText();
        return false;
    }
    *error = misuse();
    if (!error->isEmpty()) {
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

QString WorkbenchOptions::misuse()
{
    QString task;
    for (const auto& [option, meaning] : {std::pair(runOption, Task::Run),
                                          {dumpOption, Task::Dump},
                                          {sqlOption, Task::Sql},
                                          {exportOption, Task::Export},
                                          {importOption, Task::Import},
                                          {screenshotOption, Task::Show}}) {
        if (m_parser.isSet(option)) {
            if (!task.isEmpty()) {
                return tr("--%1 and --%2 exclude each other.").arg(task, option);
            }
            task = option;
            m_task = meaning;
        }
    }
    if (m_task != Task::Run && !m_parser.positionalArguments().isEmpty()) {
        return tr("Unexpected argument '%1'.").arg(m_parser.positionalArguments().first());
    }
    for (const auto& [option, users] : {std::pair(summaryOption, QStringList(runOption)),
                                        {failOption, {runOption}},
                                        {tableOption, {sqlOption}},
                                        {conditionsOption, {runOption, dumpOption, sqlOption}}}) {
        if (m_parser.isSet(option) && !users.contains(task)) {
            return tr("--%1 needs --%2.").arg(option, users.join(tr(" or --")));
        }
    }
    if (m_parser.isSet(conditionsOption) && m_parser.isSet(storeOption)) {
        return tr("--%1 and --%2 exclude each other.").arg(conditionsOption, storeOption);
    }
    for (const QString& option : {runOption, exportOption, importOption, conditionsOption, tableOption}) {
        if (m_parser.isSet(option) && m_parser.value(option).isEmpty()) {
            return tr("--%1 needs a name.").arg(option);
        }
    }
    if (task == screenshotOption && !screenshotFile().endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        return tr("'%1' does not end in .png.").arg(screenshotFile());
    }
    return {};
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

QStringList WorkbenchOptions::runFiles() const
{
    return m_parser.values(runOption) + m_parser.positionalArguments();
}

bool WorkbenchOptions::asksForSummary() const
{
    return m_parser.isSet(summaryOption);
}

bool WorkbenchOptions::failsOnNotOk() const
{
    return m_parser.isSet(failOption);
}

QString WorkbenchOptions::tableName() const
{
    return m_parser.isSet(tableOption) ? m_parser.value(tableOption) : QStringLiteral("samples");
}

QString WorkbenchOptions::conditionsFile() const
{
    return m_parser.value(m_task == Task::Export   ? exportOption
                          : m_task == Task::Import ? importOption
                                                   : conditionsOption);
}

std::optional<unsigned int> WorkbenchOptions::moduleOf(const Flow& flow, QString* error) const
{
    if (m_moduleId && !flow.module(*m_moduleId)) {
        *error = tr("The flow %1 has no module %2.").arg(flowFile(), QString::number(*m_moduleId));
        return std::nullopt;
    }
    return m_moduleId ? *m_moduleId : flow.firstIfId();
}

std::optional<unsigned int> WorkbenchOptions::onlyIfModuleOf(const Flow& flow, QString* error) const
{
    const auto id = moduleOf(flow, error);
    const FlowModule* const module = id ? flow.module(*id) : nullptr;
    if (!id) {
        return std::nullopt;
    }
    if (!module || module->kind != Flow::ifKind()) {
        *error = module ? tr("Module %1 is no If module.").arg(*id)
                        : tr("The flow %1 has no If module.").arg(flowFile());
        return std::nullopt;
    }
    QStringList found;
    for (const FlowModule& each : flow.modules()) {
        if (each.kind == Flow::ifKind()) {
            found << QStringLiteral("%1 (%2)").arg(QString::number(each.id), each.name);
        }
    }
    if (!m_moduleId && found.size() > 1) {
        *error = tr("The flow %1 has several If modules; choose one with --module: %2.")
                     .arg(flowFile(), found.join(QStringLiteral(", ")));
        return std::nullopt;
    }
    return id;
}

QString WorkbenchOptions::flowFile() const
{
    return valueOr(flowOption, QStringLiteral("../share/if-workbench/nuclei.json"));
}

bool WorkbenchOptions::opensSample() const
{
    return !m_parser.isSet(flowOption) && !m_parser.isSet(storeOption) && !m_moduleId;
}

QString WorkbenchOptions::sampleConditions() const
{
    return fromProgramFolder(QStringLiteral("../share/if-workbench/nuclei-conditions.json"));
}

QString WorkbenchOptions::pluginFile() const
{
    const QString installed = QStringLiteral(INSTALLED_PLUGIN_FOLDER "/libQIfModule.so");
    return valueOr(pluginOption, QFile::exists(fromProgramFolder(installed))
                                     ? installed
                                     : QStringLiteral("../lib/libQIfModule.so"));
}

QString WorkbenchOptions::storeFile(const QString& flowFile, const QString& flowName) const
{
    if (m_parser.isSet(storeOption)) {
        return m_parser.value(storeOption);
    }
    const QDir folder(storeFolder());
    if (m_task == Task::Show || m_task == Task::Import) {
        folder.mkpath(QStringLiteral("."));
    }
    QString name = flowName;
    name.replace(
        QRegularExpression(QStringLiteral("[^\\w-]"), QRegularExpression::UseUnicodePropertiesOption),
        QStringLiteral("_"));
    const QFileInfo flow(flowFile);
    const QString place = flow.exists() ? flow.canonicalFilePath() : flow.absoluteFilePath();
    constexpr int digits = 8;
    const QByteArray hash =
        QCryptographicHash::hash(place.toUtf8(), QCryptographicHash::Sha256).toHex().left(digits);
    return folder.filePath(QStringLiteral("%1-%2.sqlite").arg(name, QString::fromLatin1(hash)));
}

QString WorkbenchOptions::storeFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
}

QString WorkbenchOptions::fromProgramFolder(const QString& file)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1Char('/') + file);
}

QString WorkbenchOptions::valueOr(const QString& option, const QString& file) const
{
    return m_parser.isSet(option) ? m_parser.value(option) : fromProgramFolder(file);
}
