/// The folder of the installation's own files, and the users' lines.
#ifndef HOME_H
#define HOME_H

#include <string>

/// $TREVIA_HOME, else the folder "trevia" in the user's data folder ($XDG_DATA_HOME, else
/// ~/.local/share). Without trailing slash; not made here.
const char* GetHome();

/// Makes GetHome() and its folders for colours, remap tables and settings where they are missing.
/// False when they can't be made.
bool makeHome();

/// Folder of a line, GetHome()/areas/AREA/LINE; without trailing slash, not made here. Valid until the next
/// call. Empty when a name is empty or would leave the folder.
const char* treviaLinePath(const char* area, const char* line);

#endif
