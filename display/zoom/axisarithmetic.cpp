#include "display/zoom/axisarithmetic.h"

#include <algorithm>
#include <cmath>

/// Truncates ms to whole samples inside [0, largest].
static int samplesOf(int ms, float rate, int largest)
{
    if (!(rate > 0.0f)) return 0;
    return int(std::clamp(std::trunc(double(float(ms) / rate)), 0.0, double(largest)));
}

SampleWindow sampleWindow(int fromMs, int toMs, float rate, int whole)
{
    SampleWindow window = {0, whole};
    if (fromMs != 0 || toMs != 0) {
        window.first = samplesOf(fromMs, rate, whole);
        if (toMs != 0) window.end = samplesOf(toMs, rate, whole);
    }
    window.end = std::max(window.end, window.first);
    return window;
}

double verticalSpan(const VerticalFrame& frame, double nSamples)
{
    return frame.isSlice ? nSamples : nSamples * frame.rate;
}

AxisScale verticalScale(const VerticalFrame& frame, double plotSamples, double step)
{
    const double shift = double(frame.window.first) * frame.rate;
    if (!frame.isSlice) return {verticalSpan(frame, plotSamples) + shift, shift, step};
    if (frame.timeDirection != 0) return {plotSamples, 0.0, step};
    const int n = frame.window.count();
    return {std::max(n - plotSamples, 0.0), double(n), -step};
}

int mostSteps(double span, double step)
{
    return int(std::clamp(span / std::max(step, 1e-9), 1.0, 10000.0));
}

float traceIncrement(float wanted, bool isTyped, double plotTraces)
{
    const float increment = std::max(wanted > 0.0f ? wanted : 1.0f, 1.0f);
    return isTyped ? increment : float(axisStep(plotTraces, increment, 3, 1.0));
}

AxisRule traceAxisRule(float increment, bool isTyped, bool asksEach, int width)
{
    constexpr int most = 10000;  // the plot makes no more
    AxisRule rule(increment);
    rule.isTyped = isTyped;
    rule.smallest = 1.0;
    rule.most = asksEach && !isTyped ? most : std::clamp(width / (isTyped ? 2 : 4), 1, most);
    return rule;
}

AxisRule timeAxisRule(float increment, bool isTyped, int height, int labelHeight)
{
    AxisRule rule(increment);
    rule.isTyped = isTyped;
    rule.most = std::max(1, isTyped ? height / 2 : height * 4 / (5 * std::max(1, labelHeight)));
    return rule;
}

float samplesPerInch(double ips, double rate)
{
    return float((1.0 / ips) / (rate / 1000.0));
}

SliceStart sliceStart(int position, int nSamples)
{
    const float start = std::fabs(float(position));
    return position < 0 ? SliceStart{start - float(nSamples), 0} : SliceStart{start, 1};
}

double traceToX(int trace, int n, bool rightToLeft)
{
    return rightToLeft ? double(n) - trace : double(trace) + 1.0;
}

int xToTrace(double x, int n, bool rightToLeft)
{
    const double column = std::floor(x + 0.5);
    if (!(column >= 1.0 && column <= n)) return -1;
    return rightToLeft ? n - int(column) : int(column) - 1;
}

QString ensembleTitle(const QString& key, float value, const QString& parm)
{
    return key + ":" + QString::number(double(value), 'g', 6) + "    " + parm;
}

QString sliceTitle(float sliceTime, const QString& parm)
{
    const QString time = QString::number(double(sliceTime), 'g', 6) + "  msec";
    return "SLC_TIME:" + time + "    " + parm + "    Time: " + time;
}
