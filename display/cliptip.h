/// The tool tip of a canvas: which share of the samples the clip cuts off.
#ifndef CLIPTIP_H
#define CLIPTIP_H

#include <QObject>

class QWidget;
class SeismicPlot;

/// Counts when a tip is asked for and data, conditioning, scaling, gain or clip have changed since; never while the
/// mouse moves.
class ClipTip : public QObject
{
public:
    /// @param canvas  gets the tip, owns this
    /// @param plot    lent, may go before the canvas only with it
    ClipTip(QWidget* canvas, const SeismicPlot* plot);

    /// "2.5 % of the samples are clipped"; empty without data and for displays without excursions.
    QString text();
    /// How often the samples were counted so far.
    int counts() const { return _counts; }

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// What the count depends on.
    struct State {
        int generation = -1;
        float gain = 0.0f, clip = 0.0f, bias = 0.0f;
        float rangeMin = 0.0f, rangeMax = 0.0f;
        int displayType = 0, normalize = 0;
        bool operator==(const State&) const = default;
    };

    QWidget* _canvas;
    const SeismicPlot* _plot;
    State _state;
    QString _text;
    int _counts = 0;
};

#endif
