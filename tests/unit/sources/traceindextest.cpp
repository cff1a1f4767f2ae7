/// A source's index of all traces: values and coordinates without reading, traces by their number, and its signal.
#include "tests/unit/sources/segyloaderfixture.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

/// An index of two traces that were made up.
class MadeIndex : public TraceIndex
{
public:
    int count() const override { return 2; }
    bool has(TraceValue what) const override { return what == TraceValue::Cdp; }
    void values(TraceValue what, float* out) const override
    {
        for (int i = 0; i < count(); ++i) out[i] = value(what, i);
    }
    using TraceIndex::values;
    float value(TraceValue what, int i) const override { return has(what) ? float(100 + i) : 0.0f; }
    int place(int i) const override { return i; }
    bool readTrace(int, int*, float*) override { return false; }
};

/// Two shots of 2 and 1 traces, of which the second stands first in the file.
SegyBuilder twoShots()
{
    SegyBuilder file(2);
    const int shots[][4] = {{20, 1, 500, 7}, {10, 2, -300, 9}, {10, 1, 100, 8}};  // FFID, CHAN, offset, CDP
    for (size_t i = 0; i < 3; ++i) {
        file.addTrace(Floats{float(10 * i), float(10 * i + 1)});
        file.setHeader<int32_t>(i, 0, 31 + int(i));
        file.setHeader<int32_t>(i, 8, shots[i][0]);
        file.setHeader<int32_t>(i, 12, shots[i][1]);
        file.setHeader<int32_t>(i, 36, shots[i][2]);
        file.setHeader<int32_t>(i, 20, shots[i][3]);
        file.setHeader<int32_t>(i, 196, (60 + int(i)) << 24);  // these bytes are not swapped: the lowest comes first
        file.setHeader<int16_t>(i, 172, int16_t(70 + int(i)));
        file.setHeader<int32_t>(i, 188, 80 + int(i));
        file.setHeader<int32_t>(i, 192, 90 + int(i));
        file.setHeader<int32_t>(i, 72, 1000 + int(i));
        file.setHeader<int32_t>(i, 76, 2000 + int(i));
        file.setHeader<int32_t>(i, 80, 3000 + int(i));
        file.setHeader<int32_t>(i, 84, 4000 + int(i));
        file.setHeader<int32_t>(i, 180, 5000 + int(i));
        file.setHeader<int32_t>(i, 184, 6000 + int(i));
    }
    return file;
}

}  // namespace

using TraceIndexTest = SegyLoaderTest;

TEST_F(TraceIndexTest, ValuesAndCoordinatesStandInTheOrderOfTheSort)
{
    Loaded l({.files = save(twoShots()), .isort = 1, .indexbuilt = 1});
    ASSERT_TRUE(l.open().isGood);
    const TraceIndex* index = l.loader->traceIndex();
    ASSERT_NE(index, nullptr);
    EXPECT_EQ(index->count(), 3);
    // FFID 10 with channels 1 and 2, which are the third and the second of the file, then FFID 20
    EXPECT_THAT(index->values(TraceValue::Ffid), ElementsAre(10, 10, 20));
    EXPECT_THAT(index->values(TraceValue::Channel), ElementsAre(1, 2, 1));
    EXPECT_THAT(index->values(TraceValue::Offset), ElementsAre(100, -300, 500));
    EXPECT_THAT(index->values(TraceValue::Cdp), ElementsAre(8, 9, 7));
    EXPECT_THAT(index->values(TraceValue::TraceNumber), ElementsAre(33, 32, 31));
    EXPECT_THAT(index->values(TraceValue::SourceLocation), ElementsAre(62, 61, 60));
    EXPECT_THAT(index->values(TraceValue::ReceiverLocation), ElementsAre(72, 71, 70));
    EXPECT_THAT(index->values(TraceValue::Inline), ElementsAre(82, 81, 80));
    EXPECT_THAT(index->values(TraceValue::Crossline), ElementsAre(92, 91, 90));
    EXPECT_THAT(index->values(TraceValue::SourceX), ElementsAre(1002, 1001, 1000));
    EXPECT_THAT(index->values(TraceValue::SourceY), ElementsAre(2002, 2001, 2000));
    EXPECT_THAT(index->values(TraceValue::ReceiverX), ElementsAre(3002, 3001, 3000));
    EXPECT_THAT(index->values(TraceValue::ReceiverY), ElementsAre(4002, 4001, 4000));
    EXPECT_THAT(index->values(TraceValue::CdpX), ElementsAre(5002, 5001, 5000));
    EXPECT_THAT(index->values(TraceValue::CdpY), ElementsAre(6002, 6001, 6000));
    EXPECT_EQ(index->value(TraceValue::Cdp, 1), 9.0f);
    EXPECT_EQ(index->place(0), 2);
    EXPECT_EQ(index->place(2), 0);
}

