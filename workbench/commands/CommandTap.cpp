#include "commands/CommandTap.h"

#include "core_client/core_client.h"

#include <QElapsedTimer>

using namespace ZelCore;

QString CommandEntry::outcome() const
{
    static const QStringList words = {QStringLiteral("None"), QStringLiteral("Success"),
                                      QStringLiteral("NothingChanged"), QStringLiteral("Failed")};
    return isException ? QStringLiteral("Exception") : words.value(status, words.first());
}

bool CommandEntry::isWrong() const
{
    if (isException || status == Success) {
        return isException;
    }
    if (status == NothingChanged) {
        return !text.kind.startsWith(QLatin1String("Del")) && !text.kind.startsWith(QLatin1String("Get"));
    }
    // The core names the datum that it does not have.
    return text.kind != QLatin1String("QueryUIData") || !message.contains(text.parameter);
}

CommandTap::CommandTap(ICommandService& core)
    : m_core(core)
{}

CommandResult CommandTap::Execute(ICommand& command)
{
    CommandEntry entry;
    entry.number = ++m_count;
    QElapsedTimer timer;
    timer.start();
    const auto report = [&] {
        entry.microseconds = timer.nsecsElapsed() / 1000;
        emit executed(command, entry);
    };
    CommandResult result(None);
    try {
        result = m_core.Execute(command);
    } catch (const std::exception& exception) {
        entry.isException = true;
        entry.message = QString::fromUtf8(exception.what());
        report();
        throw;
    }
    entry.status = result.Status;
    entry.message = ToQString(TextOf(result.Message));
    report();
    return result;
}
