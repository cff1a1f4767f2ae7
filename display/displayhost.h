/// What a display asks of the window that holds it.
#ifndef DISPLAYHOST_H
#define DISPLAYHOST_H

class ColorBarFrame;
class HeaderWords;
class Report;

/// Called on the main thread only; lent to the display, which it outlives.
class DisplayHost
{
public:
    virtual ~DisplayHost() = default;
    /// A zoom is being spread to the sister displays: they must not answer with one of their own.
    virtual bool isZooming() const = 0;
    virtual void setZooming(bool on) = 0;
    /// The list that names the header words of the window's data; null where the host's own lists do. Asked for each
    /// ensemble, and used as long as that is shown.
    virtual const HeaderWords* headerWords() const = 0;
    /// A display's overlay came or went: its colour bar follows.
    virtual void setOverlayMode(bool on) = 0;
    /// The colour bar of the overlay; made when it is first asked for.
    virtual ColorBarFrame* overlayColorBarFrame() = 0;
    /// Takes the lines and boxes of the display.
    virtual Report& report() = 0;
};

#endif
