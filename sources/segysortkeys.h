/// The sorts of SEG-Y data: which words are the primary and the secondary key.
#ifndef SEGYSORTKEYS_H
#define SEGYSORTKEYS_H

#include "tracedata/wordnumber.h"

#include <QStringList>

/// What a sort code means.
struct SegySortKeys {
    SortCode code;   ///< the sort code afterwards
    int mysort = 0;  ///< internal number
    int ipsort = 0;  ///< sort domain of the host's run-time record
    KeyNumber ipkey;
    KeyNumber iskey;
    const char* priWord = "";  ///< header words of the keys
    const char* secWord = "";

    bool isStack() const { return mysort == 4 || mysort == 10 || mysort == 11; }
};

/// The eleven names, of the codes 1 to 11.
const QStringList& segySortNames();
/// Keys of a code 1 to 11, or with code 0 those of the reel's sort word; no keys for any other code.
SegySortKeys segySortKeys(SortCode code, int reelSort);
/// Name of a code 1 to 11; empty for any other one.
QString segySortName(SortCode code);
/// The key whose range a sort code spans; none for a code that has none.
KeyNumber segySortRangeKey(SortCode code);

#endif
