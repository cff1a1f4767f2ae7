/// The registers of a display: who is asked, and in which order.
#include "display/tools/batchhook.h"
#include "display/tools/orderedlist.h"
#include "display/tools/tracetaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(OrderedList, TheLowestOrderIsFirstAndEqualOnesKeepTheirs)
{
    int a = 0, b = 0, c = 0, d = 0;
    OrderedList<int> list;
    EXPECT_TRUE(list.isEmpty());
    list.add(&a, 200);
    list.add(&b, 100);
    list.add(&c, 200);
    list.add(&d, 150);
    EXPECT_THAT(list.members(), ElementsAre(&b, &d, &a, &c));
    EXPECT_FALSE(list.isEmpty());
}

TEST(OrderedList, AMemberStandsInItOnceAtItsLastOrder)
{
    int a = 0, b = 0;
    OrderedList<int> list;
    list.add(&a, 100);
    list.add(&b, 200);
    list.add(&a, 300);
    EXPECT_THAT(list.members(), ElementsAre(&b, &a));
    list.remove(&b);
    EXPECT_THAT(list.members(), ElementsAre(&a));
    list.remove(&b);
    list.remove(&a);
    EXPECT_THAT(list.members(), IsEmpty());
}

/// Multiplies or adds, and hears what is left.
struct TapChanger : TraceTap {
    TapChanger(float factor, float summand) : factor(factor), summand(summand) {}
    bool changesTraces() const override { return true; }
    void changeTrace(float* trace, int, int n, int) override
    {
        for (int i = 0; i < n; ++i) trace[i] = trace[i] * factor + summand;
    }
    void pickTraceChange(const float* trace, int, int, int) override { heard.push_back(trace[0]); }
    float factor, summand;
    std::vector<float> heard;
};

struct TapPlaces : TraceTap {
    void pickTraceChange(const float*, int start, int n, int tr) override { calls.push_back({start, n, tr}); }
    std::vector<std::vector<int>> calls;
};

TEST(TraceTaps, ChangeATraceOneAfterTheOther)
{
    TapChanger doubles(2.0f, 0.0f), adds(1.0f, 10.0f);
    TraceTaps taps;
    taps.add(&adds, TraceTaps::Mutes);
    taps.add(&doubles, TraceTaps::Moveout);
    float trace[] = {1.0f, 2.0f};
    taps.changeTrace(trace, 0, 2, 0);
    EXPECT_THAT(trace, ElementsAre(12.0f, 14.0f));  // doubled first
}

TEST(TraceTaps, EachHearsTheTraceAndItsPlace)
{
    TapPlaces a, b;
    TraceTaps taps;
    EXPECT_FALSE(taps.changesTraces());
    taps.add(&a, 0);
    taps.add(&b, 0);
    EXPECT_FALSE(taps.changesTraces());  // who only listens changes nothing
    const float trace[] = {1.0f};
    taps.pickTraceChange(trace, 25, 1, 7);
    taps.remove(&a);
    taps.pickTraceChange(trace, 25, 1, 8);
    EXPECT_THAT(a.calls, ElementsAre(ElementsAre(25, 1, 7)));
    EXPECT_THAT(b.calls, ElementsAre(ElementsAre(25, 1, 7), ElementsAre(25, 1, 8)));
}

/// Appends a digit to the first word of each header.
struct WordAppender : BatchHook {
    explicit WordAppender(int digit) : digit(digit) {}
    void changeHeaders(int** heads, int n, int nWords) override
    {
        ASSERT_EQ(nWords, 3);
        for (int i = 0; i < n; ++i) heads[i][0] = heads[i][0] * 10 + digit;
    }
    int digit;
};

TEST(BatchHooks, ChangeTheHeadersInTheirOrder)
{
    WordAppender text(2), geometry(1);
    BatchHooks hooks;
    hooks.add(&text, BatchHooks::TextToHeader);
    hooks.add(&geometry, BatchHooks::Geometry);
    int first[3] = {5}, second[3] = {6};
    int* heads[] = {first, second};
    hooks.changeHeaders(heads, 2, 3);
    EXPECT_EQ(first[0], 512);
    EXPECT_EQ(second[0], 612);
    hooks.remove(&geometry);
    hooks.changeHeaders(heads, 1, 3);
    EXPECT_EQ(first[0], 5122);
    EXPECT_EQ(second[0], 612);
}
