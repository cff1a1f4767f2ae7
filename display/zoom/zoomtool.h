/// The base tool of a display's canvas: zooming, panning and the wheel.
#ifndef ZOOMTOOL_H
#define ZOOMTOOL_H

#include "display/tools/canvastool.h"
#include "display/zoom/axisstep.h"

#include <QObject>
#include <QRectF>
#include <QSizeF>

class MyQwtPlotMagnifier;
class MyQwtPlotPanner;
class MyQwtPlotZoomer;
class QwtPlot;

/// Two zoomers, one on the top and left axes and one that follows on the others, a panner and a magnifier. They hear of
/// the canvas only from here: first the magnifier, then the panner, then the zoomers.
class ZoomTool : public QObject, public CanvasTool
{
    Q_OBJECT

public:
    /// @param plot  the plot, whose canvas is the parent of the parts
    explicit ZoomTool(QwtPlot* plot);

    bool canvasEvent(QWidget* canvas, QEvent* event) override;
    bool takesPlainButtons() const override { return false; }

    /// The plain buttons zoom and pan, and the wheel zooms; or, with false, the buttons do so with Ctrl.
    void setPlain(bool on);
    bool isPlain() const { return _isPlain; }
    void setXIncrement(const AxisRule& rule);
    void setYIncrement(const AxisRule& rule);
    /// Traces and ms of the data.
    void setRange(double nTraces, double ms);

    /// Zooms to a rectangle in scale units: traces and ms.
    void zoomTo(const QRectF& rect);
    /// Back to what is shown without a zoom.
    void zoomBack();
    /// The data are the base; what the axes show is where going back ends.
    void setBase(const QRectF& shown, const QRectF& data);
    QRectF base() const;
    /// What is shown without a zoom: the base, or the part of it that a fixed spacing shows.
    QRectF restRect() const;
    bool isZoomed() const;
    bool isPanned() const;
    /// Moves the picture down by pixels.
    void panVertically(int dy);
    /// Panning reaches over so many traces and ms, from `shift` ms on.
    void limitPan(const QSizeF& extent, double shift, int timeDirection);

    /// A zoom along one axis: a following ensemble keeps it there.
    void setOnly(bool time, bool trace);
    bool isTimeOnly() const { return _isTimeOnly; }
    bool isTraceOnly() const { return _isTraceOnly; }
    /// Ends that where a rectangle shows all again.
    void dropOnlyAtWhole(const QSizeF& shown, const QSizeF& whole);

signals:
    /// The axes show another part, chosen with the mouse or by zoomTo and zoomBack.
    void zoomed(const QRectF& rect);
    /// The picture was moved with the mouse, in pixels.
    void panned(int dx, int dy);

private:
    MyQwtPlotZoomer* _zoomer[2];  // top and left axes, bottom and right axes
    MyQwtPlotPanner* _panner;
    MyQwtPlotMagnifier* _magnifier;
    bool _isPlain = true;
    bool _isTimeOnly = false, _isTraceOnly = false;
};

#endif
