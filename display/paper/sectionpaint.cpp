#include "display/paper/sectionpaint.h"

#include "display/raster/displaytype.h"
#include "display/raster/rasternumber.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

static constexpr int foldAt = 30;           // characters of a side label's text
static constexpr double nameColumn = 20.0;  // mm

static QPointF devicePoint(const SectionPoint& p)
{
    return QPointF(std::round(p.x * sectionUnits), std::round(p.y * sectionUnits));
}

static QRectF deviceRect(const SectionRect& r)
{
    return QRectF(devicePoint({r.left, r.top}), devicePoint({r.right(), r.bottom()}));
}

static QPen penOf(double mm, const QColor& color = Qt::black)
{
    return QPen(color, mm * sectionUnits, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
}

static QFont fontOf(double mm, bool isBold = false)
{
    QFont font("DejaVu Sans");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(wholeOf(mm * sectionUnits));
    font.setBold(isBold);
    return font;
}

static bool hasLobes(DisplayType type)
{
    return type == WiggleVA || type == VA;
}

std::vector<std::pair<QString, QString>> foldedSide(const std::vector<std::pair<QString, QString>>& side)
{
    std::vector<std::pair<QString, QString>> lines;
    for (const auto& row : side)
        for (int from = 0; from == 0 || from < row.second.size(); from += foldAt)
            lines.push_back({from == 0 ? row.first : QString(), row.second.mid(from, foldAt)});
    return lines;
}

double sectionImageDpi(const SectionPage& page)
{
    const double inches2 = page.section().width * page.section().height / (25.4 * 25.4);
    const double longest = std::max(page.section().width, page.section().height) / 25.4;
    return std::min({200.0, std::sqrt(24e6 / inches2), 60000.0 / longest});
}

/// A map begins at its first trace; left of it stands that trace's colour, as the last one's does at the right.
static void fillLeft(QImage* image, int columns)
{
    const int last = std::min(columns, image->width() - 1);
    for (int y = 0; y < image->height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image->scanLine(y));
        std::fill_n(line, std::max(last, 0), line[std::max(last, 0)]);
    }
}

static void paintColors(QPainter* painter, const SectionPage& page, const RasterParm& raster)
{
    const double dpi = sectionImageDpi(page);
    const int width = std::max(1, wholeOf(std::round(page.section().width / 25.4 * dpi)));
    const int height = std::max(1, wholeOf(std::round(page.section().height / 25.4 * dpi)));
    const double start = page.parm().startMs, end = page.endMs();
    RasterParm parm = raster;
    parm.x = {0.5, page.parm().nTraces + 0.5, 0.0, double(width)};
    parm.y =
        raster.timeDirection != 0 ? AxisMap{end, start, double(height), 0.0} : AxisMap{start, end, double(height), 0.0};
    parm.plotSampleCount = 0.0f;
    parm.pixelRatio = 1.0;
    if (raster.displayType == ColorWiggle) parm.displayType = ColorB;  // the wiggles come as lines
    TraceRaster renderer;
    QImage image = renderer.render(parm, nullptr);
    if (image.isNull()) return;
    if (parm.displayType == Map || parm.displayType == Velocity)
        fillLeft(&image, wholeOf(0.5 * width / page.parm().nTraces));
    painter->setRenderHint(QPainter::LosslessImageRendering);
    painter->drawImage(deviceRect(page.section()), image);
}

static void addPoints(QPainterPath* path, const std::vector<SectionPoint>& points)
{
    QPointF last = devicePoint(points.front());
    path->moveTo(last);
    for (size_t i = 1; i < points.size(); ++i) {
        const QPointF p = devicePoint(points[i]);
        if (p != last) path->lineTo(p);
        last = p;
    }
}

static void paintTrace(QPainter* painter, const SectionPage& page, DisplayType type, int column,
                       const std::vector<float>& values)
{
    if (hasLobes(type)) {
        QPainterPath path;
        for (const std::vector<SectionPoint>& lobe : sectionLobes(page, column, values)) {
            addPoints(&path, lobe);
            path.closeSubpath();
        }
        if (!path.isEmpty()) painter->fillPath(path, Qt::black);
    }
    if (isWiggleType(type)) {
        QPainterPath path;
        addPoints(&path, sectionWiggle(page, column, values));
        painter->strokePath(path, penOf(std::min(0.1, page.traceWidth() / 8.0)));
    }
}

static void paintTraces(QPainter* painter, const SectionPage& page, const RasterParm& raster)
{
    if (!isWiggleType(raster.displayType) && !hasLobes(raster.displayType)) return;
    std::vector<float> values;
    for (int i = 0; i < page.parm().nTraces; ++i) {
        sectionTrace(raster, i, &values);
        if (!values.empty()) paintTrace(painter, page, raster.displayType, i, values);
    }
}

