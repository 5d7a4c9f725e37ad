#include "FakeCore.h"

#include "commands/CommandText.h"

#include <algorithm>

using namespace ZelCore;

namespace {

template <typename... Functions>
struct Overloaded : Functions...
{
    using Functions::operator()...;
};
template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

} // namespace

SUBSCRIBE_NODE__& fillNode(SUBSCRIBE_NODE__& node, const char* name, UInt children, const char* source)
{
    node.ModuleID = 5;
    FillText(node.NodeName, name);
    FillText(node.SubscribeName, source);
    node.CreateList(children);
    return node;
}

CommandResult FakeCore::Execute(ICommand& command)
{
    const CommandText text = CommandText::of(command);
    m_commands << text.line();
    if (fault) {
        if (const auto answer = fault(text.line())) {
            return *answer;
        }
    }
    if (text.line().startsWith(refused) || text.line().endsWith("=5.Refused")) {
        return {Failed, "refused"};
    }
    const QString& name = text.parameter;
    CommandResult result = Success;
    const auto remove = [&](auto& from) { result = from.remove(name) != 0 ? Success : NothingChanged; };
    const auto give = [&](ZEL_VALUE_CONTAINER__<char>& record) {
        result = parameters.contains(name) ? Success : CommandResult(Failed, "no such parameter");
        const QByteArray bytes = parameters.value(name);
        record.CreateList(static_cast<UInt>(bytes.size() + 1));
        std::copy_n(bytes.constData(), bytes.size() + 1, record.Items());
    };
    const auto take = [&](const auto& c) { parameters[name] = {c.Data, static_cast<int>(c.DataLen)}; };
    visitCommand(command, Overloaded{
                              [&](AddIOCommand& c) {
                                  // A core may write into what it is sent; the next command must not carry
                                  // it.
                                  result = c.IOInfo->Num() == 0 ? Success : Failed;
                                  c.IOInfo->CreateList(2);
                                  c.IOInfo->ExtraData.CanSubscribe = true;
                              },
                              [&](SetRunParamCommand& c) { parameters[name] = c.Val; },
                              [&](SetBinaryDataCommand& c) {
                                  take(c);
                                  lastTimeOut = c.TimeOut;
                              },
                              [&](SetUIDataCommand& c) { take(c); },
                              [&](DeleteUIDataCommand&) { remove(parameters); },
                              [&](SubscribeTreeQuery& c) { *c.Result = subscribeTree; },
                              [&](BinaryDataQuery& c) { give(*c.Result); },
                              [&](RunParamQuery& c) {
                                  BINARY_DATA__ value;
                                  give(value);
                                  FillText(c.Result->strParamValue, value.Items());
                              },
                              [&](UIDataQuery& c) { give(*c.Result); },
                              [&](SetFilterSourceCommand& c) { bindings[name] = c.SubscribeName; },
                              [&](GetFilterSourceCommand& c) {
                                  c.SubscribeName = bindings.value(name);
                                  c.SourceIsMissing = missingSources.contains(c.SubscribeName);
                                  result = bindings.contains(name) ? Success : NothingChanged;
                              },
                              [&](DelFilterSourceCommand&) { remove(bindings); },
                          });
    return result;
}
