/// Which display types paint what; raster, paper and menus ask the same.
#ifndef DISPLAYTYPE_H
#define DISPLAYTYPE_H

#include "tracedata/orvinconstants.h"

/// Types that show amplitudes by colours.
inline bool isColorType(DisplayType type)
{
    return type == ColorB || type == ColorWiggle || type == Map || type == Velocity;
}

/// Types that draw each trace as a line.
constexpr bool isWiggleType(DisplayType type)
{
    return type == WiggleVA || type == Wiggle || type == ColorWiggle;
}

#endif
