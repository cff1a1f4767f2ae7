#include "host/globals.h"

GlobalRuntime globalRuntime = {};
StdHdr stdHdr = {};
