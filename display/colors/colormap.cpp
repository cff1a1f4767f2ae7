#include "display/colors/colormap.h"

#include <algorithm>
#include <cmath>

ColorMap ColorMap::seismicColor()
{
    ColorMap map(QColor(Qt::black).rgb(), QColor(Qt::yellow).rgb());
    map.addColorStop(0.25, QColor(Qt::blue).rgb());
    map.addColorStop(0.5, QColor(Qt::white).rgb());
    map.addColorStop(0.75, QColor(Qt::red).rgb());
    return map;
}

ColorMap ColorMap::seismicGrayScale()
{
    return ColorMap(QColor(Qt::white).rgb(), QColor(Qt::black).rgb());
}

ColorMap ColorMap::mapColor()
{
    ColorMap map(QColor(Qt::blue).rgb(), QColor(Qt::yellow).rgb());
    map.addColorStop(0.333, QColor(Qt::green).rgb());
    map.addColorStop(0.666, QColor(Qt::red).rgb());
    return map;
}

void ColorMap::setColorInterval(QRgb low, QRgb high)
{
    _stops = {{0.0, low}, {1.0, high}};
}

static bool isBelow(double position, const ColorStop& stop)
{
    return position < stop.position;
}

void ColorMap::addColorStop(double position, QRgb color)
{
    if (!(position >= 0.0 && position <= 1.0)) return;
    _stops.insert(std::upper_bound(_stops.begin(), _stops.end(), position, isBelow), {position, color});
}

/// One channel between two, rounded to the nearest.
static int mixed(int from, int to, double ratio)
{
    return int(from + 0.5 + ratio * (to - from));
}

QRgb ColorMap::rgb(double minValue, double maxValue, double value) const
{
    if (std::isnan(value)) return 0u;
    const double width = maxValue - minValue;
    const double position = width > 0.0 ? (value - minValue) / width : 0.0;
    if (!(position > 0.0)) return color1();
    if (position >= 1.0) return color2();
    const auto upper = std::upper_bound(_stops.begin(), _stops.end(), position, isBelow);
    const ColorStop& below = *(upper - 1);
    if (_mode == FixedColors) return below.color;
    const ColorStop& above = *upper;
    const double ratio = (position - below.position) / (above.position - below.position);
    return qRgba(
        mixed(qRed(below.color), qRed(above.color), ratio), mixed(qGreen(below.color), qGreen(above.color), ratio),
        mixed(qBlue(below.color), qBlue(above.color), ratio), mixed(qAlpha(below.color), qAlpha(above.color), ratio));
}

unsigned char ColorMap::colorIndex(double minValue, double maxValue, double value) const
{
    const double width = maxValue - minValue;
    const double position = width > 0.0 ? (value - minValue) / width : 0.0;
    if (!(position > 0.0)) return 0;
    if (position >= 1.0) return 255;
    return static_cast<unsigned char>(_mode == FixedColors ? position * 255 : position * 255 + 0.5);
}
