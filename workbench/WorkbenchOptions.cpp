#include "WorkbenchOptions.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

WorkbenchOptions::WorkbenchOptions()
{
    m_parser.setApplicationDescription(tr(
        "Shows an inspection flow and the configuration panels of its If modules. With --run, --dump, --sql, "
        "--export or --import it works without a display.\n\n"
        "Exit codes: 0 done, 1 failed, 2 wrong usage, 3 some rows are not OK (with --fail-on-not-ok)."));
    m_parser.addOptions({
        {QStringLiteral("flow"), tr("Inspection flow to open, a JSON file."), tr("file")},
        {QStringLiteral("store"),
         tr("Store of the modules' parameters; the window and --import make it when it is missing. By "
            "default a file for each flow file in %1.")
             .arg(storeFolder()),
         tr("file")},
        {QStringLiteral("module"), tr("Module to show first, or to work on without a display."), tr("id")},
        {QStringLiteral("plugin"), tr("Plug-in that makes the panels."), tr("file")},
        {QStringLiteral("screenshot"), tr("Write a picture of the window and end; needs no display."),
         tr("file.png")},
        {QStringLiteral("run"),
         tr("Judge the rows of CSV files with the same header, - for standard input, and print the results "
            "as "
            "CSV."),
         tr("file.csv ...")},
        {QStringLiteral("summary"), tr("With --run: print the totals only.")},
        {QStringLiteral("fail-on-not-ok"), tr("With --run: exit code 3 when some rows are not OK.")},
        {QStringLiteral("dump"), tr("Print all that the store holds for the module as JSON.")},
        {QStringLiteral("sql"), tr("Print SQL queries that judge a table with the columns of the CSV file.")},
        {QStringLiteral("table"), tr("With --sql: the table's name, samples by default."), tr("name")},
        {QStringLiteral("export"), tr("Write the module's conditions to a file, - for standard output."),
         tr("file.json")},
        {QStringLiteral("import"), tr("Replace the module's conditions by those of a file."),
         tr("file.json")},
        {QStringLiteral("conditions"),
         tr("With --run, --dump and --sql: take the conditions from a file instead of the store."),
         tr("file.json")},
        {QStringLiteral("fault"),
         tr("Arm a fault, such as kind=SetBinaryData,parameter=IFText,when=next,answer=Failed,message=full. "
            "May be given again."),
         tr("fault")},
        {{QStringLiteral("h"), QStringLiteral("help")}, tr("Show this text.")},
        {QStringLiteral("version"), tr("Show the version.")},
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
    const QStringList faults = m_parser.values(QStringLiteral("fault"));
    for (const QString& text : faults) {
        const auto fault = FaultPlan::parse(text, error);
        if (!fault) {
            return false;
        }
        m_faults << *fault;
    }
    if (isSet("module")) {
        bool isNumber = false;
        m_moduleId = value("module").toUInt(&isNumber);
        if (!isNumber) {
            *error = tr("'%1' is no module id.").arg(value("module"));
            return false;
        }
    }
    return true;
}

QString WorkbenchOptions::misuse()
{
    QString task;
    for (const auto& [name, meaning] : {std::pair("run", Task::Run),
                                        {"dump", Task::Dump},
                                        {"sql", Task::Sql},
                                        {"export", Task::Export},
                                        {"import", Task::Import},
                                        {"screenshot", Task::Show}}) {
        const auto option = QString::fromLatin1(name);
        if (isSet(name) && !task.isEmpty()) {
            return tr("--%1 and --%2 exclude each other.").arg(task, option);
        }
        if (isSet(name)) {
            task = option;
            m_task = meaning;
        }
    }
    if (m_task != Task::Run && !m_parser.positionalArguments().isEmpty()) {
        return tr("Unexpected argument '%1'.").arg(m_parser.positionalArguments().first());
    }
    for (const auto& [option, users] : {std::pair("summary", "run"),
                                        {"fail-on-not-ok", "run"},
                                        {"table", "sql"},
                                        {"conditions", "run dump sql"}}) {
        const QStringList tasks = QString::fromLatin1(users).split(QLatin1Char(' '));
        if (isSet(option) && !tasks.contains(task)) {
            return tr("--%1 needs --%2.").arg(QLatin1String(option), tasks.join(tr(" or --")));
        }
    }
    if (isSet("conditions") && isSet("store")) {
        return tr("--%1 and --%2 exclude each other.")
            .arg(QStringLiteral("conditions"), QStringLiteral("store"));
    }
    for (const char* const option : {"run", "export", "import", "conditions", "table"}) {
        if (isSet(option) && value(option).isEmpty()) {
            return tr("--%1 needs a name.").arg(QLatin1String(option));
        }
    }
    if (isSet("screenshot") && !screenshotFile().endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        return tr("'%1' does not end in .png.").arg(screenshotFile());
    }
    return {};
}

QString WorkbenchOptions::conditionsFile() const
{
    return value(m_task == Task::Export ? "export" : m_task == Task::Import ? "import" : "conditions");
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
    return valueOr("flow", QStringLiteral("../share/if-workbench/nuclei.json"));
}

bool WorkbenchOptions::opensSample() const
{
    return !isSet("flow") && !isSet("store") && !m_moduleId;
}

QString WorkbenchOptions::sampleConditions() const
{
    return fromProgramFolder(QStringLiteral("../share/if-workbench/nuclei-conditions.json"));
}

QString WorkbenchOptions::pluginFile() const
{
    const QString installed = QStringLiteral(INSTALLED_PLUGIN_FOLDER "/libQIfModule.so");
    return valueOr("plugin", QFile::exists(fromProgramFolder(installed))
                                 ? installed
                                 : QStringLiteral("../lib/libQIfModule.so"));
}

QString WorkbenchOptions::storeFile(const QString& flowFile, const QString& flowName) const
{
    if (isSet("store")) {
        return value("store");
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

QString WorkbenchOptions::valueOr(const char* option, const QString& file) const
{
    return isSet(option) ? value(option) : fromProgramFolder(file);
}
