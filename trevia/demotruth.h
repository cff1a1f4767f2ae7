/// What the demo survey's data hold, as texts: one header line naming columns and units, then rows with
/// blanks between. Times are in ms, lengths in m.
#ifndef DEMOTRUTH_H
#define DEMOTRUTH_H

#include "trevia/demotrace.h"

#include <string>
#include <vector>

/// Times in seconds of the first break as the file holds it: a late record's are late, and where the
/// polarity is turned trough and peak change places, and so do the crossings behind them.
struct DemoFirstBreak {
    int branch;  ///< 1 direct, 2 and 3 refractions
    double onset, trough, minusPlus, peak, plusMinus;
};
DemoFirstBreak demoFirstBreak(const DemoTrace& trace);

/// ffid chan station offset branch onset trough minusplus peak plusminus; dead traces have no row.
std::string firstBreakText(const std::vector<DemoTrace>& traces);
/// cdp reflector t0 V vint, at each bin's centre, for the bins that the traces touch.
std::string reflectionText(const std::vector<DemoTrace>& traces);
/// kind point x z h w: R with the station, S with the shot point; w is the static.
std::string staticText(int nShots);
/// ffid chan station fault, a row for each fault.
std::string badTraceText(const std::vector<DemoTrace>& traces);
/// reflector t0 V eta vint etaint of the anisotropic gather.
std::string etaText();

#endif
