/// Which files are plainly misread by the settings told, over all real data; expectations are argued from what the
/// README beside them says, and from the words of the reel, read by hand.
#include "sources/segyguesslook.h"
#include "sources/segyguesstextfile.h"
#include "sources/segyloader.h"
#include "tests/testdata.h"
#include "tests/unit/sources/segybuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace {

using testing::HasSubstr;

enum Bar { None, WithSettings, WithoutSettings };

struct LookRow {
    Bar bar;
    const char* words;  ///< of the line
    const char* why;
};

/// The files that get a bar; every other .sgy and .segy is right as it opens and must get none.
const std::map<std::string, LookRow> misread = {
    {"formats/Format1lsb.sgy",
     {WithSettings, "little-endian. Refused: read as big-endian.", "little-endian: format code 256, interval -24561"}},
    {"formats/Format3lsb.sgy", {WithSettings, "little-endian. Refused: read as big-endian.", "little-endian"}},
    {"formats/Format5lsb.sgy", {WithSettings, "little-endian. Refused: read as big-endian.", "little-endian"}},
    {"formats/Format8lsb.sgy", {WithSettings, "little-endian. Refused: read as big-endian.", "little-endian"}},
    {"poststack-3d/f3-lsb.sgy",
     {WithSettings, "little-endian. Refused: read as big-endian.", "little-endian headers and samples"}},
    {"single-traces/00001034_first_trace.sgy",
     {WithSettings, "little-endian. Refused: read as big-endian.", "LITTLE-endian"}},
    {"formats/Format6msb.sgy",
     {WithSettings, "IEEE (8 byte), but read as 1-byte integers",
      "code 6 of the standard is 8-byte floats, of this reader one-byte integers"}},
    {"formats/Format8msb.sgy",
     {WithSettings, "1-byte integers, but read as IEEE floats",
      "code 8 is none that the reader knows, so it is read as 4-byte floats"}},
    {"odd-headers/multi-text.sgy",
     {WithSettings, "the first trace is at byte 16400, not 3600", "4 extended textual headers: 3600 + 4 x 3200"}},
    {"odd-headers/stanzas-known-count.sgy",
     {WithSettings, "the first trace is at byte 13200, not 3600", "3 extended headers: 3600 + 3 x 3200"}},
    {"odd-headers/rotated-small-rev2.sgy",
     {WithSettings, "trace headers have 480 bytes, not 240", "a naive 240-byte read goes astray"}},
    {"odd-headers/trace-header-extension1.sgy",
     {WithSettings, "trace headers have 480 bytes, not 240", "480-byte headers"}},
    {"odd-headers/small-2d.sgy",
     {WithSettings, "up to 25 traces are cut after 5", "a 2D line of 25 traces; the reel says 5 traces an ensemble"}},
    {"poststack-2d/small_stack.sgy",
     {WithSettings, "up to 20 traces are cut after 1", "a stack of CDPs 1000..1019; the reel says 1 trace"}},
    {"poststack-3d/volve10-migvel-depth-sub3d.sgy",
     {WithSettings, "up to 52 traces are cut after 1", "18 x 52; the reel says 1 trace"}},
};

/// What is no SEG-Y file, and what it seems to be.
const std::map<std::string, const char*> others = {
    {"not-segy/301.dat", "a SEG-2 record"},
    {"not-segy/small.su", "an SU file"},
    {"first-breaks/Halfmile_shot20041590_seg005.json", "a text file: JSON"},
    {"first-breaks/hammer_profile_a_picks.txt", "a text file: a table of numbers"},
    {"horizons/F3_Demo_0_FS4.dat", "a text file: a table of numbers"},
    {"sps/TestZipper.grid", "a text file: JSON"},
    {"sps/TestZipper1.R", "a text file: SPS receiver records"},
    {"sps/TestZipper1.S", "a text file: SPS source records"},
    {"sps/TestZipper1.X", "a text file: SPS relation records"},
    {"sps/dx08_sps.txt", "a text file: SPS"},
    {"sps/dx08_hdr.txt", "a text file: a table of numbers"},
    {"survey-text/RIV6.geometry", "a text file: a table of numbers"},
    {"survey-text/line41-81_spnXY.txt", "a text file: a table of numbers"},
    {"survey-text/test.ukooa", "a text file: UKOOA P1 survey records"},
    {"velocity/handvels.txt", "a text file: velocity functions"},
    {"velocity/velsorig.txt", "a text file: velocity functions"},
    {"velocity/vnmo_raw_RIV6.dat", "a text file: a table of numbers"},
    {"README.md", "a text file, not"},
};

/// Opens the file as the window does, and looks.
SegyFirstLook lookAt(const std::string& path, const SegyLoadParm& settings = SegyLoadParm(), SegyGuess* guess = nullptr)
{
    SegyLoadParm told = settings;
    told.files = QString::fromStdString(path);
    CollectReport report;
    const auto loader = SegyLoader::open(told, &report);
    const bool isOpen = loader && loader->loadNextEnsemble(1);
    SegyGuess found;
    std::string error;
    EXPECT_TRUE(guessSegyFile(path, told, &found, &error)) << error;
    const SegyFirstLook look = firstLook("name", found, told, segyReading(isOpen ? loader.get() : nullptr, told));
    if (guess) *guess = found;
    return look;
}

}  // namespace

