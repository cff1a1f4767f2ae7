/// How large the picture of a whole ensemble is at the scale that the plot shows.
#ifndef PICTURESIZE_H
#define PICTURESIZE_H

#include <QSize>

/// A side of the plot, and what it would have to show.
struct PlotSide {
    double pixels = 0.0;  ///< of the plot
    double shown = 0.0;   ///< units over these pixels, of any sign
    double whole = 0.0;   ///< units of all data
};

struct PictureSize {
    QSize size;              ///< empty where a side has no scale or no data
    bool isReduced = false;  ///< the scale is smaller than the plot's, so that the limits hold
};

/// Largest side in pixels (no window system takes more), and largest memory in bytes, of one picture.
constexpr int mostPictureSide = 32767;
constexpr long long mostPictureBytes = 512LL << 20;

/// The size at which all data fit at the plot's scale, cut to whole pixels; or at the largest scale with which the
/// limits hold.
PictureSize wholePictureSize(const PlotSide& x, const PlotSide& y);

#endif
