#include "../FakeCore.h"

#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>

#include <QApplication>
#include <QDebug>
#include <QLibrary>
#include <QVariant>

namespace {

bool isEqual(const char* what, const QVariant& actual, const QVariant& expected)
{
    if (actual != expected) {
        qCritical() << what << "is" << actual << "instead of" << expected;
    }
    return actual == expected;
}

} // namespace

/// Loads the plug-in of the argument and shows a stored condition in a panel with this platform's controls.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    FakeCore core;
    core.binaryData[QStringLiteral("IFText")] = "%int0%:3:44:a;";
    core.runParams[QStringLiteral("LogicalMode")] = "1";

    QLibrary plugin(QString::fromLocal8Bit(argv[argc - 1]));
    plugin.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    using Create = bool(unsigned int, QWidget*, QWidget**);
    auto* const create = reinterpret_cast<Create*>(plugin.resolve("CreateModuParamConfigInstance"));
    QWidget window;
    QWidget* panel = nullptr;
    if (!create || !create(7, &window, &panel)) {
        qCritical() << plugin.errorString();
        return EXIT_FAILURE;
    }
    window.show();

    // The strip tells its slider, a window of this platform, what was stored.
    QVariantList bounds;
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<const QmlRangeSliderView*>(widget)) {
            bounds << widget->property("lower") << widget->property("upper");
        }
    }
    const bool isShown =
        isEqual("number of selectors", panel->findChildren<ButtonSelecterView*>().size(), 3) &&
        isEqual("bounds", bounds, QVariantList({3.0, 44.0}));
    return isShown ? EXIT_SUCCESS : EXIT_FAILURE;
}
