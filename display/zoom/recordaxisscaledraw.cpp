#include "display/zoom/recordaxisscaledraw.h"

#include "display/zoom/axisstep.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QString>
#include <qwt_scale_div.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

void RecordAxisScaleDraw::setAxisArray(const float* values, int num, char type)
{
    _values = values;
    _num = num;
    _type = type;
    _changes.assign(size_t(std::max(num, 0)) + 1, 0);
    for (int i = 2; i <= num; ++i) _changes[i] = _changes[i - 1] + (values[i] != values[i - 1] ? 1 : 0);
    forget();
}

void RecordAxisScaleDraw::setMethod(int method, int incr)
{
    _method = method;
    _incr = incr;
    forget();
}

void RecordAxisScaleDraw::setFake(bool on)
{
    _isFake = on;
    forget();
}

void RecordAxisScaleDraw::setPlotDirection(int direction)
{
    _plotDirection = direction;
    forget();
}

void RecordAxisScaleDraw::setName(const QString& name, double titleWidth)
{
    _name = name;
    _titleWidth = titleWidth;
}

void RecordAxisScaleDraw::forget()
{
    _hasEnds = false;
    invalidateCache();
}

float RecordAxisScaleDraw::getElement(float position) const
{
    const bool isInside = _values && position >= 1.0f && position < float(_num) + 1.0f;
    return isInside ? _values[int(position)] : 0.0f;
}

/// A whole number out of a header value, which may be anything.
static long long wholeValue(float value)
{
    return std::fabs(value) < 9.0e18f ? static_cast<long long>(value) : 0;
}

/// Whether the method wants a label at trace i, from 1.
bool RecordAxisScaleDraw::isAsked(int i) const
{
    if (_method == 1 && _incr > 0) return wholeValue(_values[i]) % _incr == 0;
    return _method != 3 || i == 1 || _values[i] != _values[i - 1];
}

bool RecordAxisScaleDraw::isEnd(int i) const
{
    const QwtScaleDiv& scale = scaleDiv();
    if (!_hasEnds || _endsFrom != scale.lowerBound() || _endsTo != scale.upperBound()) {
        std::vector<int> places;
        int nAsked = 0;
        for (const double value : scale.ticks(QwtScaleDiv::MajorTick)) {
            if (!scale.contains(value) || !isLabelPlace(value) || !(value > 0.5) || !(value < _num + 0.5)) continue;
            places.push_back(int(std::lround(value)));
            if (isAsked(places.back()) && ++nAsked == 2) break;
        }
        const bool isBare = nAsked < 2 && places.size() >= 3;
        _ends[0] = isBare ? places.front() : 0;
        _ends[1] = isBare ? places.back() : 0;
        _endsFrom = scale.lowerBound();
        _endsTo = scale.upperBound();
        _hasEnds = true;
    }
    return i == _ends[0] || i == _ends[1];
}

QwtText RecordAxisScaleDraw::label(double value) const
{
    if (_isFake) return QwtText("0");
    if (!_values || !(value >= 1.0) || !(value < _num + 1.0)) return QwtText();
    const int i = int(value);
    if (!isAsked(i) && !isEnd(i)) return QwtText();
    return QwtText(_type == 'I' ? QString::number(wholeValue(_values[i])) : QString::number(_values[i], 'g', 6));
}

bool RecordAxisScaleDraw::isLabelPlace(double value) const
{
    return std::fabs(value - std::round(value)) < 1e-6;
}

/// Labels that stand only at some values are thinned out by these.
long long RecordAxisScaleDraw::labelNumber(double value, double step) const
{
    const bool isTrace = _values && value >= 1.0 && value < _num + 1.0;
    if (isTrace && _method == 1 && _incr > 0) {
        const double power = roundPower(_incr);  // every fifth of the multiples of 5 would be those of 25
        return wholeValue(_values[int(value)]) / (power >= 1.0 ? int(power) : _incr);
    }
    if (isTrace && _method == 3) return _changes[int(value)];
    return ThinnedScaleDraw::labelNumber(value, step);
}

void RecordAxisScaleDraw::draw(QPainter* painter, const QPalette& palette) const
{
    ThinnedScaleDraw::draw(painter, palette);
    drawName(painter, palette);
}

void RecordAxisScaleDraw::drawName(QPainter* painter, const QPalette& palette) const
{
    const QFontMetrics metrics(painter->font());
    const double room = (length() - _titleWidth) / 2.0 - 2.0 * metrics.averageCharWidth();
    const QString text = metrics.elidedText(_name, Qt::ElideRight, int(std::clamp(room, 0.0, 1e6)));
    if (_isFake || text.size() < std::min(_name.size(), 3)) return;
    constexpr double titleSpacing = 2.0;  // the axis's own, between labels and title
    const double bottom = pos().y() - extent(painter->font()) - titleSpacing;
    painter->save();
    painter->setPen(palette.color(QPalette::Text));
    painter->drawText(QPointF(pos().x(), bottom - metrics.descent()), text);
    painter->restore();
}

void RecordAxisScaleDraw::drawLabel(QPainter* painter, double value) const
{
    const bool isVertical = _plotDirection == TopToBottom || _plotDirection == BottomToTop;
    if (!isVertical) {
        ThinnedScaleDraw::drawLabel(painter, value);
        return;
    }
    if (!isDrawn(value)) return;
    const QwtText text = tickLabel(painter->font(), value);
    const QSizeF size = text.textSize(painter->font());
    painter->save();
    painter->translate(labelPosition(value));
    painter->rotate(-90.0);
    text.draw(painter, QRectF(QPointF(0.0, -size.height() / 2.0), size));
    painter->restore();
}
