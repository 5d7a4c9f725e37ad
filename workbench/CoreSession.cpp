#include "CoreSession.h"

#include <utility>

CoreSession::CoreSession(QString flowFile, std::unique_ptr<EmbeddedCore> core)
    : m_flowFile(std::move(flowFile))
    , m_core(std::move(core))
    , m_faults(*m_core)
    , m_tap(m_faults)
    , m_registration(m_tap)
{}
