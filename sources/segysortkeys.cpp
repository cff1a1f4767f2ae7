#include "sources/segysortkeys.h"

#include <iterator>

/// Entry i is sort code i + 1. NONE is no word, so that its index is that of an unknown one.
static const struct {
    const char* title;
    int rangeKey;
    SegySortKeys keys;
} sorts[] = {
    {"FFID", 3, {1, 12, 2, 3, 4, "FFID    ", "CHAN    "}},
    {"Source", 5, {2, 1, 2, 5, 4, "SOU_SLOC", "CHAN    "}},
    {"Receiver", 11, {3, 5, 3, 11, 4, "SRF_SLOC", "OFFSET  "}},
    {"CDP Gather", 6, {4, 2, 1, 6, 7, "CDP     ", "OFFSET  "}},
    {"Stack", 0, {5, 4, 1, 48, 6, "LINE_NO ", "CDP     "}},
    {"Offset", 10, {6, 7, 4, 12, 2, "OFFSET  ", "CHAN    "}},
    {"In-Line CDP Gather", 48, {7, 8, 7, 48, 49, "ILINE_NO", "XLINE_NO"}},
    {"X-Line CDP Gather", 49, {8, 9, 8, 49, 48, "XLINE_NO", "ILINE_NO"}},
    {"In-Line Stack", 48, {9, 10, 7, 48, 49, "ILINE_NO", "XLINE_NO"}},
    {"X-Line Stack", 49, {10, 11, 8, 49, 48, "XLINE_NO", "ILINE_NO"}},
    {"Trace Number", 1, {11, 13, 5, 1, 4, "NONE    ", "TRACENO "}},
};

constexpr int nSorts = int(std::size(sorts));

/// Sorts that only a reel's sort word gives; they have no code of their own.
static const SegySortKeys reelSort3 = {0, 3, 1, 48, 6, "LINE_NO ", "CHAN    "};
static const SegySortKeys reelSort6 = {0, 6, 5, 6, 2, "CDP     ", "OFFSET  "};

const QStringList& segySortNames()
{
    static const QStringList names = [] {
        QStringList list;
        for (const auto& sort : sorts) list += sort.title;
        return list;
    }();
    return names;
}

SegySortKeys segySortKeys(int code, int reelSort)
{
    if (code == 0) {
        switch (reelSort) {
        case 2: code = 4; break;
        case 3: return reelSort3;
        case 4: code = 5; break;
        case 5: code = 3; break;
        case 6: return reelSort6;
        case 7: code = 6; break;
        default: code = 1; break;
        }
    }
    if (code < 1 || code > nSorts) {
        SegySortKeys none;
        none.code = code;
        return none;
    }
    return sorts[code - 1].keys;
}

int segySortRangeKey(int code)
{
    return code >= 1 && code <= nSorts ? sorts[code - 1].rangeKey : 0;
}
