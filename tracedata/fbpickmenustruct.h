/// The parameter record of first-break picking.
#ifndef FBPICKMENUSTRUCT_H
#define FBPICKMENUSTRUCT_H

/// Offsets in the survey's lengths, windows in ms, frequency in Hz.
struct fbPickMenuStruct {
    float fbminoff, fbmaxoff;
    int fbadjust, fbadjdir, fbmethod, fbenvtotwin, fbenvwin;
    float fbenvstab;
    int fbstdtotwin, fbstduwin, fbstdlwin, fbartotwin, fbartrwin, fbararwin;
    float fbarthres;
    int fbsptotwin, fbsptrwin;
    float fbspfreq, fbspthres;
    int fbguide;
    float fbstddev;
    int fbrecline, fbvellayer, fboffvelnum, fbvelbulk, fbveldelay, fbvelauto, fbvelupdate, fbvelvalid;
    float fbvellimit;
    float fboffvel[1000];  ///< pairs of offset and velocity, fboffvelnum floats
};

/// The values that first-break picking starts with when no menu has given others.
void setDefaults(fbPickMenuStruct* parm);

#endif
