/// The sorts of SEG-Y data: which words are the primary and the secondary key.
#ifndef SEGYSORTKEYS_H
#define SEGYSORTKEYS_H

#include <QStringList>

/// What a sort code means. Key numbers count the 32-bit words of the trace header from 1.
struct SegySortKeys {
    int code = 0;    ///< the sort code afterwards
    int mysort = 0;  ///< internal number; 4, 10 and 11 are stacks
    int ipsort = 0;  ///< sort domain of the host's run-time record
    int ipkey = -1;
    int iskey = -1;
    const char* priWord = "";  ///< header words of the keys
    const char* secWord = "";
};

/// The eleven names, of the codes 1 to 11.
const QStringList& segySortNames();
/// Keys of a code 1 to 11, or with code 0 those of the reel's sort word; all keys -1 for any other code.
SegySortKeys segySortKeys(int code, int reelSort);
/// Key number whose range a sort code spans; 0 for a code that has none.
int segySortRangeKey(int code);

#endif
