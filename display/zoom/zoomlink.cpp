#include "display/zoom/zoomlink.h"

#include "display/displayhost.h"
#include "display/displaylist.h"
#include "display/seismicdisplay.h"

#include <algorithm>

void ZoomLink::setLists(const DisplayList* displays, const DisplayList* others)
{
    _displaylist = displays;
    _otherlist = others;
}

bool ZoomLink::isSpreading() const
{
    return _host && _host->isZooming();
}

QList<SeismicDisplay*> ZoomLink::othersOf(SeismicDisplay* from) const
{
    QList<SeismicDisplay*> others;
    for (const DisplayList* list : {_displaylist, _otherlist})
        if (list) others += list->all();
    others.removeAll(from);
    return others;
}

void ZoomLink::spreadZoom(SeismicDisplay* from, const QRectF& rect, bool timeOnly, bool traceOnly) const
{
    if (!_host) return;
    _host->setZooming(true);
    for (SeismicDisplay* display : othersOf(from)) {
        const QRectF whole = display->restRect();
        display->setTimeZoom(timeOnly, traceOnly);
        display->setZoomRect(QRectF(whole.left(), rect.top(), whole.width(), rect.height()));
    }
    _host->setZooming(false);
}

void ZoomLink::spreadReset(SeismicDisplay* from, bool timeOnly, bool traceOnly) const
{
    if (!_host) return;
    _host->setZooming(true);
    for (SeismicDisplay* display : othersOf(from)) {
        display->resetZoom(0);
        display->setTimeZoom(timeOnly, traceOnly);
    }
    _host->setZooming(false);
}

void ZoomLink::spreadPan(SeismicDisplay* from, int dy) const
{
    for (SeismicDisplay* display : othersOf(from)) display->panVertically(dy);
}

void ZoomLink::alignBottoms() const
{
    if (!_displaylist) return;
    const bool isAny = std::any_of(_displaylist->begin(), _displaylist->end(), [](const SeismicDisplay* display) {
        return !display->isHidden() && display->hasHorizontalBar();
    });
    // A display without a vertical axis has no label that stands out below its canvas.
    int most = 0;
    for (SeismicDisplay* display : *_displaylist) {
        display->reserveHorizontalBar(isAny);
        if (display->isVisible()) most = std::max(most, display->roomBelowCanvas());
    }
    for (SeismicDisplay* display : *_displaylist)
        if (display->isVisible()) display->reserveBelow(most - display->roomBelowCanvas());
}

void ZoomLink::resetOthers(SeismicDisplay* from) const
{
    for (SeismicDisplay* display : othersOf(from)) display->resetZoom(0);
}
