#include "display/colors/colorbarframe.h"

#include "display/colors/colorfile.h"

#include <QEvent>
#include <QFile>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

static constexpr int nStripColors = 255;

ColorBarFrame::ColorBarFrame(QWidget* parent) : ColorBarFrame(ColorMap::seismicColor(), parent) {}

ColorBarFrame::ColorBarFrame(const ColorMap& map, QWidget* parent) : QFrame(parent), _backRGB(QColor(Qt::white).rgb())
{
    setObjectName("colorBarFrame");
    setColorMap(map);
    fitSize();
}

void ColorBarFrame::setMinMaxValue(double minValue, double maxValue)
{
    _table.setMinMaxValue(minValue, maxValue);
    buildColorIndex();
}

void ColorBarFrame::setDataMinMaxValue(double minValue, double maxValue)
{
    const bool isUnset = minValue == 0.0 && maxValue == 0.0;
    _fmin = isUnset ? -1.0f : float(minValue);
    _fmax = isUnset ? 1.0f : float(maxValue);
    fitSize();
    update();
}

void ColorBarFrame::setNumColors(int n)
{
    _table.setNumColors(n);
    buildColorIndex();
}

void ColorBarFrame::setColorType(ColorType type)
{
    _table.setColorType(type);
    buildColorIndex();
}

void ColorBarFrame::setColorMode(int mode)
{
    _table.setColorMode(mode);
    buildColorIndex();
}

void ColorBarFrame::setBackGround(const QColor& color)
{
    _backGround = color;
    _backRGB = color.rgb();
}

void ColorBarFrame::setColorMap(const ColorMap& map)
{
    _table.setColorMap(map);
    buildColorIndex();
}

bool ColorBarFrame::loadColorMapFile(const QString& name, QString* error)
{
    setColorFile(name);
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error) *error = name + ": " + file.errorString();
        return false;
    }
    const QByteArray text = file.readAll();
    ColorFile colors;
    std::string wrong;
    if (!readColorFile({text.constData(), size_t(text.size())}, name.toStdString(), &colors, &wrong)) {
        if (error) *error = QString::fromStdString(wrong);
        return false;
    }
    setNumColors(colors.numColors);
    setColorMode(colors.colorMode);
    setColorMap(colorMapOf(colors, colorMap()));
    return true;
}

void ColorBarFrame::drawScale(bool on)
{
    _drawScale = on;
    fitSize();
    update();
}

void ColorBarFrame::setOrientation(int orientation)
{
    _orientation = orientation;
    update();
}

void ColorBarFrame::setWidth(int width)
{
    _width = std::max(1, width);
    fitSize();
    update();
}

void ColorBarFrame::setHeight(int height)
{
    _height = std::max(1, height);
    fitSize();
    update();
}

void ColorBarFrame::setColorFile(const QString& name)
{
    _cfile = name;
    update();
}

void ColorBarFrame::buildColorIndex()
{
    const double range = _table.maxValue() - _table.minValue();
    _rgbVector.resize(nStripColors);
    for (int i = 0; i < nStripColors; ++i) {
        if (_table.colorType() == ColorYes)
            _rgbVector[i] = _table.getColorRGB(_table.maxValue() - i * (range * 0.00390625));
        else
            _rgbVector[i] = QColor(i < (nStripColors + 1) / 2 ? Qt::black : Qt::white).rgb();
    }
    update();
}

void ColorBarFrame::setUnit(const QString& unit)
{
    _unit = unit;
    fitSize();
    update();
}

ColorStrip ColorBarFrame::strip() const
{
    return {_rgbVector, _fmin, _fmax, _unit, _drawScale};
}

/// As large as all other texts.
QFont ColorBarFrame::numberFont() const
{
    QFont numbers = font();
    numbers.setFamily("Courier");
    numbers.setStyleHint(QFont::Monospace);
    return numbers;
}

/// The numbers' width changes with their digits, so the widget follows.
void ColorBarFrame::fitSize()
{
    setFixedSize(_width + int(std::ceil(colorStripRoom(strip(), QFontMetricsF(numberFont())))), _height);
}

void ColorBarFrame::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange) fitSize();
}

void ColorBarFrame::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setFont(numberFont());
    painter.setPen(palette().color(QPalette::WindowText));
    paintColorStrip(&painter, strip(), QRect(0, 0, _width, _height));
}
