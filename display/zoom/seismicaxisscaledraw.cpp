#include "display/zoom/seismicaxisscaledraw.h"

#include <QString>
#include <qwt_text.h>

#include <cmath>

void SeismicAxisScaleDraw::setStart(float start)
{
    _start = start;
    invalidateCache();
}

void SeismicAxisScaleDraw::setFake(bool on)
{
    _isFake = on;
    invalidateCache();
}

QString positionText(double value)
{
    if (value >= 1.0 || value == 0.0) return QString::number(value);
    double least = 0.1;
    for (int decimals = 1; decimals <= 5; ++decimals, least /= 10.0)
        if (value >= least * (1.0 - 1e-12)) return QString::number(value, 'f', decimals);
    return QString::number(value, 'g', 6);
}

QwtText SeismicAxisScaleDraw::label(double value) const
{
    return _isFake ? QwtText() : QwtText(positionText(std::fabs(value + _start)));
}
