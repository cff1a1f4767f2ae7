#include "sources/segyguessensembles.h"

#include "sources/formatted.h"

#include <algorithm>
#include <map>

enum SortCode {
    SortFfid = 1,
    SortCdp = 4,
    SortStack = 5,
    SortInline = 7,
    SortCrossline = 8,
    SortInlineStack = 9,
    SortCrosslineStack = 10
};

namespace {

/// A header word over the sample.
struct Word {
    Word(const SegyHeaderSample& sample, int byte) : values(sample.values(byte, 4)), run(meanRun(sample, values))
    {
        const auto [least, most] = std::minmax_element(values.begin(), values.end());
        isVarying = *least != *most;
        isZero = !isVarying && *least == 0;
    }
    std::vector<int32_t> values;
    double run;
    bool isVarying, isZero;
};

/// What the sort is decided by.
struct Keys {
    explicit Keys(const SegyHeaderSample& sample)
        : ffid(sample, 8), channel(sample, 12), point(sample, 16), cdp(sample, 20), offset(sample, 36),
          receiverX(sample, 80), receiverY(sample, 84), inLine(sample, 188), crossLine(sample, 192)
    {
        int64_t nSame = 0;
        for (size_t i = 1; i < sample.count(); ++i)
            nSame += sample.isNeighbour(i) && inLine.values[i] == inLine.values[i - 1] &&
                     crossLine.values[i] == crossLine.values[i - 1];
        isBinFilled = nSame * 4 > int64_t(sample.count());
    }
    Word ffid, channel, point, cdp, offset, receiverX, receiverY, inLine, crossLine;
    bool isBinFilled;  // several traces in a row in one bin of a 3D survey
};

constexpr double leastRun = 1.5;

SegySortGuess volumeSort(const Keys& keys)
{
    // A word that is 0 everywhere groups nothing.
    const bool isInline = keys.crossLine.isZero || (!keys.inLine.isZero && keys.inLine.run >= keys.crossLine.run);
    const bool isGather = keys.isBinFilled && keys.offset.isVarying;
    SegySortGuess guess;
    guess.code = isGather ? (isInline ? SortInline : SortCrossline) : (isInline ? SortInlineStack : SortCrosslineStack);
    guess.evidence =
        formatted("inline at byte 189 holds for %.3g traces on average, crossline at 193 for %.3g; %s", keys.inLine.run,
                  keys.crossLine.run, isGather ? "several offsets in one bin" : "one trace in a bin");
    return guess;
}

/// One trace a CMP and a shot point, all of one field record and without offset: a stacked line. The receiver
/// words then hold places along it.
bool isStackedLine(const Keys& keys, int reelSort)
{
    constexpr int reelStack = 4;
    const auto isCounting = [](const Word& word) { return word.isVarying && word.run < leastRun; };
    return reelSort == reelStack && !keys.ffid.isVarying && keys.offset.isZero && isCounting(keys.cdp) &&
           isCounting(keys.point);
}

}  // namespace

SegySortGuess guessSegySort(const SegyHeaderSample& sample, int reelSort)
{
    const Keys keys(sample);
    SegySortGuess guess;
    if (sample.count() < 2) {
        guess.evidence = "one trace: no order to be seen";
        return guess;
    }
    const bool isVolume =
        (keys.inLine.isVarying && !keys.crossLine.isZero) || (keys.crossLine.isVarying && !keys.inLine.isZero);
    const double lineRun = std::max(keys.inLine.run, keys.crossLine.run);
    const bool isShotWithin =
        keys.channel.isVarying || keys.offset.isVarying || keys.receiverX.isVarying || keys.receiverY.isVarying;
    if (isVolume && lineRun >= leastRun && (lineRun >= keys.ffid.run || !keys.ffid.isVarying)) return volumeSort(keys);
    if (isStackedLine(keys, reelSort)) {
        guess.code = SortStack;
        guess.evidence = "CMP at byte 21 and shot point at byte 17 change from trace to trace, the field record at "
                         "byte 9 doesn't, no offset is told, and the reel says stack";
    } else if (!keys.ffid.isZero && keys.ffid.run >= leastRun && isShotWithin &&
               (keys.ffid.run >= keys.cdp.run || keys.cdp.isZero)) {
        guess.code = SortFfid;
        guess.evidence =
            formatted("field record at byte 9 holds for %.3g traces on average; channel, offset or receiver "
                      "change within",
                      keys.ffid.run);
    } else if (!keys.cdp.isZero && keys.cdp.run >= leastRun && keys.offset.isVarying) {
        guess.code = SortCdp;
        guess.evidence = formatted("CMP number at byte 21 holds for %.3g traces on average; the offset changes within",
                                   keys.cdp.run);
    } else if (keys.cdp.isVarying && (keys.cdp.run < leastRun || !keys.offset.isVarying)) {
        guess.code = SortStack;
        guess.evidence = formatted("CMP number at byte 21 changes after %.3g traces on average, %s", keys.cdp.run,
                                   keys.offset.isVarying ? "one trace each" : "one offset only");
    } else if ((keys.inLine.isVarying && keys.inLine.run >= leastRun) ||
               (keys.crossLine.isVarying && keys.crossLine.run >= leastRun)) {
        return volumeSort(keys);
    } else {
        guess.evidence = "neither field record, CMP, inline nor crossline group the traces";
    }
    return guess;
}

SegyEnsembleGuess guessSegyEnsembles(const SegyHeaderSample& sample, int keyByte)
{
    const std::vector<int32_t> values = sample.values(keyByte, 4);
    SegyEnsembleGuess guess;
    std::map<int32_t, int64_t> totals, runs;
    int64_t run = 0;
    for (size_t i = 0; i < values.size(); ++i) {
        const bool isSame = sample.isNeighbour(i) && values[i] == values[i - 1];
        run = isSame ? run + 1 : 1;
        ++totals[values[i]];
        // What a gap in the sample parts is no second place.
        if (!isSame && (i == 0 || sample.isNeighbour(i))) ++runs[values[i]];
        guess.longest = std::max({guess.longest, run, sample.isWhole() ? totals[values[i]] : run});
    }
    int64_t nScattered = 0;
    for (const auto& [value, count] : runs) nScattered += count > 1;
    guess.isScattered = nScattered > 0;
    guess.evidence = formatted("most traces with one value at byte %d: %lld, %s %lld", keyByte + 1,
                               static_cast<long long>(guess.longest), sample.isWhole() ? "of all" : "in a sample of",
                               static_cast<long long>(sample.count()));
    if (guess.isScattered)
        guess.evidence += formatted("; %lld of %lld ensembles stand in several places",
                                    static_cast<long long>(nScattered), static_cast<long long>(totals.size()));
    return guess;
}
