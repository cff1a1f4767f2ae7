/// Piecewise linear interpolation.
#ifndef INTLIN_H
#define INTLIN_H

/// Interpolates between the n nodes (x, y) at m positions in any order.
///
/// @param x     n abscissas, never falling; of equal ones the last counts
/// @param y     n values; lent. One that is not finite counts as 0
/// @param xout  m positions; lent
/// @param yout  out: m values. Below x[0], at NaN and without nodes ylow; above x[n-1] yhigh; on a node
///              its y exactly. May overlap y or be xout, as if these had been copied
///
/// Quick where neighbouring positions lie in one interval or the next. May be called from several threads.
void intlin(int n, const float* x, const float* y, int m, const float* xout, float* yout, float ylow, float yhigh);

/// Where a position lies among the nodes: behind node `node` by `part` of the way to the next. -1 stands for
/// all that intlin gives ylow, the number of nodes for what lies above the last.
struct LinearPlace {
    int node;
    double part;
};
/// The places of m positions, for values that change while nodes and positions stay.
void linearPlaces(int n, const float* x, int m, const float* xout, LinearPlace* places);

#endif
