/// Zooms with a rubber band; the axes keep the display's own steps.
#ifndef MYQWTPLOTZOOMER_H
#define MYQWTPLOTZOOMER_H

#include "display/zoom/axisstep.h"

#include <qwt_plot_picker.h>

#include <QRectF>
#include <QVector>

/// A stack of rectangles in scale units, the base at index 0. A zoom pushes one, undo and redo walk it.
///
/// The mouse patterns of the event filter drive it: MouseSelect1 selects, MouseSelect2 goes back to the base,
/// MouseSelect3 one step back, MouseSelect6 one step forward.
class MyQwtPlotZoomer : public QwtPlotPicker
{
    Q_OBJECT

public:
    /// @param doReplot  replots after each change of the axes
    MyQwtPlotZoomer(int xAxis, int yAxis, QWidget* canvas, bool doReplot = true);

    void setXIncrement(const AxisRule& rule) { _xIncrement = rule; }
    void setYIncrement(const AxisRule& rule) { _yIncrement = rule; }
    /// Traces and times of the data.
    void setRange(double xmin, double ymin, double xmax, double ymax);
    QRectF range() const { return _range; }

    bool isZoomed() const;
    /// The axes as they stand become the base.
    void setZoomBase(bool doReplot = true);
    /// This rectangle becomes the base. The axes stay: if they show another part, that one lies above
    /// the base on the stack, doesn't count as a zoom, and is what going back ends at. Where it is panned to counts.
    void setZoomBase(const QRectF& base);
    QRectF zoomBase() const { return _zoomStack.first(); }
    /// What is shown without a zoom: the base, or the part above it.
    QRectF restRect() const { return restIndex() > 0 && !isZoomed() ? axesRect() : _zoomStack[restIndex()]; }
    QRectF zoomRect() const { return _zoomStack[_zoomRectIndex]; }
    const QVector<QRectF>& zoomStack() const { return _zoomStack; }
    int zoomRectIndex() const { return _zoomRectIndex; }
    /// Most rectangles above the base; negative is no limit.
    void setMaxStackDepth(int depth);
    int maxStackDepth() const { return _maxStackDepth; }

    using QwtPlotPicker::move;
    /// Moves the rectangle shown, kept inside the base.
    void moveBy(double dx, double dy);
    virtual void move(double x, double y);

public slots:
    /// Shows a rectangle, cut to the base. One that is shown already does nothing.
    virtual void zoom(const QRectF& rect);
    /// Steps through the stack; 0 goes to what is shown without a zoom.
    virtual void zoom(int offset);

signals:
    void zoomed(const QRectF& rect);

protected:
    /// Sets the axes to the rectangle shown.
    virtual void rescale();
    virtual QSizeF minZoomSize() const;

    bool accept(QPolygon& polygon) const override;
    void begin() override;
    bool end(bool ok = true) override;
    void widgetMouseReleaseEvent(QMouseEvent* event) override;
    void widgetKeyPressEvent(QKeyEvent* event) override;

private:
    QRectF axesRect() const;
    int restIndex() const { return _hasSpareBase ? 1 : 0; }

    int _zoomRectIndex = 0;
    QVector<QRectF> _zoomStack;
    int _maxStackDepth = -1;
    bool _hasSpareBase = false;
    QRectF _range;
    AxisRule _xIncrement, _yIncrement;
    bool _doReplot;
};

/// True if each of the four values differs by no more than 1e-12 of the smaller absolute value.
bool sameRect(const QRectF& a, const QRectF& b);
/// True if each value differs by no more than single precision does, which spacings are counted in.
bool nearlySameRect(const QRectF& a, const QRectF& b);

#endif
