#include "sources/segyguesslook.h"

#include "sources/formatted.h"
#include "sources/segyloader.h"
#include "sources/segysamples.h"
#include "sources/segysortkeys.h"

/// Below this share the guess's own headers are doubtful. Where its records don't fit the size either, a file that
/// opens is left in peace.
constexpr double leastCertain = 0.6;

SegyReading segyReading(SegyLoader* loader, const SegyLoadParm& told)
{
    SegyReading reading;
    reading.isBigEndian = told.layout.byteOrder == SegyByteOrder::OfType
                              ? told.itype != 1
                              : told.layout.byteOrder == SegyByteOrder::HighestFirst;
    const segyData2* data = loader ? loader->SegyData() : nullptr;
    if (!data) return reading;
    reading.isOpen = true;
    reading.firstTrace = data->firstTrace();
    reading.headerBytes = data->parm().layout.headerBytes;
    reading.sampleFormat = data->sampleFormat();
    reading.nSamples = loader->numSamples();
    reading.isVariable = data->parm().ivariable != 0;
    reading.sortCode = told.isort;
    reading.nTraces = loader->numTraces();
    reading.maxTraces = loader->maxTraces();
    return reading;
}

namespace {

/// Of a file whose own order is this.
std::string otherOrder(bool isBigEndian)
{
    return isBigEndian ? "read as little-endian" : "read as big-endian";
}

/// Codes without a name are read as IEEE.
int knownFormat(int code)
{
    if (code >= SegyIbm && code <= SegyInteger1) return code;
    for (const SegyLayoutSample& sample : segyLayoutSamples())
        if (sample.format == code) return code;
    return SegyIeee;
}

std::string formatName(int code)
{
    static const char* const names[] = {"",
                                        "IBM floats",
                                        "4-byte integers",
                                        "2-byte integers",
                                        "integers with a gain",
                                        "IEEE floats",
                                        "1-byte integers"};
    for (const SegyLayoutSample& sample : segyLayoutSamples())
        if (sample.format == code) return sample.name;
    return names[knownFormat(code)];
}

/// The code that the settings of the guess bring in force.
int guessedFormat(const SegyGuess& guess)
{
    if (guess.parm.layout.sampleFormat > 0) return guess.parm.layout.sampleFormat;
    const int chosen = segyFormatOfChoice(guess.parm.iformat);
    return knownFormat(chosen > 0 ? chosen : guess.search.claims[guess.search.layout.isBigEndian].format);
}

/// What is read otherwise than the guess would: the traces themselves.
std::vector<std::string> misreadTraces(const SegyGuess& guess, const SegyReading& reading)
{
    const SegyLayout& found = guess.search.layout;
    if (found.isBigEndian != reading.isBigEndian) return {otherOrder(found.isBigEndian)};
    std::vector<std::string> faults;
    if (found.firstTrace != reading.firstTrace)
        faults.push_back(formatted("the first trace is at byte %lld, not %lld",
                                   static_cast<long long>(found.firstTrace),
                                   static_cast<long long>(reading.firstTrace)));
    if (found.headerBytes != reading.headerBytes)
        faults.push_back(formatted("trace headers have %d bytes, not %d", found.headerBytes, reading.headerBytes));
    if (found.isVariable != reading.isVariable)
        faults.push_back(found.isVariable ? "traces have lengths of their own" : "traces have one length");
    else if (found.nSamples != reading.nSamples)
        faults.push_back(formatted("traces have %d samples, not %d", found.nSamples, reading.nSamples));
    const int format = guessedFormat(guess), read = knownFormat(reading.sampleFormat);
    if (format != read) faults.push_back("samples are " + formatName(format) + ", but read as " + formatName(read));
    return faults;
}

bool isOtherSort(const SegyGuess& guess, const SegyReading& reading, int reelSort)
{
    const SegySortKeys found = segySortKeys(SortCode(guess.parm.isort), reelSort);
    const SegySortKeys read = segySortKeys(SortCode(reading.sortCode), reelSort);
    return found.ipkey != read.ipkey || found.mysort != read.mysort;
}

/// Ensembles that are cut into pieces, by their keys or by their room.
std::vector<std::string> misreadEnsembles(const SegyGuess& guess, const SegyLoadParm& told, const SegyReading& reading)
{
    const SegyLayout& found = guess.search.layout;
    const auto longest = static_cast<long long>(guess.longestEnsemble);
    const int reelSort = guess.search.claims[found.isBigEndian].sort;
    if (longest < 2) return {};
    if (told.maxtr < 1 && reading.nTraces >= reading.maxTraces && longest > reading.maxTraces)
        return {formatted("ensembles of up to %lld traces are cut after %d", longest, reading.maxTraces)};
    if (told.isort < 1 && reading.nTraces == 1 && isOtherSort(guess, reading, reelSort))
        return {formatted("ensembles have up to %lld traces by \"%s\", not one", longest,
                          guess.parm.isort > 0 ? segySortNames()[guess.parm.isort - 1].toUtf8().constData()
                                               : "the reel's sort")};
    return {};
}

}  // namespace

SegyFirstLook firstLook(const std::string& name, const SegyGuess& guess, const SegyLoadParm& told,
                        const SegyReading& reading)
{
    SegyFirstLook look;
    look.hasSettings = guess.verdict == SegyGuess::Read;
    look.line = name + ": " + guess.summary;
    if (!look.hasSettings) return look;
    const SegyLayout& found = guess.search.layout;
    if (!reading.isOpen) {
        look.line += found.isBigEndian != reading.isBigEndian ? " Refused: " + otherOrder(found.isBigEndian) + "."
                                                              : " Refused with the settings in force.";
        return look;
    }
    std::vector<std::string> faults = misreadTraces(guess, reading);
    if (faults.empty()) faults = misreadEnsembles(guess, told, reading);
    if (faults.empty() || (found.plausibility < leastCertain && found.tailBytes != 0)) return {};
    look.line += " Misread: ";
    for (size_t i = 0; i < faults.size(); ++i) look.line += (i > 0 ? "; " : "") + faults[i];
    look.line += ".";
    return look;
}
