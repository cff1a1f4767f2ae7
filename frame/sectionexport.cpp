#include "frame/sectionexport.h"

#include "display/colors/colortable.h"
#include "display/raster/displaytype.h"
#include "display/seismicdisplay.h"
#include "display/seismicplot.h"
#include "sources/ensemblesource.h"
#include "widgets/wholefile.h"

#include <QBuffer>
#include <QDate>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <qwt_plot_grid.h>
#include <qwt_scale_draw.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

SectionScale presentScale(const SeismicDisplay& display)
{
    const SeismicPlot* plot = display.seismicPlot();
    const double secondsPerInch = plot->sampleSpacing() * double(display.sampleRate()) / 1000.0;
    SectionScale scale;
    scale.tracesPerCm = plot->traceSpacing() / cmPerInch;
    scale.cmPerSecond = secondsPerInch > 0.0 ? cmPerInch / secondsPerInch : 0.0;
    return scale;
}

SectionPage sectionPage(const SeismicDisplay& display, const SectionScale& scale, int nSideLines)
{
    const SeismicPlot* plot = display.seismicPlot();
    const TraceConditioner& conditioner = plot->conditioner();
    SectionParm parm;
    parm.nTraces = std::min(plot->seisRect().nTraces, conditioner.traceCount());
    parm.nSamples = std::min(plot->seisRect().nSamples, conditioner.sampleCount());
    parm.sampleRate = display.sampleRate();
    parm.startMs = plot->startSample() * double(display.sampleRate());
    parm.tracesPerCm = scale.tracesPerCm;
    parm.cmPerSecond = scale.cmPerSecond;
    parm.nSideLines = nSideLines;
    parm.hasColorStrip = isColorType(plot->displayType()) && plot->colorBar();
    return SectionPage(parm);
}

static QString numberText(double value)
{
    return QString::number(value, 'g', 5);
}

static QString filterText(const TraceConditioner& conditioner)
{
    if (!conditioner.isFilter()) return "none";
    const ConditionParm& c = conditioner.parm();
    return QString("%1-%2-%3-%4 Hz").arg(c.lowCut).arg(c.lowPass).arg(c.highPass).arg(c.highCut);
}

static QString sortText(const SeismicDisplay& display, const EnsembleSource* source)
{
    const HeaderAxis& axis = display.headerAxis();
    const QString keys = axis.priReal().name.trimmed() + ", " + axis.secReal().name.trimmed();
    const QString sort = source ? source->sortText() : QString();
    return sort.isEmpty() ? keys : sort + " (" + keys + ")";
}

static QString scalingText(Normalize normalize)
{
    switch (normalize) {
    case Normalize::Trace: return "each trace";
    case Normalize::Dataset: return "ensemble";
    default: return "none";
    }
}

static QString recordText(const SeismicDisplay& display)
{
    const KeyColumn& key = display.headerAxis().pri();
    const float value = key.values.size() > 1 ? key.values[1] : 0.0f;
    return key.name.trimmed() + " " + QString::number(double(value), 'g', 9);
}

static QString moveoutText(const SeismicPlot& plot)
{
    if (plot.moveout() == 0 || !(plot.velocity() > 0.0f)) return "none";
    return QString(plot.moveout() == 1 ? "linear, %1" : "hyperbolic, %1").arg(numberText(plot.velocity()));
}

