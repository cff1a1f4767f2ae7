#include "tracedata/menudefaults.h"

#include "tracedata/menukeys.h"
#include "tracedata/parmmenu.h"
#include "tracedata/picturedefaults.h"

void setDisplayDefaults(parmmenu* menu)
{
    setPictureDefaults(menu);
    menu->nens = 1;
    setMenuKeys(menu, WordFrom1(2), WordFrom1(1));
    menu->ireset = 0;
    menu->idomain = 0;
    menu->_orvinruntime.samprat = 2.0f;
    menu->_orvinruntime.numsmp = 2000;
    menu->_orvinruntime.maxdtr = 1001;
    menu->_orvinruntime.nth = 60;
    menu->_orvinruntime.ipkey = 1;
    menu->_orvinruntime.iskey = 0;
}
