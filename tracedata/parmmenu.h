/// The parameter record of the display, and the copy of the host's run-time record inside it.
#ifndef PARMMENU_H
#define PARMMENU_H

#include "host/globals.h"

/// Copy of the host's run-time record.
using orvinRuntimeStruct = GlobalRuntime;

/// Every parameter of the display. One record, made at the start of the process, lent by pointer to
/// every window and never copied but for a new display. Starts all zero.
struct parmmenu {
    int idisplay;   ///< a DisplayType
    int iscreens;   ///< displays side by side, one ensemble each
    int dotrevia;   ///< 0 SEG-Y file, 1 flow tool, 2 dataset
    int dostore;    ///< images are stored
    int docollect;  ///< a collection of images is running
    int icollect;   ///< number of images to collect
    float tpi;      ///< traces per inch; 0 is automatic
    float ips;      ///< inches per second; 0 is automatic
    float clip;     ///< excursion limit in trace widths
    float bias;     ///< of the wiggle zero line
    int ipkey;      ///< header word of the primary annotation key, counted from 1
    int ipkeyreal;  ///< primary key of the data, counted from 1
    int iskey;      ///< header word of the secondary annotation key, counted from 1
    int iskeyreal;  ///< secondary key of the data, counted from 1
    int iskeymod;   ///< annotation modulus of the secondary key labels
    int iskeyinc;   ///< annotation increment of the secondary key labels
    int igain;      ///< gain in dB
    int irange;     ///< 0: minrange and maxrange are used
    float minrange;
    float maxrange;
    int nens;           ///< ensembles gathered per hand-over to the display
    int stime;          ///< start of the display in ms
    int etime;          ///< end of the display in ms; 0 is the whole trace
    int idirection;     ///< a PlotDirection
    int iplotheader;    ///< header word to plot, -1 for none
    int idifference;    ///< a difference display is wanted
    int iscale;         ///< 1 trace, 2 dataset, else no scaling
    int ireset;         ///< reset the display for each new ensemble
    int idomain;        ///< data domain of the host's run-time record
    int ifbpick;        ///< header word FB_PICK
    int iresetfile;     ///< rebuild the key index of the dataset
    int isortopt;       ///< sort option of the dataset
    int ioverlay;       ///< an overlay is wanted
    int iagc;           ///< apply AGC
    int agcwinlen;      ///< AGC window in ms
    int ipkeysort;      ///< primary sort key
    int iskeysort;      ///< secondary sort key
    int moveup;         ///< ensembles by which "next" moves
    int inputtool;      ///< the process is an input tool of the flow
    int issegy;         ///< the data are SEG-Y
    int segysort;       ///< sort code, 0 from the data
    int segytype;       ///< 0 standard, 1 MSDOS
    int segymaxtr;      ///< maximum traces per ensemble, 0 from the data
    int segyformat;     ///< sample format choice, 0 from the data
    int segysample;     ///< samples per trace, 0 from the data
    float segysamprat;  ///< sample interval in ms, 0 from the data
    int segylength;     ///< variable trace length
    int segycscalar;    ///< apply the coordinate scalar
    int segydscalar;    ///< apply the depth scalar
    orvinRuntimeStruct _orvinruntime;
    char cfile[10000];  ///< file or dataset; for SEG-Y a comma-terminated list
    char cpkeysort[25];
    char cskeysort[25];
    char cplotheader[9];
};
using pmenu = parmmenu;

#endif
