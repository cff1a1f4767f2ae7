#include "display/raster/dataview.h"

#include "display/raster/rasternumber.h"

#include <algorithm>
#include <cmath>

/// A view may end where the data do, but for the rounding of its spacing.
static constexpr double noise = 1e-4;  // of a row

DataRows dataRows(const AxisMap& y, int timeDirection, double least, double largest)
{
    const double top = timeDirection != 0 ? y.s2 : y.s1, bottom = timeDirection != 0 ? y.s1 : y.s2;
    const int rows = wholeOf(y.p1 - y.p2);
    DataRows shown = {0, std::max(rows, 0), y};
    if (rows < 1 || !(bottom > top)) return shown;
    const double perRow = (bottom - top) / rows;
    shown.first = std::clamp(wholeOf(std::ceil((least - top) / perRow - noise)), 0, rows);
    shown.end = std::clamp(wholeOf(std::ceil((largest - top) / perRow - noise)), shown.first, rows);
    if (shown.first == 0 && shown.end == rows) return shown;
    const double from = std::max(least, top + shown.first * perRow);
    const double to = from + (shown.end - shown.first) * perRow;
    shown.y.s1 = timeDirection != 0 ? to : from;
    shown.y.s2 = timeDirection != 0 ? from : to;
    shown.y.p1 = y.p2 + shown.end - shown.first;
    return shown;
}

AxisMap turnedAxis(const AxisMap& y, double whole)
{
    return {whole - y.s2, whole - y.s1, y.p1, y.p2};
}
