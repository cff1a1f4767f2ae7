/// What a display asks of the window that holds it.
#ifndef DISPLAYHOST_H
#define DISPLAYHOST_H

class ColorBarFrame;
class Report;
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
    /// Takes the lines and boxes of the display.
    virtual Report& report() = 0;
};

#endif
