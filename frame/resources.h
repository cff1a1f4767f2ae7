/// The pictures, colour files and help pages that are compiled in.
#ifndef FRAMERESOURCES_H
#define FRAMERESOURCES_H

#include <QtGlobal>

/// Resources of a static library are only linked in when they are asked for by name.
inline void initResources()
{
    Q_INIT_RESOURCE(meridune);
}

#endif
