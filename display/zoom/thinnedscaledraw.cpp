#include "display/zoom/thinnedscaledraw.h"

#include "display/zoom/axisstep.h"
#include "display/zoom/labelthinning.h"

#include <QFontMetrics>
#include <QPainter>
#include <qwt_scale_div.h>
#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

/// Steps that are nearer than so many pixels would run into one bar.
static constexpr double leastTickDistance = 3.0;

/// Distance of neighbouring steps in scale units; 1 where there are no two.
static double stepOf(const QList<double>& steps)
{
    return steps.size() < 2 ? 1.0 : std::fabs(steps[1] - steps[0]);
}

long long ThinnedScaleDraw::labelNumber(double value, double step) const
{
    const double power = roundPower(step);  // every second of a step of 5 would be 10, but every fifth 25
    const double number = std::round(value / (power > 0.0 ? power : step));
    return std::fabs(number) < 9.0e15 ? static_cast<long long>(number) : 0;
}

std::vector<double> ThinnedScaleDraw::labelledSteps(const QFont& font) const
{
    const QList<double> steps = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    const double step = stepOf(steps);
    std::vector<AxisLabel> labels;
    std::vector<double> values;
    for (const double value : steps) {
        if (!scaleDiv().contains(value) || !isLabelPlace(value)) continue;
        const QwtText text = tickLabel(font, value);
        if (text.isEmpty()) continue;
        const QSizeF size = text.textSize(font);
        const bool isAcross = orientation() == Qt::Horizontal;
        labels.push_back(
            {scaleMap().transform(value), isAcross ? size.width() : size.height(), labelNumber(value, step)});
        values.push_back(value);
    }
    const double gap = orientation() == Qt::Horizontal ? QFontMetrics(font).averageCharWidth() : 2.0;
    std::vector<double> drawn;
    for (const int i : labelsToDraw(labels, gap)) drawn.push_back(values[size_t(i)]);
    return drawn;
}

void ThinnedScaleDraw::draw(QPainter* painter, const QPalette& palette) const
{
    const double step = stepOf(scaleDiv().ticks(QwtScaleDiv::MajorTick));
    _isDense = std::fabs(scaleMap().transform(step) - scaleMap().transform(0.0)) < leastTickDistance;
    _drawn = labelledSteps(painter->font());
    _isPainting = true;
    QwtScaleDraw::draw(painter, palette);
    _isPainting = false;
}

bool ThinnedScaleDraw::isDrawn(double value) const
{
    return !_isPainting || std::find(_drawn.begin(), _drawn.end(), value) != _drawn.end();
}

void ThinnedScaleDraw::drawLabel(QPainter* painter, double value) const
{
    if (isDrawn(value)) QwtScaleDraw::drawLabel(painter, value);
}

void ThinnedScaleDraw::drawTick(QPainter* painter, double value, double length) const
{
    if (!(_isPainting && _isDense) || isDrawn(value)) QwtScaleDraw::drawTick(painter, value, length);
}
