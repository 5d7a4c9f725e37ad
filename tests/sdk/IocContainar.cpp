#include "core_client/IocContainar.h"

#include <QtGlobal>

namespace ZelCommon {

Q_DECL_EXPORT IocContainar& IocContainar::Instance()
{
    static IocContainar instance;
    return instance;
}

} // namespace ZelCommon
