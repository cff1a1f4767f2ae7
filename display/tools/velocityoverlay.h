/// What a display needs of the velocity marks that are picked on it.
#ifndef VELOCITYOVERLAY_H
#define VELOCITYOVERLAY_H

#include <QPointF>

/// A click with velocity picking on: the trace under it, and its words.
struct VelocityClick {
    QPointF at;        ///< position on the axes, traces and ms
    int trace = 0;     ///< from 0, in the order of the data
    int sample = 0;    ///< from 0, into the kept window
    float cdp = 0.0f;  ///< words "CDP", "CDP_X" and "CDP_Y" of the trace; 0 without one
    float x = 0.0f;
    float y = 0.0f;
    float velocity = 0.0f;  ///< of the constant-velocity panel
};

/// Velocities at a position of the canvas; 0 where there is none.
struct VelocityReadout {
    float closest = 0.0f;       ///< of the nearest mark
    float computed = 0.0f;      ///< of the field
    float interpolated = 0.0f;  ///< of the marks, between them
};

/// Called on the main thread; lent to the display until it is taken back with null.
class VelocityOverlay
{
public:
    virtual ~VelocityOverlay() = default;
    /// Whether velocities may be picked: panels are loaded.
    virtual bool isFileLoaded() const = 0;
    virtual VelocityReadout readout(const QPointF& at, int trace, int sample) const = 0;
    virtual void addPlot(const VelocityClick& click) = 0;
    /// Takes the mark away, or edits the one, nearest to a position.
    virtual void removePlot(const QPointF& at) = 0;
    virtual void editPlot(const QPointF& at) = 0;
    /// The display shows a stored picture, counted from 0: one that is tied to it follows.
    virtual void performTie(int image) = 0;
};

#endif
