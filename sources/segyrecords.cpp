#include "sources/segyrecords.h"

#include "host/signal/bytes.h"

static const SegySwapRange reelRanges[] = {{3200, 4, 3}, {3212, 2, 24}};

static const SegySwapRange traceRanges[] = {{0, 4, 7},  {28, 2, 4},  {36, 4, 8}, {68, 2, 2},
                                            {72, 4, 4}, {88, 2, 46}, {180, 4, 4}};

template <size_t N>
static void swapRanges(void* record, const SegySwapRange (&ranges)[N])
{
    for (const SegySwapRange& range : ranges)
        endianSwap(static_cast<char*>(record) + range.byte, range.elementBytes, range.count);
}

void swapReelFields(segyReel* reel)
{
    swapRanges(reel, reelRanges);
}

void swapTraceFields(void* header)
{
    swapRanges(header, traceRanges);
}
