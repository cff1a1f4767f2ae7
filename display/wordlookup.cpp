#include "display/wordlookup.h"

#include "host/flow/standardwords.h"
#include "tracedata/seismicdata.h"
#include "tracedata/seismicheader.h"

#include <algorithm>
#include <cmath>

double wordOfTrace(const SeismicData& data, const char* name, int trace)
{
    const SeismicHeader* header = data.getTraceHeader(trace);
    if (!header->headerExists(name)) return 0.0;
    const int index = header->headerIndex(name);
    int whole = 0;
    float single = 0.0f;
    double value = 0.0;
    switch (header->headerFormat(name)) {
    case Float4Format: header->headerFloatValue(index, &single); return single;
    case Double8Format: header->headerDoubleValue(index, &value); return value;
    default: header->headerValue(index, &whole); return whole;
    }
}

/// Mean absolute amplitude of a trace; negative where too few samples count.
static double meanAmplitude(const float* trace, int nSamples)
{
    double roots = 0.0;
    int count = 0;
    for (int j = 0; j < nSamples; ++j) {
        if (trace[j] == 0.0f || !std::isfinite(trace[j])) continue;
        roots += std::sqrt(double(trace[j] * trace[j]));
        ++count;
    }
    return count > 3 ? roots / count : -1.0;
}

float meanLiveAmplitude(const SeismicData& data, int typeWord)
{
    double sum = 0.0;
    int nLive = 0;
    for (int i = 0; i < data.traceCount(); ++i) {
        int type = 0;
        data.getTraceHeader(i)->headerValue(typeWord, &type);
        const double mean = type == 1 ? meanAmplitude(data.getTraceValues(i, 0), data.sampleCount()) : -1.0;
        if (mean < 0.0) continue;
        sum += mean;
        ++nLive;
    }
    return nLive > 0 ? float(std::max(0.0, sum / nLive)) : 0.0f;
}
