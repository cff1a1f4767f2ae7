/// What the traces of an ensemble leave to be taken for granted, said in one line for each kind.
#ifndef SEGYASSUMPTIONS_H
#define SEGYASSUMPTIONS_H

#include "sources/segyrecords.h"

#include <array>
#include <string>
#include <vector>

/// Counts traces whose headers a rule reads in its own way; the rule itself stays as it is.
class SegyAssumptions
{
public:
    /// Which scalars are applied: a scalar of 0 matters only then.
    void start(bool isDepthScaled, bool isCoordinateScaled);
    /// @param rank  of the trace in its file, from 1
    void add(const segyTrace& trace, int64_t rank);
    /// One line for each kind that was met, with its count and first trace.
    std::vector<std::string> lines() const;

private:
    static constexpr int nKinds = 5;
    struct Tally {
        int count = 0;
        int64_t firstTrace = 0;
        int firstValue = 0;
    };
    std::array<Tally, nKinds> _tallies;
    int _nTraces = 0;
    bool _isDepthScaled = false;
    bool _isCoordinateScaled = false;
};

#endif
