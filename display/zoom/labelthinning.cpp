#include "display/zoom/labelthinning.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

static bool keepGap(const AxisLabel& a, const AxisLabel& b, double gap)
{
    return std::fabs(a.middle - b.middle) >= (a.extent + b.extent) / 2.0 + gap;
}

/// The labels whose number is a multiple; empty where two of them come too near.
static std::vector<int> everyOf(const std::vector<AxisLabel>& labels, long long multiple, double gap)
{
    std::vector<int> drawn;
    for (int i = 0; i < int(labels.size()); ++i) {
        if (labels[i].number % multiple != 0) continue;
        if (!drawn.empty() && !keepGap(labels[drawn.back()], labels[i], gap)) return {};
        drawn.push_back(i);
    }
    return drawn;
}

std::vector<int> labelsToDraw(const std::vector<AxisLabel>& labels, double gap)
{
    if (labels.empty()) return {};
    const int last = int(labels.size()) - 1;
    long long largest = 1;
    for (const AxisLabel& label : labels) largest = std::max(largest, std::llabs(label.number));
    for (long long power = 1; power <= largest; power *= 10)
        for (const int factor : {1, 2, 5}) {
            std::vector<int> drawn = everyOf(labels, factor * power, gap);
            if (drawn.size() >= 2) return drawn;
        }
    if (last > 0 && keepGap(labels[0], labels[last], gap)) return {0, last};
    return {last / 2};
}
