#include "tracedata/seismicdata.h"

#include "tracedata/seismicheader.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

SeismicData::~SeismicData()
{
    qDeleteAll(_traceheaders);
}

void SeismicData::clear()
{
    _nTraces = 0;
    _nSamples = 0;
    qDeleteAll(_traceheaders);
    _traceheaders.clear();
}

void SeismicData::loadAllTraces(float** traces, int** headers, int nsamples, int ncount)
{
    _traceData = traces;
    _traceHeaders = headers;
    _nStore = 0;
    _nTraces = ncount;
    _nSamples = nsamples;
    for (int i = 0; i < ncount; ++i) _traceheaders.append(new SeismicHeader(headers[i], _nHeaderWords, _headerWords));
}

void SeismicData::growTo(int nTraces)
{
    if (_nStore >= nTraces) return;
    // After lent arrays the traces that were loaded with them stay the first ones.
    if (_nStore == 0) {
        _ownTraces.assign(_traceData, _traceData + _nTraces);
        _ownHeaders.assign(_traceHeaders, _traceHeaders + _nTraces);
    }
    _nStore = nTraces;
    _ownTraces.resize(_nStore);
    _ownHeaders.resize(_nStore);
    _traceData = _ownTraces.data();
    _traceHeaders = _ownHeaders.data();
}

void SeismicData::loadTrace(float* trace, int* header, int nsamples)
{
    loadTrace(trace, new SeismicHeader(header, _nHeaderWords, _headerWords), nsamples);
}

void SeismicData::loadTrace(float* trace, SeismicHeader* header, int nsamples)
{
    growTo(_nTraces + 1);
    _traceData[_nTraces] = trace;
    _traceHeaders[_nTraces] = header->headers();
    _nSamples = nsamples;
    ++_nTraces;
    _traceheaders.append(header);
}

void SeismicData::setTraceValues(const float* trace, int traceNum, int sampleStart, int length)
{
    if (length < 0 || sampleStart < 0 || int64_t(sampleStart) + length > _nSamples) return;
    std::copy(trace, trace + length, _traceData[traceNum] + sampleStart);
}

void SeismicData::setTreviaVersion(int version)
{
    for (SeismicHeader* header : _traceheaders) header->setTreviaVersion(version);
}

float SeismicData::computeRMS()
{
    _rms = _peak = _mean = 0.0f;
    _valMax = std::bit_cast<float>(uint32_t(0xFF7FC99E));
    _valMin = std::bit_cast<float>(uint32_t(0x7F7FC99E));
    int nCounted = 0;
    double rmsSum = 0.0, meanSum = 0.0;
    double absolute = 0.0;  // runs on from trace to trace
    for (int i = 0; i < _nTraces; ++i) {
        int count = 0;
        double roots = 0.0;
        for (int j = 0; j < _nSamples; ++j) {
            const float v = _traceData[i][j];
            if (v == 0.0f || !std::isfinite(double(v))) continue;
            ++count;
            _valMax = std::max(_valMax, v);
            _valMin = std::min(_valMin, v);
            roots += std::sqrt(double(v * v));
            absolute += std::fabs(v);
        }
        if (count <= 3) continue;
        ++nCounted;
        rmsSum += roots / count;
        meanSum += absolute / count;
    }
    if (nCounted > 0) {
        _rms = float(rmsSum / nCounted);
        _mean = float(meanSum / nCounted);
    }
    if (!(_mean > 0.0f)) _mean = 1.0f;
    if (!(_rms > 0.0f)) _rms = 1.0f;
    _peak = _rms * 1.4f;
    return _rms;
}
