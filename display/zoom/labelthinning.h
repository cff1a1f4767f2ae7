/// Which labels of an axis are drawn, so that none touches another.
#ifndef LABELTHINNING_H
#define LABELTHINNING_H

#include <vector>

/// A label of an axis: where it stands and what it takes along the axis, both in pixels.
struct AxisLabel {
    double middle = 0.0;
    double extent = 0.0;
    /// Its number among the steps of the axis, the same whatever part is shown.
    long long number = 0;
};

/// Every label, or every 2nd, 5th, 10th, 20th, ... by its number, the densest choice in which none comes nearer than
/// `gap` pixels to the next. Where that leaves fewer than two, the two outermost labels, if those keep the gap.
/// Returns the indices of those to draw, in order. The labels stand in order along the axis, upward or downward.
std::vector<int> labelsToDraw(const std::vector<AxisLabel>& labels, double gap);

#endif
