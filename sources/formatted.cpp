#include "sources/formatted.h"

#include <cstdarg>
#include <cstdio>

std::string formatted(const char* format, ...)
{
    va_list arguments, again;
    va_start(arguments, format);
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(length > 0 ? size_t(length) : 0, '\0');
    if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return text;
}
