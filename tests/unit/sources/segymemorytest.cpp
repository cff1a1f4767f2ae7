/// Files that claim far more than they hold: what the loader takes for them stays within what they can justify.
#include "sources/segymapthread.h"
#include "tests/unit/sources/segyloaderfixture.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

constexpr int64_t mebibyte = int64_t(1) << 20;

/// The most that a file of so many bytes justifies.
int64_t justified(size_t nBytes)
{
    return 8 * int64_t(nBytes) + 64 * mebibyte;
}

int countOf(const std::string& text, const std::string& words)
{
    int n = 0;
    for (size_t at = text.find(words); at != std::string::npos; at = text.find(words, at + 1)) ++n;
    return n;
}

const std::string badLength = "segyData2: error while reading variable length trace:";

}  // namespace

class SegyMemoryTest : public SegyLoaderTest
{
protected:
    /// One sample of one byte a trace, no counts in the headers: each trace is taken to be 1 - 240 bytes of data
    /// long, so the next one begins one byte further on.
    static SegyBuilder bytewise(size_t nBytes)
    {
        SegyBuilder file(1, 6);
        file.bytes.resize(3600 + nBytes);
        return file;
    }
    /// Many traces of one sample and a long one, in one ensemble.
    static SegyBuilder oneLong(int nShort)
    {
        SegyBuilder file(32767);
        for (int i = 0; i <= nShort; ++i) {
            const bool isLong = i == nShort / 2;
            file.addTrace(Floats(isLong ? 32767 : 1, float(i)));
            file.setHeader<int32_t>(size_t(i), 8, 5);
            file.setHeader<int16_t>(size_t(i), 114, int16_t(isLong ? 32767 : 1));
        }
        return file;
    }
};

TEST_F(SegyMemoryTest, AnIndexOfATraceAByteIsRefusedWithABoxThatSaysWhatItWouldTake)
{
    const SegyBuilder file = bytewise(size_t(16) << 20);
    Loaded asked({.files = save(file), .ivariable = 1, .indexbuilt = 1});
    EXPECT_FALSE(asked.open().isGood) << "asked for an index, there is none without";
    Loaded l({.files = save(file), .ivariable = 1});
    ASSERT_TRUE(l.open().isGood);
    EXPECT_FALSE(l.loader->indexBuild(true));
    EXPECT_FALSE(l.loader->isIndexBuilt());
    EXPECT_EQ(l.loader->getTotalTraces(), 0);
    EXPECT_LE(l.loader->bytesInUse(), justified(file.bytes.size()));
    for (const CollectReport* report : {&asked.report, &l.report}) {
        ASSERT_EQ(report->boxes.size(), 1u);
        // 16777216 traces of 80 bytes, and 28 each for their sort: 1728 MiB.
        EXPECT_NE(report->boxes[0].find("about 1728 MiB"), std::string::npos) << report->boxes[0];
        EXPECT_NE(report->boxes[0].find("at most 192 MiB"), std::string::npos) << report->boxes[0];
        EXPECT_NE(report->boxes[0].find("Guess Settings"), std::string::npos);
        EXPECT_LT(report->text.size(), 20000u);
    }
}

TEST_F(SegyMemoryTest, ABackgroundBuildOfSuchAFileIsGivenUpWithTheSameBox)
{
    Loaded l({.files = save(bytewise(size_t(16) << 20)), .ivariable = 1});
    ASSERT_TRUE(l.open().isGood);
    SegyMapThread* thread = l.loader->startIndexBuild();
    ASSERT_NE(thread, nullptr);
    thread->wait();
    QCoreApplication::processEvents();
    EXPECT_FALSE(l.loader->isIndexBuilt());
    ASSERT_EQ(l.report.boxes.size(), 1u);
    EXPECT_NE(l.report.boxes[0].find("about 1728 MiB"), std::string::npos) << l.report.boxes[0];
}

TEST_F(SegyMemoryTest, BadTracesAreToldTenTimesAndThenCounted)
{
    SegyBuilder file = bytewise(1000);
    Loaded l({.files = save(file), .ivariable = 1, .indexbuilt = 1});
    ASSERT_TRUE(l.open().isGood);
    // A header and something behind it are there at the first 1000 - 240 bytes.
    EXPECT_EQ(l.loader->getTotalTraces(), 760);
    EXPECT_EQ(countOf(l.report.text, badLength), 11);
    EXPECT_TRUE(l.report.has(badLength + " 751 more, 761 so far\n")) << l.report.text;
}

TEST_F(SegyMemoryTest, SequentialReadingCountsThemFromEnsembleToEnsemble)
{
    Loaded l({.files = save(bytewise(1000)), .ivariable = 1, .maxtr = 100});
    ASSERT_TRUE(l.open().isGood);
    l.loader->loadNextEnsemble(1);
    EXPECT_TRUE(l.report.has(badLength + " 90 more, 100 so far\n")) << l.report.text;
    l.loader->loadNextEnsemble(1);
    EXPECT_TRUE(l.report.has(badLength + " 100 more, 200 so far\n"));
}