static void paintText(QPainter* painter, const SectionRect& rect, int flags, const QString& text)
{
    painter->drawText(deviceRect(rect), flags | Qt::TextSingleLine | Qt::TextDontClip, text);
}

static void paintLine(QPainter* painter, const SectionPoint& from, const SectionPoint& to)
{
    painter->drawLine(devicePoint(from), devicePoint(to));
}

static void paintTimes(QPainter* painter, const SectionPage& page, bool hasLines)
{
    const SectionRect& s = page.section();
    painter->setFont(fontOf(page.textHeight));
    for (const double ms : page.timeTicks()) {
        const double y = page.timeY(ms), top = y - page.lineHeight / 2.0;
        const QString text = QString::number(ms, 'g', 8);
        if (hasLines) {
            painter->setPen(penOf(0.08, QColor(0, 120, 120)));
            paintLine(painter, {s.left, y}, {s.right(), y});
        }
        painter->setPen(penOf(0.15));
        paintLine(painter, {s.left - page.tick, y}, {s.left, y});
        paintLine(painter, {s.right(), y}, {s.right() + page.tick, y});
        const double room = 10.0;
        paintText(painter, {s.left - page.tick - 0.8 - room, top, room, page.lineHeight},
                  Qt::AlignRight | Qt::AlignVCenter, text);
        paintText(painter, {s.right() + page.tick + 0.8, top, room, page.lineHeight}, Qt::AlignLeft | Qt::AlignVCenter,
                  text);
    }
    const double low = s.top - page.tick - page.lineHeight;
    paintText(painter, {s.right() + page.tick + 0.8, low, 10.0, page.lineHeight}, Qt::AlignLeft | Qt::AlignVCenter,
              "ms");
}

static void paintTraceLabels(QPainter* painter, const SectionPage& page, const SectionContent& content)
{
    const SectionRect& s = page.section();
    painter->setFont(fontOf(page.textHeight));
    painter->setPen(penOf(0.15));
    const QFontMetricsF metrics(painter->font(), painter->device());
    double widest = 0.0;
    for (const QString& label : content.traceLabels)
        widest = std::max(widest, metrics.horizontalAdvance(label) / sectionUnits);
    const int step = page.traceStep(content.labelStep, widest);
    const double low = s.top - page.tick - page.lineHeight;
    for (int position = step; position <= content.traceLabels.size(); position += step) {
        const QString& label = content.traceLabels[position - 1];  // positions count from 1, as on the screen
        if (label.isEmpty()) continue;
        const double x = page.traceX(position - 1);
        paintLine(painter, {x, s.top - page.tick}, {x, s.top});
        paintText(painter, {x - widest / 2.0, low, widest, page.lineHeight}, Qt::AlignCenter, label);
    }
    paintText(painter, {page.margin, low, 40.0, page.lineHeight}, Qt::AlignLeft | Qt::AlignVCenter, content.keyName);
}

static void paintSide(QPainter* painter, const SectionPage& page, const SectionContent& content)
{
    const SectionRect& side = page.sideLabel();
    painter->setPen(penOf(0.15));
    double top = side.top;
    for (const auto& row : content.side) {
        painter->setFont(fontOf(page.textHeight, true));
        if (!row.first.isEmpty())
            paintText(painter, {side.left, top, nameColumn, page.lineHeight}, Qt::AlignLeft | Qt::AlignVCenter,
                      row.first);
        painter->setFont(fontOf(page.textHeight));
        paintText(painter, {side.left + nameColumn, top, side.width - nameColumn, page.lineHeight},
                  Qt::AlignLeft | Qt::AlignVCenter, row.second);
        top += page.lineHeight;
    }
}

static void paintStrip(QPainter* painter, const SectionPage& page, const ColorStrip& strip)
{
    const QRect rect = deviceRect(page.colorStrip()).toRect();
    if (rect.isEmpty()) return;
    painter->setFont(fontOf(page.textHeight));
    painter->setPen(penOf(0.15));
    paintColorStrip(painter, strip, rect);
}

void paintSection(QPainter* painter, const SectionPage& page, const SectionContent& content)
{
    // Paper is white, a viewer of pictures may not be.
    painter->fillRect(deviceRect({0.0, 0.0, page.width(), page.height()}), Qt::white);
    if (isColorType(content.raster.displayType)) paintColors(painter, page, content.raster);
    paintTraces(painter, page, content.raster);
    paintTimes(painter, page, content.hasTimeLines);
    painter->setPen(penOf(0.2));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(deviceRect(page.section()));
    paintTraceLabels(painter, page, content);
    painter->setFont(fontOf(1.4 * page.textHeight, true));
    painter->setPen(penOf(0.15));
    paintText(painter, page.title(), Qt::AlignLeft | Qt::AlignTop, content.title);
    paintSide(painter, page, content);
    paintStrip(painter, page, content.strip);
}
