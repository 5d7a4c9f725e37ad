#pragma once

#include "Commands.h"
#include "Conditions.h"
#include "Enumerations.h"
#include "IocContainar.h"
#include "Records.h"

#include <cstddef>
#include <functional>
#include <type_traits>

namespace ZelCore::BinaryContract {

/// Stands for every query: all of them are two pointers.
using AnyQuery = QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__>;
/// What the host registers, as the container keeps it.
using ServiceHolder = ZelCommon::Any::Holder<std::function<ICommandService*()>>;

template <typename Type>
inline constexpr std::size_t sizeOf = sizeof(Type);

static_assert(sizeof(void*) == 8, "the layouts are those of a 64-bit platform");

// Whoever includes the client holds its layouts to the contract, when it is compiled. Only the program
// that measures them for a new contract does not.
#ifndef QIF_MEASURES_LAYOUTS

// offsetof is used on types with a virtual pointer; GCC and Clang define it for single inheritance.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

#define QIF_RECORD(type, size, alignment)                                                                    \
    static_assert(sizeof(type) == (size) && alignof(type) == (alignment));
#define QIF_OPAQUE(type, size, alignment) QIF_RECORD(type, size, alignment)
#define QIF_BASE(type, base, size) static_assert(std::is_base_of_v<base, type> && sizeof(base) == (size));
#define QIF_FIELD(type, field, offset, size)                                                                 \
    static_assert(offsetof(type, field) == (offset) && sizeOf<decltype(type::field)> == (size));
#define QIF_VALUE(type, enumerator, value) static_assert(type::enumerator == (value));
#define QIF_SLOT(type, function, signature, slot) // known at run time only
#include "BinaryLayout.h"
#undef QIF_RECORD
#undef QIF_OPAQUE
#undef QIF_BASE
#undef QIF_FIELD
#undef QIF_VALUE
#undef QIF_SLOT

#pragma GCC diagnostic pop

#endif

} // namespace ZelCore::BinaryContract
