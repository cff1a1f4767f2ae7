/// How a plot shows its traces, handed on to another plot.
#ifndef PLOTLOOK_H
#define PLOTLOOK_H

class SeismicPlot;

/// Mode, conditioning, scaling, amplitudes, move-out and spacings; not the direction, which the axes follow. The
/// caller measures anew and replots.
void copyLook(const SeismicPlot& from, SeismicPlot* to);

#endif
