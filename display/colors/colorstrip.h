/// A strip of colours with numbers beside it, on whatever is painted on.
#ifndef COLORSTRIP_H
#define COLORSTRIP_H

#include <QRect>
#include <QString>
#include <QVector>

class QFontMetricsF;
class QPainter;

struct ColorStrip {
    QVector<unsigned int> colors;  ///< from the top; empty for no strip
    float least = 0.0f;            ///< values of the two ends
    float largest = 0.0f;
    QString unit;  ///< of the numbers
    bool hasNumbers = true;
};

/// One of a colour strip's numbers.
struct ColorBarNumber {
    int center = 0;  ///< pixel row
    QString text;
};

/// The numbers beside a strip of `height` pixels, from the top: seven, at six equal steps. Positive ones
/// have their sign where the range reaches below 0.
QVector<ColorBarNumber> colorBarNumbers(float minValue, float maxValue, int height);

/// What numbers and unit take at the right of a strip, in the units of the metrics; 0 without numbers.
double colorStripRoom(const ColorStrip& strip, const QFontMetricsF& metrics);

/// Paints the strip in a rectangle of whole rows, and beside it, with the painter's font and pen, the numbers and,
/// upward, their unit.
void paintColorStrip(QPainter* painter, const ColorStrip& strip, const QRect& rect);

#endif
