#include "frame/menudefaults.h"

#include "tracedata/parmmenu.h"
#include "tracedata/picturedefaults.h"

void setDisplayDefaults(parmmenu* menu)
{
    setPictureDefaults(menu);
    menu->nens = 1;
    menu->ipkey = 2;
    menu->ipkeyreal = 2;
    menu->iskey = 1;
    menu->iskeyreal = 1;
    menu->ireset = 0;
    menu->idomain = 0;
    menu->_orvinruntime.samprat = 2.0f;
    menu->_orvinruntime.numsmp = 2000;
    menu->_orvinruntime.maxdtr = 1001;
    menu->_orvinruntime.nth = 60;
    menu->_orvinruntime.ipkey = 1;
    menu->_orvinruntime.iskey = 0;
}
