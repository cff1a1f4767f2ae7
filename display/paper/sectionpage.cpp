#include "display/paper/sectionpage.h"

#include "display/raster/rasternumber.h"
#include "display/raster/traceraster.h"
#include "display/zoom/axisstep.h"
#include "host/numeric/resample.h"

#include <algorithm>
#include <cmath>

static constexpr double mmPerPoint = 25.4 / 72.0;
static constexpr double timeColumn = 12.0;  // room of the time labels, in mm
static constexpr double sideColumn = 72.0;
static constexpr double gap = 6.0;
static constexpr double stripWidth = 6.0, stripHeight = 42.0;

static double wholePoints(double mm)
{
    return std::ceil(mm / mmPerPoint - 1e-9) * mmPerPoint;
}

SectionPage::SectionPage(const SectionParm& parm) : _parm(parm)
{
    if (!(parm.tracesPerCm > 0.0) || !(parm.cmPerSecond > 0.0)) return;
    _section.left = margin + timeColumn;
    _section.top = margin + 2.0 * lineHeight + lineHeight + tick;
    _section.width = parm.nTraces * traceWidth();
    _section.height = parm.nSamples * parm.sampleRate * parm.cmPerSecond / 100.0;
    _sideLabel = {_section.right() + timeColumn + gap, _section.top, sideColumn, parm.nSideLines * lineHeight};
    const double stripTop = _sideLabel.bottom() + SectionPage::lineHeight;
    _colorStrip = {_sideLabel.left, stripTop, stripWidth, parm.hasColorStrip ? stripHeight : 0.0};
    const double lowest = parm.hasColorStrip ? _colorStrip.bottom() : _sideLabel.bottom();
    _width = wholePoints(_sideLabel.right() + margin);
    _height = wholePoints(std::max(_section.bottom(), lowest) + margin);
    _title = {_section.left, margin, _width - margin - _section.left, 1.5 * lineHeight};
}

bool SectionPage::isValid() const
{
    return _parm.nTraces > 0 && _parm.nSamples > 1 && _section.width > 0.0 && _section.height > 0.0 &&
           _section.width <= longestSide && _section.height <= longestSide;
}

std::vector<double> SectionPage::timeTicks() const
{
    std::vector<double> ticks;
    if (!isValid()) return ticks;
    const double span = endMs() - _parm.startMs;
    const double step = roomyStep(span, 1.0, wholeOf(_section.height / (1.6 * lineHeight)));
    const double first = std::ceil(_parm.startMs / step - 1e-9);
    for (int k = 0; (first + k) * step <= endMs() + 1e-6; ++k) ticks.push_back((first + k) * step);
    return ticks;
}

int SectionPage::traceStep(int wanted, double labelWidth) const
{
    const int least = std::max(wanted, 1);
    if (!isValid()) return least;
    const int most = wholeOf(_section.width / (labelWidth + 1.5 * textHeight));
    return std::max(1, wholeOf(roomyStep(_parm.nTraces, least, most)));
}

/// Shift of a trace in samples: bulk shift and linear move-out, as the screen has them.
static int shiftOf(const RasterParm& parm, int tr)
{
    double shift = -parm.bulkshift;
    if (parm.moveout == 1 && parm.velocity > 0.0f && parm.offsets)
        shift += wholeOf(std::fabs(double(parm.offsets[tr])) / parm.velocity / (parm.sampleRate / 1000.0));
    return wholeOf(std::clamp(shift, -double(1 << 24), double(1 << 24)));
}

/// The hyperbola of this offset made flat; positions count from time 0.
static void flatten(const RasterParm& parm, double offset, std::vector<float>* values)
{
    const int n = int(values->size());
    const double dt = parm.sampleRate / 1000.0, q = offset * offset / (double(parm.velocity) * parm.velocity);
    std::vector<float> positions(values->size()), moved(values->size());
    for (int j = 0; j < n; ++j) {
        const double t = double(j + parm.startSample) * dt;
        positions[j] = float(std::sqrt(t * t + q) / dt - parm.startSample);
    }
    ints8r(n, 1.0f, 0.0f, values->data(), 0.0f, 0.0f, n, positions.data(), moved.data());
    values->swap(moved);
}

