#pragma once

#include <cstdint>

namespace ZelCore {

using UInt = std::uint32_t;

/// Outcome of a command; only Success counts as success.
enum CommandStatus : std::int32_t { None = 0, Success = 1, NothingChanged = 2, Failed = 3 };

/// Where a subscription may take its value from, seen from the subscribing module.
enum SUBSCRIBE_RANGE : std::int32_t {
    PreModules = 1,
    CurModule = 2,
    PreAndCur = 3,
    InternalModules = 4,
    InternalAndCur = 6,
    PreAndInternalAndCur = 7,
    ParentModule = 16,
    ParentAndPre = 17,
    ParentAndPreAndCur = 19
};

enum IOClass : std::int32_t { Input = 1, Output = 2, Unknown = 3 };

/// What a binding feeds: a run parameter or an IO of the module.
enum ENUM_IO_SUBSCRIBE_TYPE_ : std::int32_t { SUBSCRIBE_TYPE_RUNPARAM = 0, SUBSCRIBE_TYPE_IO = 1 };

enum KADO_ENUM_SUBSCRIBE_VAR_TYPE__ : std::int32_t {
    SUBSCRIBE_VAR_INVAlID = 0,
    SUBSCRIBE_VAR_CONSTANT = 1,
    SUBSCRIBE_VAR_GLOBAL = 2,
    SUBSCRIBE_VAR_VARIABLE = 3
};

enum KADO_ENUM_SUBSCRIBE_INDEX_TYPE__ : std::int32_t {
    SUBSCRIBE_INDEX_INVALID = 0,
    SUBSCRIBE_INDEX_ALL = 1,
    SUBSCRIBE_INDEX_CONSTANT = 2,
    SUBSCRIBE_INDEX_VARIABLE = 3
};

} // namespace ZelCore

// The platform's control headers name this type without a namespace.
using ZelCore::ENUM_IO_SUBSCRIBE_TYPE_;
