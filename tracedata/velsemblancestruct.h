/// The parameter record of velocity analysis.
#ifndef VELSEMBLANCESTRUCT_H
#define VELSEMBLANCESTRUCT_H

/// Velocities in the unit of the survey's lengths a second, times and windows in ms, stretch in percent.
struct velSemblanceStruct {
    float sembVelStart, sembVelEnd, sembVelIncr, sembStretch;
    int isConverted, sembWinLength, sembWinIncr;
    float sembMinOffset, sembMaxOffset;
    int pickTolerance;
    float maxIntVel;
    int showGuide, ilineSuper, xlineSuper;
    float nmoStretch;
    int applyStretch, applyNMO, applyNMOStat;
    float cdpMinOffset, cdpMaxOffset, cdpIncrOffset;
    int numTraceStack, numAnimStack, treviaMute, ilineStack;
    float rootPower;
    int performEta;
    float etaStart, etaEnd, etaIncr;
};

/// The values that a velocity analysis starts with when no menu has given others: metres.
void setDefaults(velSemblanceStruct* parm);

#endif
