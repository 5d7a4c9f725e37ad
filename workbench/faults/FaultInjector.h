#pragma once

#include "ZelCommon/SynchronousService.h"
#include "faults/FaultPlan.h"

#include <QObject>

#include <functional>

/// Passes commands to a core, or answers in its place where a fault strikes.
class FaultInjector : public QObject, public ZelCore::SynchronousService
{
    Q_OBJECT

public:
    /// The core must outlive the injector.
    explicit FaultInjector(ZelCore::ICommandService& core);

    const FaultPlan& plan() const { return m_plan; }
    void arm(const Fault& fault);
    void disarm();

    using SynchronousService::Execute;
    /// Throws ZelException where a fault says so.
    ZelCore::CommandResult Execute(ZelCore::ICommand& command) override;

    /// How a command is held up for some milliseconds; by default the thread sleeps.
    std::function<void(int)> hold;

signals:
    void planChanged();

private:
    ZelCore::ICommandService& m_core;
    FaultPlan m_plan;
};
