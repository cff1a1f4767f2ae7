#include "display/displayaxes.h"

#include "display/headeraxis.h"
#include "display/zoom/recordaxisscaledraw.h"
#include "display/zoom/seismicaxisscaledraw.h"

#include <QFontMetrics>
#include <qwt_plot.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_div.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

constexpr int sliceDomain = 8;
constexpr int traceAxes[] = {QwtPlot::xTop, QwtPlot::xBottom};
constexpr int verticalAxes[] = {QwtPlot::yLeft, QwtPlot::yRight};

DisplayAxes::DisplayAxes(QwtPlot* plot)
    : _plot(plot), _record(new RecordAxisScaleDraw), _left(new SeismicAxisScaleDraw), _right(new SeismicAxisScaleDraw)
{
    _plot->setAxisScaleDraw(QwtPlot::xTop, _record);
    _plot->setAxisScaleDraw(QwtPlot::yLeft, _left);
    _plot->setAxisScaleDraw(QwtPlot::yRight, _right);
    const double labelHeight = QwtText("0").textSize(_plot->axisFont(QwtPlot::xTop)).height();
    _record->setMinimumExtent(_record->tickLength(QwtScaleDiv::MajorTick) + _record->spacing() + labelHeight);
    _plot->enableAxis(QwtPlot::xTop, true);
    _plot->enableAxis(QwtPlot::xBottom, false);
    setVerticalTitle("Time (msec)");
    for (const int axis : verticalAxes) _plot->setAxisScale(axis, 1000.0, 0.0);  // times run down, also without data
    // Maps of the disabled axes follow the canvas, so nothing may stand between it and the scales.
    _plot->plotLayout()->setAlignCanvasToScales(true);
    _plot->plotLayout()->setCanvasMargin(0);
    for (const int axis : verticalAxes) _plot->axisWidget(axis)->setMargin(0);
    _plot->axisWidget(QwtPlot::xTop)->setMargin(0);
}

bool DisplayAxes::setDomain(int domain)
{
    const bool isOther = domain != _domain || domain == sliceDomain;
    _domain = domain;
    return isOther;
}

bool DisplayAxes::isSlice() const
{
    return _domain == sliceDomain;
}

void DisplayAxes::setVerticalStart(float start)
{
    _left->setStart(start);
    _right->setStart(start);
}

void DisplayAxes::setTimeAxis()
{
    setVerticalTitle("Time (msec)");
    _timeDirection = 1;
    setVerticalStart(0.0f);
}

void DisplayAxes::setSliceAxis(const QString& name, int position, float sliceTime)
{
    setVerticalTitle(name);
    const SliceStart begin = sliceStart(position, nSamples());
    _sliceStart = begin.start;
    _timeDirection = begin.timeDirection;
    _sliceTime = sliceTime;
    setVerticalStart(_sliceStart);
}

ReadoutFrame DisplayAxes::readoutFrame(int nTraces, int nSamples, bool rightToLeft) const
{
    return {nTraces,      nSamples, double(_rate), rightToLeft, isSlice(), _timeDirection != 0, double(_sliceStart),
            _window.first};
}

void DisplayAxes::setKeyMethod(int method, int increment)
{
    _keyMethod = method;
    _keyIncrement = increment;
    _record->setMethod(method, increment);
}

void DisplayAxes::restartTraceIncrement()
{
    _traceIncr = std::max(_keyMethod == 2 ? float(_keyIncrement) : 1.0f, 1.0f);
    _isTraceIncrTyped = false;
}

AxisRule DisplayAxes::traceRule() const
{
    const bool asksEach = _keyMethod == 1 || _keyMethod == 3;
    return traceAxisRule(_traceIncr, _isTraceIncrTyped, asksEach, _plot->canvas()->width());
}

AxisRule DisplayAxes::timeRule() const
{
    const int labelHeight = QFontMetrics(_plot->axisFont(QwtPlot::yLeft)).height();
    return timeAxisRule(_timeIncr, _isTimeIncrTyped, _plot->canvas()->height(), labelHeight);
}

AxisRule DisplayAxes::setTraceIncrement(float increment, double plotTraces)
{
    _traceIncr = traceIncrement(increment, _isTraceIncrTyped, plotTraces);
    const AxisRule rule = traceRule();
    for (const int axis : traceAxes) _plot->setAxisScale(axis, 0.0, plotTraces, rule.step(plotTraces));
    return rule;
}

AxisRule DisplayAxes::setTimeIncrement(float increment, double plotSamples)
{
    _timeIncr = increment;
    const AxisRule rule = timeRule();
    const double span = verticalSpan(frame(), plotSamples), step = rule.step(span);
    const AxisScale scale = verticalScale(frame(), plotSamples, step);
    for (const int axis : verticalAxes) {
        _plot->setAxisScale(axis, scale.from, scale.to, scale.step);
        _plot->setAxisMaxMajor(axis, mostSteps(span, step));
    }
    return rule;
}

