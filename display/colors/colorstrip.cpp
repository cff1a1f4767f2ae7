#include "display/colors/colorstrip.h"

#include <QColor>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

static constexpr int nSteps = 6;

QVector<ColorBarNumber> colorBarNumbers(float minValue, float maxValue, int height)
{
    QVector<ColorBarNumber> numbers;
    const float valueStep = (maxValue - minValue) / nSteps;
    const int pixelStep = height / nSteps;
    for (int i = 0; i <= nSteps; ++i) {
        float value = i < nSteps ? maxValue - i * valueStep : minValue;
        if (std::fabs(value) < 1e-4f * std::fabs(valueStep)) value = 0.0f;
        QString text = QString::number(value, 'g', 4);
        if (minValue < 0.0f && value > 0.0f) text.prepend('+');
        numbers.append({i * pixelStep, text});
    }
    return numbers;
}

/// Between strip and numbers, and between numbers and unit: 4 pixels at the usual size of a font.
static double gapOf(const QFontMetricsF& metrics)
{
    return std::max(4.0, std::floor(0.3 * metrics.height()));
}

static double widestNumber(const ColorStrip& strip, const QFontMetricsF& metrics)
{
    double width = 0.0;
    for (const ColorBarNumber& number : colorBarNumbers(strip.least, strip.largest, nSteps))
        width = std::max(width, metrics.horizontalAdvance(number.text));
    return width;
}

double colorStripRoom(const ColorStrip& strip, const QFontMetricsF& metrics)
{
    if (!strip.hasNumbers) return 0.0;
    const double unit = strip.unit.isEmpty() ? 0.0 : gapOf(metrics) + metrics.height();
    return gapOf(metrics) + widestNumber(strip, metrics) + unit;
}

static void paintColors(QPainter* painter, const QVector<unsigned int>& colors, const QRect& rect)
{
    // The strip is shared out to one colour more than there are: the last one has two shares.
    const int64_t nShares = colors.size() + 1;
    const auto rowOf = [&](int i) { return rect.top() + int((i * int64_t(rect.height()) + nShares - 1) / nShares); };
    for (int i = 0; i < colors.size(); ++i) {
        const int from = rowOf(i), to = i + 1 == colors.size() ? rect.bottom() + 1 : rowOf(i + 1);
        if (to > from) painter->fillRect(rect.left(), from, rect.width(), to - from, QColor(colors[i]));
    }
}

void paintColorStrip(QPainter* painter, const ColorStrip& strip, const QRect& rect)
{
    if (strip.colors.isEmpty() || rect.isEmpty()) return;
    paintColors(painter, strip.colors, rect);
    if (!strip.hasNumbers) return;
    const QFontMetricsF metrics(painter->font(), painter->device());
    const double left = rect.right() + 1 + gapOf(metrics), textHeight = metrics.height();
    for (const ColorBarNumber& number : colorBarNumbers(strip.least, strip.largest, rect.height())) {
        // the first and the last stay whole beside the strip
        const double top =
            std::clamp(std::floor(number.center - textHeight / 2.0), 0.0, std::max(0.0, rect.height() - textHeight));
        painter->drawText(QPointF(left, rect.top() + top + metrics.ascent()), number.text);
    }
    painter->save();
    painter->translate(left + widestNumber(strip, metrics) + gapOf(metrics) + metrics.ascent(),
                       rect.top() + (rect.height() + metrics.horizontalAdvance(strip.unit)) / 2.0);
    painter->rotate(-90.0);
    painter->drawText(QPointF(0.0, 0.0), strip.unit);
    painter->restore();
}
