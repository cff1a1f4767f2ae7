/// Colours by value: two ends and stops between them.
#ifndef COLORMAP_H
#define COLORMAP_H

#include <QColor>

#include <vector>

/// A colour at a position from 0.0 (low values) to 1.0 (high values).
struct ColorStop {
    double position = 0.0;
    QRgb color = 0;
};

/// The colour of a value in a range, as QwtLinearColorMap gives it, but with stops as near to each other
/// as wanted: that class drops one of two stops nearer than 0.001.
class ColorMap
{
public:
    enum Mode {
        FixedColors = 0,  ///< the colour of the next stop below
        ScaledColors = 1  ///< interpolated between the two neighbours
    };

    ColorMap(QRgb low, QRgb high) { setColorInterval(low, high); }

    /// black, blue, white, red, yellow
    static ColorMap seismicColor();
    /// white to black
    static ColorMap seismicGrayScale();
    /// blue, green, red, yellow
    static ColorMap mapColor();

    void setMode(Mode mode) { _mode = mode; }
    Mode mode() const { return _mode; }
    /// Sets both ends and drops all stops.
    void setColorInterval(QRgb low, QRgb high);
    /// Adds a stop behind those at or below its position; ignored outside 0.0 to 1.0 and for NaN.
    void addColorStop(double position, QRgb color);
    /// All stops in rising order, the two ends among them.
    const std::vector<ColorStop>& colorStops() const { return _stops; }
    QRgb color1() const { return _stops.front().color; }
    QRgb color2() const { return _stops.back().color; }

    /// Colour of a value in the range minValue to maxValue; the ends' colours outside. A range that is not
    /// above 0 gives the low end, NaN transparent black.
    QRgb rgb(double minValue, double maxValue, double value) const;
    /// Position of a value in the range as a number from 0 to 255.
    unsigned char colorIndex(double minValue, double maxValue, double value) const;

private:
    std::vector<ColorStop> _stops;
    Mode _mode = ScaledColors;
};

#endif
