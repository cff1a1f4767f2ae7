#include "tracedata/seismicdata.h"

#include "tracedata/headertable.h"
#include "tracedata/seismicheader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

/// Traces with room for four header words each.
struct Ensemble {
    std::vector<std::vector<float>> samples;
    std::vector<std::vector<int>> words;
    std::vector<float*> traces;
    std::vector<int*> headers;

    explicit Ensemble(std::vector<std::vector<float>> values) : samples(std::move(values))
    {
        words.assign(samples.size(), std::vector<int>(4, 0));
        for (auto& trace : samples) traces.push_back(trace.data());
        for (auto& header : words) headers.push_back(header.data());
    }
    void load(SeismicData* data)
    {
        data->setNumHeaderWords(4);
        data->loadAllTraces(traces.data(), headers.data(), int(samples.front().size()), int(samples.size()));
    }
};

}  // namespace

TEST(SeismicData, StartsEmpty)
{
    const SeismicData data;
    EXPECT_EQ(data.traceCount(), 0);
    EXPECT_EQ(data.sampleCount(), 0);
    EXPECT_FALSE(data.isChanged());
}

TEST(SeismicData, AllZeroDataMeasureAsOne)
{
    Ensemble ensemble({{0, 0, 0, 0, 0}});
    SeismicData data;
    ensemble.load(&data);
    EXPECT_EQ(data.computeRMS(), 1.0f);
    EXPECT_EQ(data.getRms(), 1.0f);
    EXPECT_EQ(data.getMean(), 1.0f);
    EXPECT_EQ(data.getPeak(), 1.4f);
}

TEST(SeismicData, ATraceWithThreeLiveSamplesDoesNotCountOneWithFourDoes)
{
    Ensemble three({{9, 9, 9, 0, 0}});
    SeismicData data;
    three.load(&data);
    EXPECT_EQ(data.computeRMS(), 1.0f);
    EXPECT_EQ(data.getMaximum(), 9.0f);  // the range counts it all the same
    data.clear();
    Ensemble four({{2, -2, 4, -4, 0}});
    four.load(&data);
    EXPECT_FLOAT_EQ(data.computeRMS(), 3.0f);  // (2 + 2 + 4 + 4) / 4: a mean absolute amplitude
    EXPECT_FLOAT_EQ(data.getPeak(), 4.2f);
}

TEST(SeismicData, TheMeanRunsOnFromTraceToTrace)
{
    Ensemble ensemble({{1, 1, 1, 1}, {2, -2, 2, -2}});
    SeismicData data;
    ensemble.load(&data);
    EXPECT_FLOAT_EQ(data.computeRMS(), 1.5f);  // (4/4 + 8/4) / 2
    EXPECT_FLOAT_EQ(data.getMean(), 2.0f);     // (4/4 + (4 + 8)/4) / 2: the sum isn't reset
    data.computeRMS();
    EXPECT_FLOAT_EQ(data.getMean(), 2.0f);  // but starts at 0 at each call
}

TEST(SeismicData, NonFiniteSamplesDoNotReachTheRange)
{
    const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
    Ensemble ensemble({{nan, inf, -inf, 3, -5, 1, 1}});
    SeismicData data;
    ensemble.load(&data);
    EXPECT_FLOAT_EQ(data.computeRMS(), 2.5f);
    EXPECT_EQ(data.getMaximum(), 3.0f);
    EXPECT_EQ(data.getMinimum(), -5.0f);
}

TEST(SeismicData, WithoutALiveSampleTheRangeIsInsideOut)
{
    Ensemble ensemble({{0, 0, 0}});
    SeismicData data;
    ensemble.load(&data);
    data.computeRMS();
    EXPECT_EQ(data.getMaximum(), -3.4e38f);
    EXPECT_EQ(data.getMinimum(), 3.4e38f);
}

