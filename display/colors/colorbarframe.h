/// The colour strip beside the plots, and the colour table that these read.
#ifndef COLORBARFRAME_H
#define COLORBARFRAME_H

#include "display/colors/colorstrip.h"
#include "display/colors/colortable.h"

#include <QFrame>
#include <QVector>

/// Shows a ColorTable as a strip, high values on top, with numbers beside it if wanted.
///
/// The strip is 15 by 256 pixels; the widget is as much wider as its numbers need. Whoever changes colours
/// or range replots what was painted with them.
class ColorBarFrame : public QFrame
{
    Q_OBJECT

public:
    /// Starts with the seismic colours.
    explicit ColorBarFrame(QWidget* parent = nullptr);
    ColorBarFrame(const ColorMap& map, QWidget* parent = nullptr);

    const ColorTable& table() const { return _table; }
    QRgb getColorRGB2(double value) const { return _table.getColorRGB2(value); }
    QColor getColorValue2(double value) const { return QColor(_table.getColorRGB2(value)); }
    QRgb getColorRGB(double value) const { return _table.getColorRGB(value); }
    int getColorIndex(double value) const { return _table.getColorIndex(value); }
    QColor getColorValue(double value) const { return QColor(_table.getColorRGB(value)); }

    /// Range of the table; both 0 stand for -1.0 and 1.0.
    void setMinMaxValue(double minValue, double maxValue);
    /// Range of the strip's numbers; both 0 stand for -1.0 and 1.0.
    void setDataMinMaxValue(double minValue, double maxValue);
    void setNumColors(int n);
    void setColorType(ColorType type);
    /// 0: the colours of the stops alone; else interpolated.
    void setColorMode(int mode);
    void setBackGround(const QColor& color);
    void setColorMap(const ColorMap& map);
    void setMapColor() { setColorMap(ColorMap::mapColor()); }
    void setSeismicColor() { setColorMap(ColorMap::seismicColor()); }
    void setSeismicGrayScale() { setColorMap(ColorMap::seismicGrayScale()); }
    /// Loads a colour file, given with its path. A file that can't be read, or is broken, leaves the colours
    /// and gives false, and *error, if given, says which line is wrong.
    bool loadColorMapFile(const QString& name, QString* error = nullptr);

    void drawScale(bool on);
    /// What the numbers are of: "amplitude" unless told otherwise.
    void setUnit(const QString& unit);
    void setOrientation(int orientation);
    void setWidth(int width);
    void setHeight(int height);
    void setColorFile(const QString& name);

    double minValue() const { return _table.minValue(); }
    double maxValue() const { return _table.maxValue(); }
    float dataMinValue() const { return _fmin; }
    float dataMaxValue() const { return _fmax; }
    int numColors() const { return _table.numColors(); }
    ColorType colorType() const { return _table.colorType(); }
    int colorMode() const { return _table.colorMode(); }
    const ColorMap& colorMap() const { return _table.colorMap(); }
    QColor backGround() const { return _backGround; }
    /// Background of a picture.
    QRgb backRGB() const { return _backRGB; }
    QString colorFile() const { return _cfile; }
    /// What the widget shows, for another device.
    ColorStrip strip() const;
    bool isScaleDrawn() const { return _drawScale; }
    int orientation() const { return _orientation; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void buildColorIndex();
    void fitSize();
    QFont numberFont() const;

    ColorTable _table;
    int _width = 15;
    int _height = 256;
    int _orientation = 1;
    QVector<unsigned int> _rgbVector;  // the strip's 255 colours, from the top
    QColor _backGround = Qt::white;
    QRgb _backRGB;
    QString _cfile;
    QString _unit = "amplitude";
    bool _drawScale = true;
    float _fmin = 0.0f;
    float _fmax = 255.0f;
};

#endif
