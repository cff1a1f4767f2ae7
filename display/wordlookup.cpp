#include "display/wordlookup.h"

#include "host/flow/standardwords.h"
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

/// How a word is kept, a HeaderFormat; -1 for one that isn't there.
static int wordFormat(const SeismicData& data, bool isTrevia, const HeaderTable* table, const char* name)
{
    SeismicHeader* first = data.getTraceHeader(0);
    if (isTrevia) return first->headerExists(name) ? first->headerFormat(name) : -1;
    SegyHeader header(first->headers(), data.numHeaderWords(), table);
    header.setTreviaVersion(1);
    return header.OrvinHeaderExists(QString(name)) ? header.OrvinHeaderFormat(QString(name)) : -1;
}

double wordOfTrace(const SeismicData& data, bool isTrevia, const HeaderTable* table, const char* name, int trace)
{
    const int index = wordIndex(data, isTrevia, table, name), format = wordFormat(data, isTrevia, table, name);
    const SeismicHeader* header = data.getTraceHeader(trace);
    int whole = 0;
    float single = 0.0f;
    double value = 0.0;
    switch (format) {
    case -1: return 0.0;
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
