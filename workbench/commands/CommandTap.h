#pragma once

#include "ZelCommon/SynchronousService.h"
#include "commands/CommandText.h"

#include <QDateTime>
#include <QObject>

/// A command that was executed, in words.
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

    /// "Success", "Failed", ...; "Exception" where the core threw.
    QString outcome() const;
    bool isException = false;
};
Q_DECLARE_METATYPE(CommandEntry)

/// Stands between the clients and a core and tells of each command that was executed. Only while it records
/// does it put commands in words; else it costs next to nothing.
class CommandTap : public QObject, public ZelCore::SynchronousService
{
    Q_OBJECT

public:
    /// The core must outlive the tap.
    explicit CommandTap(ZelCore::ICommandService& core);

    bool isRecording() const { return m_isRecording; }
    void setRecording(bool isRecording) { m_isRecording = isRecording; }

    using SynchronousService::Execute;
    ZelCore::CommandResult Execute(ZelCore::ICommand& command) override;

signals:
    void executed();
    void recorded(const CommandEntry& entry);

private:
    ZelCore::CommandResult record(ZelCore::ICommand& command);

    ZelCore::ICommandService& m_core;
    bool m_isRecording = false;
    qint64 m_count = 0;
};
