/// Times two works alternately and prints their ratio, so that both see the same state of the machine.
#ifndef RATIO_H
#define RATIO_H

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

/// Result of a comparison; times in seconds.
struct Ratio {
    double median = 0.0;  ///< of ours / limit, pair by pair
    double least = 0.0, largest = 0.0;
    double oursSec = 0.0, limitSec = 0.0;  ///< medians
};

inline double secondsOf(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Median and spread of nPairs alternating runs, after one run of each that is not counted.
inline Ratio measureRatio(const std::function<void()>& ours, const std::function<void()>& limit, int nPairs = 11)
{
    ours();
    limit();
    std::vector<double> ratios, oursSec, limitSec;
    for (int i = 0; i < nPairs; ++i) {
        oursSec.push_back(secondsOf(ours));
        limitSec.push_back(secondsOf(limit));
        ratios.push_back(oursSec.back() / limitSec.back());
    }
    const auto median = [](std::vector<double> v) {
        std::nth_element(v.begin(), v.begin() + v.size() / 2, v.end());
        return v[v.size() / 2];
    };
    return {median(ratios), *std::min_element(ratios.begin(), ratios.end()),
            *std::max_element(ratios.begin(), ratios.end()), median(oursSec), median(limitSec)};
}

/// A figure counts as over its limit from this excess on: below it the machine's moods decide.
constexpr double benchTolerance = 1.15;

/// Figures of this program that were over their limit.
inline int& figuresOver()
{
    static int n = 0;
    return n;
}

/// The result of a bench's main: 1 if it failed, 3 if a figure was over its limit, else 0.
inline int benchStatus(bool isGood)
{
    return !isGood ? 1 : figuresOver() > 0 ? 3 : 0;
}

/// Notes a figure that is over its limit; the word for it.
inline const char* judge(double value, double allowed)
{
    if (value > allowed * benchTolerance) ++figuresOver();
    return value <= allowed ? "ok  " : value <= allowed * benchTolerance ? "near" : "OVER";
}

/// One line of the table that bench/run prints; nBytes is what the limit moves, 0 where that says nothing.
inline void printRatio(const char* name, const Ratio& r, double allowed, double nBytes)
{
    std::printf("FIGURE %-44s %6.2f  (%.2f..%.2f)  allowed %.2f  %s  ours %.0f ns  limit %.0f ns", name, r.median,
                r.least, r.largest, allowed, judge(r.median, allowed), r.oursSec * 1e9, r.limitSec * 1e9);
    if (nBytes > 0.0) std::printf("  %.2f GB/s", nBytes / r.limitSec * 1e-9);
    std::printf("\n");
    std::fflush(stdout);
}

/// Measures and prints. What is over its limit is measured again, longer, before it counts.
inline Ratio printFigure(const char* name, double allowed, double nBytes, const std::function<void()>& ours,
                         const std::function<void()>& limit, int nPairs = 11)
{
    Ratio r = measureRatio(ours, limit, nPairs);
    if (r.median > allowed * benchTolerance) r = measureRatio(ours, limit, std::max(nPairs, 31));
    printRatio(name, r, allowed, nBytes);
    return r;
}

/// A ratio of two times that were not measured in pairs.
inline void printValue(const char* name, double value, double allowed, double oursSec, double otherSec)
{
    std::printf("FIGURE %-44s %6.3f  allowed %.3f  %s  ours %.0f ns  other %.0f ns\n", name, value, allowed,
                judge(value, allowed), oursSec * 1e9, otherSec * 1e9);
    std::fflush(stdout);
}

#endif
