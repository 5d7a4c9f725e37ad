#include "FakeCore.h"
#include "LogCapture.h"

#include <QtTest>

#include <functional>
#include <string>

using namespace ZelCore;
using ZelCommon::Any;
using ZelCommon::IocContainar;
using ZelCommon::ZelException;

namespace {

// What a call throws, "" when it does not.
QByteArray thrownBy(const std::function<void()>& call)
{
    try {
        call();
    } catch (const ZelException& exception) {
        return exception.ErrorCode() == 0 ? exception.what() : "wrong error code";
    }
    return {};
}

} // namespace

class tst_core_client : public QObject
{
    Q_OBJECT

private slots:
    void resolution();
    void nullTexts();
    void textsAreCut();
    void containers();
    void valuesAreCopiedDeep();
    void onlySuccessIsSuccess();
};

void tst_core_client::resolution()
{
    IocContainar& container = IocContainar::Instance();
    const auto resolve = [&container] { container.Resolve<ICommandService>(); };
    {
        FakeCore core;
        QCOMPARE(container.Resolve<ICommandService>(), &core);
        QVERIFY(container.IsRegister(IocContainar::KeyOf<ICommandService>().c_str()));
    }
    QCOMPARE(thrownBy(resolve), QByteArray("Containar is not Build"));

    container.Build();
    QVERIFY(!container.Resolve<ICommandService>());
    SetRunParamCommand command(1, "LogicalMode", "1");
    QCOMPARE(ExecuteCommand(command).Status, Failed);

    container.RegisterType(IocContainar::KeyOf<ICommandService>(), Any(5));
    QCOMPARE(thrownBy(resolve), QByteArray("Can not cast TypeName:[i] to  TypeName:[") +
                                    typeid(std::function<ICommandService*()>).name() + ']');

    container.RegisterType(IocContainar::KeyOf<ICommandService>(), Any(std::function<ICommandService*()>()));
    QVERIFY(!container.Resolve<ICommandService>());
    container.Clear();
    QVERIFY(!container.IsRegister(IocContainar::KeyOf<ICommandService>().c_str()));
}

void tst_core_client::nullTexts()
{
    UInt length = 1;
    const QByteArray uiData =
        "SetUIDataCommand(const UInt& moduleID, const char* paramName, const char* data, "
        "UInt& dataLen) ";
    QCOMPARE(thrownBy([] { SetRunParamCommand(1, "name", nullptr); }),
             QByteArray("SetRunParamCommand(UInt& moduleID, char* paramName,char* val) [val] is nullptr"));
    QCOMPARE(thrownBy([] { SetBinaryDataCommand(1, "name", nullptr, 3); }), uiData + "[data] is nullptr");
    QCOMPARE(thrownBy([&] { SetUIDataCommand(1, "name", nullptr, length); }), uiData + "[data] is nullptr");
    QCOMPARE(thrownBy([&] { SetUIDataCommand(1, nullptr, "a", length); }), uiData + "[paramName] is nullptr");
    QCOMPARE(thrownBy([] { DeleteUIDataCommand(1, nullptr); }), uiData + "[paramName] is nullptr");
    QCOMPARE(thrownBy([] { SUBSCRIBE_CONDITION__(1, static_cast<const char*>(nullptr)); }),
             QByteArray("SUBSCRIBE_CONDITION__ [varType] is nullptr"));
    QCOMPARE(thrownBy([] { UI_OBJECT_PARAM_INFO_CONDITION__(1, nullptr); }),
             QByteArray("IOUnSubscribeCommand [paramName] is nullptr"));
}

void tst_core_client::textsAreCut()
{
    const QByteArray longText(2000, 'x');
    QCOMPARE(TextOf(RUN_PARAM_CONDITION__(1, longText).ParamName).size(), 127u);
    QCOMPARE(TextOf(BINARY_DATA_CONDITION__(1, longText).ParamName).size(), 255u);
    QCOMPARE(TextOf(SetRunParamCommand(1, longText, longText).Val).size(), 511u);
    QCOMPARE(TextOf(CommandResult(Failed, longText).Message).size(), 1023u);
    QCOMPARE(qstrlen(ZelException("%s", longText.constData()).what()), 1023u);

    char full[4] = {'a', 'b', 'c', 'd'};
    QCOMPARE(TextOf(full).size(), 4u);
}

void tst_core_client::containers()
{
    SUBSCRIBE_TREE__ tree;
    tree.CreateList(2);
    tree.At(1).CreateList(3);
    FillText(tree.At(1).At(2).NodeName, "leaf");

    SUBSCRIBE_TREE__ copy(tree);
    FillText(tree.At(1).At(2).NodeName, "other");
    QCOMPARE(copy.At(1).At(2).NodeName, "leaf");

    const auto& same = copy;
    copy = same;
    QCOMPARE(copy.At(1).At(2).NodeName, "leaf");
    // An item of the container itself: its owner goes while it is read.
    static_cast<ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>&>(copy) = copy.At(1);
    QCOMPARE(copy.Num(), 3u);
    QCOMPARE(copy.At(2).NodeName, "leaf");

    QVERIFY(thrownBy([&copy] { copy.At(3); }).contains("[3] of [3]"));
    QVERIFY(!thrownBy([&copy] { copy.At(-1); }).isEmpty());
    copy.CreateList(0);
    QVERIFY(!copy.Items());
    copy.Clear();
    QCOMPARE(copy.Num(), 0u);
}

void tst_core_client::valuesAreCopiedDeep()
{
    const char bytes[] = {'a', '\0', 'b'};
    const SetBinaryDataCommand command(1, "IFText", bytes, 3);
    QVERIFY(command.Data != bytes);
    QCOMPARE(QByteArray(command.Data, 3), QByteArray(bytes, 3));

    Any first(std::string("text"));
    Any second(first);
    first = Any(5);
    QCOMPARE(second.Cast<std::string>(), std::string("text"));
    QVERIFY(first.Type() == typeid(int));
    first = std::move(second);
    QVERIFY(first.Type() == typeid(std::string));
    QVERIFY(Any().Type() == typeid(void));
}

void tst_core_client::onlySuccessIsSuccess()
{
    FakeCore core;
    LogCapture log;
    for (const CommandStatus status : {None, Success, NothingChanged, Failed}) {
        core.fault = [status](int, const QString&) { return CommandResult(status, "磁盘 full"); };
        SetRunParamCommand command(7, "LogicalMode", "2");
        QCOMPARE(ExecuteOrLog(command, "[X]: failed. errmeg="), status == Success);
        QCOMPARE(core.takeCommands(), QStringList("SetRunParam 7 LogicalMode=2"));
    }
    const QString line = "[X]: failed. errmeg=磁盘 full";
    QCOMPARE(log.lines(), QStringList({line, line, line}));
}

QTEST_APPLESS_MAIN(tst_core_client)
#include "tst_core_client.moc"
