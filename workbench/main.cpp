#include "CoreSession.h"
#include "MainWindow.h"
#include "PanelPlugin.h"
#include "Screenshot.h"
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
    auto flow = Flow::load(options.flowFile(), error);
    if (!flow) {
        return EXIT_FAILURE;
    }
    const auto& modules = flow->modules();
    const auto firstIf = std::find_if(modules.cbegin(), modules.cend(),
                                      [](const FlowModule& module) { return module.kind == Flow::ifKind(); });
    const auto moduleId = options.moduleId();
    if (moduleId && !flow->module(*moduleId)) {
        *error = QCoreApplication::translate("main", "The flow %1 has no module %2.")
                     .arg(options.flowFile())
                     .arg(*moduleId);
        return EXIT_FAILURE;
    }
    const unsigned int shownId = moduleId ? *moduleId : firstIf != modules.cend() ? firstIf->id : 0;

    const auto plugin = PanelPlugin::load(options.pluginFile(), error);
    if (!plugin) {
        return EXIT_FAILURE;
    }
    const QString storeFile = options.storeFile(flow->name());
    auto core = EmbeddedCore::open(std::move(*flow), storeFile, error);
    if (!core) {
        return EXIT_FAILURE;
    }

    CoreSession session(options.flowFile(), std::move(core));
    MainWindow window(session, *plugin);
    if (shownId != 0) {
        window.showModule(shownId);
    }
    if (!options.screenshotFile().isEmpty()) {
        return Screenshot::write(window, options.screenshotFile(), error) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    window.show();
    return WorkbenchApplication::exec();
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
