/// Any bytes as a file to guess about: bounded, never out of bounds, and settings that the menu can show.
#include "sources/segyguesssettings.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t n)
{
    const MemorySource source(bytes, n);
    SegyLoadParm before;
    before.files = n % 2 ? "a,b" : "a";
    SegyGuess guess;
    std::string error;
    if (!guessSegy(source, before, &guess, &error)) std::abort();  // memory never fails
    const SegyLoadParm& parm = guess.parm;
    const bool isShown = parm.isort >= 0 && parm.isort <= 11 && (parm.itype == 0 || parm.itype == 1) &&
                         parm.iformat >= 0 && parm.iformat <= 6 && parm.nsamp >= 0 && parm.maxtr >= 0 &&
                         parm.srate >= 0.0f;
    if (!isShown || guess.facts.empty() || guess.summary.empty()) std::abort();
    if (guess.verdict != SegyGuess::Read && (parm.nsamp != 0 || parm.itype != 0)) std::abort();
    if (guess.search.isFound && guess.search.layout.recordBytes() < 240) std::abort();
    if (int64_t(guess.sample.count()) > mostSampledHeaders) std::abort();
    rankSegyWords(guess.sample);
    segyGuessText("fuzz", guess, before);
    return 0;
}
