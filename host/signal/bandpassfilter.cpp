#include "host/signal/bandpassfilter.h"

#include "host/signal/realtransform.h"
#include "host/signal/spectralfilter.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numbers>

constexpr double leastSlope = 1.0;       // Hz; a narrower one would make the operator seconds long
constexpr double operatorPeriods = 2.0;  // half length times slope
constexpr double untapered = 0.75;       // of the half length

double BandPassCorners::gain(double f) const
{
    double low = 1.0, high = 1.0;
    if (lp > 0.0) low = lc >= lp ? (f >= lp ? 1.0 : 0.0) : std::clamp((f - lc) / (lp - lc), 0.0, 1.0);
    if (hp < nyquist()) high = hc <= hp ? (f <= hp ? 1.0 : 0.0) : std::clamp((hc - f) / (hc - hp), 0.0, 1.0);
    return low * high;
}

int BandPassCorners::halfLength(int n) const
{
    double slope = nyquist();
    if (lp > 0.0) slope = std::min(slope, lp - lc);
    if (hp < nyquist()) slope = std::min(slope, hc - hp);
    slope = std::max(slope, leastSlope);
    return int(std::min(double(n), std::ceil(operatorPeriods / (intervalSec * slope))));
}

/// Factors 1/length times the gain at each frequency of the transform.
static std::vector<float> trapezoid(const RealTransform& transform, const BandPassCorners& corners)
{
    const int length = transform.length();
    std::vector<float> factors(transform.complexCount());
    for (size_t k = 0; k < factors.size(); ++k)
        factors[k] = float(corners.gain(double(k) / (length * corners.intervalSec)) / length);
    return factors;
}

/// Turns the factors of the trapezoid into those of its operator, cut to `half` samples on both sides.
static void shortenOperator(const RealTransform& transform, const BandPassCorners& corners, int half,
                            std::vector<float>* factors)
{
    const int length = transform.length(), count = transform.complexCount();
    const TransformWork work = TransformWork::ofThread(length);
    for (int k = 0; k < count; ++k) {
        work.spectrum[2 * k] = (*factors)[k];
        work.spectrum[2 * k + 1] = 0.0f;
    }
    transform.back(work.spectrum, work.real);  // the operator: the factors hold the scale
    std::vector<double> h(half + 1);
    for (int k = 0; k <= half; ++k) {
        const double place = half > 0 ? double(k) / half : 0.0;
        const double taper = place <= untapered ? 0.0 : (place - untapered) / (1.0 - untapered);
        h[k] = work.real[k] * 0.5 * (1.0 + std::cos(std::numbers::pi * taper));
    }
    const double lowEnd = std::max(corners.lp, 0.0), highEnd = std::min(corners.hp, corners.nyquist());
    const double middle = 0.5 * (lowEnd + highEnd), wanted = corners.gain(middle);
    double gain = h[0];
    for (int k = 1; k <= half; ++k)
        gain += 2.0 * h[k] * std::cos(2.0 * std::numbers::pi * middle * corners.intervalSec * k);
    const double scale = wanted > 0.0 && gain > 0.0 ? wanted / gain / length : 1.0 / length;

    std::fill(work.real, work.real + length, 0.0f);
    for (int k = 0; k <= half; ++k) work.real[k] = work.real[(length - k) % length] = float(h[k] * scale);
    transform.forward(work.real, work.spectrum);
    for (int k = 0; k < count; ++k) (*factors)[k] = work.spectrum[2 * k];
}

BandPassFilter::BandPassFilter(int, int, int, float, float lc, float lp, float hp, float hc, int nSamples,
                               float sampleRate)
    : _nSamples(std::max(nSamples, 1)), _sampleRate(sampleRate > 0.0f ? sampleRate : 1.0f)
{
    buildFilter(lc, lp, hp, hc);
}

void BandPassFilter::buildFilter(float lc, float lp, float hp, float hc)
{
    static std::atomic<int64_t> builds = 0;
    _corners.intervalSec = _sampleRate / 1000.0;
    const double nyquist = _corners.nyquist();
    const auto inRange = [nyquist](float f) { return f > 0.0f ? std::min(double(f), nyquist) : 0.0; };
    _corners.lc = inRange(lc);
    _corners.lp = inRange(lp);
    _corners.hp = inRange(hp);
    _corners.hc = inRange(hc);
    _builtInTime = _timeDomain;
    _build = ++builds;
    _filter = makeFilter(_nSamples);
}

ZeroPhaseFilter BandPassFilter::makeFilter(int n) const
{
    const RealTransform& transform = RealTransform::ofLength(paddedLength(n));
    std::vector<float> factors = trapezoid(transform, _corners);
    if (_builtInTime) shortenOperator(transform, _corners, _corners.halfLength(n), &factors);
    return ZeroPhaseFilter(factors);
}

void BandPassFilter::applyFilter(float* trace, int n) const
{
    if (n < 1) return;
    if (n == _nSamples) return _filter.apply(trace, n);
    struct Other {
        int64_t build = 0;
        int n = 0;
        ZeroPhaseFilter filter;
    };
    static thread_local Other other;
    if (other.build != _build || other.n != n) other = {_build, n, makeFilter(n)};
    other.filter.apply(trace, n);
}
