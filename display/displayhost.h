/// What a display asks of the window that holds it.
#ifndef DISPLAYHOST_H
#define DISPLAYHOST_H

class ColorBarFrame;
struct HeaderTable;

/// Called on the main thread only; lent to the display, which it outlives.
class DisplayHost
{
public:
    virtual ~DisplayHost() = default;
    /// A zoom is being spread to the sister displays: they must not answer with one of their own.
    virtual bool isZooming() const = 0;
    virtual void setZooming(bool on) = 0;
    /// The window's header table, null if it has none.
    virtual const HeaderTable* headerTable() const = 0;
    /// A display's overlay came or went: its colour bar follows.
    virtual void setOverlayMode(bool on) = 0;
    /// The colour bar of the overlay; made when it is first asked for.
    virtual ColorBarFrame* overlayColorBarFrame() = 0;
    /// A display was rebuilt: a first-break picker that is on picks again.
    virtual void doFBPicking(bool on) = 0;
    /// The conditioned samples of a trace while it is rendered; see SeismicDisplay::sendPickTraceChange.
    virtual void pickTraceChange(const float* trace, int start, int n, int iTrace) = 0;
};

#endif
