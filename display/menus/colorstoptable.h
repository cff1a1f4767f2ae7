/// A table to edit the stops of a color map in.
#ifndef COLORSTOPTABLE_H
#define COLORSTOPTABLE_H

#include "display/colors/colormap.h"

#include <QTableWidget>

/// A row a stop, high values on top, and blank rows below them to add stops in. A color is chosen in a dialog
/// by a double click, Return or Space; the percentage is typed. A row whose percentage isn't a number
/// from 0 to 100 counts as none.
class ColorStopTable : public QTableWidget
{
    Q_OBJECT

public:
    explicit ColorStopTable(QWidget* parent = nullptr);

    /// Shows the stops of a map in nRows rows, more if it has more stops.
    void setColorMap(const ColorMap& map, int nRows);
    /// Adds or takes away rows, but none above the last that is filled in.
    void setRows(int nRows);
    /// The stops as they stand, from the top.
    std::vector<ColorStop> stops() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void editColor(int row, int column);
    void colorNewStop(int row, int column);

private:
    void setColor(int row, QRgb color);
    bool readPosition(int row, double* position) const;

    ColorMap _map = ColorMap::seismicColor();  // gives a new stop its color
};

#endif
