#include "frame/tracedifference.h"

#include "tracedata/seismicdata.h"

#include <gtest/gtest.h>

namespace {

/// Traces of given samples, a header word each.
struct Ensemble {
    std::vector<std::vector<float>> samples;
    std::vector<int> words;
    std::vector<float*> traces;
    std::vector<int*> headers;
    SeismicData data;

    explicit Ensemble(std::vector<std::vector<float>> values) : samples(std::move(values)), words(samples.size(), 0)
    {
        for (size_t i = 0; i < samples.size(); ++i) {
            traces.push_back(samples[i].data());
            headers.push_back(&words[i]);
        }
        data.setNumHeaderWords(1);
        data.loadAllTraces(traces.data(), headers.data(), int(samples.front().size()), int(samples.size()));
    }
};

std::vector<float> traceOf(const TraceDifference& difference, int i, int n)
{
    return std::vector<float>(difference.traces[i], difference.traces[i] + n);
}

}  // namespace

TEST(TraceDifference, IsTheFirstMinusTheSecond)
{
    Ensemble a({{5, 7, 9}, {1, 1, 1}}), b({{1, 2, 3}, {0, 1, -4}});
    const TraceDifference difference = traceDifference(a.data, b.data, 0, 3);
    ASSERT_EQ(difference.traces.size(), 2u);
    EXPECT_EQ(traceOf(difference, 0, 3), (std::vector<float>{4, 5, 6}));
    EXPECT_EQ(traceOf(difference, 1, 3), (std::vector<float>{1, 0, 5}));
}

TEST(TraceDifference, HasTheTracesAndSamplesThatBothHave)
{
    Ensemble a({{5, 7, 9, 11}, {1, 1, 1, 1}, {2, 2, 2, 2}}), b({{1, 2}, {3, 4}});
    const TraceDifference difference = traceDifference(a.data, b.data, 0, 2);
    ASSERT_EQ(difference.traces.size(), 2u);
    EXPECT_EQ(traceOf(difference, 0, 2), (std::vector<float>{4, 5}));
    EXPECT_EQ(traceOf(difference, 1, 2), (std::vector<float>{-2, -3}));
}

TEST(TraceDifference, OfATimeWindowStandsAtItsPlaceInWholeTraces)
{
    Ensemble a({{5, 7}}), b({{1, 1}});
    EXPECT_EQ(traceOf(traceDifference(a.data, b.data, 3, 6), 0, 6), (std::vector<float>{0, 0, 0, 4, 6, 0}));
    // A window that ends with the trace
    EXPECT_EQ(traceOf(traceDifference(a.data, b.data, 1, 2), 0, 2), (std::vector<float>{0, 4}));
}
