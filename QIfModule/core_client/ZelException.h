#pragma once

#include <cstdarg>
#include <cstdio>
#include <exception>

namespace ZelCommon {

/// The platform's exception: a host that runs the plug-in catches it around its event loop.
class ZelException : public std::exception
{
public:
    /// Formats like printf; a text of more than 1023 bytes is cut. The error code is 0.
    __attribute__((format(printf, 2, 3))) explicit ZelException(const char* format, ...)
    {
        std::va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(m_Message, sizeof m_Message, format, arguments);
        va_end(arguments);
    }

    const char* what() const noexcept override { return m_Message; }
    int ErrorCode() const noexcept { return m_ErrorCode; }

private:
    char m_Message[1024] = {};
    int m_ErrorCode = 0;
};

/// The text, unless it is null: then throws ZelException with the format, whose %s becomes the argument's
/// name.
inline const char* CheckedText(const char* text, const char* format, const char* argument)
{
    if (!text) {
        throw ZelException(format, argument);
    }
    return text;
}

} // namespace ZelCommon
