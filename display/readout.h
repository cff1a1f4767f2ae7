/// From a position on the plot to the trace and sample under it, and the line of text that tells of them.
#ifndef READOUT_H
#define READOUT_H

#include <QString>

struct KeyColumn;
struct VelocityReadout;

/// What the read-out must know of the picture.
struct ReadoutFrame {
    int nTraces = 0;
    int nSamples = 0;   ///< samples kept of each trace
    double rate = 1.0;  ///< ms a sample, above 0
    bool rightToLeft = false;
    bool isSlice = false;  ///< the vertical axis is a position, not time
    bool timeDirection = true;
    double sliceStart = 0.0;  ///< position of a slice's first sample
    int firstSample = 0;      ///< first sample kept of the input traces
};

/// What stands under a position. With no traces or samples all are 0.
struct ReadoutPosition {
    int column = 0;         ///< 1 to nTraces, from the left: index into the axis arrays
    int trace = 0;          ///< from 0, in the order of the data
    int sample = 0;         ///< from 0, into the kept window
    double position = 0;    ///< time in ms, or the slice's position
    bool isInside = false;  ///< whether the data reach to where that is: 0 to nTraces + 1, and their times
};

/// @param x  scale value of the trace axis: trace i from 1 stands at i
/// @param y  scale value of the vertical axis
ReadoutPosition readoutPosition(const ReadoutFrame& frame, double x, double y);

/// The status line without amplitudes: both keys and the position, in fixed columns.
QString readoutText(const ReadoutPosition& at, const KeyColumn& primary, const KeyColumn& secondary,
                    const QString& axisTitle);

/// "     Amp: " and the value, ten wide; the label tells the data.
QString amplitudeText(const QString& label, float value);

/// What is told of velocities; one that is 0 is left out.
QString velocityText(const VelocityReadout& velocities);

#endif