TEST(SeismicData, SettingValuesPastTheEndWritesNothing)
{
    Ensemble ensemble({{1, 2, 3, 4}});
    SeismicData data;
    ensemble.load(&data);
    const float values[] = {8, 9};
    data.setTraceValues(values, 0, 3, 2);
    EXPECT_EQ(ensemble.samples[0], (std::vector<float>{1, 2, 3, 4}));
    data.setTraceValues(values, 0, 2, 2);
    EXPECT_EQ(ensemble.samples[0], (std::vector<float>{1, 2, 8, 9}));
}

TEST(SeismicData, TracesAreLentNotCopied)
{
    Ensemble ensemble({{1, 2}, {3, 4}});
    SeismicData data;
    ensemble.load(&data);
    EXPECT_EQ(data.getTraceValues(1, 1), &ensemble.samples[1][1]);
    EXPECT_EQ(data.getTraceHeaders()[1], ensemble.words[1].data());
}

TEST(SeismicData, TracesCanBeAppendedOneByOne)
{
    Ensemble ensemble({{1, 2}, {3, 4}, {5, 6}});
    SeismicData data;
    data.setNumHeaderWords(4);
    for (int i = 0; i < 3; ++i) data.loadTrace(ensemble.traces[i], ensemble.headers[i], 2);
    ASSERT_EQ(data.traceCount(), 3);
    EXPECT_EQ(*data.getTraceValues(2, 0), 5.0f);
    EXPECT_EQ(data.getTraceHeader(2)->headers(), ensemble.headers[2]);
    data.clear();
    EXPECT_EQ(data.traceCount(), 0);
}

TEST(SeismicHeader, ReadsAndWritesWordsWithinItsArray)
{
    int words[4] = {7, 0, 0, 42};
    SeismicHeader header(words, 4);
    int value = -1;
    EXPECT_EQ(header.headerValue(3, &value), 1);
    EXPECT_EQ(value, 42);
    value = -1;
    EXPECT_EQ(header.headerValue(-1, &value), 0);
    EXPECT_EQ(value, -1);  // a negative index leaves the target alone
    header.headerValueSet(4, 9);
    header.headerValueSet(-1, 9);
    header.headerValueSet(0, 2.5f);
    float real = 0.0f;
    header.headerFloatValue(0, &real);
    EXPECT_EQ(real, 2.5f);
    EXPECT_EQ(words[3], 42);
}

TEST(SeismicHeader, TwoAdjacentWordsMakeALongValue)
{
    int words[3] = {0, 0, 0};
    const double pi = 3.14159;
    std::memcpy(words + 1, &pi, sizeof pi);
    const SeismicHeader header(words, 3);
    double real = 0.0;
    EXPECT_EQ(header.headerDoubleValue(1, &real), 1);
    EXPECT_EQ(real, pi);
    EXPECT_EQ(header.headerDoubleValue(-1, &real), 0);
    EXPECT_EQ(header.headerDoubleValue(2, &real), 0);  // half of it lies outside
    long whole = 0;
    EXPECT_EQ(header.headerLongValue(1, &whole), 1);
    EXPECT_EQ(std::memcmp(&whole, &pi, 8), 0);
}

TEST(SeismicHeader, TextIsCutAtTheEndOfTheWords)
{
    int words[2];
    std::memcpy(words, "LINE 7AB", 8);
    const SeismicHeader header(words, 2);
    char text[12];
    header.headerStringValue(1, text, 12);
    EXPECT_STREQ(text, " 7AB");
    char untouched[4] = "abc";
    header.headerStringValue(-1, untouched, 3);
    EXPECT_STREQ(untouched, "abc");
}

TEST(SeismicHeader, NewWordsLeaveTheFloatViewOnTheOldOnes)
{
    int oldWords[1], newWords[1];
    const float before = 1.5f, after = 2.5f;
    std::memcpy(oldWords, &before, 4);
    std::memcpy(newWords, &after, 4);
    SeismicHeader header(oldWords, 1);
    header.setAsNewHeader(newWords);
    float value = 0.0f;
    header.headerValue(0, &value);
    EXPECT_EQ(value, before);
    header.headerFloatValue(0, &value);
    EXPECT_EQ(value, after);
}
