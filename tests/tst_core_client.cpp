#include "FakeCore.h"

#include <QtTest>

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
    void valuesAreCopiedDeep();
};

void tst_core_client::resolution()
{
    IocContainar& container = IocContainar::Instance();
    const auto resolve = [&container] { container.Resolve<ICommandService>(); };
    {
        const FakeCore core;
        QCOMPARE(container.Resolve<ICommandService>(), &core);
        QVERIFY(container.IsRegister(IocContainar::KeyOf<ICommandService>().c_str()));
    }
    QVERIFY(IsSuccess(Success) && !IsSuccess(None) && !IsSuccess(NothingChanged));
    QCOMPARE(thrownBy(resolve), QByteArray("Containar is not Build"));

    container.Build();
    SetRunParamCommand command(1, "LogicalMode", "1");
    QCOMPARE(ExecuteCommand(command).Status, Failed);
    container.RegisterType(IocContainar::KeyOf<ICommandService>(), Any(std::function<ICommandService*()>()));
    QVERIFY(!container.Resolve<ICommandService>());
    container.RegisterType(IocContainar::KeyOf<ICommandService>(), Any(5));
    QCOMPARE(thrownBy(resolve), QByteArray("Can not cast TypeName:[i] to  TypeName:[") +
                                    typeid(std::function<ICommandService*()>).name() + ']');
}

void tst_core_client::nullTexts()
{
    UInt length = 1;
    const QByteArray uiData =
        "SetUIDataCommand(const UInt& moduleID, const char* paramName, const char* data, UInt& dataLen) ";
    const std::pair<std::function<void()>, QByteArray> calls[] = {
        {[] { SetRunParamCommand(1, "name", nullptr); },
         "SetRunParamCommand(UInt& moduleID, char* paramName,char* val) [val] is nullptr"},
        {[] { SetBinaryDataCommand(1, "name", nullptr, 3); }, uiData + "[data] is nullptr"},
        {[&] { SetUIDataCommand(1, "name", nullptr, length); }, uiData + "[data] is nullptr"},
        {[&] { SetUIDataCommand(1, nullptr, "a", length); }, uiData + "[paramName] is nullptr"},
        {[] { DeleteUIDataCommand(1, nullptr); }, uiData + "[paramName] is nullptr"},
        {[] { SUBSCRIBE_CONDITION__(1, static_cast<const char*>(nullptr)); },
         "SUBSCRIBE_CONDITION__ [varType] is nullptr"},
        {[] { UI_OBJECT_PARAM_INFO_CONDITION__(1, nullptr); }, "IOUnSubscribeCommand [paramName] is nullptr"},
    };
    for (const auto& [call, message] : calls) {
        QCOMPARE(thrownBy(call), message);
    }
}

void tst_core_client::textsAreCut()
{
    const QByteArray longText(2000, 'x');
    QCOMPARE(TextOf(RUN_PARAM_CONDITION__(1, longText).ParamName).size(), 127u);
    QCOMPARE(TextOf(BINARY_DATA_CONDITION__(1, longText).ParamName).size(), 255u);
    QCOMPARE(TextOf(SetRunParamCommand(1, longText, longText).Val).size(), 511u);
    QCOMPARE(TextOf(CommandResult(Failed, longText).Message).size(), 1023u);
    QCOMPARE(qstrlen(ZelException("%s", longText.constData()).what()), 1023u);
    const char full[4] = {'a', 'b', 'c', 'd'};
    QCOMPARE(TextOf(full).size(), 4u);
}

void tst_core_client::valuesAreCopiedDeep()
{
    SUBSCRIBE_TREE__ tree;
    tree.CreateList(2);
    tree.At(1).CreateList(3);
    FillText(tree.At(1).At(2).NodeName, "leaf");
    SUBSCRIBE_TREE__ copy(tree);
    FillText(tree.At(1).At(2).NodeName, "other");
    const auto& same = copy;
    copy = same;
    // An item of the container itself: its owner goes while it is read.
    static_cast<ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>&>(copy) = copy.At(1);
    QCOMPARE(copy.Num(), 3u);
    QCOMPARE(copy.At(2).NodeName, "leaf");
    QVERIFY(thrownBy([&copy] { copy.At(3); }).contains("[3] of [3]"));
    QVERIFY(!thrownBy([&copy] { copy.At(-1); }).isEmpty());
    copy.CreateList(0);
    QVERIFY(!copy.Items() && copy.Num() == 0);

    char bytes[] = {'a', '\0', 'b'};
    const SetBinaryDataCommand command(1, "IFText", bytes, 3);
    bytes[0] = 'c';
    QCOMPARE(QByteArray(command.Data, 3), QByteArray("a\0b", 3));

    Any first(std::string("text"));
    Any second(first);
    first = Any(5);
    QCOMPARE(second.Cast<std::string>(), std::string("text"));
    first = std::move(second);
    QVERIFY(first.Type() == typeid(std::string) && Any().Type() == typeid(void));
}

QTEST_APPLESS_MAIN(tst_core_client)
#include "tst_core_client.moc"
