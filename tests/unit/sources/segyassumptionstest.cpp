/// What is told of a file that leaves things to be taken for granted.
#include "tests/unit/sources/segyloaderfixture.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SegyAssumptionsTest : public SegyLoaderTest
{
};

TEST_F(SegyAssumptionsTest, EachKindIsOneLineAFileAndItsCountGoesOn)
{
    SegyBuilder file = shots({2, 2, 2});
    for (size_t i = 1; i < 6; ++i) file.setHeader<int16_t>(i, 28, 2);
    for (int indexbuilt : {0, 1}) {
        Loaded l({.files = save(file), .indexbuilt = indexbuilt});
        ASSERT_TRUE(l.open().isGood);
        int nChanges = 0;
        QObject::connect(l.loader.get(), &SegyLoader::assumptionsChanged, l.loader.get(), [&] { ++nChanges; });
        const std::vector<int64_t> counts = {1, 3, 5};
        for (size_t record = 0; record < 3; ++record) {
            l.loader->loadNextEnsemble(1);
            const std::vector<SegyAssumption> all = l.loader->assumptions();
            ASSERT_EQ(all.size(), 1u);
            EXPECT_EQ(all[0].name, "trace id other than 1");
            EXPECT_EQ(all[0].count, counts[record]);
            EXPECT_EQ(all[0].nTraces, int64_t(2 * record + 2));
            EXPECT_EQ(all[0].firstTrace, 2);
            EXPECT_EQ(all[0].firstValue, 2);
            EXPECT_STREQ(all[0].control, "Re-map Table");
            EXPECT_FALSE(all[0].isDelayLeftOut);
        }
        EXPECT_EQ(nChanges, 3);
        EXPECT_THAT(l.report.assumptions,
                    ElementsAre("SegyLoader: trace id other than 1 in 1 of 2 traces, first in trace 2 (2): not counted "
                                "as live traces"));
        if (!indexbuilt) continue;
        l.loader->loadLastEnsemble(1);
        EXPECT_EQ(l.loader->assumptions()[0].count, 5) << "a trace seen again counts once";
    }
}

TEST_F(SegyAssumptionsTest, EmptyOffsetsAreToldWhereAllTracesOfARecordAreEmpty)
{
    SegyBuilder file = shots({1, 2, 2});
    for (size_t i : {0, 1, 3, 4}) file.setHeader<int32_t>(i, 36, 0);
    Loaded l({.files = save(file)});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.loader->assumptions(), IsEmpty()) << "one trace alone, and one of two";
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.report.assumptions,
                ElementsAre("SegyLoader: empty offset in 2 of 5 traces, first in trace 4 (0): all "
                            "traces are taken to be at offset 0"));
}

TEST_F(SegyAssumptionsTest, ADelayIsTellableByItself)
{
    SegyBuilder file = shots({2});
    file.setHeader<int16_t>(1, 108, -200);
    Loaded l({.files = save(file)});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    ASSERT_EQ(l.loader->assumptions().size(), 1u);
    EXPECT_TRUE(l.loader->assumptions()[0].isDelayLeftOut);
    EXPECT_EQ(l.loader->assumptions()[0].firstValue, -200);
}

TEST_F(SegyAssumptionsTest, CountAndIntervalOfTheTraceHeadersAreHeldAgainstThoseInForce)
{
    SegyBuilder file = shots({3});  // 3 samples, 2000 us
    for (size_t i = 0; i < 3; ++i) {
        file.setHeader<int16_t>(i, 114, int16_t(i == 2 ? 7 : 3));
        file.setHeader<int16_t>(i, 116, int16_t(i == 1 ? 4000 : 2000));
    }
    Loaded l({.files = save(file)});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(
        l.report.assumptions,
        ElementsAre("SegyLoader: another sample count in the trace header in 1 of 3 traces, first in trace 3 (7): "
                    "the traces are read with the count of the file",
                    "SegyLoader: another sample interval in the trace header in 1 of 3 traces, first in trace 2 "
                    "(4000): the interval of the file is in force"));
}

TEST_F(SegyAssumptionsTest, ALongerTraceOfVariableLengthIsToldAndAShorterOneIsNot)
{
    SegyBuilder file(3);
    for (int n : {3, 2, 5}) {
        file.addTrace(Floats(size_t(n), 1.0f));
        file.setHeader<int16_t>(file.traceStarts.size() - 1, 114, int16_t(n));
        file.setHeader<int16_t>(file.traceStarts.size() - 1, 28, 1);
        file.setHeader<int32_t>(file.traceStarts.size() - 1, 36, 100);
    }
    Loaded l({.files = save(file), .ivariable = 1});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_THAT(l.report.assumptions,
                ElementsAre("SegyLoader: more samples than the file's count in 1 of 3 traces, first "
                            "in trace 3 (5): what is behind that count is left out"));
}

