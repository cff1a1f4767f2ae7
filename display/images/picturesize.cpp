#include "display/images/picturesize.h"

#include "display/raster/rasternumber.h"

#include <algorithm>
#include <cmath>

/// Whole pixels of all data. The counts of a plot are single precision, whose last digit must not cost a pixel.
static double wholePixels(const PlotSide& side)
{
    const double pixels = side.pixels * (side.whole / std::fabs(side.shown));
    return std::isfinite(pixels) && pixels > 0.0 ? std::trunc(pixels * (1.0 + 1e-6)) : 0.0;
}

PictureSize wholePictureSize(const PlotSide& x, const PlotSide& y)
{
    const double width = wholePixels(x), height = wholePixels(y);
    PictureSize result;
    if (width < 1.0 || height < 1.0) return result;
    double w = std::min(width, double(mostPictureSide)), h = std::min(height, double(mostPictureSide));
    const double bytes = 4.0 * w * h;
    if (bytes > double(mostPictureBytes)) {
        const double factor = std::sqrt(double(mostPictureBytes) / bytes);
        w = std::max(1.0, std::trunc(w * factor));
        h = std::max(1.0, std::trunc(h * factor));
    }
    result.size = QSize(wholeOf(w), wholeOf(h));
    result.isReduced = w < width || h < height;
    return result;
}
