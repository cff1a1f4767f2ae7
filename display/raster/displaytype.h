/// Kinds of display types.
#ifndef DISPLAYTYPE_H
#define DISPLAYTYPE_H

#include "tracedata/orvinconstants.h"

/// Types that show amplitudes by colours.
inline bool isColorType(DisplayType type)
{
    return type == ColorB || type == ColorWiggle || type == Map || type == Velocity;
}

#endif
