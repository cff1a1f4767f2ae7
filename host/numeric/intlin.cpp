#include "host/numeric/intlin.h"

#include "host/numeric/scratch.h"

#include <algorithm>
#include <cmath>

static double counted(float value)
{
    return std::isfinite(value) ? value : 0.0;
}

/// The last node not above the position, which lies inside the nodes; `guess` is the one found before.
static int nodeBelow(int n, const float* x, float position, int guess)
{
    for (int i = guess; i < std::min(n, guess + 2); ++i)
        if (x[i] <= position && (i + 1 == n || position < x[i + 1])) return i;
    return int(std::upper_bound(x, x + n, position) - x) - 1;
}

/// @param guess  the node found before; the one found now
static LinearPlace placeAmong(int n, const float* x, float position, int* guess)
{
    if (n < 1 || !(position >= x[0])) return {-1, 0.0};
    if (position > x[n - 1]) return {n, 0.0};
    const int node = *guess = nodeBelow(n, x, position, *guess);
    const double step = position == x[node] ? 1.0 : double(x[node + 1]) - x[node];
    return {node, (double(position) - x[node]) / step};
}

void intlin(int n, const float* x, const float* y, int m, const float* xout, float* yout, float ylow, float yhigh)
{
    static thread_local std::vector<float> copies;
    if (n > 0 && m > 0 && overlap(y, n, yout, m)) {
        atLeast(&copies, n);
        std::copy_n(y, n, copies.data());
        y = copies.data();
    }
    int guess = 0;
    for (int i = 0; i < m; ++i) {
        const LinearPlace place = placeAmong(n, x, xout[i], &guess);
        if (place.node < 0 || place.node >= n) {
            yout[i] = place.node < 0 ? ylow : yhigh;
            continue;
        }
        const double below = counted(y[place.node]);
        yout[i] = float(place.part == 0.0 ? below : below + place.part * (counted(y[place.node + 1]) - below));
    }
}

void linearPlaces(int n, const float* x, int m, const float* xout, LinearPlace* places)
{
    int guess = 0;
    for (int i = 0; i < m; ++i) places[i] = placeAmong(n, x, xout[i], &guess);
}
