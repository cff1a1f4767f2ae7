#include "host/numeric/sinctable.h"

#include <cmath>
#include <numbers>

static double sinc(double x)
{
    return x == 0.0 ? 1.0 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

/// Solves the symmetric Toeplitz system with first row r for the right side g (Levinson 1947).
static void solveToeplitz(const double* r, const double* g, double* f)
{
    double a[sincTaps] = {1.0};
    double v = r[0];
    f[0] = g[0] / r[0];
    for (int j = 1; j < sincTaps; ++j) {
        double e = 0.0;
        for (int i = 0; i < j; ++i) e += a[i] * r[j - i];
        const double c = e / v;
        v -= e * c;
        a[j] = 0.0;
        for (int i = 0; i <= j / 2; ++i) {
            const double low = a[i] - c * a[j - i], high = a[j - i] - c * a[i];
            a[i] = low;
            a[j - i] = high;
        }
        double w = 0.0;
        f[j] = 0.0;
        for (int i = 0; i < j; ++i) w += f[i] * r[j - i];
        const double scale = (g[j] - w) / v;
        for (int i = 0; i <= j; ++i) f[i] += scale * a[j - i];
    }
}

SincTable::SincTable()
{
    const double fm = 0.066 + 0.265 * std::log(double(sincTaps));
    double row[sincTaps];
    for (int j = 0; j < sincTaps; ++j) row[j] = sinc(fm * j);
    for (int k = 0; k < sincFractions; ++k) {
        const double d = double(k) / (sincFractions - 1);
        double right[sincTaps], solution[sincTaps], sum = 0.0;
        for (int j = 0; j < sincTaps; ++j) right[j] = sinc(fm * (sincBefore - j + d));
        solveToeplitz(row, right, solution);
        for (double s : solution) sum += s;
        for (int j = 0; j < sincTaps; ++j) taps[k][j] = float(solution[j] / sum);
    }
    // Solved numerically these two miss the unit vectors by some 1e-16.
    for (int j = 0; j < sincTaps; ++j) {
        taps[0][j] = j == sincBefore ? 1.0f : 0.0f;
        taps[sincFractions - 1][j] = j == sincBefore + 1 ? 1.0f : 0.0f;
    }
}

const SincTable& sincTable()
{
    static const SincTable table;
    return table;
}
