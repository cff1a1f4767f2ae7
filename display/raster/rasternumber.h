/// Small numeric rules of the raster.
#ifndef RASTERNUMBER_H
#define RASTERNUMBER_H

#include <climits>

/// The value cut to whole, the integer range's ends beyond it, 0 for NaN.
inline int wholeOf(double value)
{
    if (!(value == value)) return 0;
    if (value >= double(INT_MAX)) return INT_MAX;
    if (value <= double(INT_MIN)) return INT_MIN;
    return int(value);
}

/// No trace is shifted further down; its rows would be far outside any picture.
constexpr int mostShift = 1 << 24;

/// Below some 100000 values a second thread takes longer to start than it saves.
inline bool isWorthThreads(int nRows, int nTraces)
{
    return double(nRows) * nTraces > 1e5;
}

#endif
