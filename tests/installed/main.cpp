#include <QIfModuleExports.h>
#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>
#include <QZelCommonControl/RangeSlider.h>
#include <ZelCommon/FilterSourceCommands.h>
#include <ZelCommon/SynchronousService.h>
#include <condition/ConditionName.h>
#include <condition/ConditionRecord.h>
#include <core_client/core_client.h>

#include <QApplication>
#include <QFile>
#include <QLibrary>

/// Makes a panel of the plug-in in the argument, or of the installed one.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    ZelCommon::IocContainar::Instance().Clear();
    const ButtonSelecterView selecter;

    auto* const create = reinterpret_cast<decltype(&CreateModuParamConfigInstance)>(QLibrary::resolve(
        QFile::decodeName(argc > 1 ? argv[1] : PLUGIN_FILE), "CreateModuParamConfigInstance"));
    QWidget window;
    QWidget* panel = nullptr;
    const bool isMade = create && create(7, &window, &panel) && panel->inherits("QIfModuleMainView");
    const bool isRead = StoredCondition::fromText(QStringLiteral("%int0%:1:2:a;")).size() == 1;
    return isMade && isRead && selecter.isHidden() ? EXIT_SUCCESS : EXIT_FAILURE;
}
