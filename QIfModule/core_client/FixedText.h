#pragma once

#include <QString>

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace ZelCore {

/// Fills a fixed-width text field: zeroed, then at most N - 1 bytes of text and a NUL.
/// A null text leaves the field empty.
template <std::size_t N>
void FillText(char (&field)[N], const char* text)
{
    std::memset(field, 0, N);
    if (text) {
        std::snprintf(field, N, "%s", text);
    }
}

/// The text of a fixed-width field, up to the first NUL and never past the field.
template <std::size_t N>
std::string_view TextOf(const char (&field)[N])
{
    return {field, ::strnlen(field, N)};
}

/// Texts of the core are UTF-8.
inline QString ToQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

} // namespace ZelCore
