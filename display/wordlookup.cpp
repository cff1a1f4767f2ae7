#include "display/wordlookup.h"

#include "sources/segyheader.h"
#include "tracedata/headertable.h"
#include "tracedata/seismicdata.h"
#include "tracedata/seismicheader.h"

#include <algorithm>
#include <cmath>

int wordIndex(const SeismicData& data, bool isTrevia, const HeaderTable* table, const char* name)
{
    SeismicHeader* first = data.getTraceHeader(0);
    if (isTrevia) return first->headerIndex(name);
    SegyHeader header(first->headers(), data.numHeaderWords(), table);
    header.setTreviaVersion(1);
    return header.OrvinHeaderIndex(QString(name));
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
