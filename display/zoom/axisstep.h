/// The step of an axis.
#ifndef AXISSTEP_H
#define AXISSTEP_H

#include <climits>

/// The step to label an axis of this span with: the one wanted, unless fewer than `least` labels would
/// stand; then the largest of 1, 2 and 5 times a power of ten that gives as many. Never below
/// `smallest`. A span of 0, or a wanted step of 0 (the plot chooses), gives the wanted one back.
double axisStep(double span, double wanted, int least = 3, double smallest = 0.0);

/// The step wanted, or the smallest of its 2, 5, 10, 20, ... multiples with which at most `most` labels stand on
/// a span; `most` is at least 1.
double roomyStep(double span, double wanted, int most);

/// The power of ten at or below a step, if the step is 1, 2 or 5 times that one; else 0.
double roundPower(double step);

/// How an axis is divided, whatever part of it is shown.
struct AxisRule {
    AxisRule() = default;
    /// Only a step wanted, for a plot with rules of its own.
    AxisRule(double step) : wanted(step) {}

    double wanted = 0.0;    ///< scale units; 0: the plot chooses
    bool isTyped = false;   ///< the user's own step, which only ever gives way to lines without a gap
    double smallest = 0.0;  ///< no step is below it
    int most = INT_MAX;     ///< steps that have room on the axis

    /// The step for a span: the typed one; else the one wanted, or the next of 1, 2 and 5 times a power of ten that
    /// gives three labels and leaves room for them.
    double step(double span) const;
};

#endif
