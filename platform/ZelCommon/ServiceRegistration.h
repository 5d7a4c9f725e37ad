#pragma once

#include "core_client/ICommandService.h"
#include "core_client/IocContainar.h"

namespace ZelCore {

/// Makes a service the one that commands go to, for as long as this object lives; the service must live as
/// long.
class ServiceRegistration
{
public:
    explicit ServiceRegistration(ICommandService& service)
    {
        using ZelCommon::IocContainar;
        IocContainar& container = IocContainar::Instance();
        container.Clear();
        container.RegisterType(
            IocContainar::KeyOf<ICommandService>(),
            ZelCommon::Any(std::function<ICommandService*()>([&service] { return &service; })));
        container.Build();
    }
    ~ServiceRegistration() { ZelCommon::IocContainar::Instance().Clear(); }
    ServiceRegistration(const ServiceRegistration&) = delete;
    ServiceRegistration& operator=(const ServiceRegistration&) = delete;
};

} // namespace ZelCore
