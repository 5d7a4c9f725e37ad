#include "MemoryCore.h"
#include "commands/CommandTap.h"
#include "faults/FaultInjector.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace ZelCore;

namespace {

constexpr int rounds = 30;
constexpr int commandsPerRound = 5000;
constexpr double highestRatio = 1.05;

// Nanoseconds for a round of saves as a panel of 32 conditions sends them.
qint64 roundOn(ICommandService& service, const QByteArray& list)
{
    registerService(service);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < commandsPerRound; ++i) {
        SetBinaryDataCommand command(7, "IFText", list.constData(), static_cast<UInt>(list.size()), 5000);
        ExecuteCommand(command);
    }
    return timer.nsecsElapsed();
}

} // namespace

/// What a closed command log costs a command: with the tap that feeds the log, against the same services
/// without it. The best of alternating rounds is compared, so that what else the machine does counts little.
int main()
{
    QByteArray list;
    for (int i = 0; i < 32; ++i) {
        list += "%int" + QByteArray::number(i) + "%:1:1000:note;";
    }
    MemoryCore core;
    FaultInjector faults(core);
    CommandTap tap(faults);
    qint64 without = std::numeric_limits<qint64>::max();
    qint64 with = without;
    for (int i = 0; i < rounds; ++i) {
        without = std::min(without, roundOn(faults, list));
        with = std::min(with, roundOn(tap, list));
    }
    ZelCommon::IocContainar::Instance().Clear();
    const double ratio = static_cast<double>(with) / static_cast<double>(without);
    std::printf("a command without the log %.1f ns, with the closed log %.1f ns, ratio %.3f, at most %.2f\n",
                static_cast<double>(without) / commandsPerRound, static_cast<double>(with) / commandsPerRound,
                ratio, highestRatio);
    return ratio <= highestRatio ? 0 : 1;
}
