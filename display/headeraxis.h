/// What the axes, the read-out and the titles show of the trace headers.
#ifndef HEADERAXIS_H
#define HEADERAXIS_H

#include <QString>

#include <string>
#include <vector>

class SeismicData;
struct HeaderTable;

/// Header words to show, counted from 0.
struct HeaderKeys {
    int pri = -1;      ///< primary annotation key
    int priReal = -1;  ///< primary key of the data
    int sec = -1;      ///< secondary annotation key
    int secReal = -1;  ///< secondary key of the data
};

/// Name, type and the values of one of these words.
struct KeyColumn {
    QString name = "None";
    char type = 'I';  ///< 'I' whole, 'F' float, 'D' double, 'S' short
    /// Value of trace i, counted from 1, at index i; entry 0 stays 0. Only grows.
    std::vector<float> values;
};

/// Value of a word, counted from 0, in the header of trace i, from 0; `type` is that of its column.
float keyOfTrace(const SeismicData& data, int key, char type, int i);

/// Key names, formats and the per-trace values, read anew from each ensemble.
class HeaderAxis
{
public:
    /// Reads the columns of an ensemble.
    ///
    /// @param data         the ensemble, at least one trace; lent for the call
    /// @param keys         words to read
    /// @param isTrevia     names come from the host's header lists, else from the SEG-Y mapping
    /// @param rightToLeft  the last trace stands first
    /// @param isDifference the text of the parameter test is "Difference"
    /// @param table        the window's saved header table, or null
    /// Returns 1; 0 with *error and all as it was when memory ran out.
    int build(const SeismicData& data, const HeaderKeys& keys, bool isTrevia, bool rightToLeft, bool isDifference,
              const HeaderTable* table, std::string* error);

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
    int makeRoom(size_t n, std::string* error);
    void readParmTest(const SeismicData& data, bool isDifference);

    KeyColumn _pri, _priReal, _sec, _secReal;
    int _nTraces = 0;
    QString _parmTest;
    float _panelVelocity = 0.0f;
};

#endif
