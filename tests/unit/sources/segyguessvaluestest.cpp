/// The guess of the other settings: counts, intervals, scalars, sort and ensembles, on files that the test has made.
#include "tests/unit/sources/segyguessfixture.h"

#include <gmock/gmock.h>

TEST(SegyGuess, ACountAbove32767IsTakenUnsigned)
{
    SegyBuilder file(-25536, 3);  // 40000
    for (size_t i = 0; i < 3; ++i) {
        file.addTrace(std::vector<int16_t>(40000, 5));
        fillHeader(&file, i, 1, int(i) + 1, -25536);
    }
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.nsamp, 40000);
    EXPECT_EQ(guess.search.layout.nTraces, 3);
}

TEST(SegyGuess, TheTraceHeaderGivesCountAndIntervalThatTheReelHasNot)
{
    SegyBuilder file = smallFile();
    file.put<int16_t>(3216, 0);
    file.put<int16_t>(3220, 0);
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.nsamp, 10);
    EXPECT_EQ(guess.parm.srate, 2.0f);
    EXPECT_EQ(fact(guess, "Sample interval").choice, "2 ms (from the trace header)");
    EXPECT_EQ(fact(guess, "Samples").choice, "10 (against the reel)");
}

TEST(SegyGuess, ACountThatAllWordsTellWronglyIsFoundByTheDistanceOfTheHeaders)
{
    for (bool isBigEndian : {true, false}) {
        SegyBuilder file = noiseFile(5, isBigEndian, 1.0, ieeeBits);  // 50 samples
        file.put<int16_t>(3220, 77);
        for (size_t i = 0; i < 24; ++i) file.setHeader<int16_t>(i, 114, 1500);
        const SegyGuess guess = guessOf(file.bytes);
        EXPECT_EQ(guess.parm.nsamp, 50);
        EXPECT_EQ(guess.search.layout.nTraces, 24);
        EXPECT_EQ(fact(guess, "Samples").choice, "50 (against all words: so far apart are the trace headers)");
        EXPECT_EQ(guess.parm.itype, isBigEndian ? 0 : 1);
    }
}

TEST(SegyGuess, EmptyHeadersAreNotFoundAgainInQuietSamples)
{
    for (bool isBigEndian : {true, false}) {
        SCOPED_TRACE(isBigEndian);
        SegyBuilder file(200, 5, isBigEndian);
        Noise noise;
        for (size_t i = 0; i < 24; ++i) {
            std::vector<float> samples(200, 0.0f);  // quiet but for a wavelet
            for (size_t j = 100; j < 110; ++j) samples[j] = float(noise.next());
            file.addTrace(samples);
        }
        const SegyGuess guess = guessOf(file.bytes);
        EXPECT_EQ(guess.parm.nsamp, 200) << fact(guess, "Samples").choice;
        EXPECT_EQ(guess.search.layout.nTraces, 24);
        EXPECT_EQ(fact(guess, "Trace headers").choice, "they tell nothing; the size alone speaks for this layout");
    }
}

TEST(SegyGuess, OfALongFileASampleOfItsHeadersServes)
{
    SegyBuilder file(1, 5);
    file.put<int16_t>(3212, 1);
    for (size_t i = 0; i < 10000; ++i) {
        file.addTrace(std::vector<float>{1.0f});
        fillHeader(&file, i, 1 + int(i) / 100, 1 + int(i) % 100, 1);
    }
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.search.layout.nTraces, 10000);
    EXPECT_EQ(guess.sample.count(), 4096u);
    EXPECT_EQ(guess.parm.isort, 1);
    EXPECT_EQ(guess.parm.maxtr, 200) << "twice the largest that was seen: the others may be larger";
    EXPECT_EQ(guess.parm.indexbuilt, 0) << "an ensemble that the sample cuts is not in pieces";
}

TEST(SegyGuess, SamplesOfVariableTracesAreCountedOutsideTheHeaders)
{
    SegyBuilder file(40, 1);
    Noise noise;
    for (size_t i = 0; i < 20; ++i) {
        const size_t n = 20 + i;
        std::vector<uint32_t> words(n);
        for (uint32_t& word : words) word = ieeeBits(noise.next());
        file.addTrace(words);
        fillHeader(&file, i, 1, int(i) + 1, int(n));
    }
    const MemorySource source(file.bytes.data(), file.bytes.size());
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.ivariable, 1);
    EXPECT_EQ(guess.parm.iformat, ChooseIeee);
    SegySampleStatistics statistics;
    std::string error;
    ASSERT_TRUE(countSegySamples(source, guess.search.layout, &statistics, &error));
    EXPECT_EQ(statistics.nSamples, 590) << "20 + 21 + ... + 39";
}

