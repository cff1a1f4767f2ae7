#include "display/pictureline.h"

#include "display/headeraxis.h"
#include "display/seismicplot.h"

#include <QFontMetrics>
#include <QVector>

#include <algorithm>
#include <cmath>

static QString gainText(double db)
{
    return QString("Gain %1%2 dB").arg(db > 0.0 ? "+" : "").arg(QString::number(db, 'g', 4));
}

QStringList pictureChips(const SeismicPlot& plot, const QString& overlayRecord)
{
    const PlotParm parm = plot.parm();
    const auto printed = [&](const char* key) { return QString::fromStdString(plotParmField(key).print(parm)); };
    QStringList chips;
    if (parm.isPhase) chips += "Phase " + printed("phaseAngle");
    if (parm.isFilter)
        chips +=
            QString("Filter %1-%2-%3-%4 Hz").arg(parm.lowCut).arg(parm.lowPass).arg(parm.highPass).arg(parm.highCut);
    if (parm.isAGC) chips += "AGC " + printed("agcWindow");
    // A gain that was fitted has more digits than anybody typed.
    const double db = std::round(double(parm.gain) * 100.0) / 100.0;
    if (db != 0.0) chips += gainText(db);
    if (!overlayRecord.isEmpty()) chips += "Overlay " + overlayRecord;
    if (parm.plotDirection == RightToLeft) chips += "Traces reversed";
    return chips;
}

static QString keyValue(const KeyColumn& key, int i)
{
    return i >= 0 && size_t(i) < key.values.size() ? QString::number(double(key.values[size_t(i)]), 'g', 9) : QString();
}

QString traceKeys(const HeaderAxis& axis, int i, bool hasNames)
{
    QStringList texts;
    for (const KeyColumn* key : {&axis.pri(), &axis.sec()})
        texts += hasNames ? key->name.trimmed() + " " + keyValue(*key, i) : keyValue(*key, i);
    return texts.join(", ");
}

TraceRange tracesInView(double left, double right, int n)
{
    TraceRange range;
    if (!(left <= right)) return range;
    range.first = int(std::clamp(std::ceil(left - 1e-6), 1.0, n + 1.0));
    range.last = int(std::clamp(std::floor(right + 1e-6), 0.0, double(std::max(n, 0))));
    return range;
}

static const char gap[] = "   ";

static QString rangeText(const QString& first, const QString& last)
{
    if (first.isEmpty()) return "no trace in view";
    return first == last ? first : first + "  to  " + last;
}

/// A part of the line; chips stand on a ground of their own.
struct LinePart {
    QString text;
    bool isChip = false;
};

static QVector<LinePart> partsOf(const QString& keys, const PictureLine& line)
{
    QVector<LinePart> parts;
    if (!keys.isEmpty()) parts.append({keys, false});
    for (const QString& chip : line.chips) parts.append({" " + chip + " ", true});
    if (!line.polarity.isEmpty()) parts.append({"Polarity: " + line.polarity, false});
    return parts;
}

static QString joined(const QVector<LinePart>& parts)
{
    QStringList texts;
    for (const LinePart& part : parts) texts += part.text;
    return texts.join(gap);
}

/// The fullest choice of parts that has room; the last one where none has.
static QVector<LinePart> fittingParts(const PictureLine& line, const QFontMetrics& metrics, int width)
{
    const QString values = rangeText(line.shortFirstTrace, line.shortLastTrace);
    PictureLine known = line;  // that nothing is known of the polarity can be left out first
    if (!line.isPolarityTold) known.polarity.clear();
    const QVector<LinePart> choices[] = {partsOf(rangeText(line.firstTrace, line.lastTrace), line),
                                         partsOf(values, line), partsOf(values, known), partsOf(QString(), known)};
    for (const QVector<LinePart>& parts : choices)
        if (metrics.horizontalAdvance(joined(parts)) <= width) return parts;
    return choices[3];
}

QString pictureLineText(const PictureLine& line, const QFontMetrics& metrics, int width)
{
    return metrics.elidedText(joined(fittingParts(line, metrics, width)), Qt::ElideRight, width);
}

QString pictureLineHtml(const PictureLine& line, const QFontMetrics& metrics, int width)
{
    const QVector<LinePart> parts = fittingParts(line, metrics, width);
    const QString whole = joined(parts), cut = metrics.elidedText(whole, Qt::ElideRight, width);
    QStringList texts;
    for (const LinePart& part : parts) {
        const QString text = part.text.toHtmlEscaped();
        texts += part.isChip ? "<span style=\"background-color:#ffe7a8;color:#000000\">" + text + "</span>" : text;
    }
    return "<span style=\"white-space:pre\">" + (cut == whole ? texts.join(gap) : cut.toHtmlEscaped()) + "</span>";
}
