#include "core_client/IocContainar.h"

namespace ZelCommon {

// Out of line and exported: every library of the process must see the same object.
__attribute__((visibility("default"))) IocContainar& IocContainar::Instance()
{
    static IocContainar instance;
    return instance;
}

} // namespace ZelCommon
