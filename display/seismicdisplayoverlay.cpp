/// The second data set of a display, shown translucent over the first.
#include "display/seismicdisplay.h"

#include "display/colorbarframe.h"
#include "display/displayhost.h"
#include "display/myqwtplotcanvas.h"
#include "display/seismicplot.h"
#include "host/report.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

void SeismicDisplay::setOverlayMode(bool on)
{
    if (_menu) _menu->ioverlay = on ? 1 : 0;
    if (!_overlayplot) return;
    if (_images.isShown())
        _images.setOverlayBehind(on);
    else
        _overlayplot->setVisible(on);
    _lastOverlay = false;
    if (_host) _host->setOverlayMode(on);
    rePlot();
}

void SeismicDisplay::makeOverlay()
{
    _overlayplot = new SeismicPlot(this, _overlaydata.get(), "overlayplot");
    _overlayplot->setZ(_seismicplot->z() + 1.0);
    _overlayplot->attach(this);
    _overlayplot->setColorBar(_host ? _host->overlayColorBarFrame() : _seismicplot->colorBar());
    measureOverlay();
    _overlayplot->setTrevia(_seismicplot->isTrevia());
    PlotParm parm = _overlayplot->parm();
    copyParms(plotParmFields(), InOverlay, _seismicplot->parm(), &parm);
    _overlayplot->changeParm(parm);
    _overlayplot->setTransparent(true);
    if (_host) _host->setOverlayMode(true);
}

/// Data that are never negative, as velocities are, become a map; all others colours like the main data.
void SeismicDisplay::measureOverlay()
{
    _overlaydata->computeRMS();
    if (_overlaydata->getMinimum() >= 0.0f) {
        _overlayplot->setDisplayType(Map);
        _overlayplot->setAutoGain(_seismicplot->isAutoGain());
        return;
    }
    _overlayplot->setDisplayType(ColorB);
    _overlayplot->setNormalization(_seismicplot->normalization());
    _overlayplot->setAutoGain(false);
    _overlayplot->setRange(-3.0f, 3.0f);
}

int SeismicDisplay::loadOverlayData(float** traces, int** heads, int n, bool replot)
{
    // The loader's buffers are gone by the time of the next repaint, so the overlay has a copy too.
    std::string error;
    if (!_overlayCopy.copy(traces, heads, n, _stime, _numsmp, _nth, &error)) {
        PrintReport().line(error + "\n");
        return 1;
    }
    if (!_overlaydata) {
        _overlaydata = std::make_unique<SeismicData>();
    }
    _overlaydata->clear();
    if (_host) _overlaydata->setHeaderWords(_host->headerWords());
    _overlaydata->setNumHeaderWords(_seismicdata->numHeaderWords());
    _overlaydata->setSampleRate(_seismicdata->sampleRate());
    _overlaydata->loadAllTraces(_overlayCopy.traces(), _overlayCopy.headers(), _numsmp, n);
    _overlaydata->setPriKey(_keys.pri.value);
    _overlaydata->setSecKey(_keys.sec.value);
    _overlaydata->setTreviaVersion(_isTrevia - 1);
    if (!_overlayplot) makeOverlay();
    _overlayplot->invalidateImage();
    _overlayplot->computeNormalizer();
    _overlayplot->setSeismicView(0, 0, n, _numsmp, _stime);
    _overlayplot->setDataLoaded(true);
    _overlayplot->setOutputBuffers(canvas()->contentsRect());
    _lastOverlay = true;
    if (replot) rePlot();
    return 0;
}