SectionContent sectionContent(const SeismicDisplay& display, const SectionScale& scale, const QString& file,
                              const EnsembleSource* source, std::vector<float>* offsets)
{
    const SeismicPlot* plot = display.seismicPlot();
    const TraceConditioner& conditioner = plot->conditioner();
    SectionContent content;
    content.raster = plot->rasterParm(offsets);
    content.title = display.axisTitle(QwtPlot::xTop).text().simplified().replace(" :", ":");  // names are padded
    content.keyName = display.headerAxis().sec().name.trimmed();
    content.labelStep = std::max(1, int(std::clamp(display.traceIncrement(), 1.0f, 1e6f)));
    content.hasTimeLines = display.grid()->yEnabled();
    const QwtScaleDraw* labels = display.axisScaleDraw(QwtPlot::xTop);
    for (int i = 1; i <= std::min(plot->seisRect().nTraces, conditioner.traceCount()); ++i)
        content.traceLabels.append(labels->label(i).text());
    std::vector<std::pair<QString, QString>> side = {
        {"File", file.isEmpty() ? QString("unknown") : file},
        {"Record", recordText(display)},
        {"Traces", QString::number(content.traceLabels.size())},
        {"Samples", QString("%1 at %2 ms").arg(plot->seisRect().nSamples).arg(numberText(display.sampleRate()))},
        {"Sort", sortText(display, source)},
        {"Filter", filterText(conditioner)},
        {"Phase", conditioner.isPhase() ? numberText(conditioner.phaseAngle()) + " degrees" : QString("none")},
        {"AGC", conditioner.isAGC() ? QString("%1 ms").arg(conditioner.agcWindow()) : QString("none")},
        {"Move-out", moveoutText(*plot)},
        {"Scaling", scalingText(plot->normalization())},
        {"Gain", numberText(plot->gain()) + " dB"},
        {"Clip", numberText(plot->clip()) + " traces"},
        {"Polarity", polarityText(display.polarity())},
        {"Scale", numberText(scale.tracesPerCm) + " traces/cm, " + numberText(scale.cmPerSecond) + " cm/s"},
        {"Date", QDate::currentDate().toString(Qt::ISODate)},
    };
    const ColorTable& colors = *content.raster.colors;
    if (colors.colorType() == ColorYes)
        side.push_back({"Colors", numberText(colors.minValue()) + " to " + numberText(colors.maxValue())});
    content.side = foldedSide(side);
    if (plot->colorBar()) content.strip = plot->colorBar()->strip();
    content.strip.hasNumbers = true;  // a page has no other scale
    return content;
}

QString withSectionSuffix(const QString& name)
{
    return QFileInfo(name).suffix().isEmpty() ? name + ".pdf" : name;
}

static bool paintOn(QPaintDevice* device, const SectionPage& page, const SectionContent& content)
{
    QPainter painter;
    if (!painter.begin(device)) return false;
    paintSection(&painter, page, content);
    return painter.end();
}

static bool writePdf(QIODevice* file, const SectionPage& page, const SectionContent& content)
{
    QPdfWriter writer(file);
    writer.setCreator("Seismic Display");
    writer.setTitle(content.title);
    writer.setResolution(sectionResolution);
    const QSizeF points(std::round(page.width() * 72.0 / 25.4), std::round(page.height() * 72.0 / 25.4));
    writer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    return paintOn(&writer, page, content);
}

static bool writeSvg(QIODevice* file, const SectionPage& page, const SectionContent& content)
{
    QSvgGenerator generator;
    generator.setOutputDevice(file);
    generator.setTitle(content.title);
    generator.setResolution(sectionResolution);
    const QSize size(int(std::round(page.width() * sectionUnits)), int(std::round(page.height() * sectionUnits)));
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    return paintOn(&generator, page, content);
}

bool saveSection(const SectionPage& page, const SectionContent& content, const QString& name, QString* error)
{
    const QString suffix = QFileInfo(name).suffix().toLower();
    if (suffix != "pdf" && suffix != "svg") return cannotWrite(name, "a section is a .pdf or an .svg file", error);
    if (!page.isValid()) return cannotWrite(name, "there is no section of such a size", error);
    QBuffer bytes;
    const bool isPainted =
        bytes.open(QIODevice::WriteOnly) && (suffix == "pdf" ? writePdf : writeSvg)(&bytes, page, content);
    if (!isPainted) return cannotWrite(name, "the section could not be drawn", error);
    return writeWhole(name, bytes.data(), error);
}
