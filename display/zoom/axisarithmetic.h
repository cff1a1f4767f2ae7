/// The arithmetic behind the axes of a display: functions over numbers, which know no plot.
#ifndef AXISARITHMETIC_H
#define AXISARITHMETIC_H

#include "display/zoom/axisstep.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

/// Samples that a display keeps of its input traces: first to end - 1, counted from 0.
struct SampleWindow {
    int first = 0;
    int end = 0;
    int count() const { return end - first; }
};

/// The samples of fromMs to toMs, cut to whole ones inside traces of `whole` samples; both 0: all of them, toMs 0: to
/// the end. Never a negative count; rate in ms, one that isn't above 0 gives no sample of a time.
SampleWindow sampleWindow(int fromMs, int toMs, float rate, int whole);

/// Scale of an axis: its value at the left or lower end, at the other, and the step; a falling one steps down.
struct AxisScale {
    double from = 0.0;
    double to = 0.0;
    double step = 0.0;
};

/// What the vertical axis stands for.
struct VerticalFrame {
    bool isSlice = false;   ///< positions, one a sample, not times
    int timeDirection = 1;  ///< of a slice: 0 counts the other way
    SampleWindow window;
    float rate = 1.0f;  ///< ms a sample
};

/// Extent in scale units of so many samples.
double verticalSpan(const VerticalFrame& frame, double nSamples);
/// The scale that shows `plotSamples` samples from the first one on, with this step.
AxisScale verticalScale(const VerticalFrame& frame, double plotSamples, double step);
/// Most major steps on a span: 1 to 10000.
int mostSteps(double span, double step);

/// The step of the trace axis: at least 1; one that the user didn't type is made as small as three labels ask.
float traceIncrement(float wanted, bool isTyped, double plotTraces);
/// How the trace axis is divided on `width` pixels: a step every few pixels at most, as labels are thinned out where
/// they stand. With asksEach labels stand only at some traces, and each is asked.
AxisRule traceAxisRule(float increment, bool isTyped, bool asksEach, int width);
/// The same for the vertical axis, whose labels are labelHeight pixels high: half a second is too coarse for short
/// records, whose axis would be bare, and too fine for long ones.
AxisRule timeAxisRule(float increment, bool isTyped, int height, int labelHeight);

/// Samples an inch of a spacing in inches a second, at `rate` ms a sample; ips isn't 0.
float samplesPerInch(double ips, double rate);

/// Where the axis of a time slice starts, and which way it counts.
struct SliceStart {
    float start = 0.0f;
    int timeDirection = 1;
};
/// A negative position of the first trace tells that the nSamples positions run down to it.
SliceStart sliceStart(int position, int nSamples);

/// Position on the trace axis, from 1, of a trace, from 0 in the order of the data, of n traces.
double traceToX(int trace, int n, bool rightToLeft);
/// The trace, from 0 in the order of the data, whose place holds a position; -1 beside the traces.
int xToTrace(double x, int n, bool rightToLeft);

/// The title above the traces: key and value of the ensemble, and the text of its parameter test.
QString ensembleTitle(const QString& key, float value, const QString& parm);
/// The same of a time slice.
QString sliceTitle(float sliceTime, const QString& parm);

#endif
