/// The line under a picture: which traces are in view, and what is done to them.
#ifndef PICTURELINE_H
#define PICTURELINE_H

#include <QString>
#include <QStringList>

class HeaderAxis;
class QFontMetrics;
class SeismicPlot;

/// The parts of the line; none of them is kept longer than it takes to show them.
struct PictureLine {
    QString firstTrace, lastTrace;            ///< "FFID 7, CHAN 101"; empty with no trace in view
    QString shortFirstTrace, shortLastTrace;  ///< "7, 101"
    QStringList chips;
    QString polarity;
    bool isPolarityTold = false;  ///< else the line does without it where there is no room
};

/// What a plot does beyond showing its samples as they are, a text each; empty if nothing.
/// @param overlayRecord  the record shown over it; empty for none
QStringList pictureChips(const SeismicPlot& plot, const QString& overlayRecord);

/// Trace position i, from 1, by its keys: with their names, or only the values.
QString traceKeys(const HeaderAxis& axis, int i, bool hasNames);

/// Positions, from 1, of the first and the last of n traces that a view of the trace axis shows; first is above last
/// where it shows none.
struct TraceRange {
    int first = 1;
    int last = 0;
};
TraceRange tracesInView(double left, double right, int n);

/// The line as plain text; the fullest one that is at most `width` pixels wide: first the names of the keys are left
/// out, then an unknown polarity, then the keys; what is still too long is cut.
QString pictureLineText(const PictureLine& line, const QFontMetrics& metrics, int width);
/// The same with the chips set off by a ground of their own.
QString pictureLineHtml(const PictureLine& line, const QFontMetrics& metrics, int width);

#endif
