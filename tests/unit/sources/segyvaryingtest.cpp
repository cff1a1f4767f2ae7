/// How the ranking classifies header words, and which headers of a long file it looks at.
#include "sources/segyvarying.h"
#include "tests/unit/sources/segybuilder.h"

#include <gtest/gtest.h>

#include <set>

namespace {

/// A sample of headers of a file that the builder has made, with traces of no samples' worth.
SegyHeaderSample sampleOf(const SegyBuilder& file, bool isBigEndian = true)
{
    SegyLayout layout;
    layout.isBigEndian = isBigEndian;
    layout.nSamples = 1;
    layout.nTraces = int64_t(file.traceStarts.size());
    const MemorySource source(file.bytes.data(), file.bytes.size());
    SegyHeaderSample sample;
    std::string error;
    EXPECT_TRUE(readSegyHeaders(source, layout, &sample, &error)) << error;
    return sample;
}

SegyBuilder headers(size_t n, bool isBigEndian = true)
{
    SegyBuilder file(1, 5, isBigEndian);
    for (size_t i = 0; i < n; ++i) file.addTrace(std::vector<float>{0.0f});
    return file;
}

const SegyVaryingWord* wordAt(const std::vector<SegyVaryingWord>& ranking, int byte, int width)
{
    for (const SegyVaryingWord& word : ranking)
        if (word.byte == byte && word.width == width) return &word;
    return nullptr;
}

}  // namespace

TEST(SegyVarying, WordsAreClassifiedByWhatTheyDo)
{
    for (bool isBigEndian : {true, false}) {
        SegyBuilder file = headers(120, isBigEndian);
        for (size_t i = 0; i < 120; ++i) {
            const int trace = int(i), shot = trace / 24, channel = trace % 24;
            file.setHeader<int32_t>(i, 0, trace + 1);
            file.setHeader<int32_t>(i, 8, 300 + 2 * shot);
            file.setHeader<int32_t>(i, 12, channel + 1);
            file.setHeader<int32_t>(i, 36, -1200 + 25 * channel);
            file.setHeader<int32_t>(i, 80, 5000 + 25 * (shot + channel));
            file.setHeader<int16_t>(i, 70, -100);
            file.setHeader<int32_t>(i, 40, (trace * trace * 31) % 1009);
            file.setHeader<int32_t>(i, 204, 500000 + 25 * channel);
            file.setHeader<int32_t>(i, 208, 6700000 - 10 * channel);
        }
        const std::vector<SegyVaryingWord> ranking = rankSegyWords(sampleOf(file, isBigEndian));
        const struct {
            int byte, width;
            SegyBehaviour behaviour;
            const char* evidence;
            const char* field;
        } expected[] = {
            {1, 4, SegyBehaviour::CountsUp, "steps of 1", "Trace in line"},
            {9, 4, SegyBehaviour::RepeatsByEnsemble, "5 values of 24 traces", "Field record"},
            {13, 4, SegyBehaviour::CountsUp, "steps of 1, 24 in a row", "Channel"},
            {37, 4, SegyBehaviour::CountsUp, "steps of 25, 24 in a row", "Offset"},
            {41, 4, SegyBehaviour::Varies, "", "Receiver elevation"},
            {71, 2, SegyBehaviour::Constant, "never changes", "Coordinate scalar"},
            {81, 4, SegyBehaviour::Coordinates, "", "Receiver X"},
            {205, 4, SegyBehaviour::Coordinates, "", "Transduction mantissa"},
            {209, 4, SegyBehaviour::Coordinates, "", ""},
        };
        for (const auto& e : expected) {
            SCOPED_TRACE(e.byte);
            const SegyVaryingWord* word = wordAt(ranking, e.byte, e.width);
            ASSERT_NE(word, nullptr);
            EXPECT_EQ(word->behaviour, e.behaviour) << word->evidence;
            if (*e.evidence) {
                EXPECT_EQ(word->evidence, e.evidence);
            }
            EXPECT_STREQ(word->field, e.field);
        }
        EXPECT_EQ(wordAt(ranking, 21, 4), nullptr) << "0 in all headers";
        EXPECT_EQ(wordAt(ranking, 9, 4)->least, 300);
        EXPECT_EQ(wordAt(ranking, 9, 4)->most, 308);
        EXPECT_EQ(wordAt(ranking, 9, 4)->nDistinct, 5);
        for (size_t i = 1; i < ranking.size(); ++i)
            EXPECT_LE(ranking[i - 1].behaviour, ranking[i].behaviour) << "ranked";
    }
}

