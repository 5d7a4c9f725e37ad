#define QIF_MEASURES_LAYOUTS
#include "core_client/core_client.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {

// The record whose fields are being listed, and where the next of them can begin at the earliest.
struct Progress
{
    const char* type = "";
    std::size_t size = 0;
    std::size_t alignment = 1;
    std::size_t end = 0;
};
Progress s_progress;
bool s_isComplete = true;

void advance(const char* entry, std::size_t offset, std::size_t size, std::size_t alignment)
{
    if (offset != (s_progress.end + alignment - 1) / alignment * alignment) {
        std::fprintf(stderr, "%s: an entry is missing before %s\n", s_progress.type, entry);
        s_isComplete = false;
    }
    s_progress.end = offset + size;
}

void beginRecord(const Progress& next)
{
    advance("its end", s_progress.size, 0, s_progress.alignment);
    s_progress = next;
}

// The Itanium C++ ABI keeps the offset in the virtual table in the first word of such a pointer; what marks
// it as virtual is the lowest bit, of this word or of the other.
template <typename Class, typename Function>
std::size_t slotOf(Function Class::*function)
{
    std::array<std::uintptr_t, 2> words{};
    static_assert(sizeof words == sizeof function);
    std::memcpy(words.data(), &function, sizeof function);
    return words[0] / sizeof(void*);
}

} // namespace

namespace ZelCore::BinaryContract {

void print()
{
#define QIF_BEGIN(kind, type, end)                                                                           \
    beginRecord({#type, sizeof(type), alignof(type), end});                                                  \
    std::printf("\n" kind "(%s, %zu, %zu)\n", #type, sizeof(type), alignof(type));
#define QIF_RECORD(type, size, alignment)                                                                    \
    QIF_BEGIN("QIF_RECORD", type,                                                                            \
              std::is_enum_v<type>          ? sizeof(type)                                                   \
              : std::is_polymorphic_v<type> ? sizeof(void*)                                                  \
                                            : 0)
#define QIF_OPAQUE(type, size, alignment) QIF_BEGIN("QIF_OPAQUE", type, sizeof(type))
#define QIF_BASE(type, base, size)                                                                           \
    s_progress.end = sizeof(base);                                                                           \
    std::printf("QIF_BASE(%s, %s, %zu)\n", #type, #base, sizeof(base));
#define QIF_FIELD(type, field, offset, size)                                                                 \
    advance(#field, offsetof(type, field), sizeOf<decltype(type::field)>, alignof(decltype(type::field)));   \
    std::printf("QIF_FIELD(%s, %s, %zu, %zu)\n", #type, #field, offsetof(type, field),                       \
                sizeOf<decltype(type::field)>);
#define QIF_VALUE(type, enumerator, value)                                                                   \
    std::printf("QIF_VALUE(%s, %s, %d)\n", #type, #enumerator, static_cast<int>(type::enumerator));
#define QIF_SLOT(type, function, signature, slot)                                                            \
    std::printf("QIF_SLOT(%s, %s, %s, %zu)\n", #type, #function, #signature,                                 \
                slotOf<type, signature>(&type::function));
#include "core_client/BinaryLayout.h"
    beginRecord({});
}

} // namespace ZelCore::BinaryContract

/// Prints the entries of core_client/BinaryLayout.h with what this compiler makes of them. Fails when they
/// do not cover the records.
int main()
{
    ZelCore::BinaryContract::print();
    return s_isComplete ? EXIT_SUCCESS : EXIT_FAILURE;
}
