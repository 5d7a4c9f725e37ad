#pragma once

#include "core_client/core_client.h"

#include <QObject>

/// Stands between the clients and a core and tells of each command that was executed.
class CommandTap : public QObject, public ZelCore::ICommandService
{
    Q_OBJECT

public:
    /// The core must outlive the tap.
    explicit CommandTap(ZelCore::ICommandService& core);

    ZelCore::CommandResult Execute(ZelCore::ICommand& command) override;
    ZelCore::CommandResult Execute(const void* sender, ZelCore::ICommand& command) override;
    std::future<ZelCore::CommandResult> ExecuteAsync(const void* sender, ZelCore::ICommand& command) override;

signals:
    void executed();

private:
    ZelCore::ICommandService& m_core;
};
