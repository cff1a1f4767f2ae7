/// Colour files, `*.col`: text, comma-separated, one record a line.
#ifndef COLORFILE_H
#define COLORFILE_H

#include "display/colors/colormap.h"

#include <string>
#include <string_view>

/// What a colour file holds. The first line gives the number of colours and the mode (0 the colours of the
/// stops alone, 1 interpolated), every other a position and the colour as the decimal number of its QRgb.
struct ColorFile {
    int numColors = 256;  ///< 1 to 65536
    int colorMode = 1;
    std::vector<ColorStop> stops;  ///< in the order of the file; positions are single precision
};

/// Reads the text of a colour file. Empty lines are skipped, blanks around a field too. False with
/// *error naming `name`, line (from 1) and field, and *file as it was.
bool readColorFile(std::string_view text, const std::string& name, ColorFile* file, std::string* error);

/// The text that readColorFile takes; positions with six digits.
std::string colorFileText(const ColorFile& file);

/// The map of a file: the ends take the colours of the lowest and highest position, and positions outside
/// 0.0 to 1.0 serve for these alone. A file without stops leaves `map`'s ends and stops.
ColorMap colorMapOf(const ColorFile& file, const ColorMap& map);

#endif