TEST_F(SegyMemoryTest, AHugeCountOfASmallFileIsRefused)
{
    SegyBuilder file(100);
    file.addTrace(Floats(40, 1.0f));
    Loaded l({.files = save(file), .nsamp = 10000000});
    EXPECT_FALSE(l.open().isGood);
    EXPECT_EQ(l.loader, nullptr) << "nothing is held for it";
    ASSERT_EQ(l.report.boxes.size(), 1u);
    // Two buffers of 40 MB for one trace, and 2 bytes a sample for narrow integers: 10^8 bytes.
    EXPECT_NE(l.report.boxes[0].find("One trace of this file would need about 95 MiB"), std::string::npos)
        << l.report.boxes[0];
}

TEST_F(SegyMemoryTest, WorkBuffersFollowWhatIsReadAndNotTheLongestTraceThatCouldBe)
{
    SegyBuilder file(1000);
    for (int i = 0; i < 3; ++i) file.addTrace(Floats(1000, 1.0f));
    Loaded fixed({.files = save(file)});
    ASSERT_TRUE(fixed.open().isGood);
    EXPECT_EQ(fixed.loader->bufferBytes(), 240 + 4000);
    EXPECT_EQ(fixed.loader->maxBytes(), 40 * 4240);
    Loaded variable({.files = save(file), .ivariable = 1});
    ASSERT_TRUE(variable.open().isGood);
    EXPECT_EQ(variable.loader->bufferBytes(), 240 + int(file.bytes.size()));
}

TEST_F(SegyMemoryTest, AnEnsembleThatPaddingBlowsUpIsRefusedAndTheLoaderStaysWhereItWas)
{
    SegyBuilder file = oneLong(32000);
    file.setHeader<int32_t>(0, 8, 4);
    for (int indexbuilt : {0, 1}) {
        Loaded l({.files = save(file), .isort = 1, .ivariable = 1, .maxtr = 100000, .indexbuilt = indexbuilt});
        ASSERT_TRUE(l.open().isGood);
        ASSERT_TRUE(l.loader->loadNextEnsemble(1));
        EXPECT_EQ(l.loader->numTraces(), 1);
        EXPECT_FALSE(l.loader->loadNextEnsemble(1));
        EXPECT_EQ(l.loader->numTraces(), 0);
        EXPECT_LE(l.loader->bytesInUse(), justified(file.bytes.size()));
        ASSERT_EQ(l.report.boxes.size(), 1u);
        // 32000 traces of 131068 + 240 bytes are 4007 MiB; pointers and the map add less than 10.
        const size_t at = l.report.boxes[0].find("about ");
        ASSERT_NE(at, std::string::npos);
        EXPECT_NEAR(std::stod(l.report.boxes[0].substr(at + 6)), 4012.0, 5.0) << l.report.boxes[0];
        EXPECT_EQ(l.loader->priCurValue(), 4);
        EXPECT_FALSE(l.loader->loadNextEnsemble(1)) << "it can't have gone past what it refused";
        EXPECT_TRUE(l.loader->reloadEnsemble());
        EXPECT_EQ(l.words("FFID    "), std::vector<int>{4});
    }
}

TEST_F(SegyMemoryTest, TheSameEnsembleIsReadWhereTheCountIsTypedSmall)
{
    const SegyBuilder file = oneLong(2000);
    Loaded l({.files = save(file), .ivariable = 1, .nsamp = 4, .maxtr = 100000});
    ASSERT_TRUE(l.open().isGood);
    ASSERT_TRUE(l.loader->loadNextEnsemble(1));
    EXPECT_EQ(l.loader->numTraces(), 2001);
    EXPECT_EQ(l.loader->getTraces()[1000][3], 1000.0f);
    EXPECT_EQ(l.loader->getTraces()[999][1], 0.0f);
    EXPECT_TRUE(l.report.boxes.empty());
}

TEST_F(SegyMemoryTest, GoingBackOneEnsembleGivesItsTracesAgain)
{
    for (int indexbuilt : {0, 1}) {
        Loaded l({.files = save(shots({2, 3, 1})), .indexbuilt = indexbuilt});
        ASSERT_TRUE(l.open().isGood);
        l.loader->loadNextEnsemble(1);
        l.loader->loadNextEnsemble(1);
        EXPECT_TRUE(l.loader->reloadEnsemble());
        EXPECT_EQ(l.firstSamples(), (Floats{21, 22, 23}));
        const SegyLoader::Place place = l.loader->place();
        l.loader->loadNextEnsemble(1);
        EXPECT_EQ(l.firstSamples(), (Floats{31}));
        l.loader->setPlace(place);
        EXPECT_TRUE(l.loader->reloadEnsemble());
        EXPECT_EQ(l.firstSamples(), (Floats{21, 22, 23}));
    }
}
