#include "ConditionsFile.h"
#include "EmbeddedCore/EmbeddedCore.h"
#include "EmbeddedCore/FileName.h"
#include "Headless.h"
#include "MainWindow.h"
#include "Screenshot.h"
#include "Translations.h"
#include "Workbench.h"
#include "WorkbenchApplication.h"
#include "WorkbenchOptions.h"
#include "inspector/ConfigurationJson.h"
#include "judgement/JudgementSql.h"

#include <QIcon>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

enum ExitCode { Done, Failed, WrongUsage, SomeNotOk };

void setNames()
{
    QCoreApplication::setApplicationName(QStringLiteral("if-workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(IF_WORKBENCH_VERSION));
}

int run(const WorkbenchOptions& options, Translations& translations, QString* error)
{
    auto plugin = PanelPlugin::load(options.pluginFile(), error);
    if (!plugin) {
        return EXIT_FAILURE;
    }
    Workbench workbench(options, translations, std::move(plugin));
    if (!workbench.open(options.flowFile(), error)) {
        return EXIT_FAILURE;
    }
    if (!options.screenshotFile().isEmpty()) {
        return Screenshot::write(*workbench.window(), options.screenshotFile(), error) ? EXIT_SUCCESS
                                                                                       : EXIT_FAILURE;
    }
    workbench.window()->show();
    return WorkbenchApplication::exec();
}

QByteArray sqlOf(const ModuleConfiguration& configuration, const QString& table)
{
    const Judgement judgement(configuration, true);
    return (JudgementSql::rows(judgement, table) + QLatin1Char('\n') + JudgementSql::totals(judgement, table))
        .toUtf8();
}

ExitCode runHeadless(const WorkbenchOptions& options, QString* error)
{
    using Task = WorkbenchOptions::Task;
    auto flow = Flow::load(options.flowFile(), error);
    if (!flow) {
        return Failed;
    }
    const auto moduleId = options.onlyIfModuleOf(*flow, error);
    if (!moduleId) {
        return WrongUsage;
    }
    const Task task = options.task();
    const QString conditions = options.conditionsFile();
    const QString store = options.storeFile(options.flowFile(), flow->name());
    if (task == Task::Import) {
        const auto core = EmbeddedCore::open(std::move(*flow), store, error);
        return core && ConditionsFile::import(conditions, *core, *moduleId, error) ? Done : Failed;
    }
    std::optional<ModuleConfiguration> configuration;
    if (conditions.isEmpty() || task == Task::Export) {
        const auto core = EmbeddedCore::openReadOnly(std::move(*flow), store, error);
        configuration = core ? core->configuration(*moduleId, error) : std::nullopt;
    } else {
        configuration = ConditionsFile::read(conditions, *flow, *moduleId, error);
    }
    if (!configuration) {
        return Failed;
    }
    if (task == Task::Run) {
        const auto isOk =
            Headless::printRun(*configuration, options.runFiles(), options.asksForSummary(), error);
        return !isOk ? Failed : !*isOk && options.failsOnNotOk() ? SomeNotOk : Done;
    }
    if (task == Task::Export && conditions != QLatin1String("-")) {
        return ConditionsFile::write(conditions, *configuration, error) ? Done : Failed;
    }
    const QByteArray text = task == Task::Export ? ConditionsFile::textOf(*configuration)
                            : task == Task::Dump
                                ? QJsonDocument(ConfigurationJson::of(*configuration)).toJson()
                                : sqlOf(*configuration, options.tableName());
    return Headless::print(text, error) ? Done : Failed;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int fail(ExitCode code, const QString& text)
{
    std::fprintf(stderr, "if-workbench: %s\n", qUtf8Printable(text));
    if (code == WrongUsage) {
        std::fprintf(stderr, "%s\n",
                     qUtf8Printable(QCoreApplication::translate("main", "See if-workbench --help.")));
    }
    return code;
}

// All that needs no window; nothing when there is one to show.
std::optional<int> runWithoutWindow(const WorkbenchOptions& options)
{
    QString error;
    ExitCode code = Done;
    if (options.asksForHelp() || options.asksForVersion()) {
        const QString version = QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                              QCoreApplication::applicationVersion());
        const QString text = options.asksForHelp() ? options.helpText() : version;
        code = Headless::print(text.toLocal8Bit(), &error) ? Done : Failed;
    } else if (options.task() != WorkbenchOptions::Task::Show) {
        code = runHeadless(options, &error);
    } else {
        return std::nullopt;
    }
    return error.isEmpty() ? code : fail(code, error);
}

} // namespace

int main(int argc, char** argv)
{
    setNames();
    std::optional<WorkbenchOptions> options;
    {
        const QCoreApplication application(argc, argv);
        const Translations translations;
        options.emplace();
        QString error;
        QStringList arguments; // QCoreApplication's own list loses names that are not UTF-8
        std::transform(argv, argv + argc, std::back_inserter(arguments), FileName::decoded);
        if (!options->parse(arguments, &error)) {
            return fail(WrongUsage, error);
        }
        if (const auto code = runWithoutWindow(*options)) {
            return *code;
        }
        if (options->screenshotFile().isEmpty() && !hasDisplay()) {
            return fail(Failed,
                        QCoreApplication::translate("main", "There is no display. --screenshot FILE.png "
                                                            "writes a picture without one."));
        }
    }
    if (!options->screenshotFile().isEmpty() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }

    WorkbenchApplication application(argc, argv);
    Translations translations;
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/if-workbench/icons/if-workbench-128.png")));
    QString error;
    const int exitCode = run(*options, translations, &error);
    if (!error.isEmpty()) {
        WorkbenchApplication::tellError(error);
    }
    return exitCode;
}
