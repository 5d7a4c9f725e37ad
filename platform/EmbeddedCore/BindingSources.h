#pragma once

#include "Flow.h"
#include "ModuleConfiguration.h"

#include <QCoreApplication>

/// What a flow has for the bindings of a module.
class BindingSources
{
    Q_DECLARE_TR_FUNCTIONS(BindingSources)

public:
    /// Why the flow's value can't feed the target, a sentence; nothing when it can. io is the module's IO of
    /// the target's key, null when there is none; a run parameter needs none.
    static std::optional<QString> refusal(const Flow& flow, const ZelCore::FilterSourceTarget& target,
                                          const ModuleIo* io, const QString& source);

    /// Fills in value, column and missing of the configuration's bindings, from the flow and its own IOs.
    static void resolve(ModuleConfiguration& configuration, const Flow& flow);
};
