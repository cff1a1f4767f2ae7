/// Changes the scales about their middle by wheel, mouse or keys; the axes keep their steps.
#ifndef MYQWTPLOTMAGNIFIER_H
#define MYQWTPLOTMAGNIFIER_H

#include "display/zoom/axisstep.h"

#include <QObject>
#include <QPoint>
#include <qwt_plot.h>

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

class MyQwtPlotMagnifier : public QObject
{
    Q_OBJECT

public:
    explicit MyQwtPlotMagnifier(QWidget* canvas);

    void setEnabled(bool on);
    bool isEnabled() const { return _isEnabled; }
    void setWheelFactor(double factor) { _wheelFactor = factor; }
    void setMouseFactor(double factor) { _mouseFactor = factor; }
    void setKeyFactor(double factor) { _keyFactor = factor; }
    void setMouseButton(Qt::MouseButton button, Qt::KeyboardModifiers state = Qt::NoModifier);
    void setZoomInKey(int key, Qt::KeyboardModifiers state = Qt::NoModifier);
    void setZoomOutKey(int key, Qt::KeyboardModifiers state = Qt::NoModifier);
    void setAxisEnabled(int axis, bool on);
    void setXIncrement(const AxisRule& rule) { _xIncrement = rule; }
    void setYIncrement(const AxisRule& rule) { _yIncrement = rule; }

    /// New range = middle plus and minus factor times the half span, on each enabled axis, then one
    /// replot. 0 and 1 do nothing.
    virtual void rescale(double factor);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    virtual void widgetMousePressEvent(QMouseEvent* event);
    virtual void widgetMouseReleaseEvent(QMouseEvent* event);
    virtual void widgetMouseMoveEvent(QMouseEvent* event);
    virtual void widgetWheelEvent(QWheelEvent* event);
    /// Accepts the keys that it acts on.
    virtual void widgetKeyPressEvent(QKeyEvent* event);

private:
    QWidget* canvas() const;
    QwtPlot* plot() const;
    void stopTracking();

    bool _isEnabled = false;
    double _wheelFactor = 0.9;
    Qt::KeyboardModifiers _wheelButtonState = Qt::NoModifier;
    double _mouseFactor = 0.95;
    Qt::MouseButton _mouseButton = Qt::RightButton;
    Qt::KeyboardModifiers _mouseButtonState = Qt::NoModifier;
    double _keyFactor = 0.9;
    int _zoomInKey = Qt::Key_Plus;
    Qt::KeyboardModifiers _zoomInState = Qt::NoModifier;
    int _zoomOutKey = Qt::Key_Minus;
    Qt::KeyboardModifiers _zoomOutState = Qt::NoModifier;
    bool _axisIsEnabled[QwtPlot::axisCnt];
    bool _isTracking = false;
    bool _hadMouseTracking = false;
    QPoint _mousePos;
    AxisRule _xIncrement, _yIncrement;
};

/// The factor of a turn of the wheel: wheelFactor to the power of the whole notches, inverted for a turn
/// away from the user. delta is in eighths of a degree.
double wheelTurnFactor(double wheelFactor, int delta);

#endif
