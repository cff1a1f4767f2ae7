/// The demo survey's geometry as SPS point and relation records.
#ifndef DEMOSPS_H
#define DEMOSPS_H

#include <string>

/// Source records, one a shot.
std::string spsSources(int nShots);
/// Receiver records, one a station.
std::string spsReceivers();
/// Relation records: even shot points have two, channels 1-60 and 61-120, the others one.
std::string spsRelations(int nShots);

#endif
