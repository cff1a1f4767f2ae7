/// Which SEG-Y files to open, and how to read them.
#ifndef SEGYLOADPARM_H
#define SEGYLOADPARM_H

#include "sources/segyreadlayout.h"
#include "sources/segyremaptable.h"

#include <QString>

/// What the load menu's fields say, with all else that an opening needs; zeros are "from the data".
struct SegyLoadParm {
    QString files;               ///< one name, or several joined with commas
    int isort = 0;               ///< sort code 1 to 11
    int itype = 0;               ///< 0 standard, 1 MSDOS
    int iformat = 0;             ///< sample format choice 1 to 6
    int ivariable = 0;           ///< traces have lengths of their own
    int icscale = 0;             ///< apply the coordinate scalar
    int iescale = 0;             ///< apply the depth and elevation scalar
    int nsamp = 0;               ///< samples per trace
    int maxtr = 0;               ///< traces per ensemble
    float srate = 0.0f;          ///< ms
    int iremap = 0;              ///< apply the remap table
    int indexbuilt = 0;          ///< build the index map when the file opens
    SegyReadLayout layout = {};  ///< where the parts of the file stand; what can't be is bounded to what can
    SegyRemapTable remapTable = {};
    bool isStandAlone = true;  ///< header words are the standard ones; else those of the flow
};

#endif
