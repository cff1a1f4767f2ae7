/// One ensemble in memory.
#ifndef SEISMICDATA_H
#define SEISMICDATA_H

#include <QList>

#include <vector>

class HeaderWords;
class SeismicHeader;

/// Traces of equal length, each with its header words, and the statistics of the set.
///
/// Samples and words are lent: whoever loads them keeps them alive until the next clear. Only the views
/// on the headers, and the pointer arrays that loadTrace grows, belong to this object. Main thread only.
class SeismicData
{
public:
    SeismicData() = default;
    ~SeismicData();
    SeismicData(const SeismicData&) = delete;
    SeismicData& operator=(const SeismicData&) = delete;

    /// Takes over ncount traces of nsamples. Doesn't clear what was there: call clear first.
    void loadAllTraces(float** traces, int** headers, int nsamples, int ncount);
    /// Appends one trace.
    void loadTrace(float* trace, int* header, int nsamples);
    /// Appends one trace and takes over the view of its header.
    void loadTrace(float* trace, SeismicHeader* header, int nsamples);

    /// Address of a sample. No range test.
    float* getTraceValues(int traceNum, int sampleStart) { return _traceData[traceNum] + sampleStart; }
    const float* getTraceValues(int traceNum, int sampleStart) const { return _traceData[traceNum] + sampleStart; }
    /// Copies length samples into a trace, unless they would pass its end.
    void setTraceValues(const float* trace, int traceNum, int sampleStart, int length);
    SeismicHeader* getTraceHeader(int index) const { return _traceheaders[index]; }
    int** getTraceHeaders() const { return _traceHeaders; }

    /// Measures the set: largest and smallest sample, and as `rms` the mean absolute amplitude of the mean
    /// trace, over samples that are finite and not 0 and traces with more than 3 of them. Returns it; 1.0
    /// where nothing counts. Every display that scales by it expects this form.
    float computeRMS();
    void clear();

    /// Handle of the dataset's header list for all views; 0 is the flow's.
    void setTreviaVersion(int version);
    /// The list that names the words, for views made from now on; lent, may be null.
    void setHeaderWords(const HeaderWords* words) { _headerWords = words; }

    int traceCount() const { return _nTraces; }
    int sampleCount() const { return _nSamples; }
    float sampleRate() const { return _sampleRate; }
    int priKey() const { return _priKey; }
    int secKey() const { return _secKey; }
    int ensKey() const { return _ensKey; }
    int numHeaderWords() const { return _nHeaderWords; }
    float getRms() const { return _rms; }
    float getPeak() const { return _peak; }
    float getMean() const { return _mean; }
    float getMaximum() const { return _valMax; }
    float getMinimum() const { return _valMin; }
    bool isChanged() const { return _isChanged; }

    void setChanged(bool changed) { _isChanged = changed; }
    void setSampleRate(float ms) { _sampleRate = ms; }
    void setNumTraces(int n) { _nTraces = n; }
    void setNumSamples(int n) { _nSamples = n; }
    void setNumHeaderWords(int n) { _nHeaderWords = n; }
    void setPriKey(int key) { _priKey = key; }
    void setSecKey(int key) { _secKey = key; }
    void setEnsKey(int key) { _ensKey = key; }

private:
    void growTo(int nTraces);

    QList<SeismicHeader*> _traceheaders;  // owned, one a trace
    int _nTraces = 0;
    int _nSamples = 0;
    int _nStore = 0;  // slots of our own pointer arrays; 0 while the arrays are lent
    float _sampleRate = 0.0f;
    int _nHeaderWords = 0;
    float** _traceData = nullptr;
    int** _traceHeaders = nullptr;
    std::vector<float*> _ownTraces;
    std::vector<int*> _ownHeaders;
    int _priKey = 0;
    int _secKey = 0;
    int _ensKey = 0;
    float _rms = 0.0f;
    float _peak = 0.0f;
    float _mean = 0.0f;
    float _valMax = 0.0f;
    float _valMin = 0.0f;
    bool _isChanged = false;
    const HeaderWords* _headerWords = nullptr;
};

#endif
