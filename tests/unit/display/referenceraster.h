/// The slow way to the same picture: pixel by pixel, trace by trace, lines by QPainter.
#ifndef REFERENCERASTER_H
#define REFERENCERASTER_H

#include "display/raster/traceraster.h"

#include <vector>

/// What a tap heard.
struct TapCall {
    std::vector<float> samples;
    int start, tr;
    bool operator==(const TapCall& other) const
    {
        return samples == other.samples && start == other.start && tr == other.tr;
    }
};

struct ReferencePicture {
    QImage image;
    std::vector<int> shifts;
    std::vector<TapCall> taps;
};

ReferencePicture referenceRender(const RasterParm& parm);

#endif
