#pragma once

#include "ZelCommon/FilterSourceCommands.h"
#include "ZelCommon/ServiceRegistration.h"
#include "core_client/core_client.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <functional>
#include <optional>

/// An ICommandService in memory that keeps what it is told, records every command as one readable
/// line, and fails where a test asks for it. Registered with the container while it lives.
class FakeCore : public ZelCore::ICommandService
{
public:
    ZelCore::CommandResult Execute(ZelCore::ICommand& command) override;
    ZelCore::CommandResult Execute(const void* sender, ZelCore::ICommand& command) override;
    std::future<ZelCore::CommandResult> ExecuteAsync(const void* sender, ZelCore::ICommand& command) override;

    /// Commands since the last take, for example "SetRunParam 7 LogicalMode=2".
    QStringList takeCommands();

    /// Called for each command, numbered from 0, before it takes effect. A result it returns is the
    /// answer and the command has no effect; it may throw.
    std::function<std::optional<ZelCore::CommandResult>(int number, const QString& line)> fault;

    QMap<QString, QByteArray> binaryData;
    QMap<QString, QByteArray> runParams;
    QMap<QString, QByteArray> uiData;
    QMap<QString, QString> bindings;
    /// Sources that the flow no longer has.
    QStringList missingSources;
    ZelCore::SUBSCRIBE_TREE__ subscribeTree;
    /// The time-out of the last SetBinaryDataCommand in milliseconds.
    ZelCore::UInt lastTimeOut = 0;

private:
    ZelCore::CommandResult apply(ZelCore::ICommand& command);

    QStringList m_commands;
    int m_count = 0;
    ZelCore::ServiceRegistration m_registration{*this};
};
