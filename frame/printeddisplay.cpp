#include "frame/printeddisplay.h"

#include "display/seismicdisplay.h"

#include <QPainter>
#include <qwt_plot_renderer.h>

#include <algorithm>
#include <cmath>

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
    renderer.render(display, &painter, QRectF(QPointF(0, 0), image.size()));
    painter.end();
    return QPixmap::fromImage(image);
}
