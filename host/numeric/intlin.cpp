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

void intlin(int n, const float* x, const float* y, int m, const float* xout, float* yout, float ylow, float yhigh)
{
    static thread_local std::vector<float> copies;
    if (n > 0 && m > 0 && overlap(y, n, yout, m)) {
        atLeast(&copies, n);
        std::copy_n(y, n, copies.data());
        y = copies.data();
    }
    int node = 0;
    for (int i = 0; i < m; ++i) {
        const float position = xout[i];
        if (n < 1 || !(position >= x[0])) {
            yout[i] = ylow;
        } else if (position > x[n - 1]) {
            yout[i] = yhigh;
        } else {
            node = nodeBelow(n, x, position, node);
            const double below = counted(y[node]);
            const double step = position == x[node] ? 1.0 : double(x[node + 1]) - x[node];
            const double part = (double(position) - x[node]) / step;
            yout[i] = float(part == 0.0 ? below : below + part * (counted(y[node + 1]) - below));
        }
    }
}
