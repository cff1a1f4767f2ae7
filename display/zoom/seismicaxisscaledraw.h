/// Labels of the vertical axes: times, or positions of a slice.
#ifndef SEISMICAXISSCALEDRAW_H
#define SEISMICAXISSCALEDRAW_H

#include "display/zoom/thinnedscaledraw.h"

class SeismicAxisScaleDraw : public ThinnedScaleDraw
{
public:
    /// Added to every value before it is shown.
    void setStart(float start);
    /// A fake axis keeps its place and shows no numbers.
    void setFake(bool on);
    QwtText label(double value) const override;

private:
    double _start = 0.0;
    bool _isFake = false;
};

/// A position as text: whole numbers plain, small ones with as many decimals as their size asks for.
QString positionText(double value);

#endif
