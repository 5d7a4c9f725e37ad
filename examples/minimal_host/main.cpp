#include "ZelCommon/FilterSourceCommands.h"
#include "ZelCommon/ServiceRegistration.h"
#include "ZelCommon/SynchronousService.h"
#include "core_client/core_client.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFrame>
#include <QLibrary>
#include <QMap>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdlib>

using namespace ZelCore;

namespace {

using BinaryDataQuery = QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__>;
using RunParameterQuery = QueryCommand<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__>;
using SubscribeTreeQuery = QueryCommand<SUBSCRIBE_CONDITION__, SUBSCRIBE_TREE__>;
using UiDataQuery = QueryCommand<UI_OBJECT_PARAM_INFO_CONDITION__, UI_OBJECT_PARAM_INFO__>;

/// A core in memory, known to every panel of the process while it lives. Its flow is one If module: there is
/// nothing to bind to.
class MemoryCore : public SynchronousService
{
public:
    using SynchronousService::Execute;
    CommandResult Execute(ICommand& command) override
    {
        if (const auto* const query = dynamic_cast<BinaryDataQuery*>(&command)) {
            return give(binaryData, query->Condition->ParamName, *query->Result);
        }
        if (const auto* const query = dynamic_cast<UiDataQuery*>(&command)) {
            return give(m_uiData, query->Condition->ParamName, *query->Result);
        }
        if (const auto* const query = dynamic_cast<RunParameterQuery*>(&command)) {
            FillText(query->Result->strParamValue, m_runParameters.value(query->Condition->ParamName));
            return Success;
        }
        if (const auto* const set = dynamic_cast<SetBinaryDataCommand*>(&command)) {
            binaryData[set->ParamName] = QByteArray(set->Data, static_cast<int>(set->DataLen));
            return Success;
        }
        if (const auto* const set = dynamic_cast<SetRunParamCommand*>(&command)) {
            m_runParameters[set->ParamName] = set->Val;
            return Success;
        }
        if (const auto* const set = dynamic_cast<SetUIDataCommand*>(&command)) {
            m_uiData[set->ParamName] = QByteArray(set->Data, static_cast<int>(set->DataLen));
            return Success;
        }
        if (const auto* const remove = dynamic_cast<DeleteUIDataCommand*>(&command)) {
            return m_uiData.remove(remove->ParamName) != 0 ? Success : NothingChanged;
        }
        // IOs concern programs that run the flow; an empty menu is an answer; "not bound" can be chosen.
        const bool isDone = dynamic_cast<AddIOCommand*>(&command) ||
                            dynamic_cast<SubscribeTreeQuery*>(&command) ||
                            dynamic_cast<SetFilterSourceCommand*>(&command);
        return isDone ? Success : NothingChanged; // no binding stands
    }

    using Values = QMap<QByteArray, QByteArray>;
    Values binaryData = {{"IFText", "%int0%:1:250:cells;"}};

private:
    static CommandResult give(const Values& from, const char* name, ZEL_VALUE_CONTAINER__<char>& to)
    {
        const auto found = from.constFind(name);
        if (found == from.constEnd()) {
            return {Failed, "no such parameter"};
        }
        to.CreateList(static_cast<UInt>(found->size()) + 1); // with a NUL, which counts
        std::copy_n(found->constData(), found->size() + 1, to.Items());
        return Success;
    }

    Values m_runParameters = {{"LogicalMode", "1"}};
    Values m_uiData;
    ServiceRegistration m_registration{*this};
};

/// Catches what a panel's slots throw: the plug-in catches no exception.
class Application : public QApplication
{
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& exception) {
            qWarning("a panel or the core failed: %s", exception.what());
        }
        return false;
    }
};

} // namespace

int main(int argc, char** argv)
{
    const Application application(argc, argv);
    QCommandLineParser options;
    options.addOption(
        {"check", "Add a condition, write a picture, and end: well when the core has it.", "picture"});
    options.addHelpOption();
    options.process(application);

    // Stays loaded when this object goes.
    QLibrary plugin(QCoreApplication::applicationDirPath() + "/../lib/libQIfModule.so");
    const auto create = reinterpret_cast<bool (*)(unsigned int, QWidget*, QWidget**)>(
        plugin.resolve("CreateModuParamConfigInstance"));
    if (!create) {
        qCritical("%s", qUtf8Printable(plugin.errorString()));
        return EXIT_FAILURE;
    }

    MemoryCore core; // outlives the panel
    QWidget window;
    auto* const page = new QFrame; // with the window, the two levels above a panel
    (new QVBoxLayout(&window))->addWidget(page);
    QWidget* panel = nullptr;
    if (!create(7, page, &panel)) {
        return EXIT_FAILURE;
    }
    (new QVBoxLayout(page))->addWidget(panel);
    window.resize(760, 420);
    window.show();

    if (options.isSet("check")) {
        panel->findChild<QPushButton*>("btn_add")->click();
        QCoreApplication::processEvents();
        const bool isStored = core.binaryData["IFText"] == "%int0%:1:250:cells;%int1%:1:1000:;";
        return isStored && window.grab().save(options.value("check")) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    return QApplication::exec();
}
