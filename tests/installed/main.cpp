#include <QIfModuleExports.h>
#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>
#include <QZelCommonControl/RangeSlider.h>
#include <condition/ConditionName.h>
#include <condition/ConditionRecord.h>

#include <QApplication>

/// Uses what is installed and the example host does not use.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const ButtonSelecterView selecter;
    const bool isRead = StoredCondition::fromText(QStringLiteral("%int0%:1:2:a;")).size() == 1;
    return isRead && selecter.isHidden() ? EXIT_SUCCESS : EXIT_FAILURE;
}
