#pragma once

#include "ZelCommon/SynchronousService.h"
#include "commands/CommandText.h"

#include <QDateTime>
#include <QObject>

/// A command that was executed.
struct CommandEntry
{
    /// From 1, in the order of execution.
    qint64 number = 0;
    QDateTime time;
    CommandText text;
    ZelCore::CommandStatus status = ZelCore::None;
    /// Of the result, or of the exception that came in its place.
    QString message;
    qint64 microseconds = 0;
    bool isException = false;

    /// "Success", "Failed", ...; "Exception" where the core threw.
    QString outcome() const;
    /// Whether something is wrong. It is not when there is nothing to remove, no binding to read, and no UI
    /// datum of a bound that was never switched.
    bool isWrong() const;
};

/// Passes commands to a core and reports each one that was executed. It does not put
/// commands in words: time and text of an entry are left to the receivers.
class CommandTap : public QObject, public ZelCore::SynchronousService
{
    Q_OBJECT

public:
    /// The core must outlive the tap.
    explicit CommandTap(ZelCore::ICommandService& core);

    using SynchronousService::Execute;
    ZelCore::CommandResult Execute(ZelCore::ICommand& command) override;

signals:
    /// The command has returned or thrown. Receivers must not throw.
    void executed(ZelCore::ICommand& command, const CommandEntry& entry);

private:
    ZelCore::ICommandService& m_core;
    qint64 m_count = 0;
};
