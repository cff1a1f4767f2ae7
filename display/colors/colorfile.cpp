#include "display/colors/colorfile.h"

#include <algorithm>
#include <charconv>
#include <cmath>

static constexpr int mostColors = 65536;

static std::string_view trimmed(std::string_view text)
{
    const char* blanks = " \t\r";
    const size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

template <typename Number>
static bool toNumber(std::string_view text, Number* value)
{
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), *value);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

/// The two fields of a line; false unless there is exactly one comma.
static bool splitLine(std::string_view line, std::string_view* first, std::string_view* second)
{
    const size_t comma = line.find(',');
    if (comma == std::string_view::npos || line.find(',', comma + 1) != std::string_view::npos) return false;
    *first = trimmed(line.substr(0, comma));
    *second = trimmed(line.substr(comma + 1));
    return true;
}

/// What is wrong with the line; empty if it has been taken into *file.
static std::string readLine(std::string_view line, bool isFirst, ColorFile* file)
{
    std::string_view first, second;
    if (!splitLine(line, &first, &second)) return "two fields with a comma between them are wanted";
    if (isFirst) {
        if (!toNumber(first, &file->numColors) || file->numColors < 1 || file->numColors > mostColors)
            return "number of colors: \"" + std::string(first) + "\" is not a number from 1 to 65536";
        if (!toNumber(second, &file->colorMode))
            return "color mode: \"" + std::string(second) + "\" is not a whole number";
        return {};
    }
    float position = 0.0f;
    unsigned int color = 0;
    if (!toNumber(first, &position) || !std::isfinite(position))
        return "position: \"" + std::string(first) + "\" is not a number";
    if (!toNumber(second, &color)) return "color: \"" + std::string(second) + "\" is not the number of a color";
    file->stops.push_back({position, color});
    return {};
}

bool readColorFile(std::string_view text, const std::string& name, ColorFile* file, std::string* error)
{
    ColorFile parsed;
    bool isFirst = true;
    for (int lineNumber = 1; !text.empty(); ++lineNumber) {
        const size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty()) continue;
        const std::string wrong = readLine(line, isFirst, &parsed);
        if (!wrong.empty()) {
            *error = name + ", line " + std::to_string(lineNumber) + ": " + wrong;
            return false;
        }
        isFirst = false;
    }
    if (isFirst) {
        *error = name + ", line 1: number of colors and color mode are missing";
        return false;
    }
    *file = parsed;
    return true;
}

std::string colorFileText(const ColorFile& file)
{
    std::string text = std::to_string(file.numColors) + "," + std::to_string(file.colorMode) + "\n";
    for (const ColorStop& stop : file.stops) {
        char position[32];  // not by printf, whose decimal point follows the locale
        const auto end =
            std::to_chars(position, position + sizeof position, stop.position, std::chars_format::general, 6);
        text.append(position, end.ptr);
        text += "," + std::to_string(stop.color) + "\n";
    }
    return text;
}

ColorMap colorMapOf(const ColorFile& file, const ColorMap& map)
{
    if (file.stops.empty()) return map;
    const ColorStop* lowest = &file.stops.front();
    const ColorStop* highest = lowest;
    for (const ColorStop& stop : file.stops) {
        if (stop.position < lowest->position) lowest = &stop;
        if (stop.position > highest->position) highest = &stop;
    }
    ColorMap read(lowest->color, highest->color);
    for (const ColorStop& stop : file.stops) read.addColorStop(stop.position, stop.color);
    return read;
}
