/// The axes of a seismic display: what they stand for, their steps, scales, labels and titles.
#ifndef DISPLAYAXES_H
#define DISPLAYAXES_H

#include "display/readout.h"
#include "display/zoom/axisarithmetic.h"

class QwtPlot;
class RecordAxisScaleDraw;
class SeismicAxisScaleDraw;
struct KeyColumn;

/// Sets the four axes of a plot: traces at the top and at the bottom, times or the positions of a slice on the left and
/// on the right. Never replots: the caller does, once for all.
class DisplayAxes
{
public:
    /// @param plot  lent, owns the scale draws that are made here
    explicit DisplayAxes(QwtPlot* plot);

    // What the axes stand for.
    /// Keeps these times of traces of `whole` samples, as sampleWindow tells.
    void setWindow(int fromMs, int toMs, int whole) { _window = sampleWindow(fromMs, toMs, _rate, whole); }
    const SampleWindow& window() const { return _window; }
    int nSamples() const { return _window.count(); }
    void setSampleRate(float ms) { _rate = ms; }
    float sampleRate() const { return _rate; }
    /// Domain 8 is the time slice. Returns whether what is shown next is another thing than before.
    bool setDomain(int domain);
    bool isSlice() const;
    int timeDirection() const { return _timeDirection; }
    /// Times run down from 0; a slice shown before leaves nothing behind.
    void setTimeAxis();
    /// Positions of a slice, named by a header word, from that of the first trace on.
    void setSliceAxis(const QString& name, int position, float sliceTime);
    /// The data in view begin at the window's first sample.
    void takeShift() { _shiftTime = double(_window.first) * _rate; }
    /// Time in ms at which the data in view begin.
    double shiftTime() const { return _shiftTime; }
    /// Extent of the data on the vertical axis: ms, or the positions of a slice.
    double wholeHeight() const { return verticalSpan(frame(), nSamples()); }
    /// What the read-out must know.
    ReadoutFrame readoutFrame(int nTraces, int nSamples, bool rightToLeft) const;

    // Steps and scales.
    /// How trace labels are chosen: 1 at multiples of a value, 2 every so many traces, 3 where the value changes.
    void setKeyMethod(int method, int increment);
    /// The next file begins with steps of its own.
    void restartTraceIncrement();
    /// Scales the trace axes to so many traces from 0 on. Returns how they are divided from now on.
    AxisRule setTraceIncrement(float increment, double plotTraces);
    AxisRule setTimeIncrement(float increment, double plotSamples);
    /// The steps from now on are the user's own, kept at every zoom.
    void typeTraceIncrement() { _isTraceIncrTyped = true; }
    void typeTimeIncrement() { _isTimeIncrTyped = true; }
    float traceStep() const { return _traceIncr; }
    float timeStep() const { return _timeIncr; }
    /// What the axes show, traces and ms.
    QRectF visibleRect() const;
    void setVisibleRect(const QRectF& rect);
    /// Moves the trace axes, or the vertical ones, to begin at a value.
    void moveTraces(double from);
    void moveTimes(double from);
    /// What a fixed spacing shows now: scrolling reaches as far at least, until the next data.
    void takeShown();
    void forgetShown() { _shown = QSizeF(); }
    /// What scrolling and panning reach over, with so many traces.
    QSizeF panExtent(int nTraces) const;
    /// Pixels that the labels of the vertical axes take below the canvas.
    int roomBelowCanvas() const;

    // Labels and titles.
    /// Shows or hides the numbers of all axes.
    void setNumbersShown(bool on);
    /// Labels of n traces, entry i of the column that of trace i from 1. Lent until the next call.
    void setLabels(const KeyColumn& column, int n);
    void setDirection(int direction);
    /// The title above the traces, of an ensemble or of a slice, after the text `before`; and the word beside it that
    /// the labels are of.
    void showEnsemble(const QString& before, const KeyColumn& primary, float value, const QString& parm,
                      const QString& word);
    /// Neither title nor labels; the canvas keeps its size.
    void forgetEnsemble();
    /// Title of the vertical axes.
    void setVerticalTitle(const QString& text);
    /// What the read-out calls the vertical axis; the title changes it, too.
    void nameVertical(const QString& text) { _title = text; }
    const QString& verticalName() const { return _title; }
    RecordAxisScaleDraw* record() const { return _record; }

private:
    VerticalFrame frame() const { return {isSlice(), _timeDirection, _window, _rate}; }
    AxisRule traceRule() const;
    AxisRule timeRule() const;
    void setVerticalStart(float start);
    void setTraceTitle(const QString& title, const QString& word);
    void relay();
    void move(int first, int second, double from);

    QwtPlot* _plot;
    RecordAxisScaleDraw* _record;  // owned by the axes
    SeismicAxisScaleDraw* _left;
    SeismicAxisScaleDraw* _right;
    float _traceIncr = 1.0f;
    float _timeIncr = 500.0f;  // ms
    bool _isTraceIncrTyped = false, _isTimeIncrTyped = false;
    int _keyMethod = 0, _keyIncrement = 1;
    SampleWindow _window;
    float _rate = 2.0f;  // ms
    double _shiftTime = 0.0;
    int _domain = 0;
    int _timeDirection = 1;
    float _sliceStart = 1.0f, _sliceTime = 0.0f;
    QSizeF _shown;  // traces and ms
    QString _title;
};

/// Makes the vertical axes of two plots as wide as the wider ones of both, so that what stands above each other is in
/// line. Axes that aren't shown ask for nothing.
void alignVerticalAxes(QwtPlot* a, QwtPlot* b);

#endif
