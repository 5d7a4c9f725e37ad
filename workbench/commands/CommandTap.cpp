#include "commands/CommandTap.h"

#include "core_client/core_client.h"

#include <QElapsedTimer>

using namespace ZelCore;

namespace {
constexpr std::size_t longestContent = 400; // bytes
}

QString CommandEntry::outcome() const
{
    if (isException) {
        return QStringLiteral("Exception");
    }
    switch (status) {
    case Success:
        return QStringLiteral("Success");
    case NothingChanged:
        return QStringLiteral("NothingChanged");
    case Failed:
        return QStringLiteral("Failed");
    case None:
        break;
    }
    return QStringLiteral("None");
}

CommandTap::CommandTap(ICommandService& core)
    : m_core(core)
{}

CommandResult CommandTap::Execute(ICommand& command)
{
    ++m_count;
    const CommandResult result = m_isRecording ? record(command) : m_core.Execute(command);
    emit executed();
    return result;
}

CommandResult CommandTap::record(ICommand& command)
{
    CommandEntry entry;
    entry.number = m_count;
    entry.time = QDateTime::currentDateTime();
    entry.text = CommandText::of(command, longestContent);
    QElapsedTimer timer;
    timer.start();
    try {
        const CommandResult result = m_core.Execute(command);
        entry.microseconds = timer.nsecsElapsed() / 1000;
        entry.status = result.Status;
        entry.message = ToQString(TextOf(result.Message));
        emit recorded(entry);
        return result;
    } catch (const std::exception& exception) {
        entry.microseconds = timer.nsecsElapsed() / 1000;
        entry.isException = true;
        entry.message = QString::fromUtf8(exception.what());
        emit recorded(entry);
        throw;
    }
}
