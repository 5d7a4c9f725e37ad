#pragma once

#if defined(__SSE2__)
#include <emmintrin.h>
#elif defined(__aarch64__)
#include <arm_neon.h>
#endif

#include <cstdint>

/// Finds separators in many bytes at a time.
namespace ByteSearch {

/// How many bytes a search looks at; all of them must be readable.
constexpr int width = 64;

/// Bit i is set where byte i is one of the two.
inline std::uint64_t findPlainly(const char* bytes, char first, char second)
{
    std::uint64_t found = 0;
    for (int i = 0; i < width; ++i) {
        found |= std::uint64_t(bytes[i] == first || bytes[i] == second) << i;
    }
    return found;
}

/// The same with the processor's vector instructions, where it has some.
inline std::uint64_t find(const char* bytes, char first, char second)
{
#if defined(__SSE2__)
    std::uint64_t found = 0;
    for (int i = 0; i < width; i += 16) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i));
        const __m128i equal = _mm_or_si128(_mm_cmpeq_epi8(block, _mm_set1_epi8(first)),
                                           _mm_cmpeq_epi8(block, _mm_set1_epi8(second)));
        found |= std::uint64_t(_mm_movemask_epi8(equal)) << i;
    }
    return found;
#elif defined(__aarch64__)
    constexpr std::uint8_t bits[] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
    std::uint64_t found = 0;
    for (int i = 0; i < width; i += 16) {
        const uint8x16_t block = vld1q_u8(reinterpret_cast<const std::uint8_t*>(bytes + i));
        const uint8x16_t equal = vorrq_u8(vceqq_u8(block, vdupq_n_u8(static_cast<std::uint8_t>(first))),
                                          vceqq_u8(block, vdupq_n_u8(static_cast<std::uint8_t>(second))));
        const uint8x16_t marked = vandq_u8(equal, vld1q_u8(bits));
        found |= std::uint64_t(vaddv_u8(vget_low_u8(marked)) | vaddv_u8(vget_high_u8(marked)) << 8) << i;
    }
    return found;
#else
    return findPlainly(bytes, first, second);
#endif
}

} // namespace ByteSearch
