#include "FakeCore.h"

#include <QtTest>

#include <array>
#include <cstring>

using namespace ZelCore;
using ZelCommon::Any;
using ZelCommon::IocContainar;
using ZelCommon::ZelException;

namespace {

using ServiceFunction = std::function<ICommandService*()>;

/// What a call throws, "" when it does not.
template <typename Call>
QByteArray thrownBy(const Call& call)
{
    try {
        call();
    } catch (const ZelException& exception) {
        return exception.ErrorCode() == 0 ? exception.what() : "wrong error code";
    }
    return {};
}

// The first word of such a pointer holds the offset in the virtual table.
template <typename... Arguments, typename Result, typename Class>
std::size_t slotOf(Result (Class::*function)(Arguments...))
{
    std::array<std::size_t, 2> words{};
    std::memcpy(words.data(), &function, sizeof words);
    return words[0] / sizeof(void*);
}

template <typename... Types>
constexpr bool areCopied = ((std::is_copy_constructible_v<Types> && std::is_copy_assignable_v<Types>)&&...);

} // namespace

class tst_core_client : public QObject
{
    Q_OBJECT

private slots:
    void resolution();
    void virtualFunctionsKeepTheirPlaces();
    void nullTexts();
    void textsAreCut();
    void dataIsOwnedWhileItHasALength();
    void copiesAreDeep();
    void aContainerWithoutItemsIsEmpty();
};

void tst_core_client::resolution()
{
    IocContainar& container = IocContainar::Instance();
    const std::string key = IocContainar::KeyOf<ICommandService>();
    const auto resolve = [&container] { return container.Resolve<ICommandService>(); };
    const auto byKey = [&] { return container.IntermalResolve<ICommandService, ServiceFunction>(key); };
    {
        FakeCore core;
        QVERIFY(container.IsRegister(key.c_str()) && resolve() == &core && byKey() == &core);
        QCOMPARE((container.IntermalResolveNoKey<ICommandService, ServiceFunction>()), &core);
    }
    QCOMPARE(thrownBy(resolve), QByteArray("Containar is not Build"));
    QCOMPARE(thrownBy(byKey), QByteArray("Containar is not Build"));

    container.Build();
    SetRunParamCommand command(1, "LogicalMode", "1");
    QCOMPARE(ExecuteCommand(command).Status, Failed);
    container.RegisterType(std::string(key), ServiceFunction());
    QVERIFY(!resolve());
    container.RegisterType(std::string(key), 5);
    QCOMPARE(thrownBy(resolve),
             QByteArray("Can not cast TypeName:[i] to  TypeName:[") + typeid(ServiceFunction).name() + ']');
    Any first = container.m_Constructors_Map[key];
    const Any second(first);
    first = std::string("text");
    QVERIFY(first.m_contentPtr->Type() == typeid(std::string) && Any().Type() == typeid(void));
    QCOMPARE(second.Cast<int>(), 5);
}

// Slots 0 and 1 are the destructor's.
void tst_core_client::virtualFunctionsKeepTheirPlaces()
{
    QCOMPARE(slotOf(&ICommand::Key), 2u);
    QCOMPARE(slotOf<ICommand&>(&ICommandService::Execute), 2u);
    QCOMPARE((slotOf<const void*, ICommand&>(&ICommandService::Execute)), 3u);
    QCOMPARE(slotOf(&ICommandService::ExecuteAsync), 4u);
    std::size_t clone = 0;
    const auto function = &Any::Base::Clone; // behind Type(), which the resolution calls
    std::memcpy(&clone, &function, sizeof clone);
    QCOMPARE(clone / sizeof(void*), 3u);
}

void tst_core_client::nullTexts()
{
    UInt length = 1;
    const char* const null = nullptr;
    const QByteArray runParam = "SetRunParamCommand(UInt& moduleID, char* paramName,char* val) ";
    const QByteArray uiData =
        "SetUIDataCommand(const UInt& moduleID, const char* paramName, const char* data, UInt& dataLen) ";
    const std::pair<std::function<void()>, QByteArray> calls[] = {
        {[&] { SetRunParamCommand(1, null, "1"); }, runParam + "[paramName] is nullptr"},
        {[&] { SetRunParamCommand(1, "name", null); }, runParam + "[val] is nullptr"},
        {[&] { SetBinaryDataCommand(1, null, "a", 1); }, uiData + "[paramName] is nullptr"},
        {[&] { SetBinaryDataCommand(1, "name", null, 0); }, uiData + "[data] is nullptr"},
        {[&] { SetUIDataCommand(1, null, "a", length); }, uiData + "[paramName] is nullptr"},
        {[&] { SetUIDataCommand(1, "name", null, length); }, uiData + "[data] is nullptr"},
        {[&] { DeleteUIDataCommand(1, null); }, uiData + "[paramName] is nullptr"},
        {[&] { SUBSCRIBE_CONDITION__(1, null); }, "SUBSCRIBE_CONDITION__ [varType] is nullptr"},
        {[&] { BINARY_DATA_CONDITION__(1, null); }, "BINARY_DATA_CONDITION__ [paramName] is nullptr"},
        {[&] { RUN_PARAM_CONDITION__(1, null); }, "RUN_PARAM_CONDITION__ [paramName] is nullptr"},
        {[&] { UI_OBJECT_PARAM_INFO_CONDITION__(1, null); }, "IOUnSubscribeCommand [paramName] is nullptr"},
    };
    for (const auto& [call, message] : calls) {
        QCOMPARE(thrownBy(call), message);
    }
}