TEST(SegyGuess, AnIntervalThatNoHeaderTellsHasToBeTyped)
{
    SegyBuilder file = smallFile();
    file.put<int16_t>(3216, 0);
    for (size_t i = 0; i < 6; ++i) file.setHeader<int16_t>(i, 116, 0);
    SegyLoadParm before = oddSettings();
    before.srate = 0.0f;
    SegyGuess guess = guessOf(file.bytes, before);
    EXPECT_EQ(guess.verdict, SegyGuess::NotFollowed);
    EXPECT_NE(fact(guess, "Sample interval").choice.find("undecidable"), std::string::npos);
    before.srate = 0.5f;  // has been typed
    guess = guessOf(file.bytes, before);
    EXPECT_EQ(guess.verdict, SegyGuess::Read);
    EXPECT_EQ(guess.parm.srate, 0.5f);
    EXPECT_EQ(fact(guess, "Sample interval").choice, "0.5 ms, as it was typed");
    EXPECT_EQ(guess.parm.nsamp, 10);
}

TEST(SegyGuess, AnIntervalWordThatHasLostItsFractionIsMended)
{
    const struct {
        int word;
        float ms;
    } cases[] = {{62, 0.0625f}, {31, 0.03125f}, {15, 0.015625f}, {63, 0.063f}, {125, 0.125f}, {4000, 4.0f}};
    for (const auto& c : cases) {
        SegyBuilder file = smallFile();
        file.put<int16_t>(3216, int16_t(c.word));
        for (size_t i = 0; i < 6; ++i) file.setHeader<int16_t>(i, 116, int16_t(c.word));
        EXPECT_EQ(guessOf(file.bytes).parm.srate, c.ms) << c.word;
    }
}

TEST(SegyGuess, AScalarIsAppliedUnlessItWouldSpoilTheValues)
{
    const struct {
        std::vector<int> scalars;
        int x, applied;
        const char* choice;
    } cases[] = {{{-100}, 5000, 1, "Yes"},
                 {{1}, 5000, 1, "Yes"},
                 {{-100}, 0, 0, "No: nothing to scale"},
                 {{0}, 5000, 0, "No: a scalar of 0 would make the values 0"},
                 {{32}, 5000, 0, "No: 32 is no scalar"},
                 {{-1000, -10000}, 5000, 1, "Yes: they are mixed, each trace has its own"},
                 {{-100, 0}, 5000, 0, "No: a scalar of 0 would make the values 0"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.choice);
        SegyBuilder file = smallFile();
        for (size_t i = 0; i < 6; ++i) {
            const auto scalar = int16_t(c.scalars[i % c.scalars.size()]);
            file.setHeader<int16_t>(i, 70, scalar);
            file.setHeader<int32_t>(i, 80, c.x);
            file.setHeader<int16_t>(i, 68, scalar);
            file.setHeader<int32_t>(i, 40, c.x);
        }
        const SegyGuess guess = guessOf(file.bytes);
        EXPECT_EQ(guess.parm.icscale, c.applied);
        EXPECT_EQ(guess.parm.iescale, c.applied);
        EXPECT_EQ(fact(guess, "Coordinate scalar").choice, c.choice);
        EXPECT_EQ(fact(guess, "Elevation scalar").choice, c.choice);
    }
}

namespace {

/// What a header holds at four places; 12 traces are made from a rule.
struct Geometry {
    const char* name;
    int code;  // sort
    int longest;
    void (*fill)(SegyBuilder* file, size_t i);
};

const Geometry geometries[] = {
    {"shots", 1, 4,
     [](SegyBuilder* f, size_t i) {
         f->setHeader<int32_t>(i, 8, 100 + int(i) / 4);
         f->setHeader<int32_t>(i, 12, 1 + int(i) % 4);
         f->setHeader<int32_t>(i, 20, 500 + int(i) % 4 + int(i) / 4);
     }},
    {"CMP gathers", 4, 3,
     [](SegyBuilder* f, size_t i) {
         f->setHeader<int32_t>(i, 8, 100 + int(i * 7 % 12));
         f->setHeader<int32_t>(i, 20, 500 + int(i) / 3);
         f->setHeader<int32_t>(i, 36, 50 * (int(i) % 3));
     }},
    {"a stack", 5, 12, [](SegyBuilder* f, size_t i) { f->setHeader<int32_t>(i, 20, 500 + int(i)); }},
    {"inlines stacked", 9, 4,
     [](SegyBuilder* f, size_t i) {
         f->setHeader<int32_t>(i, 188, 10 + int(i) / 4);
         f->setHeader<int32_t>(i, 192, 70 + int(i) % 4);
     }},
    {"crosslines stacked", 10, 4,
     [](SegyBuilder* f, size_t i) {
         f->setHeader<int32_t>(i, 188, 10 + int(i) % 4);
         f->setHeader<int32_t>(i, 192, 70 + int(i) / 4);
     }},
    {"inline gathers", 7, 6,
     [](SegyBuilder* f, size_t i) {
         f->setHeader<int32_t>(i, 188, 10 + int(i) / 6);
         f->setHeader<int32_t>(i, 192, 70 + int(i) % 6 / 2);
         f->setHeader<int32_t>(i, 36, 100 * (int(i) % 2));
     }},
    {"crossline gathers", 8, 6,
     [](SegyBuilder* f, size_t i) {
         f->setHeader<int32_t>(i, 188, 10 + int(i) % 6 / 2);
         f->setHeader<int32_t>(i, 192, 70 + int(i) / 6);
         f->setHeader<int32_t>(i, 36, 100 * (int(i) % 2));
     }},
    {"nothing", 0, 12, [](SegyBuilder*, size_t) {}},
};

}  // namespace

