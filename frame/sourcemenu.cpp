#include "frame/sourcemenu.h"

#include "sources/ensemblesource.h"
#include "tracedata/menukeys.h"
#include "tracedata/parmmenu.h"
#include "tracedata/picturedefaults.h"

void setSourceDefaults(parmmenu* menu, const EnsembleSource& source)
{
    setPictureDefaults(menu);
    menu->nens = source.runTime().maxdtr;
    setMenuKeys(menu, source.priEKey(), source.secEKey());
    menu->ireset = 1;
}

void copySort(parmmenu* menu, const EnsembleSource& source)
{
    const GlobalRuntime told = source.runTime();
    orvinRuntimeStruct& runtime = menu->_orvinruntime;
    setMenuKeys(menu, source.priEKey(), source.secEKey());
    runtime.ipkey = told.ipkey;
    runtime.iskey = told.iskey;
    runtime.ipsort = told.ipsort;
    runtime.idtyp = told.idtyp;
}

void copySource(parmmenu* menu, const EnsembleSource& source)
{
    const GlobalRuntime told = source.runTime();
    orvinRuntimeStruct& runtime = menu->_orvinruntime;
    copySort(menu, source);
    runtime.samprat = told.samprat;
    runtime.numsmp = told.numsmp;
    runtime.maxdtr = told.maxdtr;
    runtime.nth = told.nth;
    menu->idomain = source.domain().value_or(menu->idomain);
    runtime.idomain = menu->idomain;  // last: the record follows the menu
}
