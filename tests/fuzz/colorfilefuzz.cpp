#include "display/colors/colorfile.h"

#include <cstdlib>

/// A colour file that is read is written and read back the same, and its map gives colours.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, unsigned long n)
{
    ColorFile file;
    std::string error;
    if (!readColorFile({reinterpret_cast<const char*>(bytes), n}, "fuzz.col", &file, &error)) {
        if (error.rfind("fuzz.col, line ", 0) != 0) std::abort();
        return 0;
    }
    const std::string text = colorFileText(file);
    ColorFile back;
    if (!readColorFile(text, "fuzz.col", &back, &error) || colorFileText(back) != text) std::abort();
    const ColorMap map = colorMapOf(file, ColorMap::seismicColor());
    for (double value = -0.1; value < 1.2; value += 0.05) map.rgb(0.0, 1.0, value);
    return 0;
}
