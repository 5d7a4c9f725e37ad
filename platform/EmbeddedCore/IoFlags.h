#pragma once

#include "core_client/Records.h"

#include <utility>

/// The flags of an IO by the names that the store's columns and readable forms use, in the record's order.
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
