#include "display/tools/velocityclicks.h"

#include "display/ensembleview.h"
#include "display/seismicdisplay.h"
#include "host/report.h"

#include <QApplication>
#include <QMouseEvent>
#include <qwt_scale_map.h>

VelocityClicks::VelocityClicks(SeismicDisplay* display) : QObject(display), _display(display)
{
    _timer.setSingleShot(true);
    connect(&_timer, &QTimer::timeout, this, &VelocityClicks::oneClick);
}

bool VelocityClicks::canvasEvent(QWidget* /*canvas*/, QEvent* event)
{
    if (!_overlay || !_display->hasData()) return false;
    if (event->type() == QEvent::MouseButtonPress) return press(static_cast<QMouseEvent*>(event));
    if (event->type() == QEvent::MouseButtonDblClick) edit(static_cast<QMouseEvent*>(event));
    return false;
}

bool VelocityClicks::press(const QMouseEvent* event)
{
    const bool isOurs = event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
    if (!isOurs || event->modifiers() != Qt::NoModifier) return false;
    _pos = event->pos();
    _button = event->button();
    _timer.start(QApplication::doubleClickInterval() / 2);
    return true;
}

void VelocityClicks::edit(const QMouseEvent* event)
{
    _timer.stop();
    if (event->button() != Qt::LeftButton) return;
    _overlay->editPlot(onAxes(event->pos()));
    _display->rePlot();
}

void VelocityClicks::oneClick()
{
    if (!_overlay || !_display->hasData()) return;
    if (!_overlay->isFileLoaded())
        return _display->report().box("CVS Velocity Error", "Please load a PVL file before picking CVS velocities.");
    const QPointF at = onAxes(_pos);
    if (_button == Qt::LeftButton)
        _overlay->addPlot(clickAt(at));
    else
        _overlay->removePlot(at);
    _display->rePlot();
}

QPointF VelocityClicks::onAxes(const QPoint& pos) const
{
    return QPointF(_display->canvasMap(QwtPlot::xTop).invTransform(pos.x()),
                   _display->canvasMap(QwtPlot::yLeft).invTransform(pos.y()));
}

VelocityClick VelocityClicks::clickAt(const QPointF& at) const
{
    const EnsembleView& view = _display->view();
    const ReadoutPosition under = view.positionAt(at);
    VelocityClick click;
    click.at = at;
    click.trace = under.trace;
    click.sample = under.sample;
    click.cdp = float(view.word("CDP     ", under.trace));
    click.x = float(view.word("CDP_X   ", under.trace));
    click.y = float(view.word("CDP_Y   ", under.trace));
    click.velocity = _display->headerAxis().panelVelocity();
    return click;
}
