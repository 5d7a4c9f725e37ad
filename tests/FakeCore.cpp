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

CommandResult FakeCore::Execute(ICommand& command)
{
    const CommandText text = CommandText::of(command);
    m_commands << text.line();
    if (fault) {
        if (const auto refused = fault(m_count++, text.line())) {
            return *refused;
        }
    }
    const QString& name = text.parameter;
    CommandResult result = Success;
    const auto remove = [&](auto& from) { result = from.remove(name) != 0 ? Success : NothingChanged; };
    const auto give = [&](const QMap<QString, QByteArray>& from, ZEL_VALUE_CONTAINER__<char>& record) {
        if (!from.contains(name)) {
            result = {Failed, "no such parameter"};
            return;
        }
        const QByteArray bytes = from[name];
        record.CreateList(static_cast<UInt>(bytes.size() + 1));
        std::copy_n(bytes.constData(), bytes.size() + 1, record.Items());
    };
    visitCommand(command, Overloaded{
                              [&](AddIOCommand& c) {
                                  // A core may write into what it is sent; the next command must not carry
                                  // it.
                                  result = c.IOInfo->Num() == 0 ? Success : Failed;
                                  c.IOInfo->CreateList(2);
                                  c.IOInfo->ExtraData.CanSubscribe = true;
                              },
                              [&](SetRunParamCommand& c) { runParams[name] = c.Val; },
                              [&](SetBinaryDataCommand& c) {
                                  binaryData[name] = {c.Data, static_cast<int>(c.DataLen)};
                                  lastTimeOut = c.TimeOut;
                              },
                              [&](SetUIDataCommand& c) {
                                  uiData[name] = {c.Data, static_cast<int>(c.DataLen)};
                              },
                              [&](DeleteUIDataCommand&) { remove(uiData); },
                              [&](SubscribeTreeQuery& c) { *c.Result = subscribeTree; },
                              [&](BinaryDataQuery& c) { give(binaryData, *c.Result); },
                              [&](RunParamQuery& c) {
                                  BINARY_DATA__ value;
                                  give(runParams, value);
                                  FillText(c.Result->strParamValue, value.Items());
                              },
                              [&](UIDataQuery& c) { give(uiData, *c.Result); },
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
