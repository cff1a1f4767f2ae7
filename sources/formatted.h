/// Texts with values in them.
#ifndef FORMATTED_H
#define FORMATTED_H

#include <string>

/// As std::printf formats, into a string of any length.
std::string formatted(const char* format, ...) __attribute__((format(printf, 1, 2)));

#endif
