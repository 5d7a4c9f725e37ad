#pragma once

#include "EmbeddedCore/EmbeddedCore.h"
#include "ZelCommon/ServiceRegistration.h"
#include "commands/CommandTap.h"
#include "faults/FaultInjector.h"

#include <memory>

/// A core over a flow and a store, registered with the process-wide container for as long as it lives.
/// Panels must be gone before it goes.
class CoreSession
{
public:
    CoreSession(QString flowFile, std::unique_ptr<EmbeddedCore> core);
    Q_DISABLE_COPY(CoreSession)

    const Flow& flow() const { return m_core->flow(); }
    EmbeddedCore& core() { return *m_core; }
    /// The service of the panels.
    CommandTap& tap() { return m_tap; }
    FaultInjector& faults() { return m_faults; }
    QString flowFile() const { return m_flowFile; }
    QString storeFile() const { return m_core->storeFile(); }

private:
    QString m_flowFile;
    std::unique_ptr<EmbeddedCore> m_core;
    FaultInjector m_faults;
    CommandTap m_tap;
    ZelCore::ServiceRegistration m_registration;
};