void tst_core_client::textsAreCut()
{
    const QByteArray longText(2000, 'x');
    UInt length = 0;
    QCOMPARE(TextOf(BINARY_DATA_CONDITION__(1, longText).ParamName).size(), 255u);
    QCOMPARE(TextOf(SetUIDataCommand(1, longText, "", length).ParamName).size(), 127u);
    QCOMPARE(TextOf(SetRunParamCommand(1, longText, longText).Val).size(), 511u);
    QCOMPARE(TextOf(CommandResult(Failed, longText).Message).size(), 1023u);
    QCOMPARE(qstrlen(ZelException("%s", longText.constData()).what()), 1023u);
    const char full[4] = {'a', 'b', 'c', 'd'};
    QCOMPARE(TextOf(full).size(), 4u);
}

// The leak checker sees an array that nobody frees, the address checker one that is freed twice.
void tst_core_client::dataIsOwnedWhileItHasALength()
{
    char bytes[] = {'a', '\0', 'b'};
    std::unique_ptr<char[]> taken;
    {
        SetBinaryDataCommand command(1, "IFText", bytes, 3, 5000);
        bytes[0] = 'c';
        QCOMPARE(QByteArray(command.Data, 3), QByteArray("a\0b", 3));
        taken.reset(command.Data);
        command.DataLen = 0;
    }
    QCOMPARE(taken[2], 'b');
    UInt length = 0;
    QVERIFY(SetBinaryDataCommand(1, "IFText", bytes, 0).Data && SetUIDataCommand(1, "@", bytes, length).Data);
}

void tst_core_client::copiesAreDeep()
{
    static_assert(areCopied<AddIOCommand, SetRunParamCommand, DeleteUIDataCommand,
                            QueryCommand<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__>>);
    static_assert(!areCopied<SetBinaryDataCommand> && !areCopied<SetUIDataCommand>, "they own their data");

    SUBSCRIBE_TREE__ tree;
    tree.CreateList(2);
    tree.At(1).CreateList(3);
    tree.At(1).At(2).ModuleID = 5;
    tree.At(1).At(2).CreateList(4);
    FillText(tree.At(1).At(2).NodeName, "leaf");
    FillText(tree.At(1).At(2).SubscribeName, "5.leaf");
    SUBSCRIBE_TREE__ copy(tree);
    FillText(tree.At(1).At(2).NodeName, "other");
    const auto& same = copy;
    copy = same;
    // A part may be assigned to its owner.
    SUBSCRIBE_NODE__& node = copy.At(1);
    node = node.At(2);
    QVERIFY(node.ModuleID == 5 && node.Num() == 4);
    QVERIFY(TextOf(node.NodeName) == "leaf" && TextOf(node.SubscribeName) == "5.leaf");
    QVERIFY(thrownBy([&copy] { copy.At(2); }).contains("[2] of [2]"));
    QVERIFY(!thrownBy([&copy] { copy.At(-1); }).isEmpty());

    IO_INFO__ io;
    io.CreateList(2);
    io.At(1).Init("%int0%", "int", nullptr);
    io.At(1).ExtraData.CanSubscribe = false;
    io.At(1).CreateList(3);
    io = io.At(1);
    QVERIFY(io.Num() == 3 && !io.ExtraData.CanSubscribe);
    QVERIFY(TextOf(io.ParamName) == "%int0%" && TextOf(io.VauleType) == "int");
}

void tst_core_client::aContainerWithoutItemsIsEmpty()
{
    SUBSCRIBE_NODE__ node;
    node.m_Num = 3;
    SUBSCRIBE_NODE__ other;
    other.CreateList(2);
    other = node;
    QVERIFY(node.Num() == 0 && !other.m_Items && other.m_Num == 0);
    QVERIFY(!thrownBy([&node] { node.At(0); }).isEmpty());
    node.CreateList(0);
    QVERIFY(!node.m_Items && node.m_Num == 0);
    BINARY_DATA__ bytes;
    bytes.m_Num = 3;
    QVERIFY(TextOf(bytes).empty());
}

QTEST_APPLESS_MAIN(tst_core_client)
#include "tst_core_client.moc"
