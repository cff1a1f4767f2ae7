#include "display/axisstep.h"

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
