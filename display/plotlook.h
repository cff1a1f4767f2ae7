/// How a plot shows its traces: as a record says, or as another plot does.
#ifndef PLOTLOOK_H
#define PLOTLOOK_H

class SeismicPlot;
struct parmmenu;

/// Scaling, range, mode, direction, gain, spacings, clip, bias and gain control of the record. A spacing of inches a
/// second counts samples of 2 ms, until the first traces tell their rate.
void takeMenu(const parmmenu& menu, SeismicPlot* plot);

/// Mode, conditioning, scaling, amplitudes, move-out and spacings of another plot; not the direction, which the axes
/// follow. The caller measures anew and replots.
void copyLook(const SeismicPlot& from, SeismicPlot* to);

#endif
