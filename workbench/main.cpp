#include "EmbeddedCore/EmbeddedCore.h"
#include "Headless.h"
#include "MainWindow.h"
#include "Screenshot.h"
#include "Workbench.h"
#include "WorkbenchApplication.h"
#include "WorkbenchOptions.h"

#include <QIcon>

#include <algorithm>
#include <cstdio>

namespace {

void setNames()
{
    QCoreApplication::setApplicationName(QStringLiteral("if-workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(IF_WORKBENCH_VERSION));
    QGuiApplication::setApplicationDisplayName(QCoreApplication::translate("main", "If Workbench"));
}

int run(const WorkbenchOptions& options, QString* error)
{
    auto plugin = PanelPlugin::load(options.pluginFile(), error);
    if (!plugin) {
        return EXIT_FAILURE;
    }
    Workbench workbench(options, std::move(plugin));
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

int runHeadless(const WorkbenchOptions& options, QString* error)
{
    auto flow = Flow::load(options.flowFile(), error);
    const auto moduleId = flow ? options.moduleOf(*flow, error) : std::nullopt;
    if (!moduleId) {
        return EXIT_FAILURE;
    }
    const FlowModule* const module = flow->module(*moduleId);
    if (!module || module->kind != Flow::ifKind()) {
        *error = module ? QCoreApplication::translate("main", "Module %1 is no If module.").arg(*moduleId)
                        : QCoreApplication::translate("main", "The flow %1 has no If module.")
                              .arg(options.flowFile());
        return EXIT_FAILURE;
    }
    const QString storeFile = options.storeFile(flow->name());
    const auto core = EmbeddedCore::open(std::move(*flow), storeFile, error);
    const auto configuration = core ? core->configuration(*moduleId, error) : std::nullopt;
    const bool isDone =
        configuration && (options.asksForDump() ? Headless::printConfiguration(*configuration, error)
                                       : Headless::printRun(*configuration, {options.runFile()}, false, error).has_value());
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int fail(const QString& text)
{
    std::fprintf(stderr, "if-workbench: %s\n", qUtf8Printable(text));
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    setNames();
    QStringList arguments;
    std::transform(argv, argv + argc, std::back_inserter(arguments),
                   [](const char* argument) { return QString::fromLocal8Bit(argument); });

    WorkbenchOptions options;
    QString error;
    if (!options.parse(arguments, &error)) {
        return fail(error);
    }
    if (options.asksForHelp() || options.asksForVersion()) {
        const QCoreApplication application(argc, argv);
        const QString text = options.asksForHelp()
                                 ? options.helpText()
                                 : QCoreApplication::applicationName() + QLatin1Char(' ') +
                                       QCoreApplication::applicationVersion() + QLatin1Char('\n');
        std::fputs(qUtf8Printable(text), stdout);
        return EXIT_SUCCESS;
    }
    if (options.asksForDump() || !options.runFile().isEmpty()) {
        const QCoreApplication application(argc, argv);
        const int exitCode = runHeadless(options, &error);
        return exitCode == EXIT_SUCCESS ? exitCode : fail(error);
    }
    if (!options.screenshotFile().isEmpty()) {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
    } else if (!hasDisplay()) {
        return fail(QCoreApplication::translate(
            "main", "There is no display. --screenshot FILE.png writes a picture without one."));
    }

    WorkbenchApplication application(argc, argv);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/if-workbench/icons/if-workbench-128.png")));
    const int exitCode = run(options, &error);
    if (exitCode != EXIT_SUCCESS) {
        WorkbenchApplication::tellError(error);
    }
    return exitCode;
}
