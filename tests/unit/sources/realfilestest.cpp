/// Every SEG-Y file of the real data: how it opens, and that each sample and header word is right, by a tiny
/// reader of the test's own and by segyio.
#include "tests/testdata.h"
#include "tests/unit/sources/segyloaderfixture.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <set>

namespace {

enum Type { Standard, Msdos };
enum Oracle { Agrees, NotComparable };

struct RealFile {
    const char* name;
    Type type;         // that reads it right
    int formatChoice;  // that reads it right; 0 takes the file's code
    int nTraces, nSamples;
    int intervalUs;
    Oracle oracle;
    const char* shows;
};

const RealFile realFiles[] = {
    {"cdp-gathers/cdp601to605.sgy", Standard, 0, 150, 750, 8000, Agrees, "marine CDP gathers"},
    {"cdp-gathers/gom_cdp_1010_nmo.sgy", Standard, 0, 92, 1751, 4000, Agrees,
     "coordinate scalars -1000 and -10000 mixed"},
    {"cdp-gathers/syn_cmp.sgy", Standard, 0, 38, 522, 4000, Agrees, "trace id and coordinate scalar 0"},
    {"first-breaks/hammer_profile_a.sgy", Standard, 0, 360, 4096, 250, Agrees, "delay -200 ms, offsets in cm"},
    {"first-breaks/land48_a.sgy", Standard, 0, 288, 2000, 250, Agrees, "no geometry at all"},
    {"first-breaks/school_102.sgy", Standard, 0, 24, 4000, 125, Agrees, "source at a negative coordinate"},
    {"first-breaks/school_109.sgy", Standard, 0, 24, 4800, 62, Agrees, "interval word rounded down"},
    {"first-breaks/school_206.sgy", Standard, 0, 24, 8000, 62, Agrees, "8000 samples"},
    {"formats/Format1lsb.sgy", Msdos, 0, 414, 75, 4000, Agrees, "IBM, little-endian"},
    {"formats/Format1msb.sgy", Standard, 0, 414, 75, 4000, Agrees, "IBM"},
    {"formats/Format2msb.sgy", Standard, 0, 414, 75, 4000, Agrees, "4-byte integers"},
    {"formats/Format3lsb.sgy", Msdos, 0, 414, 75, 4000, Agrees, "2-byte integers, little-endian"},
    {"formats/Format5lsb.sgy", Msdos, 0, 414, 75, 4000, Agrees, "IEEE, little-endian"},
    {"formats/Format5msb.sgy", Standard, 0, 414, 75, 4000, Agrees, "IEEE"},
    {"formats/Format6msb.sgy", Standard, 0, 1104, 75, 4000, NotComparable,
     "8-byte floats under code 6, which here means one-byte integers: opens, its traces are not the file's"},
    {"formats/Format8lsb.sgy", Msdos, 5, 414, 75, 4000, Agrees, "1-byte integers under code 8, little-endian"},
    {"formats/Format8msb.sgy", Standard, 5, 414, 75, 4000, Agrees, "1-byte integers under code 8"},
    {"odd-headers/delay-scalar.sgy", Standard, 0, 1, 251, 4000, Agrees, "delay 10000 ms, ASCII text"},
    {"odd-headers/interval-neg-bin-pos-trace.sgy", Standard, 0, 1, 1, 4000, Agrees, "negative interval, repaired"},
    {"odd-headers/long.sgy", Standard, 0, 3, 60000, 1000, NotComparable,
     "60000 samples, which read as -5536; segyio stops with an assertion"},
    {"odd-headers/multi-text.sgy", Standard, 0, 54, 1, 4000, NotComparable,
     "4 extended text headers are read as traces; the file's one trace is the last, cut one"},
    {"odd-headers/rotated-small-rev2.sgy", Standard, 0, 39, 50, 4000, NotComparable,
     "longer trace headers: 240-byte reading goes astray, without harm"},
    {"odd-headers/shot-gather.sgy", Standard, 0, 61, 25, 1000, Agrees, "unequal shots, aux traces 61"},
    {"odd-headers/small-2d.sgy", Standard, 0, 25, 50, 4000, Agrees, "no inline numbers"},
    {"odd-headers/small-irregular.sgy", Standard, 0, 24, 50, 4000, Agrees, "a trace of the cube is missing"},
    {"odd-headers/small-ps-dec-il-xl-off.sgy", Standard, 0, 24, 10, 4000, Agrees, "all keys decreasing"},
    {"odd-headers/small-ps.sgy", Standard, 0, 24, 10, 4000, Agrees, "prestack cube"},
    {"odd-headers/small-traceheader-samplerate.sgy", Standard, 0, 25, 50, 4000, Agrees, "interval 0 in the reel only"},
    {"odd-headers/stanzas-known-count.sgy", Standard, 0, 44, 4, 1000, NotComparable,
     "3 extended text headers are read as traces"},
    {"odd-headers/text-embed-null.sgy", Standard, 0, 25, 50, 4000, Agrees, "NUL bytes inside the text"},
    {"odd-headers/trace-header-extension1.sgy", Standard, 0, 12, 4, 1000, NotComparable,
     "480-byte trace headers: 240-byte reading goes astray, without harm"},
    {"poststack-2d/RIV6.segy", Standard, 0, 514, 1151, 4000, Agrees, "text without line labels"},
    {"poststack-2d/lineE.sgy", Standard, 0, 111, 1001, 4000, Agrees, "repeated CDP numbers"},
    {"poststack-2d/small_stack.sgy", Standard, 0, 20, 200, 2000, Agrees, "small stack"},
    {"poststack-3d/F3_very_small.sgy", Standard, 0, 121, 463, 4000, Agrees, "ASCII text"},
    {"poststack-3d/f3-lsb.sgy", Msdos, 0, 414, 75, 4000, Agrees, "2-byte integers, little-endian"},
    {"poststack-3d/f3-withdead.sgy", Standard, 0, 239, 75, 4000, Agrees, "fewer traces than the reel says"},
    {"poststack-3d/f3.sgy", Standard, 0, 414, 75, 4000, Agrees, "trace headers say 462 samples after the crop"},
    {"poststack-3d/volve10-migvel-depth-sub3d.sgy", Standard, 0, 936, 226, 20000, Agrees, "depth, interval 20 m"},
    {"prestack-land/329.sgy", Standard, 0, 3, 4096, 62, Agrees, "text all NUL"},
    {"prestack-land/land_shot_3360.sgy", Standard, 0, 280, 2501, 4000, Agrees, "coordinate scalar 32"},
    {"prestack-land/real_gather.sgy", Standard, 0, 96, 1000, 250, Agrees, "text all NUL, no offsets"},
    {"prestack-marine/viking_small.segy", Standard, 0, 480, 600, 4000, Agrees,
     "trace headers say 1500 samples after the crop"},
    {"prestack-synthetic/f11_02673_45Hz.segy", Standard, 0, 41, 2701, 1000, Agrees, "NaN in every trace, delay -183"},
    {"prestack-synthetic/ground_roll.sgy", Standard, 0, 120, 1000, 2000, Agrees, "FFID and CHAN all 0"},
    {"prestack-synthetic/shot_record_250.0_0.0_20.0.segy", Standard, 0, 99, 667, 750, Agrees, "no offset word"},
    {"prestack-synthetic/shots_static_25.sgy", Standard, 0, 2400, 251, 1000, Agrees, "25 shots, delay 100 ms"},
    {"prestack-synthetic/unit_test_shot_records_1.segy", Standard, 0, 120, 501, 2000, Agrees,
     "interval 0 in the reel, all samples 0"},
    {"single-traces/00001034_first_trace.sgy", Msdos, 0, 1, 2001, 2000, Agrees, "little-endian IBM with ASCII text"},
    {"single-traces/1_first_trace.sgy", Standard, 0, 1, 8000, 250, Agrees, "4-byte integers, text all NUL"},
    {"single-traces/example_y_first_trace.sgy", Standard, 0, 1, 500, 2000, Agrees, "2-byte integers, CDP-sorted"},
};

/// A loader with an index, on a file of the real data or any other.
struct RealLoader : Loaded {
    RealLoader(const std::string& path, Type type, int formatChoice, int isort = 0, int scalars = 1, int ivariable = 0)
        : Loaded({.files = path,
                  .isort = isort,
                  .itype = type == Msdos,
                  .iformat = formatChoice,
                  .ivariable = ivariable,
                  .icscale = scalars,
                  .iescale = scalars,
                  .indexbuilt = 1})
    {
        open();
    }
    explicit RealLoader(const RealFile& file) : RealLoader(testDataFile(file.name), file.type, file.formatChoice) {}
    void loadAll(int most)
    {
        for (int i = 0; i < std::min(most, loader->numEnsembles()); ++i) loader->loadNextEnsemble(1);
    }
};

std::vector<unsigned char> bytesOf(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::vector<unsigned char>((std::istreambuf_iterator<char>(in)), {});
}

/// The test's own reading of numbers: byte by byte, in the order told.
struct PlainReader {
    const std::vector<unsigned char>& bytes;
    bool isBig;