TEST_F(SegyAssumptionsTest, ExtendedTextsAndLongHeadersAreToldUnlessTheLayoutFollowsThem)
{
    SegyBuilder file = shots({200});
    file.put<int16_t>(3500, 0x0200);
    file.put<int16_t>(3504, 2);
    file.put<int16_t>(3506, 1);
    Loaded plain({.files = save(file)});
    ASSERT_TRUE(plain.open().isGood);
    EXPECT_THAT(plain.report.assumptions,
                Contains("SegyLoader: 2 extended text headers are told: their bytes are read as traces"));
    EXPECT_THAT(plain.report.assumptions,
                Contains("SegyLoader: trace headers of 480 bytes are told: what is behind the "
                         "first 240 is read as samples"));
    Loaded followed({.files = save(file)});
    SegyReadLayout layout;
    layout.firstTrace = 10000;
    layout.headerBytes = 480;
    followed.parm.layout = layout;
    ASSERT_TRUE(followed.open().isGood);
    for (const std::string& line : followed.report.assumptions) EXPECT_THAT(line, testing::Not(HasSubstr("told")));
}

TEST_F(SegyAssumptionsTest, RemapRowsThatAreSkippedOrDoAnotherThingAreTold)
{
    Loaded l({.files = save(shots({2})), .iremap = 1});
    l.parm.remapTable = remapTableFromText("CDP,4I,IEEE,9\nFFID,4I,IEEE,241\nNOSUCH,4I,IEEE,9\nCDP,5X,IEEE,9\n"
                                           ",4I,IEEE,9\nCDP,,IEEE,9\nCDP,A20,IEEE,230\n");
    ASSERT_TRUE(l.open().isGood);
    EXPECT_THAT(l.report.assumptions,
                ElementsAre("SegyLoader: row 2 of the remap table: the start byte must be 1 to 240: skipped",
                            "SegyLoader: row 3 of the remap table: no header word \"NOSUCH\": it overwrites CHAN",
                            "SegyLoader: row 4 of the remap table: no format \"5X\": the word stays as it is",
                            "SegyLoader: row 5 of the remap table: no header word: skipped",
                            "SegyLoader: row 6 of the remap table: no format: skipped",
                            "SegyLoader: row 7 of the remap table: its bytes would pass the 240th: skipped"));
}

TEST_F(SegyAssumptionsTest, AnIndexThatSortsByTheChannelInsteadIsTold)
{
    Loaded l({.files = save(shots({2})), .isort = 3, .indexbuilt = 1});
    ASSERT_TRUE(l.open().isGood);
    EXPECT_THAT(l.report.assumptions,
                ElementsAre("SegyLoader: the index has no key for the sort \"Receiver\": it is sorted by the channel"));
    l.loader->buildNewSort(SortCode(1));
    l.loader->buildNewSort(SortCode(3));
    EXPECT_EQ(l.report.assumptions.size(), 1u);
    Loaded ffid({.files = save(shots({2})), .isort = 1, .indexbuilt = 1});
    ASSERT_TRUE(ffid.open().isGood);
    EXPECT_THAT(ffid.report.assumptions, IsEmpty());
}

TEST_F(SegyAssumptionsTest, WhatTheReelLeavesToBeRepairedIsInTheRecordToo)
{
    SegyBuilder file(3);
    for (int i = 0; i < 2; ++i) {
        file.addTrace<float>({1, 2, 3});
        file.setHeader<int16_t>(size_t(i), 28, 1);
        file.setHeader<int32_t>(size_t(i), 36, 100 + i);
        file.setHeader<int16_t>(size_t(i), 116, 4000);
    }
    std::fill_n(file.bytes.begin(), 3200, ' ');  // ASCII
    file.put<int16_t>(3216, 0);                  // no interval
    Loaded l({.files = save(file)});
    ASSERT_TRUE(l.open().isGood);
    std::vector<std::string> texts;
    for (const SegyAssumption& assumption : l.loader->assumptions())
        texts.push_back(assumption.text() + " | " + assumption.control);
    EXPECT_EQ(
        texts,
        (std::vector<std::string>{
            "the text header is ASCII: it is read as EBCDIC | SEGY file type:",
            "the reel has no sample interval: fixed sample rate from first trace header: 4000 | Input sample rate:"}));
    // Each is told once, in the words of the reader.
    EXPECT_TRUE(l.report.hasAssumed("segyData2: the text header is ASCII, but is read as EBCDIC"));
    EXPECT_EQ(l.report.assumptions.size(), 1u);
    EXPECT_TRUE(l.report.has("segyData2: Warning, fixed sample rate from first trace header: 4000\n"));
}
