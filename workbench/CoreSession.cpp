#include "CoreSession.h"

#include <functional>
#include <utility>

using ZelCommon::IocContainar;
using ZelCore::ICommandService;

CoreSession::CoreSession(QString flowFile, std::unique_ptr<EmbeddedCore> core)
    : m_flowFile(std::move(flowFile))
    , m_core(std::move(core))
    , m_faults(*m_core)
    , m_tap(m_faults)
{
    ICommandService* const service = &m_tap;
    IocContainar& container = IocContainar::Instance();
    container.RegisterType(IocContainar::KeyOf<ICommandService>(),
                           ZelCommon::Any(std::function<ICommandService*()>([service] { return service; })));
    container.Build();
}

CoreSession::~CoreSession()
{
    IocContainar::Instance().Clear();
}