    uint64_t unsignedAt(size_t offset, int n) const
    {
        uint64_t value = 0;
        for (int i = 0; i < n; ++i) {
            const size_t at = offset + size_t(isBig ? i : n - 1 - i);
            value = value << 8 | (at < bytes.size() ? bytes[at] : 0);
        }
        return value;
    }
    int int32(size_t offset) const { return int32_t(uint32_t(unsignedAt(offset, 4))); }
    int int16(size_t offset) const { return int16_t(uint16_t(unsignedAt(offset, 2))); }
    float sample(size_t trace, int i, int format, int nBytes) const
    {
        const size_t at = trace + 240 + size_t(i) * size_t(nBytes);
        const auto weight = float(std::pow(2.0, -int16(trace + 168)));
        const uint64_t raw = unsignedAt(at, nBytes);
        if (format == 3) return float(int16_t(uint16_t(raw))) * weight;
        if (format == 6) return float(int8_t(uint8_t(raw))) * weight;
        if (format == 2) return float(int32_t(uint32_t(raw)));
        if (format == 1) {
            const double fraction = double(raw & 0xffffff) / 16777216.0;
            // what a float can't hold becomes the largest one
            const double value = std::min(fraction * std::pow(16.0, int(raw >> 24 & 0x7f) - 64), double(FLT_MAX));
            return float(raw & 0x80000000u ? -value : value);
        }
        float value;
        const auto bits = uint32_t(raw);
        std::memcpy(&value, &bits, 4);
        return value;
    }
};

bool isSameFloat(float a, float b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

class RealFileTest : public testing::TestWithParam<RealFile>
{
};

/// The files that segyio reads, too; of the others the row says why not, and the plain reader checks them.
class SegyioTest : public testing::TestWithParam<RealFile>
{
};

std::vector<RealFile> comparableFiles()
{
    std::vector<RealFile> files;
    for (const RealFile& file : realFiles)
        if (file.oracle == Agrees) files.push_back(file);
    return files;
}

/// Names the row in a failure, in place of its bytes.
void PrintTo(const RealFile& file, std::ostream* out)
{
    *out << file.name << ": " << file.shows;
}

std::string testName(const testing::TestParamInfo<RealFile>& info)
{
    std::string name = info.param.name;
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, RealFileTest, testing::ValuesIn(realFiles), testName);
INSTANTIATE_TEST_SUITE_P(All, SegyioTest, testing::ValuesIn(comparableFiles()), testName);

TEST(RealFiles, TheTableNamesEverySegyFileOfTheFolder)
{
    SKIP_WITHOUT_TEST_DATA();
    std::set<std::string> expected, found;
    for (const RealFile& file : realFiles) expected.insert(file.name);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(testDataFolder())) {
        const std::string extension = entry.path().extension();
        if (extension == ".sgy" || extension == ".segy")
            found.insert(std::filesystem::relative(entry.path(), testDataFolder()).string());
    }
    EXPECT_EQ(found, expected);
}

TEST_P(RealFileTest, OpensAndEverySampleAndWordIsThatOfAPlainReader)
{
    SKIP_WITHOUT_TEST_DATA();
    const RealFile& file = GetParam();
    SCOPED_TRACE(file.shows);
    RealLoader real(file);
    ASSERT_TRUE(real.isGood) << real.report.text;
    EXPECT_TRUE(real.report.boxes.empty());
    ASSERT_EQ(real.loader->getTotalTraces(), file.nTraces);
    ASSERT_EQ(real.loader->numSamples(), file.nSamples);
    EXPECT_FLOAT_EQ(real.loader->sampleRate(), float(file.intervalUs) / 1000.0f);
    const std::vector<unsigned char> bytes = bytesOf(testDataFile(file.name));
    const PlainReader plain{bytes, file.type == Standard};
    const int format = real.loader->getReelHeader()->format;
    const int nBytes = format == 3 ? 2 : format == 6 ? 1 : 4;
    const size_t record = 240 + size_t(file.nSamples) * size_t(nBytes);
    std::vector<float> data(size_t(60 + file.nSamples));
    for (int i = 0; i < file.nTraces; ++i) {
        const segyMapItem& item = real.loader->getMapArray()[i];
        const size_t start = 3600 + item.itrace * record;
        ASSERT_EQ(item.offset, start);
        ASSERT_GT(real.loader->seekTraceConverted(i, data.data(), true), 0);
        const auto word = [&](const char* name) {
            int value;
            std::memcpy(&value, &data[size_t(real.loader->segyHeader()->OrvinHeaderIndex(name))], 4);
            return value;
        };
        ASSERT_EQ(word("TRACENO "), plain.int32(start));
        ASSERT_EQ(word("FFID    "), plain.int32(start + 8));
        ASSERT_EQ(word("CHAN    "), plain.int32(start + 12));
        ASSERT_EQ(word("SOURCE  "), plain.int32(start + 16));
        ASSERT_EQ(word("CDP     "), plain.int32(start + 20));
        ASSERT_EQ(word("TRC_TYPE"), plain.int16(start + 28));
        ASSERT_EQ(word("ILINE_NO"), plain.int32(start + 188));
        ASSERT_EQ(word("XLINE_NO"), plain.int32(start + 192));
        const auto value = [&](const char* name) {
            return data[size_t(real.loader->segyHeader()->OrvinHeaderIndex(name))];
        };
        ASSERT_EQ(value("OFFSET  "), float(plain.int32(start + 36)));
        const int scalar = plain.int16(start + 70);
        const float factor = scalar < 0 ? float(1.0 / -scalar) : float(scalar);
        const int depthScalar = plain.int16(start + 68);
        const float depthFactor = depthScalar < 0 ? float(1.0 / -depthScalar) : float(depthScalar);
        ASSERT_EQ(value("SOU_H2OD"), float(plain.int32(start + 60)) * depthFactor);
        ASSERT_EQ(value("REC_ELEV"), float(plain.int32(start + 40)) * depthFactor);
        ASSERT_EQ(value("SOU_X   "), float(plain.int32(start + 72)) * factor);
        ASSERT_EQ(value("REC_Y   "), float(plain.int32(start + 84)) * factor);
        ASSERT_EQ(value("CDP_X   "), float(plain.int32(start + 180)) * factor);
        ASSERT_EQ(item.item[12], value("SOU_X   "));
        const int nPresent = int(std::min(record, bytes.size() - start)) - 240;
        for (int j = 0; j < file.nSamples; ++j) {
            const float expected = j < nPresent / nBytes ? plain.sample(start, j, format, nBytes) : 0.0f;
            if (!isSameFloat(data[size_t(60 + j)], expected)) {
                FAIL() << "trace " << i << " sample " << j << ": " << data[size_t(60 + j)] << " not " << expected;
            }
        }
    }
}

TEST_P(SegyioTest, EverySampleAndHeaderWordIsThatOfSegyio)
{
    SKIP_WITHOUT_TEST_DATA();
    const RealFile& file = GetParam();
    const QTemporaryDir folder;
    const std::string out = folder.filePath("dump").toStdString();
    const std::string command = std::string("/usr/bin/python3 '") + MERIDUNE_SOURCE_DIR +
                                "/tests/data/segyio_dump.py' '" + testDataFile(file.name) + "' '" + out + "' " +
                                (file.type == Standard ? "big" : "little") + " 2>/dev/null";
    const int status = std::system(command.c_str());
    if (!WIFEXITED(status) || WEXITSTATUS(status) == 3 || WEXITSTATUS(status) == 127)
        GTEST_SKIP() << "python3-segyio is not installed";
    ASSERT_EQ(WEXITSTATUS(status), 0) << command;
    const std::vector<unsigned char> dump = bytesOf(out);
    ASSERT_GE(dump.size(), 12u);
    const PlainReader oracle{dump, false};
    // as in segyio_dump.py: first byte of the field counted from 1, its width
    static const struct {
        int byte, width;
    } fields[] = {{1, 4},   {5, 4},   {9, 4},   {13, 4},  {17, 4},  {21, 4},  {25, 4},  {29, 2},  {31, 2},
                  {33, 2},  {37, 4},  {41, 4},  {45, 4},  {49, 4},  {65, 4},  {69, 2},  {71, 2},  {73, 4},
                  {77, 4},  {81, 4},  {85, 4},  {95, 2},  {99, 2},  {101, 2}, {103, 2}, {109, 2}, {111, 2},
                  {113, 2}, {115, 2}, {117, 2}, {169, 2}, {181, 4}, {185, 4}, {189, 4}, {193, 4}};
    ASSERT_EQ(oracle.int32(0), file.nTraces);
    ASSERT_EQ(oracle.int32(4), file.nSamples);
    ASSERT_EQ(oracle.int32(8), int(std::size(fields)));
    RealLoader real(file);
    ASSERT_TRUE(real.isGood);
    const int format = real.loader->getReelHeader()->format;
    const size_t record = 4 * (std::size(fields) + size_t(file.nSamples));
    ASSERT_EQ(dump.size(), 12 + record * size_t(file.nTraces));
    std::vector<char> buffer(size_t(real.loader->maxBytes()));
    const std::vector<unsigned char> bytes = bytesOf(testDataFile(file.name));
    const PlainReader raw{bytes, file.type == Standard};
    for (int i = 0; i < file.nTraces; ++i) {
        ASSERT_GT(real.loader->seekTrace(i, buffer.data(), true), 0);
        size_t at = 12 + record * real.loader->getMapArray()[i].itrace;
        for (const auto& field : fields) {
            int32_t wide;
            int16_t narrow;
            std::memcpy(&wide, &buffer[size_t(field.byte - 1)], 4);
            std::memcpy(&narrow, &buffer[size_t(field.byte - 1)], 2);
            ASSERT_EQ(field.width == 4 ? wide : narrow, oracle.int32(at)) << "trace " << i << " byte " << field.byte;
            at += 4;
        }
        int16_t weight;
        std::memcpy(&weight, &buffer[168], 2);
        const bool isWeighted = format == 3 || format == 6;  // segyio leaves the weight out
        const size_t rawStart = real.loader->getMapArray()[i].offset + 240;
        for (int j = 0; j < file.nSamples; ++j, at += 4) {
            // segyio takes an IBM fraction without a leading digit for one with it; the plain reader covers these
            if (format == 1 && (raw.unsignedAt(rawStart + 4 * size_t(j), 4) & 0x00f00000u) == 0) continue;
            float value, expected;
            std::memcpy(&value, &buffer[240 + 4 * size_t(j)], 4);
            std::memcpy(&expected, &dump[at], 4);
            if (isWeighted) expected = std::ldexp(expected, -weight);
            if (!isSameFloat(value, expected)) {
                FAIL() << "trace " << i << " sample " << j << ": " << value << " not " << expected;
            }
        }
    }
}

TEST_P(RealFileTest, InTheWrongByteOrderItIsRefusedWithTheBoxOrOpensWithoutHarm)
{
    SKIP_WITHOUT_TEST_DATA();
    const RealFile& file = GetParam();
    RealLoader real(testDataFile(file.name), file.type == Standard ? Msdos : Standard, 0);
    if (real.isGood) {
        real.loadAll(20);
        return;
    }
    ASSERT_EQ(real.report.boxes.size(), 1u);
    EXPECT_EQ(real.report.boxes[0].find("SEGY Reel Header Problem: "), 0u);
    EXPECT_TRUE(real.report.has("SEGYLOADER: Error, number of samples is less than zero.") ||
                real.report.has("SEGYLOADER: Error, sample rate is less than zero."));
}

TEST_P(RealFileTest, EverySortLoadsAndHoldsEveryTraceOnce)
{
    SKIP_WITHOUT_TEST_DATA();
    RealLoader real(GetParam());
    ASSERT_TRUE(real.isGood);
    for (int isort = 1; isort <= 11; ++isort) {
        real.loader->buildNewSort(SortCode(isort));
        std::set<uint32_t> ranks;
        for (int i = 0; i < real.loader->getTotalTraces(); ++i) ranks.insert(real.loader->getMapArray()[i].itrace);
        EXPECT_EQ(int(ranks.size()), GetParam().nTraces);
        EXPECT_TRUE(real.loader->loadNextEnsemble(1));
        EXPECT_GE(real.loader->numTraces(), 1);
    }
}

TEST_P(RealFileTest, ReadAsTracesOfVariableLengthItOpensOrIsRefusedWithoutHarm)
{
    SKIP_WITHOUT_TEST_DATA();
    RealLoader real(testDataFile(GetParam().name), GetParam().type, GetParam().formatChoice, 0, 1, 1);
    if (!real.isGood) {
        EXPECT_EQ(real.report.boxes.size(), 1u);
        EXPECT_STREQ(GetParam().name, "odd-headers/long.sgy") << "its count is unsigned in fixed length only";
        return;
    }
    real.loadAll(20);
}

TEST(RealFiles, WhatIsNoSegyIsRefusedWithTheBox)
{
    SKIP_WITHOUT_TEST_DATA();
    for (const char* name : {"not-segy/301.dat", "not-segy/small.su"})
        for (Type type : {Standard, Msdos}) {
            SCOPED_TRACE(name);
            RealLoader real(testDataFile(name), type, 0);
            EXPECT_FALSE(real.isGood);
            EXPECT_EQ(real.report.boxes.size(), 1u);
            EXPECT_TRUE(real.report.has("number of samples is less than zero. value=0"));
        }
    RealLoader text(testDataFile("survey-text/test.ukooa"), Standard, 0);
    EXPECT_FALSE(text.isGood) << "937 bytes are no reel";
    EXPECT_TRUE(text.report.has("SegyLoader: Error while reading reel headers."));
}

TEST(RealFilesInTheWild, ACropLeavesTraceCountsThatAreWrongAndTheReelWins)
{
    SKIP_WITHOUT_TEST_DATA();
    static const struct {
        const char* name;
        int inReel, inTraces;
    } cases[] = {{"prestack-marine/viking_small.segy", 600, 1500}, {"poststack-3d/f3.sgy", 75, 462}};
    for (const auto& c : cases) {
        RealLoader real(testDataFile(c.name), Standard, 0);
        std::vector<char> buffer(size_t(real.loader->maxBytes()));
        real.loader->seekTrace(0, buffer.data(), true);
        EXPECT_EQ(real.loader->SegyData()->segytrace->nsampt, c.inTraces);
        EXPECT_EQ(real.loader->numSamples(), c.inReel);
    }
}

TEST(RealFilesInTheWild, AnIntervalOfZeroOrBelowInTheReelComesFromTheFirstTrace)
{
    SKIP_WITHOUT_TEST_DATA();
    static const struct {
        const char* name;
        float ms;
    } cases[] = {{"odd-headers/interval-neg-bin-pos-trace.sgy", 4.0f},
                 {"odd-headers/small-traceheader-samplerate.sgy", 4.0f},
                 {"prestack-synthetic/unit_test_shot_records_1.segy", 2.0f}};
    for (const auto& c : cases) {
        RealLoader real(testDataFile(c.name), Standard, 0);
        EXPECT_EQ(real.loader->sampleRate(), c.ms) << c.name;
        EXPECT_TRUE(real.report.has("segyData2: Warning, fixed sample rate from first trace header: " +
                                    std::to_string(int(c.ms * 1000)) + "\n"));
    }
}

TEST(RealFilesInTheWild, SixtyThousandSamplesAreTakenUnsigned)
{
    SKIP_WITHOUT_TEST_DATA();
    RealLoader real(testDataFile("odd-headers/long.sgy"), Standard, 0);
    ASSERT_TRUE(real.isGood);
    EXPECT_EQ(real.loader->numSamples(), 60000);
    EXPECT_TRUE(real.report.has("segyData2: Warning, fixed no. of samples, taken as unsigned: 60000\n"));
    real.loader->loadNextEnsemble(1);
    EXPECT_EQ(real.loader->numTraces(), 1);
}

TEST(RealFilesInTheWild, TextHeadersOfEveryKindAreShownWithoutControls)
{
    SKIP_WITHOUT_TEST_DATA();
    static const struct {
        const char* name;
        Type type;
        const char* first;  // of the printed text; null where EBCDIC rules garble ASCII
        bool isGarbled;
    } cases[] = {{"poststack-2d/lineE.sgy", Standard, "C 1", false},
                 {"single-traces/00001034_first_trace.sgy", Msdos, "C 1", false},
                 {"prestack-land/329.sgy", Standard, "   ", true},  // as here
                 {"prestack-land/real_gather.sgy", Standard, "   ", false},
                 {"single-traces/1_first_trace.sgy", Standard, "   ", true},  // a few ASCII words among NUL
                 {"prestack-synthetic/f11_02673_45Hz.segy", Standard, nullptr, true},
                 {"poststack-3d/F3_very_small.sgy", Standard, nullptr, true},
                 {"odd-headers/text-embed-null.sgy", Standard, "C 1", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        RealLoader real(testDataFile(c.name), c.type, 0);
        ASSERT_TRUE(real.isGood);
        const std::string lead = "\nSEGY EBCDIC Header\n------------------\n";
        const size_t at = real.report.text.find(lead);
        ASSERT_NE(at, std::string::npos);
        if (c.first) {
            EXPECT_EQ(real.report.text.substr(at + lead.size(), 3), c.first);
        }
        EXPECT_EQ(real.report.hasAssumed("segyData2: the text header is ASCII, but is read as EBCDIC"), c.isGarbled);
        for (unsigned char letter : real.report.text) EXPECT_TRUE(letter >= 0x20 || letter == '\n') << int(letter);
    }
}

TEST(RealFilesInTheWild, CoordinateScalarsAreAppliedAsTheyStandTraceByTrace)
{
    SKIP_WITHOUT_TEST_DATA();
    RealLoader land(testDataFile("prestack-land/land_shot_3360.sgy"), Standard, 0);
    std::vector<char> buffer(size_t(land.loader->maxBytes()));
    land.loader->seekTrace(0, buffer.data(), true);
    EXPECT_EQ(land.loader->SegyData()->segytrace->cscale, 32);
    const int srcx = land.loader->SegyData()->segytrace->srcx;
    land.loader->loadNextEnsemble(1);
    EXPECT_EQ(land.real(0, "SOU_X   "), float(srcx) * 32.0f);

    RealLoader zero(testDataFile("cdp-gathers/syn_cmp.sgy"), Standard, 0);
    zero.loader->loadNextEnsemble(1);
    EXPECT_EQ(zero.real(5, "SOU_X   "), 0.0f);
    EXPECT_TRUE(zero.report.hasAssumed("SegyLoader: coordinate scalar 0 in 38 of 38 traces, first in trace 1 (0)"));

    std::set<int> scalars;
    RealLoader mixed(testDataFile("cdp-gathers/gom_cdp_1010_nmo.sgy"), Standard, 0);
    buffer.resize(size_t(mixed.loader->maxBytes()));
    for (int i = 0; i < mixed.loader->getTotalTraces(); ++i) {
        mixed.loader->seekTrace(i, buffer.data(), true);
        const segyTrace& trace = *mixed.loader->SegyData()->segytrace;
        scalars.insert(trace.cscale);
        EXPECT_EQ(mixed.loader->getMapArray()[i].item[12], float(trace.srcx) * float(1.0 / -trace.cscale));
    }
    EXPECT_EQ(scalars, (std::set<int>{-10000, -1000}));
}

TEST(RealFilesInTheWild, CoordinatesOfTheLeastIntegerDoNoHarm)
{
    SegyBuilder file(2);
    file.addTrace(std::vector<float>{1, 2});
    for (int byte : {36, 40, 44, 72, 76, 80, 84, 180, 184}) file.setHeader<int32_t>(0, byte, INT32_MIN);
    file.setHeader<int16_t>(0, 70, INT16_MIN);
    const QTemporaryDir folder;
    RealLoader real(file.save(folder.filePath("a.sgy").toStdString()), Standard, 0);
    real.loader->loadNextEnsemble(1);
    EXPECT_EQ(real.real(0, "SOU_X   "), -65536.0f);  // 2^31 / 2^15
    EXPECT_EQ(real.real(0, "AOFFSET "), 2147483648.0f);
}

TEST(RealFilesInTheWild, EmptyOffsetsAndDelaysAreMentioned)
{
    SKIP_WITHOUT_TEST_DATA();
    RealLoader gather(testDataFile("prestack-land/real_gather.sgy"), Standard, 0);
    gather.loader->loadNextEnsemble(1);
    EXPECT_TRUE(gather.report.hasAssumed("SegyLoader: empty offset in 96 of 96 traces, first in trace 1 (0)"));
    RealLoader hammer(testDataFile("first-breaks/hammer_profile_a.sgy"), Standard, 0);
    hammer.loader->loadNextEnsemble(1);
    EXPECT_TRUE(
        hammer.report.hasAssumed("SegyLoader: recording delay in ms in 60 of 60 traces, first in trace 1 (-200)"));
    EXPECT_FALSE(hammer.report.hasAssumed("empty offset")) << "one trace at offset 0 is geometry";

    SegyBuilder file(2);
    file.addTrace(std::vector<float>{1, 2});
    file.setHeader<int16_t>(0, 108, -800);
    const QTemporaryDir folder;
    RealLoader made(file.save(folder.filePath("a.sgy").toStdString()), Standard, 0);
    made.loader->loadNextEnsemble(1);
    EXPECT_TRUE(made.report.hasAssumed("recording delay in ms in 1 of 1 traces, first in trace 1 (-800)"));
}

TEST(RealFilesInTheWild, UnequalShotsLoadWithTheirOwnCounts)
{
    SKIP_WITHOUT_TEST_DATA();
    RealLoader real(testDataFile("odd-headers/shot-gather.sgy"), Standard, 0);
    EXPECT_EQ(real.loader->priList(), (QStringList{"2", "3", "5", "8"}));
    for (int expected : {10, 12, 13, 26}) {
        real.loader->loadNextEnsemble(1);
        EXPECT_EQ(real.loader->numTraces(), expected);
    }
}

TEST(RealFilesInTheWild, NanAndHugeAmplitudesPassAsTheyStand)
{
    SKIP_WITHOUT_TEST_DATA();
    RealLoader nan(testDataFile("prestack-synthetic/f11_02673_45Hz.segy"), Standard, 0);
    nan.loader->loadNextEnsemble(1);
    ASSERT_EQ(nan.loader->numTraces(), 41);
    for (int i = 0; i < 41; ++i) {
        const float* trace = nan.loader->getTraces()[i];
        EXPECT_EQ(std::count_if(trace, trace + 2701, [](float v) { return std::isnan(v); }), 51) << i;
    }
    RealLoader huge(testDataFile("prestack-land/land_shot_3360.sgy"), Standard, 0);
    huge.loader->loadNextEnsemble(1);
    float largest = 0.0f;
    for (int i = 0; i < huge.loader->numTraces(); ++i)
        for (int j = 0; j < 2501; ++j) largest = std::max(largest, std::fabs(huge.loader->getTraces()[i][j]));
    EXPECT_GT(largest, 1.5e9f);
    EXPECT_LT(largest, 1.7e9f);
}

TEST(RealFilesInTheWild, TrailingBytesAreOneMoreCutTrace)
{
    SKIP_WITHOUT_TEST_DATA();
    const QTemporaryDir folder;
    const std::string path = folder.filePath("tail.sgy").toStdString();
    std::filesystem::copy_file(testDataFile("poststack-2d/small_stack.sgy"), path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    std::ofstream(path, std::ios::binary | std::ios::app) << std::string(17, '\x1a');
    RealLoader real(path, Standard, 0);
    EXPECT_EQ(real.loader->getTotalTraces(), 21);
    EXPECT_TRUE(real.report.hasAssumed("1 trace is cut by the end of the file, trace 21 (17 bytes of 1040)"));
}
