#include "frame/menudefaults.h"

#include "tracedata/parmmenu.h"

void setDisplayDefaults(parmmenu* menu)
{
    menu->idisplay = 0;
    menu->nens = 1;
    menu->iscreens = 1;
    menu->dostore = 0;
    menu->docollect = 0;
    menu->icollect = 10;
    menu->tpi = 0.0f;
    menu->ips = 0.0f;
    menu->bias = 0.0f;
    menu->clip = 2.0f;
    menu->ipkey = 2;
    menu->ipkeyreal = 2;
    menu->iskey = 1;
    menu->iskeyreal = 1;
    menu->iskeymod = 2;
    menu->iskeyinc = 25;
    menu->igain = 0;
    menu->irange = 1;
    menu->minrange = -3.0f;
    menu->maxrange = 3.0f;
    menu->stime = 0;
    menu->etime = 0;
    menu->idirection = 0;
    menu->iplotheader = -1;
    menu->idifference = 0;
    menu->ireset = 0;
    menu->idomain = 0;
    menu->iscale = 1;
    menu->moveup = 1;
    menu->_orvinruntime.samprat = 2.0f;
    menu->_orvinruntime.numsmp = 2000;
    menu->_orvinruntime.maxdtr = 1001;
    menu->_orvinruntime.nth = 60;
    menu->_orvinruntime.ipkey = 1;
    menu->_orvinruntime.iskey = 0;
}