TEST(SegyGuess, TheHeadersTellTheSortAndTheLargestEnsemble)
{
    for (const Geometry& geometry : geometries) {
        SCOPED_TRACE(geometry.name);
        SegyBuilder file(10, 5);
        for (size_t i = 0; i < 12; ++i) {
            file.addTrace(std::vector<float>(10, 1.0f));
            file.setHeader<int16_t>(i, 28, 1);
            geometry.fill(&file, i);
        }
        const SegyGuess guess = guessOf(file.bytes);
        EXPECT_EQ(guess.parm.isort, geometry.code) << fact(guess, "Sort order").evidence;
        EXPECT_EQ(guess.parm.maxtr, geometry.longest);
        EXPECT_EQ(guess.parm.indexbuilt, 0);
    }
}

TEST(SegyGuess, EnsemblesInPiecesWantAnIndex)
{
    SegyBuilder file(10, 5);
    for (size_t i = 0; i < 12; ++i) {
        file.addTrace(std::vector<float>(10, 1.0f));
        fillHeader(&file, i, 100 + int(i) / 3 % 2, 1 + int(i), 10);  // 100 100 100 101 101 101 100 ...
    }
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.isort, 1);
    EXPECT_EQ(guess.parm.indexbuilt, 1);
    EXPECT_EQ(guess.parm.maxtr, 6);
}

TEST(SegyGuess, NumbersThatTheReelHasRightStayEmptyForAListOfFiles)
{
    SegyBuilder file = smallFile();
    file.put<int16_t>(3212, 60);
    SegyLoadParm before;
    before.files = "a.sgy,b.sgy";
    before.iremap = 1;
    SegyGuess guess = guessOf(file.bytes, before);
    EXPECT_EQ(guess.parm.nsamp, 0);
    EXPECT_EQ(guess.parm.srate, 0.0f);
    EXPECT_EQ(guess.parm.maxtr, 0);
    EXPECT_EQ(guess.parm.files, "a.sgy,b.sgy");
    EXPECT_EQ(guess.parm.iremap, 1);
    file.put<int16_t>(3212, 1);
    file.put<int16_t>(3220, 11);
    guess = guessOf(file.bytes, before);
    EXPECT_EQ(guess.parm.nsamp, 10) << "the reel is wrong";
    EXPECT_EQ(guess.parm.maxtr, 3);
}

TEST(SegyGuess, OneFileWithACommaBehindItIsNoList)
{
    SegyLoadParm before;
    before.files = "a.sgy, ,";
    const SegyGuess guess = guessOf(smallFile().bytes, before);
    EXPECT_EQ(guess.parm.nsamp, 10);
    EXPECT_EQ(fact(guess, "File").choice, "SEG-Y");
}

TEST(SegyGuess, DelaysAreMentioned)
{
    SegyBuilder file = smallFile();
    for (size_t i = 0; i < 6; ++i) file.setHeader<int16_t>(i, 108, -200);
    EXPECT_EQ(fact(guessOf(file.bytes), "Recording delay").evidence, "byte 109 holds -200 to -200 ms");
}

TEST(SegyGuess, TheCopiedTextHasTheFactsAndTheSettings)
{
    const SegyBuilder file = smallFile();
    const SegyGuess guess = guessOf(file.bytes);
    const std::string text = segyGuessText("a.sgy", guess, SegyLoadParm());
    EXPECT_THAT(text, testing::HasSubstr("a.sgy\n6 traces of 10 samples, big-endian.\n"));
    EXPECT_THAT(text, testing::HasSubstr("\nFact\tEvidence\tChoice\n"));
    EXPECT_THAT(text, testing::HasSubstr("\nData sort order\tGet From Data\tFFID\n"));
    EXPECT_THAT(text, testing::HasSubstr("\nNum samples per trace\tfrom the reel\t10\n"));
}
