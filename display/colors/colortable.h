/// The colours of a colour bar as a table, so that a pixel costs one index computation.
#ifndef COLORTABLE_H
#define COLORTABLE_H

#include "display/colors/colormap.h"
#include "tracedata/orvinconstants.h"

/// Colours of a value range, from the high value at index 0 down. Rebuilt whenever a property changes.
class ColorTable
{
public:
    /// The seismic colours in 256 steps over 0 to 255, split in black and white while the type is ColorNo.
    ColorTable();

    /// Index of a value: (int)((max - value) / dincr), limited to the table; 0 for NaN.
    int index(double value) const;
    QRgb getColorRGB2(double value) const { return _rgbarray[index(value)]; }
    /// The same colour from the map itself, not in steps: slow, for use outside a paint loop.
    QRgb getColorRGB(double value) const { return _map.rgb(_minValue, _maxValue, value); }
    unsigned char getColorIndex(double value) const { return _map.colorIndex(_minValue, _maxValue, value); }

    /// Both 0 stand for -1.0 and 1.0.
    void setMinMaxValue(double minValue, double maxValue);
    /// At least 1.
    void setNumColors(int n);
    void setColorType(ColorType type);
    /// 0: the colours of the stops alone; else interpolated.
    void setColorMode(int mode);
    /// Keeps the table's own mode.
    void setColorMap(const ColorMap& map);

    double minValue() const { return _minValue; }
    double maxValue() const { return _maxValue; }
    double increment() const { return _dincr; }
    int numColors() const { return _numColors; }
    ColorType colorType() const { return _colorType; }
    int colorMode() const { return _colorMode; }
    const ColorMap& colorMap() const { return _map; }
    /// numColors() colours.
    const QRgb* rgbArray() const { return _rgbarray.data(); }

private:
    void buildColorArray();

    ColorMap _map;
    int _numColors = 256;
    ColorType _colorType = ColorNo;
    int _colorMode = 1;
    double _minValue = 0.0;
    double _maxValue = 255.0;
    double _dincr = 0.0;
    std::vector<QRgb> _rgbarray;
};

inline int ColorTable::index(double value) const
{
    const double step = (_maxValue - value) / _dincr;
    if (!(step > 0.0)) return 0;
    return step < _numColors - 1 ? int(step) : _numColors - 1;
}

#endif
