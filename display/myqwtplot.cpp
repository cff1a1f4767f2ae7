#include "display/myqwtplot.h"

#include "display/images/myqwtplotcanvas.h"

#include <QCoreApplication>

MyQwtPlot::MyQwtPlot(QWidget* parent) : QwtPlot(parent), _canvas(new MyQwtPlotCanvas(this))
{
    setCanvas(_canvas);
    // Every replot is asked for by name: axes change many times before one picture is wanted.
    setAutoReplot(false);
}

void MyQwtPlot::replot1()
{
    updateAxes();
    QCoreApplication::sendPostedEvents(this, QEvent::LayoutRequest);
}

void MyQwtPlot::replot2()
{
    _canvas->invalidatePicture();
    _canvas->repaint();
}
