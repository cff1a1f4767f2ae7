#include "tracedata/fbpickmenustruct.h"

void setDefaults(fbPickMenuStruct* parm)
{
    *parm = {};
    parm->fbadjust = 5;  // None
    parm->fbadjdir = 2;  // Either
    parm->fbmethod = 2;  // Standard Dev
    parm->fbenvwin = 30;
    parm->fbenvstab = 0.01f;
    parm->fbstduwin = 60;
    parm->fbstdlwin = 30;
    parm->fbartrwin = 60;
    parm->fbararwin = 20;
    parm->fbarthres = 3.0f;
    parm->fbsptrwin = 60;
    parm->fbspfreq = 35.0f;
    parm->fbspthres = 4.0f;
    parm->fbguide = 3;  // None
    parm->fbstddev = 2.5f;
    parm->fbvellayer = 1;
    parm->fboffvelnum = 2;
    parm->fboffvel[0] = 0.0f;
    parm->fboffvel[1] = 6000.0f;
    parm->fbvellimit = 500.0f;
}
