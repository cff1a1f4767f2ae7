#include "display/zoom/axisstep.h"

#include <algorithm>
#include <cmath>

double axisStep(double span, double wanted, int least, double smallest)
{
    span = std::fabs(span);
    if (!(span > 0.0) || !(wanted > 0.0) || !std::isfinite(span) || span / wanted >= least) return wanted;
    const double largest = span / least;
    const double power = std::pow(10.0, std::floor(std::log10(largest)));
    double step = power;
    for (const double factor : {2.0, 5.0})
        if (factor * power <= largest * (1.0 + 1e-9)) step = factor * power;
    return std::max(step, smallest);
}

double roomyStep(double span, double wanted, int most)
{
    span = std::fabs(span);
    if (!(wanted > 0.0) || !std::isfinite(span)) return wanted;
    for (double power = 1.0;; power *= 10.0)
        for (const double factor : {1.0, 2.0, 5.0})
            if (span / (wanted * factor * power) <= std::max(most, 1)) return wanted * factor * power;
}

double roundPower(double step)
{
    const double power = std::pow(10.0, std::floor(std::log10(step) + 1e-9));
    for (const double factor : {1.0, 2.0, 5.0})
        if (std::fabs(step - factor * power) <= 1e-9 * step) return power;
    return 0.0;
}

double AxisRule::step(double span) const
{
    if (!(wanted > 0.0) || !std::isfinite(span)) return wanted;
    if (isTyped) return roomyStep(span, wanted, most);
    const double wide = axisStep(span, wanted, 3, smallest);
    const double power = roundPower(wide);
    // From the power of ten on: twice and five times 500 would be 1000 and 2500.
    return power > 0.0 ? std::max(wide, roomyStep(span, power, most)) : roomyStep(span, wide, most);
}
