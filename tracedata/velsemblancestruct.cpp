#include "tracedata/velsemblancestruct.h"

void setDefaults(velSemblanceStruct* parm)
{
    *parm = {};
    parm->sembVelStart = 1500.0f;
    parm->sembVelEnd = 5000.0f;
    parm->sembVelIncr = 25.0f;
    parm->sembStretch = 50.0f;
    parm->sembWinLength = 40;
    parm->sembWinIncr = 8;
    parm->pickTolerance = 60;
    parm->maxIntVel = 4500.0f;
    parm->showGuide = 1;
    parm->ilineSuper = 1;
    parm->xlineSuper = 1;
    parm->nmoStretch = 30.0f;
    parm->applyStretch = 1;
    parm->applyNMO = 1;
    parm->numTraceStack = 21;
    parm->numAnimStack = 11;
    parm->ilineStack = 1;
    parm->rootPower = 1.0f;  // 0 would divide
    parm->etaStart = -10.0f;
    parm->etaEnd = 30.0f;
    parm->etaIncr = 1.0f;
}
