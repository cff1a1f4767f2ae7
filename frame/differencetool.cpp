#include "frame/differencetool.h"

#include "display/seismicdisplay.h"
#include "frame/screenrow.h"
#include "frame/tracedifference.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

void DifferenceTool::show(bool on)
{
    if (_menu->iscreens <= 1) return;
    _menu->idifference = on;
    _screens->showDifference(on);
    load();
    emit shownChanged();
}

/// Subtracts anew, where the difference is shown; it is empty where a screen is.
void DifferenceTool::load()
{
    if (!_screens->isDifferenceShown() || _menu->iscreens < 2) return;
    SeismicDisplay* shown = _screens->difference();
    const SeismicDisplay* a = (*_screens->displays())[_screens->displays()->size() - 3];
    const SeismicDisplay* b = _screens->lastScreen();
    if (a->traceCount() == 0 || b->traceCount() == 0) return shown->clearData();
    // The display takes its own time window out of whole traces, so these are as long as those were.
    TraceDifference difference =
        traceDifference(*a->seismicData(), *b->seismicData(), b->firstSample(), _menu->_orvinruntime.numsmp);
    shown->loadSeismicData(difference.traces.data(), b->seismicData()->getTraceHeaders(), int(difference.traces.size()),
                           true);
}

void DifferenceTool::afterRecord(int screen)
{
    if (screen == _menu->iscreens - 1) load();
}