QRectF DisplayAxes::visibleRect() const
{
    const QwtInterval x = _plot->axisScaleDiv(QwtPlot::xTop).interval().normalized();
    const QwtInterval y = _plot->axisScaleDiv(QwtPlot::yLeft).interval().normalized();
    return QRectF(x.minValue(), y.minValue(), x.width(), y.width());
}

void DisplayAxes::setVisibleRect(const QRectF& rect)
{
    const double xStep = traceRule().step(rect.width()), yStep = timeRule().step(rect.height());
    for (const int axis : traceAxes) _plot->setAxisScale(axis, rect.left(), rect.right(), xStep);
    for (const int axis : verticalAxes) {
        if (_plot->axisScaleDiv(axis).isIncreasing())
            _plot->setAxisScale(axis, rect.top(), rect.bottom(), yStep);
        else
            _plot->setAxisScale(axis, rect.bottom(), rect.top(), yStep);
    }
}

/// Moves the axes of one direction, with their steps.
void DisplayAxes::move(int first, int second, double from)
{
    const QwtScaleDiv div = _plot->axisScaleDiv(first);
    const double span = std::fabs(div.range()), step = _plot->axisStepSize(first);
    for (const int axis : {first, second}) {
        if (div.isIncreasing())
            _plot->setAxisScale(axis, from, from + span, step);
        else
            _plot->setAxisScale(axis, from + span, from, step);
    }
}

void DisplayAxes::moveTraces(double from)
{
    move(QwtPlot::xTop, QwtPlot::xBottom, from);
}

void DisplayAxes::moveTimes(double from)
{
    move(QwtPlot::yLeft, QwtPlot::yRight, from);
}

void DisplayAxes::takeShown()
{
    _shown = visibleRect().size();
}

QSizeF DisplayAxes::panExtent(int nTraces) const
{
    return _shown.expandedTo(QSizeF(nTraces + 1.0, wholeHeight()));
}

int DisplayAxes::roomBelowCanvas() const
{
    const QWidget* canvas = _plot->canvas();
    return _plot->height() - _plot->contentsMargins().bottom() - (canvas->y() + canvas->height());
}

void DisplayAxes::setNumbersShown(bool on)
{
    _record->setFake(!on);
    _left->setFake(!on);
    _right->setFake(!on);
    relay();
}

/// New labels on the old steps: a scale lays them out and paints them only when it is told to.
void DisplayAxes::relay()
{
    for (const int axis : {QwtPlot::xTop, QwtPlot::yLeft, QwtPlot::yRight})
        _plot->axisWidget(axis)->setLabelRotation(0.0);
}

void DisplayAxes::setLabels(const KeyColumn& column, int n)
{
    _record->setAxisArray(column.values.data(), n, column.type);
    relay();
}

void DisplayAxes::setDirection(int direction)
{
    _record->setPlotDirection(direction);
}

void DisplayAxes::setTraceTitle(const QString& title, const QString& word)
{
    QwtText text(title);
    QFont font = _plot->axisFont(QwtPlot::xTop);
    font.setBold(true);
    text.setFont(font);
    _record->setName(word, text.textSize(font).width());
    _plot->setAxisTitle(QwtPlot::xTop, text);
}

void DisplayAxes::showEnsemble(const QString& before, const KeyColumn& primary, float value, const QString& parm,
                               const QString& word)
{
    const QString title = isSlice() ? sliceTitle(_sliceTime, parm) : ensembleTitle(primary.name, value, parm);
    setTraceTitle(before + title, word);
}

void DisplayAxes::forgetEnsemble()
{
    _plot->setAxisTitle(QwtPlot::xTop, QString(" "));
    _record->setAxisArray(nullptr, 0, 'I');
    _record->setName(QString(), 0.0);
    relay();
}

void DisplayAxes::setVerticalTitle(const QString& text)
{
    _title = text;
    for (const int axis : verticalAxes) {
        QwtText title(text, QwtText::PlainText);
        title.setFont(_plot->axisFont(axis));
        _plot->setAxisTitle(axis, title);
    }
}

void alignVerticalAxes(QwtPlot* a, QwtPlot* b)
{
    for (const int axis : verticalAxes) {
        double most = 0.0;
        for (const QwtPlot* plot : {a, b})
            if (plot->axisEnabled(axis)) most = std::max(most, plot->axisScaleDraw(axis)->extent(plot->axisFont(axis)));
        for (QwtPlot* plot : {a, b}) plot->axisScaleDraw(axis)->setMinimumExtent(most);
    }
}
