#include "sources/segysortkeys.h"

#include <iterator>

/// Entry i is sort code i + 1. NONE is no word, so that its index is that of an unknown one.
static const struct {
    const char* title;
    KeyNumber rangeKey;
    SegySortKeys keys;
} sorts[] = {
    {"FFID", KeyNumber(3), {SortCode(1), 12, 2, KeyNumber(3), KeyNumber(4), "FFID    ", "CHAN    "}},
    {"Source", KeyNumber(5), {SortCode(2), 1, 2, KeyNumber(5), KeyNumber(4), "SOU_SLOC", "CHAN    "}},
    {"Receiver", KeyNumber(11), {SortCode(3), 5, 3, KeyNumber(11), KeyNumber(4), "SRF_SLOC", "OFFSET  "}},
    {"CDP Gather", KeyNumber(6), {SortCode(4), 2, 1, KeyNumber(6), KeyNumber(7), "CDP     ", "OFFSET  "}},
    {"Stack", KeyNumber(), {SortCode(5), 4, 1, KeyNumber(48), KeyNumber(6), "LINE_NO ", "CDP     "}},
    {"Offset", KeyNumber(10), {SortCode(6), 7, 4, KeyNumber(12), KeyNumber(2), "OFFSET  ", "CHAN    "}},
    {"In-Line CDP Gather", KeyNumber(48), {SortCode(7), 8, 7, KeyNumber(48), KeyNumber(49), "ILINE_NO", "XLINE_NO"}},
    {"X-Line CDP Gather", KeyNumber(49), {SortCode(8), 9, 8, KeyNumber(49), KeyNumber(48), "XLINE_NO", "ILINE_NO"}},
    {"In-Line Stack", KeyNumber(48), {SortCode(9), 10, 7, KeyNumber(48), KeyNumber(49), "ILINE_NO", "XLINE_NO"}},
    {"X-Line Stack", KeyNumber(49), {SortCode(10), 11, 8, KeyNumber(49), KeyNumber(48), "XLINE_NO", "ILINE_NO"}},
    {"Trace Number", KeyNumber(1), {SortCode(11), 13, 5, KeyNumber(1), KeyNumber(4), "NONE    ", "TRACENO "}},
};

constexpr int nSorts = int(std::size(sorts));

/// Sorts that only a reel's sort word gives; they have no code of their own.
static const SegySortKeys reelSort3 = {SortCode(), 3, 1, KeyNumber(48), KeyNumber(6), "LINE_NO ", "CHAN    "};
static const SegySortKeys reelSort6 = {SortCode(), 6, 5, KeyNumber(6), KeyNumber(2), "CDP     ", "OFFSET  "};

const QStringList& segySortNames()
{
    static const QStringList names = [] {
        QStringList list;
        for (const auto& sort : sorts) list += sort.title;
        return list;
    }();
    return names;
}

static bool isNamed(SortCode code)
{
    return code.value >= 1 && code.value <= nSorts;
}

SegySortKeys segySortKeys(SortCode code, int reelSort)
{
    if (code == SortCode()) {
        switch (reelSort) {
        case 2: code = SortCode(4); break;
        case 3: return reelSort3;
        case 4: code = SortCode(5); break;
        case 5: code = SortCode(3); break;
        case 6: return reelSort6;
        case 7: code = SortCode(6); break;
        default: code = SortCode(1); break;
        }
    }
    if (!isNamed(code)) {
        SegySortKeys none;
        none.code = code;
        return none;
    }
    return sorts[code.value - 1].keys;
}

QString segySortName(SortCode code)
{
    return isNamed(code) ? segySortNames()[code.value - 1] : QString();
}

KeyNumber segySortRangeKey(SortCode code)
{
    return isNamed(code) ? sorts[code.value - 1].rangeKey : KeyNumber();
}
