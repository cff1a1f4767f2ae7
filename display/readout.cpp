#include "display/readout.h"

#include "display/headeraxis.h"
#include "display/tools/velocityoverlay.h"

#include <cmath>

/// Truncates to int inside [least, largest]; NaN gives least.
static int clampedInt(double value, int least, int largest)
{
    if (!(value > least)) return least;
    return value < largest ? int(value) : largest;
}

ReadoutPosition readoutPosition(const ReadoutFrame& frame, double x, double y)
{
    ReadoutPosition at;
    if (frame.nTraces < 1 || frame.nSamples < 1) return at;
    const double tn = std::trunc(x + 0.5);
    at.column = clampedInt(tn, 1, frame.nTraces);
    at.trace = clampedInt(frame.rightToLeft ? frame.nTraces + 1 - tn : tn, 1, frame.nTraces) - 1;

    const int last = frame.nSamples - 1;
    const double positions = frame.timeDirection ? y : frame.nSamples - y;
    const double samples = frame.isSlice ? positions : y / frame.rate - frame.firstSample;
    const double noise = 1e-6 * (frame.nSamples + frame.firstSample);  // of scales that went through pixels and back
    at.isInside = x >= 0.0 && x <= frame.nTraces + 1.0 && samples >= -noise && samples < frame.nSamples - noise;
    if (!frame.isSlice) {
        const int onAxis = clampedInt(y / frame.rate, frame.firstSample, frame.firstSample + last);
        at.sample = onAxis - frame.firstSample;
        at.position = std::trunc(onAxis * frame.rate);
    } else if (frame.timeDirection) {
        at.sample = clampedInt(y, 0, last);
        at.position = std::trunc(at.sample * frame.rate) + frame.sliceStart;
    } else {
        at.sample = clampedInt(frame.nSamples - std::trunc(y), 0, last);
        at.position = std::trunc(at.sample * frame.rate) + frame.nSamples + frame.sliceStart - 2.0 * at.sample;
    }
    return at;
}

static QString keyText(const KeyColumn& column, int i)
{
    const float value = size_t(i) < column.values.size() ? column.values[i] : 0.0f;
    return column.name + ": " + QString("%1").arg(double(value), 8, 'g', 6);
}

QString readoutText(const ReadoutPosition& at, const KeyColumn& primary, const KeyColumn& secondary,
                    const QString& axisTitle)
{
    return keyText(primary, at.column) + "     " + keyText(secondary, at.column) + "     " + axisTitle + ": " +
           QString("%1").arg(at.position, 6, 'g', 6);
}

QString amplitudeText(const QString& label, float value)
{
    return "     " + label + ": " + QString("%1").arg(double(value), 10, 'g', 6);
}

QString velocityText(const VelocityReadout& velocities)
{
    const struct {
        const char* label;
        float value;
    } parts[] = {
        {"    Closest Vel: ", velocities.closest},
        {"  Computed Vel: ", velocities.computed},
        {"  Interp Vel: ", velocities.interpolated},
    };
    QString text;
    for (const auto& part : parts)
        if (part.value > 0.0f) text += part.label + QString::number(double(part.value), 'g', 6);
    return text;
}
