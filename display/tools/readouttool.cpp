#include "display/tools/readouttool.h"

#include "display/raster/rasternumber.h"
#include "display/seismicdisplay.h"
#include "display/tools/velocityoverlay.h"
#include "tracedata/parmmenu.h"
#include "tracedata/seismicdata.h"

#include <QMouseEvent>
#include <qwt_scale_map.h>

bool ReadoutTool::canvasEvent(QWidget* /*canvas*/, QEvent* event)
{
    if (event->type() == QEvent::Leave) _lines->clear();
    if (event->type() != QEvent::MouseMove) return false;
    if (!_display->hasData()) return true;
    _lines->showReadout(lineAt(static_cast<QMouseEvent*>(event)->pos()));
    return false;
}

/// The samples of both layers that are drawn at a position.
QString ReadoutTool::valuesAt(const ReadoutPosition& at) const
{
    if (!at.isInside) return QString();
    QString text = amplitudeText("Amp", *_display->seismicData()->getTraceValues(at.trace, at.sample));
    const SeismicData* overlay = _display->menu()->ioverlay != 0 ? _display->overlayData() : nullptr;
    if (overlay && at.trace < overlay->traceCount() && at.sample < overlay->sampleCount())
        text += amplitudeText("Overlay Amp", *overlay->getTraceValues(at.trace, at.sample));
    return text;
}

QString ReadoutTool::lineAt(const QPoint& pos) const
{
    if (!_display->hasData()) return QString();
    const QPointF at(_display->canvasMap(QwtPlot::xTop).invTransform(pos.x()),
                     _display->canvasMap(QwtPlot::yLeft).invTransform(pos.y()));
    const ImageRecorder& images = _display->images();
    const bool isPicture = images.number() >= 0;  // the amplitudes of a stored picture have gone
    ReadoutFrame frame = _display->readoutFrame();
    if (isPicture) {
        frame.nTraces = images.traceCount();
        frame.nSamples = wholeOf(images.extent().height() / _display->sampleRate() + 0.5);
    }
    if (!isPicture && (frame.nTraces < 1 || frame.nSamples < 1)) return QString();
    const ReadoutPosition under = readoutPosition(frame, at.x(), at.y());
    const HeaderAxis& axis = _display->headerAxis();
    QString line = readoutText(under, isPicture ? images.primary() : axis.pri(),
                               isPicture ? images.secondary() : axis.sec(), _display->verticalName());
    if (!isPicture) line += valuesAt(under);
    if (const VelocityOverlay* velocities = _display->activeVelocities())
        line += velocityText(velocities->readout(at, under.trace, under.sample));
    return line;
}
