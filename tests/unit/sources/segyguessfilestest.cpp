/// What the guess says of every SEG-Y file of the real data, against what the README beside them says; and that
/// the guessed settings open the file.
#include "sources/segyguess.h"
#include "sources/segyloader.h"
#include "sources/segysamples.h"
#include "tests/testdata.h"
#include "tests/unit/sources/segybuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <set>

namespace {

enum Order { Big, Little };
enum Format { AsTold, Ieee, Ibm, Int4, Int2, Int1 };
enum Sort { Reel = 0, Ffid = 1, Cdp = 4, Stack = 5, InlineGather = 7, InlineStack = 9 };
enum Follows { Opens, Extended, LongHeaders, EightBytes };

/// Expected values are what `says` quotes from the README; format codes, counts and intervals that it leaves out are
/// segyio's. Ensembles are the README's numbers of shots, CDPs or lines.
struct GuessRow {
    const char* name;
    const char* says;
    Order order;
    Format format;
    int64_t nTraces;
    int nSamples;
    float ms;
    Sort sort;
    int largest;  // ensemble
    Follows follows;
};

const GuessRow rows[] = {
    {"cdp-gathers/cdp601to605.sgy", "CDP gathers 601..605, 30-fold, 150 traces, 750 samp, 8 ms, IEEE, CDP-sorted", Big,
     Ieee, 150, 750, 8.0f, Cdp, 30, Opens},
    {"cdp-gathers/gom_cdp_1010_nmo.sgy", "CDP 1010, 92 traces, 1751 samp, 4 ms, scalco mixed (-1000 and -10000)", Big,
     Ieee, 92, 1751, 4.0f, Cdp, 92, Opens},
    {"cdp-gathers/syn_cmp.sgy", "CMP, 38 traces, 522 samp, 4 ms", Big, Ieee, 38, 522, 4.0f, Reel, 38, Opens},
    {"first-breaks/hammer_profile_a.sgy", "6 shots x 60 ch, 4096 samp, 250 us, delrt -200, scalco -100", Big, Ieee, 360,
     4096, 0.25f, Ffid, 60, Opens},
    {"first-breaks/land48_a.sgy", "6 land shots, 48 ch, 2000 samp, 250 us, no geometry", Big, Ieee, 288, 2000, 0.25f,
     Ffid, 48, Opens},
    {"first-breaks/school_102.sgy", "shot FFID 102, 24 ch, 4000 samp, 125 us, scalco -100", Big, Ieee, 24, 4000, 0.125f,
     Ffid, 24, Opens},
    {"first-breaks/school_109.sgy", "shot FFID 109, 24 ch, 4800 samp, 62.5 us (word holds 62)", Big, Ieee, 24, 4800,
     0.0625f, Ffid, 24, Opens},
    {"first-breaks/school_206.sgy", "shot FFID 206, 24 ch, 8000 samp, 62.5 us (word holds 62)", Big, Ieee, 24, 8000,
     0.0625f, Ffid, 24, Opens},
    {"formats/Format1lsb.sgy", "F3 crop, format 1, little-endian", Little, Ibm, 414, 75, 4.0f, InlineStack, 18, Opens},
    {"formats/Format1msb.sgy", "F3 crop, format 1, big-endian", Big, Ibm, 414, 75, 4.0f, InlineStack, 18, Opens},
    {"formats/Format2msb.sgy", "F3 crop, format 2, big-endian", Big, Int4, 414, 75, 4.0f, InlineStack, 18, Opens},
    {"formats/Format3lsb.sgy", "F3 crop, format 3, little-endian", Little, Int2, 414, 75, 4.0f, InlineStack, 18, Opens},
    {"formats/Format5lsb.sgy", "F3 crop, format 5, little-endian", Little, Ieee, 414, 75, 4.0f, InlineStack, 18, Opens},
    {"formats/Format5msb.sgy", "F3 crop, format 5, big-endian", Big, Ieee, 414, 75, 4.0f, InlineStack, 18, Opens},
    {"formats/Format6msb.sgy", "F3 crop, format 6 (8-byte floats), big-endian", Big, AsTold, 414, 75, 4.0f, InlineStack,
     18, EightBytes},
    {"formats/Format8lsb.sgy", "F3 crop, format 8, little-endian", Little, Int1, 414, 75, 4.0f, InlineStack, 18, Opens},
    {"formats/Format8msb.sgy", "F3 crop, format 8, big-endian", Big, Int1, 414, 75, 4.0f, InlineStack, 18, Opens},
    {"odd-headers/delay-scalar.sgy", "ASCII text, delrt 10000, scalco -100, 1 trace", Big, Ibm, 1, 251, 4.0f, Reel, 1,
     Opens},
    {"odd-headers/interval-neg-bin-pos-trace.sgy", "reel interval negative, trace interval 4000", Big, Ibm, 1, 1, 4.0f,
     Reel, 1, Opens},
    {"odd-headers/long.sgy", "ns = 60000 (unsigned), 3 traces", Big, Ibm, 3, 60000, 1.0f, Reel, 1, Opens},
    {"odd-headers/multi-text.sgy", "4 extended textual headers, 1 trace of 1 sample", Big, Ibm, 1, 1, 4.0f, Reel, 1,
     Extended},
    {"odd-headers/rotated-small-rev2.sgy", "rev 2, rotated grid (a 240-byte read goes astray)", Big, Ibm, 25, 50, 4.0f,
     InlineStack, 5, LongHeaders},
    {"odd-headers/shot-gather.sgy", "FFID 2..8, unequal trace count per shot (61 traces)", Big, Ibm, 61, 25, 1.0f, Ffid,
     26, Opens},
    {"odd-headers/small-2d.sgy", "2D line: no IL/XL, only CDP coordinates", Big, Ibm, 25, 50, 4.0f, Reel, 25, Opens},
    {"odd-headers/small-irregular.sgy", "3D cube with one trace missing", Big, Ibm, 24, 50, 4.0f, InlineStack, 5,
     Opens},
    {"odd-headers/small-ps-dec-il-xl-off.sgy", "3D prestack, all three keys decreasing", Big, Ibm, 24, 10, 4.0f,
     InlineGather, 6, Opens},
    {"odd-headers/small-ps.sgy", "3D prestack: IL x XL x 2 offsets", Big, Ibm, 24, 10, 4.0f, InlineGather, 6, Opens},
    {"odd-headers/small-traceheader-samplerate.sgy", "interval 0 in reel, 4000 in traces", Big, Ibm, 25, 50, 4.0f,
     InlineStack, 5, Opens},
    {"odd-headers/stanzas-known-count.sgy", "3 extended headers, 6 traces of 4", Big, Ibm, 6, 4, 1.0f, InlineStack, 2,
     Extended},
    {"odd-headers/text-embed-null.sgy", "NUL bytes inside the text", Big, Ibm, 25, 50, 4.0f, InlineStack, 5, Opens},
    {"odd-headers/trace-header-extension1.sgy", "rev 2.1, 480-byte trace headers", Big, Ibm, 6, 4, 1.0f, InlineStack, 2,
     LongHeaders},
    {"poststack-2d/RIV6.segy", "2D stack, 514 traces (CDP 1..514), 1151 samp, 4 ms, IEEE, EBCDIC", Big, Ieee, 514, 1151,
     4.0f, Stack, 514, Opens},
    {"poststack-2d/lineE.sgy", "2D stack, 111 traces (CDP repeats), 1001 samp, 4 ms, IBM, EBCDIC, scalco -1000", Big,
     Ibm, 111, 1001, 4.0f, Stack, 111, Opens},
    {"poststack-2d/small_stack.sgy", "small stack, CDP 1000..1019, 200 samp, 2 ms", Big, Ieee, 20, 200, 2.0f, Stack, 20,
     Opens},
    {"poststack-3d/F3_very_small.sgy", "11 x 11, 463 samp, 4 ms, IBM, ASCII, scalco -10", Big, Ibm, 121, 463, 4.0f,
     InlineStack, 11, Opens},
    {"poststack-3d/f3-lsb.sgy", "same cube as f3.sgy, little-endian", Little, Int2, 414, 75, 4.0f, InlineStack, 18,
     Opens},
    {"poststack-3d/f3-withdead.sgy", "239 of 414 traces present, header says 414", Big, Ibm, 239, 75, 4.0f, InlineStack,
     18, Opens},
    {"poststack-3d/f3.sgy", "23 IL x 18 XL, 75 samp, int16 big-endian; trace-header ns 462 is wrong", Big, Int2, 414,
     75, 4.0f, InlineStack, 18, Opens},
    {"poststack-3d/volve10-migvel-depth-sub3d.sgy",
     "DEPTH (interval word 20000 = 20 m), 18 x 52, 226 samp, IEEE, EBCDIC, scalco -100", Big, Ieee, 936, 226, 20.0f,
     InlineStack, 52, Opens},
    {"prestack-land/329.sgy", "3 channels, 4096 samp, 62 us (62.5 rounded down), int32, NUL text", Big, Int4, 3, 4096,
     0.0625f, Ffid, 3, Opens},
    {"prestack-land/land_shot_3360.sgy", "shot FFID 3360, 280 ch, 2501 samp, 4 ms; scalco 32 (invalid)", Big, Ieee, 280,
     2501, 4.0f, Ffid, 280, Opens},
    {"prestack-land/real_gather.sgy", "shot FFID 3234, 96 ch, 1000 samp, 250 us, IEEE; NUL text; scalco -10", Big, Ieee,
     96, 1000, 0.25f, Ffid, 96, Opens},
    {"prestack-marine/viking_small.segy",
     "4 shots x 120 ch, 600 samp, 4 ms, IBM, EBCDIC; trace-header ns 1500 is wrong", Big, Ibm, 480, 600, 4.0f, Ffid,
     120, Opens},
    {"prestack-synthetic/f11_02673_45Hz.segy",
     "shot, 41 ch, 2701 samp, 1 ms, IEEE; ASCII blank text; delrt -183; FFID 0", Big, Ieee, 41, 2701, 1.0f, Reel, 41,
     Opens},
    {"prestack-synthetic/ground_roll.sgy", "shot, 120 ch, 1000 samp, 2 ms; FFID, CHAN all 0", Big, Ieee, 120, 1000,
     2.0f, Reel, 120, Opens},
    {"prestack-synthetic/shot_record_250.0_0.0_20.0.segy", "shot, 99 ch, 667 samp, 750 us, IEEE", Big, Ieee, 99, 667,
     0.75f, Ffid, 99, Opens},
    {"prestack-synthetic/shots_static_25.sgy", "25 shots x 96 ch (2400 traces), 251 samp, 1 ms, delrt 100", Big, Ieee,
     2400, 251, 1.0f, Ffid, 96, Opens},
    {"prestack-synthetic/unit_test_shot_records_1.segy",
     "shot, 120 ch, 501 samp; interval 0 in reel, 2000 in traces; all samples 0", Big, Ieee, 120, 501, 2.0f, Ffid, 120,
     Opens},
    // The README goes by the reel's code. The text header of the file says "Sample Format: MSDOS IEEE", and read as
    // IEEE the samples are a smooth trace, read as IBM they leap.
    {"single-traces/00001034_first_trace.sgy", "ASCII text, LITTLE-endian, IBM floats, 2001 samp 2 ms, FFID 1034",
     Little, Ieee, 1, 2001, 2.0f, Reel, 1, Opens},
    {"single-traces/1_first_trace.sgy", "text all NUL, int32, 250 us, delrt -100", Big, Int4, 1, 8000, 0.25f, Reel, 1,
     Opens},
    {"single-traces/example_y_first_trace.sgy", "EBCDIC, int16, CDP-sorted, scalco -10", Big, Int2, 1, 500, 2.0f, Reel,
     1, Opens},
};

SegyGuess guessOf(const std::string& name)
{
    SegyGuess guess;
    std::string error;
    EXPECT_TRUE(guessSegyFile(testDataFile(name), SegyLoadParm(), &guess, &error)) << error;
    return guess;
}

std::string choice(const SegyGuess& guess, const std::string& what)
{
    for (const SegyGuessFact& fact : guess.facts)
        if (fact.what == what) return fact.choice;
    return "no such fact";
}

class SegyGuessFile : public testing::TestWithParam<GuessRow>
{
};

std::string testName(const testing::TestParamInfo<GuessRow>& info)
{
    std::string name = info.param.name;
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

void PrintTo(const GuessRow& row, std::ostream* out)
{
    *out << row.name << ": " << row.says;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, SegyGuessFile, testing::ValuesIn(rows), testName);

TEST(SegyGuessFiles, TheTableNamesEverySegyFileOfTheFolder)
{
    SKIP_WITHOUT_TEST_DATA();
    std::set<std::string> expected, found;
    for (const GuessRow& row : rows) expected.insert(row.name);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(testDataFolder())) {
        const std::string extension = entry.path().extension();
        if (extension == ".sgy" || extension == ".segy")
            found.insert(std::filesystem::relative(entry.path(), testDataFolder()).string());
    }
    EXPECT_EQ(found, expected);
}

TEST_P(SegyGuessFile, IsWhatTheReadmeSays)
{
    SKIP_WITHOUT_TEST_DATA();
    const GuessRow& row = GetParam();
    SCOPED_TRACE(row.says);
    const SegyGuess guess = guessOf(row.name);
    EXPECT_EQ(guess.search.layout.isBigEndian, row.order == Big);
    EXPECT_EQ(guess.search.layout.nTraces, row.nTraces);
    EXPECT_EQ(guess.search.layout.nSamples, row.nSamples);
    EXPECT_EQ(guess.search.layout.tailBytes, 0);
    const SegyReadLayout& layout = guess.parm.layout;
    EXPECT_EQ(layout.firstTrace > 3600, row.follows == Extended);
    EXPECT_EQ(layout.headerBytes, row.follows == LongHeaders ? 480 : 240);
    EXPECT_EQ(layout.sampleFormat, row.follows == EightBytes ? SegyReal8 : 0);
    EXPECT_EQ(guess.verdict, SegyGuess::Read);
    EXPECT_EQ(guess.parm.itype, row.order == Little);
    EXPECT_EQ(guess.parm.iformat, row.format);
    EXPECT_EQ(guess.parm.nsamp, row.nSamples);
    EXPECT_FLOAT_EQ(guess.parm.srate, row.ms);
    EXPECT_EQ(guess.parm.ivariable, 0);
    EXPECT_EQ(guess.parm.isort, row.sort);
    EXPECT_EQ(guess.parm.maxtr, row.largest);
    EXPECT_EQ(guess.parm.indexbuilt, 0);
}

TEST_P(SegyGuessFile, OpensWithTheSettingsGuessedAndShowsItsEnsemblesWhole)
{
    SKIP_WITHOUT_TEST_DATA();
    const GuessRow& row = GetParam();
    const SegyGuess guess = guessOf(row.name);
    SegyLoadParm parm = guess.parm;
    parm.files = QString::fromStdString(testDataFile(row.name));
    parm.indexbuilt = 1;
    CollectReport report;
    const auto loader = SegyLoader::open(parm, &report);
    ASSERT_TRUE(loader) << report.text;
    EXPECT_TRUE(report.boxes.empty());
    EXPECT_EQ(loader->getTotalTraces(), row.nTraces);
    EXPECT_EQ(loader->numSamples(), row.nSamples);
    EXPECT_FLOAT_EQ(loader->sampleRate(), row.ms);
    int most = 0;
    for (int i = 0; i < loader->numEnsembles(); ++i) {
        loader->loadNextEnsemble(i > 0 ? 1 : 0);
        most = std::max(most, loader->numTraces());
    }
    EXPECT_EQ(most, row.largest);
}

TEST(SegyGuessFiles, TextHeadersDelaysAndScalarsAreWhatTheReadmeSays)
{
    SKIP_WITHOUT_TEST_DATA();
    static const struct {
        const char* name;
        const char* what;
        const char* begins;
    } cases[] = {
        {"odd-headers/delay-scalar.sgy", "Text header", "ASCII"},
        {"odd-headers/text-embed-null.sgy", "Text header", "EBCDIC"},
        {"poststack-2d/RIV6.segy", "Text header", "EBCDIC"},
        {"poststack-2d/lineE.sgy", "Text header", "EBCDIC"},
        {"poststack-3d/F3_very_small.sgy", "Text header", "ASCII"},
        {"prestack-land/329.sgy", "Text header", "ASCII, the strings of a SEG-2 record"},  // LINE_ID 0
        {"prestack-land/real_gather.sgy", "Text header", "all NUL"},
        {"prestack-synthetic/f11_02673_45Hz.segy", "Text header", "blank (ASCII)"},
        {"prestack-synthetic/unit_test_shot_records_1.segy", "Text header", "blank (ASCII)"},
        {"single-traces/00001034_first_trace.sgy", "Text header", "ASCII"},
        {"single-traces/1_first_trace.sgy", "Text header", "ASCII, the strings of a SEG-2 record"},
        {"single-traces/example_y_first_trace.sgy", "Text header", "EBCDIC"},
        {"first-breaks/hammer_profile_a.sgy", "Recording delay", "no setting"},
        {"cdp-gathers/gom_cdp_1010_nmo.sgy", "Coordinate scalar", "Yes: they are mixed"},
        {"prestack-land/land_shot_3360.sgy", "Coordinate scalar", "No: 32 is no scalar"},
        {"cdp-gathers/syn_cmp.sgy", "Coordinate scalar", "No: nothing to scale"},
        {"poststack-2d/RIV6.segy", "Coordinate scalar", "No: a scalar of 0 would make the values 0"},
        {"poststack-3d/volve10-migvel-depth-sub3d.sgy", "Sample interval", "20 ms; coarse for time: it may be depth"},
        {"poststack-2d/small_stack.sgy", "Traces per ensemble", "20: by the reel an ensemble would end after 1 trace"},
        {"prestack-synthetic/unit_test_shot_records_1.segy", "Sample format", "IEEE: by the code alone"},
        {"single-traces/00001034_first_trace.sgy", "Sample format", "IEEE: against the code, which says IBM"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(choice(guessOf(c.name), c.what).find(c.begins), 0u)
            << c.name << ": " << choice(guessOf(c.name), c.what);
}

TEST(SegyGuessFiles, TheRankingFindsTheWordsThatTheReadmeNames)
{
    SKIP_WITHOUT_TEST_DATA();
    static const struct {
        const char* name;
        int byte;
        SegyBehaviour behaviour;
        int least, most;
    } cases[] = {
        {"prestack-marine/viking_small.segy", 9, SegyBehaviour::RepeatsByEnsemble, 3, 6},
        {"prestack-marine/viking_small.segy", 13, SegyBehaviour::CountsUp, 1, 120},
        {"prestack-marine/viking_small.segy", 37, SegyBehaviour::CountsUp, -3237, -262},
        {"prestack-marine/viking_small.segy", 71, SegyBehaviour::Constant, 1, 1},
        {"poststack-3d/F3_very_small.sgy", 189, SegyBehaviour::RepeatsByEnsemble, 200, 210},
        {"poststack-3d/F3_very_small.sgy", 193, SegyBehaviour::CountsUp, 400, 410},
        {"cdp-gathers/cdp601to605.sgy", 21, SegyBehaviour::RepeatsByEnsemble, 601, 605},
        {"first-breaks/hammer_profile_a.sgy", 13, SegyBehaviour::CountsUp, 1, 60},
        {"poststack-2d/RIV6.segy", 21, SegyBehaviour::CountsUp, 1, 514},
        {"poststack-2d/small_stack.sgy", 21, SegyBehaviour::CountsUp, 1000, 1019},
        {"prestack-land/land_shot_3360.sgy", 9, SegyBehaviour::Constant, 3360, 3360},
        {"prestack-land/land_shot_3360.sgy", 71, SegyBehaviour::Constant, 32, 32},
        {"odd-headers/shot-gather.sgy", 9, SegyBehaviour::RepeatsByEnsemble, 2, 8},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.name << " byte " << c.byte);
        const std::vector<SegyVaryingWord> ranking = rankSegyWords(guessOf(c.name).sample);
        const auto word = std::find_if(ranking.begin(), ranking.end(), [&](const auto& w) { return w.byte == c.byte; });
        ASSERT_NE(word, ranking.end());
        EXPECT_EQ(word->behaviour, c.behaviour) << word->evidence;
        EXPECT_EQ(word->least, c.least);
        EXPECT_EQ(word->most, c.most);
    }
    // Coordinates of receivers, of traces, of CDPs. The land shot has midpoints where water depths belong: in its
    // first trace 755651 and 4282582, which is half way from 757932, 4282268 to 753370, 4282896.
    static const struct {
        const char* name;
        std::vector<int> bytes;
    } coordinates[] = {{"prestack-land/land_shot_3360.sgy", {61, 65, 81, 85}},
                       {"poststack-2d/RIV6.segy", {73, 77, 81, 85}},
                       {"poststack-3d/F3_very_small.sgy", {73, 77, 181, 185}},
                       {"odd-headers/small-2d.sgy", {181, 185}}};
    for (const auto& c : coordinates) {
        std::vector<int> found;
        for (const SegyVaryingWord& word : rankSegyWords(guessOf(c.name).sample))
            if (word.behaviour == SegyBehaviour::Coordinates) found.push_back(word.byte);
        EXPECT_EQ(found, c.bytes) << c.name;
    }
}

TEST(SegyGuessFiles, WhatIsNoSegyIsRecognised)
{
    SKIP_WITHOUT_TEST_DATA();
    EXPECT_EQ(guessOf("not-segy/301.dat").summary, "This is a SEG-2 record, not a SEG-Y file.");
    EXPECT_EQ(guessOf("not-segy/small.su").summary.find("This is an SU file"), 0u);
    for (const char* name :
         {"survey-text/test.ukooa", "sps/dx08_sps.txt", "sps/TestZipper1.X", "velocity/handvels.txt",
          "horizons/F3_Demo_0_FS4.dat", "first-breaks/Halfmile_shot20041590_seg005.json", "README.md"})
        EXPECT_EQ(guessOf(name).verdict, SegyGuess::NotSegy) << name;
}

TEST(SegyGuessFiles, TheLargestIsLookedAtInLessThanTwoSeconds)
{
    SKIP_WITHOUT_TEST_DATA();
    const auto start = std::chrono::steady_clock::now();
    guessOf("first-breaks/hammer_profile_a.sgy");
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    RecordProperty("milliseconds", int(seconds.count() * 1000.0));
    EXPECT_LT(seconds.count(), 2.0);
}
