#include "frame/printeddisplay.h"

#include "display/raster/displaytype.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"

#include <QPainter>
#include <qwt_plot_renderer.h>

#include <algorithm>
#include <cmath>

/// The strips of the plots that show their amplitudes by colours.
static QVector<ColorStrip> printedStrips(SeismicDisplay* display)
{
    QVector<ColorStrip> strips;
    const SeismicPlot* overlay = display->overlayRecord().isEmpty() ? nullptr : display->overlayPlot();
    for (const SeismicPlot* plot : {static_cast<const SeismicPlot*>(display->seismicPlot()), overlay}) {
        if (!plot || !plot->colorBar() || !isColorType(plot->displayType())) continue;
        strips += plot->colorBar()->strip();
        strips.last().hasNumbers = true;  // paper has no other scale
    }
    return strips;
}

/// Strips one above the other at the right of `page`; returns what they leave of it.
static QRectF paintStrips(QPainter* painter, const QVector<ColorStrip>& strips, const QRectF& page)
{
    if (strips.isEmpty()) return page;
    const QFontMetricsF metrics(painter->font(), painter->device());
    double room = 0.0;
    for (const ColorStrip& strip : strips) room = std::max(room, colorStripRoom(strip, metrics));
    const int width = int(metrics.height()), share = int(page.height()) / strips.size();
    const int height = std::min(int(20.0 * metrics.height()), share * 4 / 5);
    const QRectF rest = page.adjusted(0.0, 0.0, -std::ceil(room) - 2 * width, 0.0);
    for (int i = 0; i < strips.size(); ++i)
        paintColorStrip(painter, strips[i],
                        QRect(int(rest.right()) + width / 2, share * i + (share - height) / 2, width, height));
    return rest;
}

QPixmap printedDisplay(SeismicDisplay* display, const QSizeF& page)
{
    if (display->images().isShown()) return display->grab();
    constexpr int density = 2;
    const int width = std::max(display->width(), 600);
    const QSize size(width, std::max(1, int(width * page.height() / page.width())));
    QImage image(size * density, QImage::Format_RGB32);
    image.setDotsPerMeterX(int(std::lround(display->logicalDpiX() * density / 0.0254)));
    image.setDotsPerMeterY(int(std::lround(display->logicalDpiY() * density / 0.0254)));
    image.fill(Qt::white);
    QwtPlotRenderer renderer;
    renderer.setDiscardFlags(QwtPlotRenderer::DiscardBackground | QwtPlotRenderer::DiscardCanvasFrame);
    QPainter painter(&image);
    painter.setFont(QFont(display->font(), &image));
    painter.setPen(Qt::black);
    const QRectF rest = paintStrips(&painter, printedStrips(display), QRectF(QPointF(0, 0), image.size()));
    renderer.render(display, &painter, rest);
    painter.end();
    return QPixmap::fromImage(image);
}