void sectionTrace(const RasterParm& parm, int column, std::vector<float>* out)
{
    const int nSamples = std::min(parm.view.nSamples, parm.stride);
    out->assign(std::max(nSamples, 0), 0.0f);
    if (column < 0 || column >= std::min(parm.view.nTraces, parm.nDataTraces)) return;
    const int tr = parm.plotDirection == RightToLeft ? parm.nDataTraces - 1 - column : column;
    float divisor = 1.0f;
    if (parm.normalize == Normalize::Trace && parm.divTrace) divisor = parm.divTrace[tr];
    if (parm.normalize == Normalize::Dataset) divisor = parm.divRecord;
    if (divisor == 0.0f) divisor = 1.0f;
    const float bias = parm.applyBias ? parm.bias : 0.0f;
    const float* samples = parm.samples + size_t(tr) * parm.stride;
    const int shift = shiftOf(parm, tr);
    for (int j = 0; j < nSamples; ++j) {
        const int from = j + shift;
        const float v = from >= 0 && from < nSamples && std::isfinite(samples[from]) ? samples[from] : 0.0f;
        (*out)[j] = (v * parm.gain + bias) / divisor;
    }
    if (parm.moveout == 2 && parm.velocity > 0.0f) flatten(parm, parm.offsets ? parm.offsets[tr] : 0.0, out);
    const float clip = std::max(parm.clip, 0.0f);
    for (float& v : *out) v = v == v ? std::clamp(v, -clip, clip) : 0.0f;
}

/// Turns samples of one trace into points inside the section.
struct TracePlace {
    TracePlace(const SectionPage& page, int column)
        : left(page.section().left), right(page.section().right()), axis(page.traceX(column)), width(page.traceWidth()),
          top(page.section().top), step(page.parm().sampleRate * page.parm().cmPerSecond / 100.0)
    {
    }
    SectionPoint at(double sample, double value) const
    {
        return {std::clamp(axis + value * width, left, right), top + sample * step};
    }
    double left, right, axis, width, top, step;
};

/// Adds a point, in place of the last one where that lies on the vertical between its neighbours.
static void addPoint(std::vector<SectionPoint>* points, const SectionPoint& point)
{
    const size_t n = points->size();
    if (n >= 2 && (*points)[n - 1].x == point.x && (*points)[n - 2].x == point.x)
        points->back() = point;
    else
        points->push_back(point);
}

std::vector<SectionPoint> sectionWiggle(const SectionPage& page, int column, const std::vector<float>& values)
{
    const TracePlace place(page, column);
    std::vector<SectionPoint> points;
    points.reserve(values.size());
    for (size_t j = 0; j < values.size(); ++j) addPoint(&points, place.at(double(j), values[j]));
    return points;
}

/// Where the line from sample j - 1 to sample j crosses 0.
static double crossing(const std::vector<float>& values, size_t j)
{
    const double before = values[j - 1], after = values[j];
    return double(j - 1) + before / (before - after);
}

std::vector<std::vector<SectionPoint>> sectionLobes(const SectionPage& page, int column,
                                                    const std::vector<float>& values)
{
    const TracePlace place(page, column);
    std::vector<std::vector<SectionPoint>> lobes;
    bool isInside = false;
    for (size_t j = 0; j < values.size(); ++j) {
        const bool isPositive = values[j] > 0.0f;
        if (isPositive && !isInside) lobes.push_back({place.at(j > 0 ? crossing(values, j) : 0.0, 0.0)});
        if (isPositive) addPoint(&lobes.back(), place.at(double(j), values[j]));
        if (!isPositive && isInside) lobes.back().push_back(place.at(crossing(values, j), 0.0));
        isInside = isPositive;
    }
    if (isInside) lobes.back().push_back(place.at(double(values.size() - 1), 0.0));
    return lobes;
}
