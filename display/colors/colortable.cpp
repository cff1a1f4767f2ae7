#include "display/colors/colortable.h"

#include <algorithm>

ColorTable::ColorTable() : _map(ColorMap::seismicColor())
{
    setMinMaxValue(_minValue, _maxValue);
}

void ColorTable::setMinMaxValue(double minValue, double maxValue)
{
    const bool isUnset = minValue == 0.0 && maxValue == 0.0;
    _minValue = isUnset ? -1.0 : minValue;
    _maxValue = isUnset ? 1.0 : maxValue;
    _dincr = (_maxValue - _minValue) / _numColors;
    buildColorArray();
}

void ColorTable::setNumColors(int n)
{
    _numColors = std::max(1, n);
    setMinMaxValue(_minValue, _maxValue);
}

void ColorTable::setColorType(ColorType type)
{
    _colorType = type;
    buildColorArray();
}

void ColorTable::setColorMode(int mode)
{
    _colorMode = mode;
    _map.setMode(mode ? ColorMap::ScaledColors : ColorMap::FixedColors);
    buildColorArray();
}

void ColorTable::setColorMap(const ColorMap& map)
{
    _map = map;
    _map.setMode(_colorMode ? ColorMap::ScaledColors : ColorMap::FixedColors);
    buildColorArray();
}

void ColorTable::buildColorArray()
{
    _rgbarray.resize(_numColors);
    for (int i = 0; i < _numColors; ++i) {
        if (_colorType == ColorYes)
            _rgbarray[i] = _map.rgb(_minValue, _maxValue, _maxValue - i * _dincr);
        else
            _rgbarray[i] = QColor(i < _numColors / 2 ? Qt::black : Qt::white).rgb();
    }
}
