#include "display/picturefooter.h"

#include "display/polarity.h"

#include <QFontMetrics>
#include <QWidget>
#include <qwt_plot.h>
#include <qwt_text.h>
#include <qwt_text_label.h>

PictureLine pictureLineOf(const HeaderAxis& axis, const QRectF& view, int n, const SeismicPlot& plot,
                          const QString& overlayRecord, const Polarity& polarity)
{
    PictureLine line;
    const TraceRange range = tracesInView(view.left(), view.right(), n);
    if (range.first <= range.last) {
        line.firstTrace = traceKeys(axis, range.first, true);
        line.lastTrace = traceKeys(axis, range.last, true);
        line.shortFirstTrace = traceKeys(axis, range.first, false);
        line.shortLastTrace = traceKeys(axis, range.last, false);
    }
    line.chips = pictureChips(plot, overlayRecord);
    line.polarity = polarityText(polarity);
    line.isPolarityTold = polarity.sense != Polarity::Unknown;
    return line;
}

void showFooter(QwtPlot* plot, const PictureLine* line)
{
    const QFontMetrics metrics(plot->footerLabel()->font());
    QwtText text(line ? pictureLineHtml(*line, metrics, plot->canvas()->width()) : QString("&nbsp;"),
                 QwtText::RichText);
    text.setRenderFlags(Qt::AlignLeft | Qt::AlignVCenter);
    plot->setFooter(text);
    plot->footerLabel()->setToolTip(line ? pictureLineText(*line, metrics, QWIDGETSIZE_MAX) : QString());
}