TEST_F(TraceIndexTest, ATraceIsReadByItsNumber)
{
    Loaded l({.files = save(twoShots()), .isort = 1, .indexbuilt = 1});
    ASSERT_TRUE(l.open().isGood);
    std::vector<int> words(size_t(l.loader->numHeaderWords()));
    Floats samples(2);
    ASSERT_TRUE(l.loader->traceIndex()->readTrace(1, words.data(), samples.data()));
    EXPECT_THAT(samples, ElementsAre(10, 11));
    EXPECT_EQ(words[size_t(l.loader->headerWords().index("CDP     ").value)], 9);
    EXPECT_FALSE(l.loader->traceIndex()->readTrace(3, words.data(), samples.data()));
    EXPECT_FALSE(l.loader->traceIndex()->readTrace(-1, words.data(), samples.data()));
}

TEST_F(TraceIndexTest, ReadingATraceLeavesTheEnsembleAndItsPlace)
{
    Loaded l({.files = save(twoShots()), .isort = 1, .indexbuilt = 1});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    std::vector<int> words(size_t(l.loader->numHeaderWords()));
    Floats samples(2);
    ASSERT_TRUE(l.loader->traceIndex()->readTrace(2, words.data(), samples.data()));
    EXPECT_EQ(l.words("FFID    "), (std::vector<int>{10, 10}));
    EXPECT_EQ(l.words("CHAN    "), (std::vector<int>{1, 2}));
    EXPECT_THAT(l.firstSamples(), ElementsAre(20, 10));
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.firstSamples(), ElementsAre(0));
}

TEST_F(TraceIndexTest, WithoutAMapThereIsNoneUntilABuildInTheBackgroundBringsIt)
{
    Loaded l({.files = save(twoShots())});
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->traceIndex(), nullptr);
    int nChanges = 0;
    QObject::connect(l.loader.get(), &EnsembleSource::traceIndexChanged, [&] { ++nChanges; });
    ASSERT_TRUE(l.loader->indexBuild(false));
    EXPECT_EQ(nChanges, 1);
    ASSERT_NE(l.loader->traceIndex(), nullptr);
    EXPECT_EQ(l.loader->traceIndex()->count(), 3);
}

TEST_F(TraceIndexTest, ANewSortIsToldAndCountsInItsOwnOrder)
{
    Loaded l({.files = save(twoShots()), .isort = 1, .indexbuilt = 1});
    ASSERT_TRUE(l.open().isGood);
    std::vector<std::string> told;
    QObject::connect(l.loader.get(), &EnsembleSource::traceIndexChanged, [&] { told.push_back("index"); });
    QObject::connect(l.loader.get(), &EnsembleSource::keysChanged, [&] { told.push_back("keys"); });
    l.loader->buildNewSort(SortCode(4));
    EXPECT_THAT(told, ElementsAre("index", "keys"));
    EXPECT_THAT(l.loader->traceIndex()->values(TraceValue::Cdp), ElementsAre(7, 8, 9));
    EXPECT_EQ(l.loader->sortText(), "CDP Gather");
}

TEST_F(TraceIndexTest, AnotherIndexTakesItsPlace)
{
    Loaded l({.files = save(twoShots()), .indexbuilt = 1});
    ASSERT_TRUE(l.open().isGood);
    int nChanges = 0;
    QObject::connect(l.loader.get(), &EnsembleSource::traceIndexChanged, [&] { ++nChanges; });
    l.loader->setTraceIndex(std::make_unique<MadeIndex>());
    EXPECT_EQ(nChanges, 1);
    EXPECT_THAT(l.loader->traceIndex()->values(TraceValue::Cdp), ElementsAre(100, 101));
    EXPECT_FALSE(l.loader->traceIndex()->has(TraceValue::Offset));
    l.loader->setTraceIndex(nullptr);
    EXPECT_EQ(nChanges, 2);
    EXPECT_EQ(l.loader->traceIndex(), nullptr);
}

TEST_F(TraceIndexTest, AFileSaysNothingOfPanelsDomainOrSlice)
{
    Loaded l({.files = save(twoShots())});
    ASSERT_TRUE(l.open().isGood);
    EXPECT_EQ(l.loader->panelCount(), 1);
    EXPECT_FALSE(l.loader->domain().has_value());
    EXPECT_FALSE(l.loader->sliceTime().has_value());
}
