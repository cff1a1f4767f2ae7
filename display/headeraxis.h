/// What the axes, the read-out and the titles show of the trace headers.
#ifndef HEADERAXIS_H
#define HEADERAXIS_H

#include "tracedata/menukeys.h"

#include <QString>

#include <string>
#include <vector>

class SeismicData;

/// Name, type and the values of one of these words.
struct KeyColumn {
    QString name = "None";
    char type = 'I';  ///< 'I' whole, 'F' float, 'D' double, 'S' short
    /// Value of trace i, counted from 1, at index i; entry 0 stays 0. Only grows.
    std::vector<float> values;
};

/// Value of a word in the header of trace i, from 0; `type` is that of its column.
float keyOfTrace(const SeismicData& data, WordFrom0 key, char type, int i);

/// Key names, formats and the per-trace values, read anew from each ensemble.
class HeaderAxis
{
public:
    /// Reads the columns of an ensemble, which the list of its headers names.
    ///
    /// @param data         the ensemble, at least one trace; lent for the call
    /// @param keys         words to read
    /// @param rightToLeft  the last trace stands first
    /// @param isDifference the text of the parameter test is "Difference"
    /// False, with *error and all as it was, when memory ran out.
    bool build(const SeismicData& data, const HeaderKeys& keys, bool rightToLeft, bool isDifference,
               std::string* error);

    const KeyColumn& pri() const { return _pri; }
    const KeyColumn& priReal() const { return _priReal; }
    const KeyColumn& sec() const { return _sec; }
    const KeyColumn& secReal() const { return _secReal; }
    int traceCount() const { return _nTraces; }
    /// Text of the word "parmtest" of the first trace; empty without one.
    const QString& parmTest() const { return _parmTest; }
    /// Velocity of a constant-velocity panel, from the first trace; 0 without one.
    float panelVelocity() const { return _panelVelocity; }

private:
    bool makeRoom(size_t n, std::string* error);
    void readParmTest(const SeismicData& data, bool isDifference);

    KeyColumn _pri, _priReal, _sec, _secReal;
    int _nTraces = 0;
    QString _parmTest;
    float _panelVelocity = 0.0f;
};

#endif
