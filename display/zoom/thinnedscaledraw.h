/// An axis whose labels never touch, however many steps it has.
#ifndef THINNEDSCALEDRAW_H
#define THINNEDSCALEDRAW_H

#include <qwt_scale_draw.h>

#include <vector>

class ThinnedScaleDraw : public QwtScaleDraw
{
public:
    void draw(QPainter* painter, const QPalette& palette) const override;
    /// The steps whose labels would be drawn with this font, in the order of the axis.
    std::vector<double> labelledSteps(const QFont& font) const;

protected:
    void drawLabel(QPainter* painter, double value) const override;
    void drawTick(QPainter* painter, double value, double length) const override;
    /// Whether a label at this step stands for something there.
    virtual bool isLabelPlace(double /*value*/) const { return true; }
    /// The number that thinning counts by, of a step with a label; `step` is the distance to the next.
    virtual long long labelNumber(double value, double step) const;
    /// Whether the paint under way wants this label; outside one every label is.
    bool isDrawn(double value) const;

private:
    mutable std::vector<double> _drawn;  // steps labelled in the paint under way
    mutable bool _isPainting = false;
    mutable bool _isDense = false;  // too many steps for a line each
};

#endif
