#include "display/colorbarframe.h"

#include "display/colorfile.h"

#include <QFile>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

static constexpr int nStripColors = 255;
static constexpr int nSteps = 6;
static constexpr int numberGap = 4;  // pixels between strip and numbers

QVector<ColorBarNumber> colorBarNumbers(float minValue, float maxValue, int height)
{
    QVector<ColorBarNumber> numbers;
    const float valueStep = (maxValue - minValue) / nSteps;
    const int pixelStep = height / nSteps;
    for (int i = 0; i <= nSteps; ++i) {
        float value = i < nSteps ? maxValue - i * valueStep : minValue;
        if (std::fabs(value) < 1e-4f * std::fabs(valueStep)) value = 0.0f;
        QString text = QString::number(value, 'g', 4);
        if (minValue < 0.0f && value > 0.0f) text.prepend('+');
        numbers.append({i * pixelStep, text});
    }
    return numbers;
}

ColorBarFrame::ColorBarFrame(QWidget* parent) : ColorBarFrame(ColorMap::seismicColor(), parent) {}

ColorBarFrame::ColorBarFrame(const ColorMap& map, QWidget* parent)
    : QFrame(parent), _backRGB(QColor(Qt::white).rgb())
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

QFont ColorBarFrame::numberFont() const
{
    QFont numbers("Courier");
    numbers.setStyleHint(QFont::Monospace);
    numbers.setPointSizeF(std::max(6.0, font().pointSizeF() * 0.8));
    return numbers;
}

/// The numbers' width changes with their digits, so the widget follows.
void ColorBarFrame::fitSize()
{
    int width = _width;
    if (_drawScale) {
        const QFontMetrics metrics(numberFont());
        for (const ColorBarNumber& number : colorBarNumbers(_fmin, _fmax, _height))
            width = std::max(width, _width + numberGap + metrics.horizontalAdvance(number.text));
    }
    setFixedSize(width, _height);
}

void ColorBarFrame::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    for (int y = 0; y < _height; ++y) {
        const int entry = std::min(nStripColors - 1, int(int64_t(y) * (nStripColors + 1) / _height));
        painter.fillRect(0, y, _width, 1, QColor(_rgbVector[entry]));
    }
    if (!_drawScale) return;
    painter.setFont(numberFont());
    painter.setPen(palette().color(QPalette::WindowText));
    const int textHeight = painter.fontMetrics().height();
    for (const ColorBarNumber& number : colorBarNumbers(_fmin, _fmax, _height)) {
        // the first and the last stay whole inside the widget
        const int top = std::clamp(number.center - textHeight / 2, 0, std::max(0, _height - textHeight));
        painter.drawText(_width + numberGap, top + painter.fontMetrics().ascent(), number.text);
    }
}
