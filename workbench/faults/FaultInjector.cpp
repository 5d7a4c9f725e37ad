#include "faults/FaultInjector.h"

#include "commands/CommandText.h"
#include "core_client/core_client.h"

#include <QThread>

using namespace ZelCore;

namespace {
constexpr int holdTime = 2000; // ms
}

FaultInjector::FaultInjector(ICommandService& core)
    : hold([](int milliseconds) { QThread::msleep(static_cast<unsigned long>(milliseconds)); })
    , m_core(core)
{}

void FaultInjector::arm(const Fault& fault)
{
    m_plan.arm(fault);
    emit planChanged();
}

void FaultInjector::disarm()
{
    m_plan.disarm();
    emit planChanged();
}

CommandResult FaultInjector::Execute(ICommand& command)
{
    if (!m_plan.isArmed()) {
        return m_core.Execute(command);
    }
    const CommandText text = CommandText::of(command);
    const auto fault = m_plan.take(text.kind, text.parameter);
    if (!fault) {
        return m_core.Execute(command);
    }
    emit planChanged();
    const QByteArray message = fault->message.toUtf8();
    switch (fault->answer) {
    case Fault::Answer::Failed:
        return {Failed, message.constData()};
    case Fault::Answer::NothingChanged:
        return {NothingChanged, message.constData()};
    case Fault::Answer::Exception:
        throw ZelCommon::ZelException("%s", message.constData());
    case Fault::Answer::Delay:
        break;
    }
    hold(holdTime);
    return m_core.Execute(command);
}
