/// Where everything of a section on paper stands, in mm.
#ifndef SECTIONPAGE_H
#define SECTIONPAGE_H

#include <vector>

struct RasterParm;

/// What the layout of a section depends on.
struct SectionParm {
    int nTraces = 0;
    int nSamples = 0;
    double sampleRate = 0.0;  ///< ms
    double startMs = 0.0;     ///< time of the first sample
    double tracesPerCm = 0.0;
    double cmPerSecond = 0.0;
    int nSideLines = 0;  ///< lines of the side label
    bool hasColorStrip = false;
};

/// A rectangle in mm, from the page's top left.
struct SectionRect {
    double left = 0.0, top = 0.0, width = 0.0, height = 0.0;
    double right() const { return left + width; }
    double bottom() const { return top + height; }
};

/// A point in mm, from the page's top left.
struct SectionPoint {
    double x = 0.0, y = 0.0;
};

constexpr double cmPerInch = 2.54;

/// A page made to its section: title and trace labels above, times on both sides, the side label at the right.
///
/// A section of n traces is n trace widths wide, each trace in the middle of its own, and as long as its samples
/// times the sample interval.
class SectionPage
{
public:
    explicit SectionPage(const SectionParm& parm);

    /// False where there is nothing to lay out, or a side of the section would pass `longestSide`.
    bool isValid() const;
    /// Whole points (1/72 inch), which documents measure their pages in, and at least what all parts need.
    double width() const { return _width; }
    double height() const { return _height; }
    const SectionRect& section() const { return _section; }
    const SectionRect& sideLabel() const { return _sideLabel; }
    /// Below the side label; of no height where there is none.
    const SectionRect& colorStrip() const { return _colorStrip; }
    const SectionRect& title() const { return _title; }
    double traceWidth() const { return 10.0 / _parm.tracesPerCm; }
    /// Zero line of a trace, counted from 0 at the left.
    double traceX(double column) const { return _section.left + (column + 0.5) * traceWidth(); }
    double timeY(double ms) const { return _section.top + (ms - _parm.startMs) * _parm.cmPerSecond / 100.0; }
    double endMs() const { return _parm.startMs + _parm.nSamples * _parm.sampleRate; }
    /// Times to label, in ms: multiples of 1, 2 or 5 times a power of ten that leave room for a line each.
    std::vector<double> timeTicks() const;
    /// Columns from one trace label to the next, a multiple of `wanted`, so that labels of this width have room.
    int traceStep(int wanted, double labelWidth) const;
    const SectionParm& parm() const { return _parm; }

    static constexpr double longestSide = 50000.0;  ///< mm
    static constexpr double margin = 8.0;
    static constexpr double tick = 1.6;
    static constexpr double textHeight = 2.6;
    static constexpr double lineHeight = 4.2;

private:
    SectionParm _parm;
    double _width = 0.0, _height = 0.0;
    SectionRect _section, _sideLabel, _colorStrip, _title;
};

/// The samples of a trace as the screen scales them: gain, bias, division, move-out and shift, in trace widths and
/// limited to the clip; a sample that is not finite counts as 0.
/// @param column  counted from 0 at the left
/// @param out     as many as the view has samples; those that a shift leaves empty hold what 0 becomes
void sectionTrace(const RasterParm& parm, int column, std::vector<float>* out);

/// The wiggle of a trace; points that lie on a straight vertical between their neighbours are left out. Excursions
/// end at the borders of the section.
/// @param values  excursions in trace widths, one a sample
std::vector<SectionPoint> sectionWiggle(const SectionPage& page, int column, const std::vector<float>& values);

/// The positive lobes of a trace, a polygon each, cut at the zero crossings by linear interpolation. The last point
/// of a polygon isn't the first again.
std::vector<std::vector<SectionPoint>> sectionLobes(const SectionPage& page, int column,
                                                    const std::vector<float>& values);

#endif
