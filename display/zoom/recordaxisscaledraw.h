/// Labels of the trace axes: a header word of each trace instead of its number.
#ifndef RECORDAXISSCALEDRAW_H
#define RECORDAXISSCALEDRAW_H

#include "display/zoom/thinnedscaledraw.h"
#include "tracedata/orvinconstants.h"

#include <QString>

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
    /// The word that the labels are of, at the left above them, in the row of the axis's title.
    /// @param titleWidth  pixels that the title takes in the middle of that row; the name keeps clear of it
    void setName(const QString& name, double titleWidth);
    const QString& name() const { return _name; }
    /// Value of the trace at a position on the axis; 0 outside.
    float getElement(float position) const;

    /// Where the method leaves fewer than two labels on an axis of three or more traces, the first and the last of its
    /// steps have one, too.
    QwtText label(double value) const override;
    void draw(QPainter* painter, const QPalette& palette) const override;

protected:
    void drawLabel(QPainter* painter, double value) const override;
    /// A label stands on its trace only.
    bool isLabelPlace(double value) const override;
    long long labelNumber(double value, double step) const override;

private:
    bool isAsked(int i) const;
    bool isEnd(int i) const;
    void forget();
    void drawName(QPainter* painter, const QPalette& palette) const;

    int _num = 0;
    char _type = 'I';
    const float* _values = nullptr;  // lent
    int _method = 0;
    int _incr = 1;
    bool _isFake = false;
    int _plotDirection = LeftToRight;
    QString _name;
    double _titleWidth = 0.0;
    mutable double _endsFrom = 0.0, _endsTo = 0.0;  // the scale that the ends below belong to
    mutable bool _hasEnds = false;                  // they are known
    mutable int _ends[2] = {0, 0};                  // traces labelled for want of others; 0 for none
    std::vector<int> _changes;                      // how often the value has changed up to each trace, from 1
};

#endif
