#pragma once

#include "core_client/Enumerations.h"
#include "core_client/Records.h"

#include <QString>

#include <utility>

/// The words by which the store, and what is printed of it, names what a module has.
namespace StoredWords {

inline constexpr std::pair<const char*, bool ZelCore::IO_EXTRA_DATA__::*> ioFlags[] = {
    {"can_subscribe", &ZelCore::IO_EXTRA_DATA__::CanSubscribe},
    {"is_prefer", &ZelCore::IO_EXTRA_DATA__::IsPrefer},
    {"visible", &ZelCore::IO_EXTRA_DATA__::Visible},
    {"visible_in_result_tree", &ZelCore::IO_EXTRA_DATA__::VisibleInResultTree},
    {"is_private", &ZelCore::IO_EXTRA_DATA__::IsPrivate},
    {"custom_visible", &ZelCore::IO_EXTRA_DATA__::CustomVisible},
    {"is_force", &ZelCore::IO_EXTRA_DATA__::IsForce},
    {"is_return_relate_value", &ZelCore::IO_EXTRA_DATA__::IsReturnRelateValue},
    {"allow_auto_subscribe", &ZelCore::IO_EXTRA_DATA__::AllowAutoSubscribe},
    {"allow_auto_subscribe_by_other", &ZelCore::IO_EXTRA_DATA__::AllowAutoSubscribeByOther},
    {"is_result_show", &ZelCore::IO_EXTRA_DATA__::IsResultShow},
};

inline QString of(ZelCore::IOClass ioClass)
{
    return ioClass == ZelCore::Input ? QStringLiteral("input") : QStringLiteral("output");
}

inline QString of(ZelCore::ENUM_IO_SUBSCRIBE_TYPE_ type)
{
    return type == ZelCore::SUBSCRIBE_TYPE_IO ? QStringLiteral("io") : QStringLiteral("run_parameter");
}

} // namespace StoredWords
