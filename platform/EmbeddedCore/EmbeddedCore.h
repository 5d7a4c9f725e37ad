#pragma once

#include "Flow.h"
#include "ModuleConfiguration.h"
#include "ZelCommon/Catalogue.h"
#include "ZelCommon/SynchronousService.h"

#include <QCoreApplication>

#include <memory>
#include <optional>

class Store;

/// A platform core inside the process: executes the whole catalogue of commands on a flow and a durable
/// store. GUI thread only. Whatever is wrong with a command or the store is reported as Failed
/// with a message; the store is then unchanged.
class EmbeddedCore : public ZelCore::SynchronousService
{
    Q_DECLARE_TR_FUNCTIONS(EmbeddedCore)

public:
    /// Null, and a sentence in error that names the file, when the store can't be opened.
    static std::unique_ptr<EmbeddedCore> open(Flow flow, const QString& storeFile, QString* error);
    /// The same for reading only: never creates a file, and reads a store that another program edits or
    /// that lies in a folder that can't be written. Null, and "no such store", when there is none.
    static std::unique_ptr<const EmbeddedCore> openReadOnly(Flow flow, const QString& storeFile,
                                                            QString* error);
    ~EmbeddedCore() override;

    const Flow& flow() const { return m_flow; }
    QString storeFile() const;

    /// All that the core holds for a module. Nothing, and a sentence in error, for a module that the flow
    /// does not have and when the store can't be read.
    std::optional<ModuleConfiguration> configuration(ZelCore::UInt moduleId, QString* error) const;

    using SynchronousService::Execute;
    ZelCore::CommandResult Execute(ZelCore::ICommand& command) override;

private:
    EmbeddedCore(Flow flow, std::unique_ptr<Store> store);

    ZelCore::CommandStatus execute(ZelCore::AddIOCommand& command);
    ZelCore::CommandStatus execute(ZelCore::SetRunParamCommand& command);
    ZelCore::CommandStatus execute(ZelCore::SetBinaryDataCommand& command);
    ZelCore::CommandStatus execute(ZelCore::SetUIDataCommand& command);
    ZelCore::CommandStatus execute(ZelCore::DeleteUIDataCommand& command);
    ZelCore::CommandStatus execute(ZelCore::SubscribeTreeQuery& command);
    ZelCore::CommandStatus execute(ZelCore::BinaryDataQuery& command);
    ZelCore::CommandStatus execute(ZelCore::RunParamQuery& command);
    ZelCore::CommandStatus execute(ZelCore::UIDataQuery& command);
    ZelCore::CommandStatus execute(ZelCore::SetFilterSourceCommand& command);
    ZelCore::CommandStatus execute(ZelCore::GetFilterSourceCommand& command);
    ZelCore::CommandStatus execute(ZelCore::DelFilterSourceCommand& command);

    /// The id, or the target, once it is known to be sound; throw TextError otherwise.
    ZelCore::UInt checkedModule(ZelCore::UInt id) const;
    ZelCore::FilterSourceTarget checkedTarget(const ZelCore::FilterSourceTarget& target) const;
    /// Why the source can't feed the target; nothing when it can.
    std::optional<QString> refusal(const ZelCore::FilterSourceTarget& target,
                                   const QString& subscribeName) const;

    Flow m_flow;
    std::unique_ptr<Store> m_store;
};
