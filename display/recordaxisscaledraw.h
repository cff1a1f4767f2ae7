/// Labels of the trace axes: a header word of each trace instead of its number.
#ifndef RECORDAXISSCALEDRAW_H
#define RECORDAXISSCALEDRAW_H

#include "display/thinnedscaledraw.h"
#include "tracedata/orvinconstants.h"

class RecordAxisScaleDraw : public ThinnedScaleDraw
{
public:
    /// @param values  num + 1 values, lent until the next call; the one of trace i (from 1) at index i
    /// @param type    'I': whole numbers, else six digits
    void setAxisArray(const float* values, int num, char type);
    /// @param method  1: a label only where the value is a multiple of incr; 3: only where it changes
    void setMethod(int method, int incr);
    void setFake(bool on);
    void setPlotDirection(int direction);
    /// Value of the trace at a position on the axis; 0 outside.
    float getElement(float position) const;

    QwtText label(double value) const override;

protected:
    void drawLabel(QPainter* painter, double value) const override;
    /// A label stands on its trace only.
    bool isLabelPlace(double value) const override;
    long long labelNumber(double value, double step) const override;

private:
    int _num = 0;
    char _type = 'I';
    const float* _values = nullptr;  // lent
    int _method = 0;
    int _incr = 1;
    bool _isFake = false;
    int _plotDirection = LeftToRight;
    std::vector<int> _changes;  // how often the value has changed up to each trace, from 1
};

#endif
