/// What the SEG-Y menu asks of the window that shows the data.
#ifndef SEGYMENUHOST_H
#define SEGYMENUHOST_H

#include "sources/segyloadparm.h"

class SegyLoader;

/// Called on the main thread only.
class SegyMenuHost
{
public:
    virtual ~SegyMenuHost() = default;
    /// Opens what the menu's fields say. Returns 1; 0 when that failed and the user knows it.
    virtual int segyLoadFromMenu() = 0;
    /// The loader of the file on screen; null before the first one.
    virtual SegyLoader* segyLoader() const = 0;
    /// The file on screen and how it was read; before the first one what the menu starts with.
    virtual SegyLoadParm segyLoadParm() const = 0;
};

#endif
