/// The step of an axis.
#ifndef AXISSTEP_H
#define AXISSTEP_H

/// The step to label an axis of this span with: the one wanted, unless fewer than `least` labels would
/// stand; then the largest of 1, 2 and 5 times a power of ten that gives as many. Never below
/// `smallest`. A span of 0, or a wanted step of 0 (the plot chooses), gives the wanted one back.
double axisStep(double span, double wanted, int least = 3, double smallest = 0.0);

/// The step wanted, or the smallest of its 2, 5, 10, 20, ... multiples with which at most `most` labels stand on
/// a span; `most` is at least 1.
double roomyStep(double span, double wanted, int most);

#endif