TEST(SegyFirstLook, OfTheRealSegyFilesThoseAndOnlyThoseThatAreMisreadAreTold)
{
    SKIP_WITHOUT_TEST_DATA();
    int nFiles = 0;
    size_t nTold = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(testDataFolder())) {
        const std::string extension = entry.path().extension();
        if (extension != ".sgy" && extension != ".segy") continue;
        ++nFiles;
        const std::string name = std::filesystem::relative(entry.path(), testDataFolder()).string();
        const SegyFirstLook look = lookAt(entry.path().string());
        const auto row = misread.find(name);
        if (row == misread.end()) {
            EXPECT_EQ(look.line, "") << name;
            continue;
        }
        ++nTold;
        SCOPED_TRACE(name + ": " + row->second.why);
        EXPECT_THAT(look.line, HasSubstr(row->second.words));
        EXPECT_EQ(look.hasSettings, row->second.bar == WithSettings);
    }
    EXPECT_EQ(nFiles, 51);
    EXPECT_EQ(nTold, misread.size());
}

TEST(SegyFirstLook, WithTheSettingsOfTheGuessNothingIsLeftToSay)
{
    SKIP_WITHOUT_TEST_DATA();
    for (const auto& [name, row] : misread) {
        SegyGuess guess;
        const std::string path = testDataFile(name);
        lookAt(path, SegyLoadParm(), &guess);
        EXPECT_EQ(lookAt(path, guess.parm).line, "") << name;
    }
}

TEST(SegyFirstLook, WhatIsNoSegyFileIsToldByWhatItSeemsToBe)
{
    SKIP_WITHOUT_TEST_DATA();
    for (const auto& [name, words] : others) {
        const SegyFirstLook look = lookAt(testDataFile(name));
        EXPECT_THAT(look.line, HasSubstr(std::string("This is ") + words)) << name;
        EXPECT_FALSE(look.hasSettings) << name;
    }
}

TEST(SegyFirstLook, WhatTheUserTypedForSortAndRoomIsHisWish)
{
    SKIP_WITHOUT_TEST_DATA();
    SegyLoadParm told;
    told.maxtr = 7;
    EXPECT_EQ(lookAt(testDataFile("poststack-2d/small_stack.sgy"), told).line, "");
    told = SegyLoadParm();
    told.isort = 11;  // each trace an ensemble
    EXPECT_EQ(lookAt(testDataFile("prestack-marine/viking_small.segy"), told).line, "");
    told.isort = 0;
    told.iformat = 1;  // IEEE, and the samples are IBM: that is no matter of taste
    EXPECT_THAT(lookAt(testDataFile("prestack-marine/viking_small.segy"), told).line,
                HasSubstr("IBM floats, but read as IEEE floats"));
}

TEST(SegyFirstLook, EnsemblesOfOneTraceInAFileOfManyAreTold)
{
    SegyGuess guess;
    guess.verdict = SegyGuess::Read;
    guess.summary = "40 traces of 10 samples, big-endian.";
    guess.longestEnsemble = 40;
    guess.parm.isort = 5;
    guess.search.layout.nSamples = 10;
    guess.search.layout.nTraces = 40;
    guess.search.layout.plausibility = 1.0;
    guess.search.claims[1].format = 5;
    SegyReading reading;
    reading.isOpen = true;
    reading.nSamples = 10;
    reading.sampleFormat = 5;
    reading.nTraces = 1;
    reading.maxTraces = 5000;
    EXPECT_EQ(firstLook("line.sgy", guess, SegyLoadParm(), reading).line,
              "line.sgy: 40 traces of 10 samples, big-endian. Misread: ensembles have up to 40 traces by \"Stack\", "
              "not one.");
    reading.nTraces = 2;
    EXPECT_EQ(firstLook("line.sgy", guess, SegyLoadParm(), reading).line, "");
    reading.nTraces = 1;
    guess.longestEnsemble = 1;
    EXPECT_EQ(firstLook("line.sgy", guess, SegyLoadParm(), reading).line, "");
}

TEST(TextFileKind, OnlyPrintableLinesAreText)
{
    EXPECT_EQ(textFileKind("one\ntwo\n"), "a text file");
    EXPECT_EQ(textFileKind(std::string("one\ntwo\n\0", 9)), "");
    EXPECT_EQ(textFileKind(""), "");
    EXPECT_EQ(textFileKind(std::string(3200, ' ')), "");
    EXPECT_EQ(textFileKind(std::string(80, 'C')), "");  // cards without line ends
    EXPECT_EQ(textFileKind("{\"a\": 1}"), "a text file: JSON");
    EXPECT_EQ(textFileKind("1 2\n3 4\n"), "a text file: a table of numbers");
    EXPECT_EQ(textFileKind("1 2\nsome words\nand more\n"), "a text file");
}
