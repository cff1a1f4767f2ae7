#include "tracedata/picturedefaults.h"

#include "tracedata/parmmenu.h"

void setPictureDefaults(parmmenu* menu)
{
    menu->idisplay = 0;
    menu->iscreens = 1;
    menu->dostore = 0;
    menu->docollect = 0;
    menu->icollect = 10;
    menu->tpi = 0.0f;
    menu->ips = 0.0f;
    menu->bias = 0.0f;
    menu->clip = 2.0f;
    menu->minrange = -3.0f;
    menu->maxrange = 3.0f;
    menu->iskeymod = 2;
    menu->iskeyinc = 25;
    menu->igain = 0;
    menu->irange = 1;
    menu->stime = 0;
    menu->etime = 0;
    menu->idirection = 0;
    menu->iplotheader = -1;
    menu->idifference = 0;
    menu->iscale = 1;
    menu->moveup = 1;
}