TEST(SegyVarying, ShortWordsInTheFreeBytesAreRankedBesideTheLongOnes)
{
    SegyBuilder file = headers(30);
    for (size_t i = 0; i < 30; ++i) {
        file.setHeader<int16_t>(i, 220, int16_t(11 + int(i) / 10));  // an ensemble number in two bytes
        file.setHeader<int16_t>(i, 222, int16_t(1 + int(i) % 10));
        file.setHeader<int32_t>(i, 200, 40 + int(i));
    }
    const std::vector<SegyVaryingWord> ranking = rankSegyWords(sampleOf(file));
    ASSERT_NE(wordAt(ranking, 221, 2), nullptr);
    EXPECT_EQ(wordAt(ranking, 221, 2)->behaviour, SegyBehaviour::RepeatsByEnsemble);
    ASSERT_NE(wordAt(ranking, 223, 2), nullptr);
    EXPECT_EQ(wordAt(ranking, 223, 2)->behaviour, SegyBehaviour::CountsUp);
    EXPECT_NE(wordAt(ranking, 221, 4), nullptr);
    EXPECT_NE(wordAt(ranking, 201, 4), nullptr);
    EXPECT_EQ(wordAt(ranking, 203, 2), nullptr) << "its first half only carries the sign";
}

TEST(SegyVarying, OneHeaderOrNoneIsNoFailure)
{
    EXPECT_TRUE(rankSegyWords(SegyHeaderSample()).empty());
    SegyBuilder file = headers(1);
    file.setHeader<int32_t>(0, 8, -7);
    const std::vector<SegyVaryingWord> ranking = rankSegyWords(sampleOf(file));
    ASSERT_EQ(ranking.size(), 1u);
    EXPECT_EQ(ranking[0].behaviour, SegyBehaviour::Constant);
    EXPECT_EQ(ranking[0].first, -7);
}

TEST(SegyVarying, TheLargestStepsDoNotOverflow)
{
    SegyBuilder file = headers(4);
    for (size_t i = 0; i < 4; ++i) file.setHeader<int32_t>(i, 72, i % 2 ? INT32_MAX : INT32_MIN);
    const std::vector<SegyVaryingWord> ranking = rankSegyWords(sampleOf(file));
    ASSERT_EQ(ranking.size(), 1u);
    EXPECT_EQ(ranking[0].least, INT32_MIN);
    EXPECT_EQ(ranking[0].most, INT32_MAX);
}

TEST(SegyVarying, AShortFileIsLookedAtWholeALongOneInThreePlaces)
{
    EXPECT_TRUE(sampledRanks(0).empty());
    EXPECT_EQ(sampledRanks(4096).size(), 4096u);
    for (int64_t n : {int64_t(4097), int64_t(5000), int64_t(8191), int64_t(100000), int64_t(3000000000)}) {
        const std::vector<int64_t> ranks = sampledRanks(n);
        SCOPED_TRACE(n);
        EXPECT_EQ(ranks.size(), 4096u);
        EXPECT_EQ(ranks.front(), 0);
        EXPECT_EQ(ranks.back(), n - 1);
        EXPECT_EQ(std::set<int64_t>(ranks.begin(), ranks.end()).size(), 4096u) << "each once";
        EXPECT_TRUE(std::is_sorted(ranks.begin(), ranks.end()));
    }
    EXPECT_EQ(sampledRanks(100000)[2048], 50000);
}

TEST(SegyVarying, StepsAcrossAGapOfTheSampleDoNotCount)
{
    SegyBuilder file = headers(6);
    for (size_t i = 0; i < 6; ++i) file.setHeader<int32_t>(i, 8, i < 3 ? 5 : 6);
    SegyHeaderSample sample = sampleOf(file);
    for (size_t i = 3; i < 6; ++i) sample.headers[i].rank += 1000;
    EXPECT_DOUBLE_EQ(meanRun(sample, sample.values(8, 4)), 3.0);
    EXPECT_TRUE(sample.isNeighbour(1));
    EXPECT_FALSE(sample.isNeighbour(3));
    const std::vector<SegyVaryingWord> ranking = rankSegyWords(sample);
    ASSERT_EQ(ranking.size(), 1u);
    EXPECT_EQ(ranking[0].behaviour, SegyBehaviour::RepeatsByEnsemble);
}
