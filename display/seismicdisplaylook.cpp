/// How a display shows its traces: told under the picture, and handed on to another display; and its data, put away.
#include "display/seismicdisplay.h"

#include "display/pictureline.h"
#include "display/recordaxisscaledraw.h"
#include "display/seismicplot.h"
#include "tracedata/seismicdata.h"
#include "tracedata/seismicheader.h"

#include <QFontMetrics>
#include <qwt_plot_grid.h>
#include <qwt_text.h>
#include <qwt_text_label.h>

void SeismicDisplay::takeLook(const SeismicDisplay& other)
{
    const PlotParm look = other._seismicplot->parm();
    _seismicplot->setParm(look);
    _seismicplot->setRange(look.rangeMin, look.rangeMax);  // an automatic one, too, until there are data
    setPlotDirection(other._seismicplot->plotDirection());
    _keys = other._keys;
    _polarity = other._polarity;
    _grid->enableX(other._grid->xEnabled());
    _grid->enableY(other._grid->yEnabled());
    _grid->enableXMin(other._grid->xMinEnabled());
    _grid->enableYMin(other._grid->yMinEnabled());
}

void SeismicDisplay::clearData()
{
    setShowImage(false);
    _images.forgetStored();
    _loadTraces = false;
    _seismicplot->setDataLoaded(false);
    _seismicdata->clear();
    if (_overlayplot) {
        _overlayplot->setDataLoaded(false);
        _overlaydata->clear();
    }
    forgetTitle();
    rePlot();
}

/// Nothing of a former ensemble stays beside an empty canvas, which keeps its size.
void SeismicDisplay::forgetTitle()
{
    MyQwtPlot::setAxisTitle(xTop, " ");
    _recordaxis->setAxisArray(nullptr, 0, 'I');
    _recordaxis->setName(QString(), 0.0);
    relayAxes();
}

void SeismicDisplay::replot()
{
    updateAxes();  // the line tells the part that they show from now on
    showPictureLine();
    MyQwtPlot::replot();
}

QString SeismicDisplay::overlayRecord() const
{
    if (!_overlayplot || !_overlayplot->isVisible() || !_overlayplot->isDataLoaded()) return QString();
    const KeyColumn& key = _headerAxis.pri();
    float value = 0.0f;
    if (key.name != "None") value = keyOfTrace(*_overlaydata, _keys.pri, key.type, 0);
    return key.name.trimmed() + " " + QString::number(double(value), 'g', 9);
}

/// One line high whatever it says, so that the canvas keeps its size. A stored picture tells nothing: it may have been
/// made with other settings.
void SeismicDisplay::showPictureLine()
{
    const QFontMetrics metrics(footerLabel()->font());
    QString shown = "&nbsp;", whole;
    if (traceCount() > 0 && !_images.isShown()) {
        PictureLine line;
        const QRectF view = visibleRect();
        const TraceRange range = tracesInView(view.left(), view.right(), traceCount());
        if (range.first <= range.last) {
            line.firstTrace = traceKeys(_headerAxis, range.first, true);
            line.lastTrace = traceKeys(_headerAxis, range.last, true);
            line.shortFirstTrace = traceKeys(_headerAxis, range.first, false);
            line.shortLastTrace = traceKeys(_headerAxis, range.last, false);
        }
        line.chips = pictureChips(*_seismicplot, overlayRecord());
        line.polarity = polarityText(_polarity);
        line.isPolarityTold = _polarity.sense != Polarity::Unknown;
        shown = pictureLineHtml(line, metrics, canvas()->width());
        whole = pictureLineText(line, metrics, QWIDGETSIZE_MAX);
    }
    QwtText text(shown, QwtText::RichText);
    text.setRenderFlags(Qt::AlignLeft | Qt::AlignVCenter);
    setFooter(text);
    footerLabel()->setToolTip(whole);
}

void SeismicDisplay::setPolarity(const Polarity& polarity)
{
    _polarity = polarity;
    showPictureLine();
}

void SeismicDisplay::statePolarity(const Polarity& polarity)
{
    setPolarity(polarity);
    emit polarityStated(polarity);
}
