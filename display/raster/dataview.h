/// A view of a plot against the data that it shows: the rows of the picture that the data reach.
#ifndef DATAVIEW_H
#define DATAVIEW_H

#include "display/raster/traceraster.h"

/// Pixel rows first to end - 1 of a picture and the scale that belongs to them.
struct DataRows {
    int first = 0;
    int end = 0;
    AxisMap y;
};

/// The rows of a view of `y` that show times of least to largest, largest itself not. Times rise from y.s2, at the
/// top in pixel y.p2, to y.s1 at the bottom, or, with timeDirection 0, the other way round. A view that stays inside
/// the data comes back as it is; otherwise the part starts and ends with whole pixels, and has no rows where nothing
/// of the data is in view.
DataRows dataRows(const AxisMap& y, int timeDirection, double least, double largest);

/// A view of a reversed axis, whose highest value is at the top: there the data have their first sample. Positions
/// are turned to the distance from `whole`, the extent of the data.
AxisMap turnedAxis(const AxisMap& y, double whole);

#endif
