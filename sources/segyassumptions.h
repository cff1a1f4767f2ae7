/// What a SEG-Y file leaves to be taken for granted: one record for each kind, whose count goes on over the file.
#ifndef SEGYASSUMPTIONS_H
#define SEGYASSUMPTIONS_H

#include "sources/segyrecords.h"

#include <array>
#include <string>
#include <vector>

/// One kind of thing that was taken for granted, or skipped.
struct SegyAssumption {
    std::string name;             ///< short, e.g. "coordinate scalar 0"
    int64_t count = 1;            ///< traces so far, each once; 1 for a thing of the whole file
    int64_t nTraces = 0;          ///< traces looked at so far; 0 for a thing of the whole file
    int64_t firstTrace = 0;       ///< its rank in the file, from 1; 0 for a thing of the whole file
    int firstValue = 0;           ///< what stood there
    std::string consequence;      ///< what the reader made of it
    const char* control = "";     ///< label of the control that changes it; empty where none does
    bool isDelayLeftOut = false;  ///< firstValue are ms that the time axis leaves out

    /// The whole of it but the control: what, where and with what consequence.
    std::string text() const;
    /// The plain line for the program's output.
    std::string line() const { return "SegyLoader: " + text(); }
    /// What is worth a word beside the picture, such as "delay -200 ms not in the axis"; mostly empty.
    std::string remark() const;
};

/// What the kinds are judged by.
struct SegyAssumptionContext {
    bool isDepthScaled = false, isCoordinateScaled = false;  ///< which scalars are applied: one of 0 matters only then
    bool isVariable = false;
    int nSamples = 0;    ///< a trace has in memory
    int intervalUs = 0;  ///< in force
};

/// Counts traces whose headers a rule reads in its own way; the rule itself stays as it is.
class SegyAssumptions
{
public:
    /// Judges the traces that come by this.
    void setContext(const SegyAssumptionContext& context) { _context = context; }
    /// @param rank  of the trace in its file, from 1; a trace that was added before counts no second time
    void add(const segyTrace& trace, int64_t rank);
    /// An ensemble is complete: kinds that only matter where all its traces show them are judged now.
    void endEnsemble();
    /// A thing of the whole file; one with the same name and consequence is known already. True if it is new.
    bool note(const SegyAssumption& assumption);

    /// All kinds met so far, those of the whole file first.
    std::vector<SegyAssumption> all() const;
    /// The kinds of traces that were met for the first time since the last call.
    std::vector<SegyAssumption> takeNew();

private:
    static constexpr int nKinds = 8;
    struct Tally {
        int64_t count = 0;
        int64_t firstTrace = 0;
        int firstValue = 0;
    };
    SegyAssumption assumptionOf(int kind) const;
    bool isTold(int kind) const;
    void countIn(int kind, const Tally& met);

    SegyAssumptionContext _context;
    std::array<Tally, nKinds> _tallies;   // over the file
    std::array<Tally, nKinds> _ensemble;  // of the ensemble in hand
    int64_t _nInEnsemble = 0;
    std::array<bool, nKinds> _isTaken = {};
    std::vector<bool> _isCounted;  // by rank
    int64_t _nTraces = 0;
    std::vector<SegyAssumption> _ofFile;
};

#endif
