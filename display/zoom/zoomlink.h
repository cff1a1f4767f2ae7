/// Carries time zooms and vertical pans from one display over to its sisters.
#ifndef ZOOMLINK_H
#define ZOOMLINK_H

#include <QList>
#include <QRectF>

class DisplayHost;
class DisplayList;
class SeismicDisplay;

/// Knows the lists of sister displays; both are lent and may be null.
class ZoomLink
{
public:
    /// @param host  guards against the echo of zooms; lent, may be null: then zooms aren't spread, pans are
    explicit ZoomLink(DisplayHost* host) : _host(host) {}
    void setLists(const DisplayList* displays, const DisplayList* others);

    /// True while some display spreads its zoom.
    bool isSpreading() const;
    /// Every other display takes the times of rect and keeps all of its own traces.
    void spreadZoom(SeismicDisplay* from, const QRectF& rect, bool timeOnly, bool traceOnly) const;
    /// Every other display goes back to what it shows without a zoom.
    void spreadReset(SeismicDisplay* from, bool timeOnly, bool traceOnly) const;
    /// Every other display is moved down by dy pixels.
    void spreadPan(SeismicDisplay* from, int dy) const;
    /// All main displays leave room below for the bar that one of them has.
    void alignBottoms() const;
    /// Every other display goes back to its base.
    void resetOthers(SeismicDisplay* from) const;

private:
    QList<SeismicDisplay*> othersOf(SeismicDisplay* from) const;

    DisplayHost* _host;
    const DisplayList* _displaylist = nullptr;
    const DisplayList* _otherlist = nullptr;
};

#endif
