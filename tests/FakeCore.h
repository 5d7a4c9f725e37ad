#pragma once

#include "ZelCommon/Catalogue.h"
#include "ZelCommon/ServiceRegistration.h"
#include "ZelCommon/SynchronousService.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

/// Makes a node one of module 5, with children that are still empty.
ZelCore::SUBSCRIBE_NODE__& fillNode(ZelCore::SUBSCRIBE_NODE__& node, const char* name, ZelCore::UInt children,
                                    const char* source = "");

/// An ICommandService in memory that keeps what is stored, records every command as one readable
/// line, and fails where a test asks for it. Registered with the container while it lives.
class FakeCore : public ZelCore::SynchronousService
{
public:
    using SynchronousService::Execute;
    ZelCore::CommandResult Execute(ZelCore::ICommand& command) override;

    /// Commands since the last take, for example "SetRunParam 7 LogicalMode=2".
    QStringList takeCommands() { return std::exchange(m_commands, {}); }

    /// Called with the line of each command before it takes effect. A result it returns is the answer and
    /// the command has no effect; it may throw.
    std::function<std::optional<ZelCore::CommandResult>(const QString& line)> fault;

    /// Commands whose lines begin so fail, and those that bind the value "5.Refused".
    QString refused = "none";

    /// Binary data, run parameters and UI data, whose names differ.
    QMap<QString, QByteArray> parameters;
    /// By the kind of the target and its key, "1/%int0%" or "0/%int0%Start".
    QMap<QString, QString> bindings;
    /// Sources that the flow no longer has.
    QStringList missingSources;
    ZelCore::SUBSCRIBE_TREE__ subscribeTree;
    /// The time-out of the last SetBinaryDataCommand in milliseconds.
    ZelCore::UInt lastTimeOut = 0;

private:
    QStringList m_commands;
    ZelCore::ServiceRegistration m_registration{*this};
};
