/// The standard mapping of a SEG-Y trace header, the key slots and the remap.
#include "sources/segyheader.h"
#include "host/flow/stheader.h"
#include "host/globals.h"
#include "host/signal/bytes.h"
#include "tracedata/headertable.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

namespace {

/// A trace header, its raw twin in big-endian order, and 60 words to fill.
struct Fixture {
    int record[60] = {};
    int raw[60] = {};
    int words[60];
    SegyHeader header;

    Fixture() : header(record, words, 60)
    {
        std::fill(words, words + 60, -7);
        header.setTreviaVersion(1);
        header.setSegyRawHeader(raw);
    }
    template <typename T>
    void put(int byte, T value)
    {
        std::memcpy(reinterpret_cast<char*>(record) + byte, &value, sizeof value);
        char* twin = reinterpret_cast<char*>(raw) + byte;
        std::memcpy(twin, &value, sizeof value);
        std::reverse(twin, twin + sizeof value);
    }
    void putRaw(int byte, const void* bytes, size_t n) { std::memcpy(reinterpret_cast<char*>(raw) + byte, bytes, n); }
    int word(const char* name) const { return words[header.OrvinHeaderIndex(name)]; }
    float real(const char* name) const
    {
        const int bits = word(name);
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
};

SegyRemapTable tableOf(const char* text)
{
    return remapTableFromText(QByteArray(text));
}

}  // namespace

TEST(SegyHeader, TheTableHasSixtyRowsWithIndexTypeCountAndDescription)
{
    SegyHeader header;
    header.setTreviaVersion(1);
    ASSERT_EQ(header.headerNames().size(), 60);
    EXPECT_EQ(header.headerNames()[0], "CHAN    |0|Integer4|1|Recording channel number|");
    EXPECT_EQ(header.headerNames()[20], "TOT_STAT|20|Float4|1|Total static|");
    EXPECT_EQ(header.headerNames()[59], "ETA     |59|Float4|1|ETA|");
    EXPECT_EQ(header.totalHeaderWords, 60);
    EXPECT_EQ(header.stdHeaderWords, 55);
}

TEST(SegyHeader, StandAloneAnUnknownNameGivesTheIndexOfChan)
{
    SegyHeader header;
    header.setTreviaVersion(1);
    EXPECT_EQ(header.OrvinHeaderIndex("NONE    "), 0);
    EXPECT_EQ(header.OrvinHeaderIndex(QString("NONE    ")), 0);
    EXPECT_EQ(header.OrvinHeaderIndex("CDP     "), 14);
    EXPECT_EQ(header.OrvinHeaderIndex("CDP"), 0) << "the padding is part of the name";
    EXPECT_EQ(header.OrvinHeaderExists("CDP     "), 1);
    EXPECT_EQ(header.OrvinHeaderExists("CDP"), 0);
}

TEST(SegyHeader, StandAloneABadIndexGivesNothing)
{
    SegyHeader header;
    header.setTreviaVersion(1);
    EXPECT_EQ(header.OrvinHeaderIndexName(1), "OFFSET  ");
    EXPECT_STREQ(header.OrvinHeaderIndexNameC(1), "OFFSET  ");
    EXPECT_EQ(header.OrvinHeaderIndexName(60), "");
    EXPECT_EQ(header.OrvinHeaderIndexName(-1), "");
    EXPECT_EQ(header.OrvinHeaderIndexNameC(60), nullptr);
    EXPECT_EQ(header.OrvinHeaderDescC(-1), nullptr);
    EXPECT_EQ(header.OrvinHeaderDesc(3), "Field file id number");
    EXPECT_STREQ(header.OrvinHeaderDescC(3), "Field file id number");
    EXPECT_EQ(header.OrvinHeaderDesc(QString("DEPTH   ")), "Source depth");
    EXPECT_EQ(header.OrvinHeaderFormat(1), 2);
    EXPECT_EQ(header.OrvinHeaderFormat(99), 1);
    EXPECT_EQ(header.OrvinHeaderFormat(QString("SOU_X   ")), 2);
    EXPECT_EQ(header.OrvinHeaderFormat(QString("NONE    ")), 1);
}

TEST(SegyHeader, HostAttachedTheFlowsListAnswers)
{
    stHdrClear();
    stHdrAdd("FFID", "The host's own text", 1, 1);
    SegyHeader header;
    EXPECT_EQ(header.OrvinHeaderIndex("FFID    "), 0);
    EXPECT_EQ(header.OrvinHeaderIndex("CHAN    "), -1);
    EXPECT_EQ(header.OrvinHeaderDesc(QString("FFID    ")), "The host's own text");
    EXPECT_EQ(header.OrvinHeaderIndexName(0), "FFID    ");
    EXPECT_EQ(header.OrvinHeaderExists("CHAN    "), 0);
    stHdrClear();
}

TEST(SegyHeader, EachFieldLandsInItsWordWithItsConversion)
{
    Fixture f;
    static const struct {
        const char* name;
        int byte;
        bool isShort;
        char kind;  // i integer, f float, a absolute value
    } fields[] = {{"SEQNO   ", 24, false, 'i'},  {"TRACENO ", 0, false, 'i'},   {"FFID    ", 8, false, 'i'},
                  {"CDP     ", 20, false, 'i'},  {"CHAN    ", 12, false, 'i'},  {"TRC_TYPE", 28, true, 'i'},
                  {"TR_FOLD ", 32, true, 'f'},   {"OFFSET  ", 36, false, 'f'},  {"AOFFSET ", 36, false, 'a'},
                  {"UPHOLE  ", 94, true, 'f'},   {"SOU_STAT", 98, true, 'f'},   {"REC_STAT", 100, true, 'f'},
                  {"TOT_STAT", 102, true, 'f'},  {"TLIVE_S ", 110, true, 'f'},  {"TFULL_S ", 112, true, 'f'},
                  {"SRF_SLOC", 172, true, 'i'},  {"SOU_SLOC", 196, false, 'i'}, {"SOURCE  ", 16, false, 'i'},
                  {"ILINE_NO", 188, false, 'i'}, {"XLINE_NO", 192, false, 'i'}, {"REC_ELEV", 40, false, 'f'},
                  {"SOU_ELEV", 44, false, 'f'},  {"DEPTH   ", 48, false, 'f'},  {"SOU_H2OD", 60, false, 'f'},
                  {"REC_H2OD", 64, false, 'f'},  {"SOU_X   ", 72, false, 'f'},  {"SOU_Y   ", 76, false, 'f'},
                  {"REC_X   ", 80, false, 'f'},  {"REC_Y   ", 84, false, 'f'},  {"CDP_X   ", 180, false, 'f'},
                  {"CDP_Y   ", 184, false, 'f'}};
    f.header.applyScalars(false, false);
    for (const auto& field : fields) {
        if (field.isShort)
            f.put(field.byte, int16_t(-1000 - field.byte));
        else
            f.put(field.byte, int32_t(-100000 - field.byte));
    }
    f.header.convertSegyToOrvin();
    for (const auto& field : fields) {
        SCOPED_TRACE(field.name);
        const int value = (field.isShort ? -1000 : -100000) - field.byte;
        if (field.kind == 'i') {
            EXPECT_EQ(f.word(field.name), value);
        } else {
            EXPECT_EQ(f.real(field.name), field.kind == 'a' ? float(-value) : float(value));
        }
    }
    EXPECT_EQ(f.word("REC_SLOC"), 0) << "words without a source are zeroed";
}

TEST(SegyHeader, TheFastFormFillsTheSameWords)
{
    Fixture slow, fast;
    for (int i = 0; i < 60; ++i) {
        slow.record[i] = fast.record[i] = 0x01020304 * (i + 3);
    }
    int index[SegyHeader::nMappedWords];
    fast.header.buildHeaderIndex(index);
    fast.header.convertSegyToOrvinFast(index);
    slow.header.convertSegyToOrvin();
    EXPECT_EQ(std::memcmp(slow.words, fast.words, sizeof slow.words), 0);
}

TEST(SegyHeader, TheLargestNegativeOffsetHasAnAbsoluteValue)
{
    Fixture f;
    f.put(36, int32_t(INT_MIN));
    f.header.convertSegyToOrvin();
    EXPECT_EQ(f.real("AOFFSET "), 2147483648.0f);
    EXPECT_EQ(f.real("OFFSET  "), -2147483648.0f);
}

TEST(SegyHeader, ScalarsMultiplyDivideOrZero)
{
    static const struct {
        int scalar;
        bool isOn;
        float expected;
    } cases[] = {{-100, true, 12345.67f}, {0, true, 0.0f},         {0, false, 1234567.0f},   {10, true, 12345670.0f},
                 {1, true, 1234567.0f},   {32, true, 39506144.0f}, {-100, false, 1234567.0f}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "scalar " << c.scalar << (c.isOn ? " on" : " off"));
        Fixture f;
        f.put(70, int16_t(c.scalar));
        f.put(68, int16_t(c.scalar));
        f.put(72, int32_t(1234567));
        f.put(40, int32_t(1234567));
        f.header.applyScalars(c.isOn, c.isOn);
        f.header.convertSegyToOrvin();
        EXPECT_FLOAT_EQ(f.real("SOU_X   "), c.expected);
        EXPECT_FLOAT_EQ(f.real("REC_ELEV"), c.expected);
    }
}

TEST(SegyHeader, EachSwitchGovernsItsOwnScalar)
{
    Fixture f;
    f.put(68, int16_t(-10));
    f.put(70, int16_t(-10));
    f.put(40, int32_t(50));
    f.put(72, int32_t(50));
    f.header.applyScalars(true, false);
    f.header.convertSegyToOrvin();
    EXPECT_FLOAT_EQ(f.real("REC_ELEV"), 5.0f);
    EXPECT_FLOAT_EQ(f.real("SOU_X   "), 50.0f);
}

TEST(SegyHeader, TheFactorIsNarrowedBeforeItMultiplies)
{
    Fixture f;
    f.put(70, int16_t(-3));
    f.put(72, int32_t(100000001));
    f.header.convertSegyToOrvin();
    // 100000001 is 100000000 in single precision; a third is 0.3333333432674408
    EXPECT_EQ(f.real("SOU_X   "), 100000000.0f * 0.3333333432674408f);
}

TEST(SegyHeader, TheProductWithTheFactorIsTakenInSinglePrecision)
{
    // 0.01 in single precision is 0.00999999977648258: its product with 5 rounds to 0.049999997, where the hundredth
    // of 5, or a product in double precision, is 0.050000001. The same for 1234569.
    for (const auto& [value, expected] :
         {std::pair{5, 0.0499999970f}, std::pair{9, 0.0899999961f}, std::pair{1234569, 12345.6895f}}) {
        Fixture f;
        f.put(70, int16_t(-100));
        f.put(68, int16_t(-100));
        for (int byte : {72, 76, 80, 84, 180, 184, 40, 44, 48, 60, 64}) f.put(byte, int32_t(value));
        f.header.convertSegyToOrvin();
        for (const char* word : {"SOU_X   ", "SOU_Y   ", "REC_X   ", "REC_Y   ", "CDP_X   ", "CDP_Y   ", "REC_ELEV",
                                 "SOU_ELEV", "DEPTH   ", "SOU_H2OD", "REC_H2OD"})
            EXPECT_EQ(f.real(word), expected) << word;
    }
    EXPECT_NE(0.0499999970f, 0.05f);
}

TEST(SegyHeader, TheKeySlotsComeFromTheirWords)
{
    Fixture f;
    const char* integers[] = {"CHAN    ", "SOU_SLOC", "CDP     ", "CHAN    ", nullptr,
                              "SRF_SLOC", "ILINE_NO", "XLINE_NO", "FFID    ", "TRACENO "};
    const char* reals[] = {"CDP_X   ", "CDP_Y   ", "SOU_X   ", "SOU_Y   ", "REC_X   ", "REC_Y   "};
    std::memset(f.words, 0, sizeof f.words);
    for (const char* name : integers)
        if (name) f.words[f.header.OrvinHeaderIndex(name)] = 16777217 + f.header.OrvinHeaderIndex(name);
    float value = 0.25f;
    for (const char* name : reals) {
        std::memcpy(&f.words[f.header.OrvinHeaderIndex(name)], &value, sizeof value);
        value += 1.0f;
    }
    f.header.headerValueSet(f.header.OrvinHeaderIndex("OFFSET  "), -1234.5f);
    float items[SegyHeader::nMapSlots];
    f.header.loadTraceMap(items);
    for (int i = 0; i < 10; ++i) {
        if (integers[i]) {
            EXPECT_EQ(items[i], float(16777217 + f.header.OrvinHeaderIndex(integers[i]))) << i;
        }
    }
    EXPECT_EQ(items[4], -1234.5f);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(items[10 + i], 0.25f + float(i)) << i;
}

TEST(SegyHeader, HostAttachedTheKeySlotsFollowTheHostsPositions)
{
    const StdHdr before = stdHdr;
    stdHdr = {};
    stdHdr.icdp = 3;
    stdHdr.ioffset = 2;
    int words[3] = {0, 0, 77};
    const float offset = 12.5f;
    std::memcpy(&words[1], &offset, sizeof offset);
    SegyHeader header(nullptr, words, 3);
    float items[SegyHeader::nMapSlots];
    header.loadTraceMap(items);
    EXPECT_EQ(items[2], 77.0f);
    EXPECT_EQ(items[4], 12.5f);
    EXPECT_EQ(items[8], 0.0f) << "a word that the host doesn't have counts as 0";
    stdHdr = before;
}

TEST(SegyRemap, FourByteIntegersStartAtTheBoundaryBelow)
{
    for (const char* row : {"ILINE_NO,4I,IEEE,9", "ILINE_NO,4I,IEEE,10", "iline_no,4i,ieee,11", "ILINE_NO,4I,,9"}) {
        SCOPED_TRACE(row);
        Fixture f;
        f.put(8, int32_t(-70000));
        f.header.performRemap(tableOf(row), 1);
        EXPECT_EQ(f.word("ILINE_NO"), -70000);
    }
}

TEST(SegyRemap, AShortNameIsPadded)
{
    Fixture f;
    f.put(8, int32_t(4711));
    f.header.performRemap(tableOf("FFID,4I,IEEE,10"), 1);
    EXPECT_EQ(f.word("FFID    "), 4711);
    EXPECT_EQ(f.word("CHAN    "), -7);
}

TEST(SegyRemap, AMistypedNameRemapsToChan)
{
    Fixture f;
    f.put(8, int32_t(4711));
    f.header.performRemap(tableOf("FFIDD,4I,IEEE,9"), 1);
    EXPECT_EQ(f.word("CHAN    "), 4711);
}

TEST(SegyRemap, WithoutSwapTheBytesAreTakenAsTheyStand)
{
    Fixture f;
    f.put(8, int32_t(0x01020304));
    f.header.performRemap(tableOf("ILINE_NO,4I,IEEE,9"), 0);
    EXPECT_EQ(f.word("ILINE_NO"), 0x04030201);
}

TEST(SegyRemap, AnIbmFloatIsStoredAsIeee)
{
    Fixture f;
    const unsigned char minus118625[] = {0xC2, 0x76, 0xA0, 0x00};  // -118.625, the textbook's example
    f.putRaw(72, minus118625, 4);
    f.header.performRemap(tableOf("SOU_X,4R,IBM,73"), 1);
    EXPECT_EQ(f.real("SOU_X   "), -118.625f);
}

TEST(SegyRemap, EveryFormatFillsIntegerAndFloatWords)
{
    static const struct {
        const char* row;
        const char* name;
        int expected;
        bool isReal;
        float real;
    } cases[] = {
        {"CDP,1I,IEEE,99", "CDP     ", -5, false, 0},       {"SOU_X,1I,IEEE,99", "SOU_X   ", 0, true, -5.0f},
        {"CDP,2I,IEEE,101", "CDP     ", -300, false, 0},    {"SOU_X,2I,IEEE,101", "SOU_X   ", 0, true, -300.0f},
        {"CDP,4R,IEEE,105", "CDP     ", -2, false, 0},      {"SOU_X,4R,IEEE,105", "SOU_X   ", 0, true, -2.75f},
        {"CDP,8R,IEEE,113", "CDP     ", 1234567, false, 0}, {"SOU_X,8R,IEEE,113", "SOU_X   ", 0, true, 1234567.5f},
        {"CDP,A4,IEEE,120", "CDP     ", 42, false, 0},      {"SOU_X,A4,IEEE,120", "SOU_X   ", 0, true, 42.0f},
        {"CDP,A3,IEEE,130", "CDP     ", 0, false, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.row);
        Fixture f;
        f.put(99, int8_t(-5));  // one behind the byte that the user counts from 1
        f.put(100, int16_t(-300));
        f.put(104, -2.75f);
        f.put(112, 1234567.5);
        f.putRaw(120, " 42 x7", 6);
        f.putRaw(130, "abc", 3);
        f.header.performRemap(tableOf(c.row), 1);
        if (c.isReal) {
            EXPECT_EQ(f.real(c.name), c.real);
        } else {
            EXPECT_EQ(f.word(c.name), c.expected);
        }
    }
}

TEST(SegyRemap, FloatsOutsideTheIntegerRangeClamp)
{
    Fixture f;
    f.put(104, 1e30f);
    f.put(108, -1e30f);
    const uint32_t nan = 0x7fc00000;
    f.put(112, nan);
    f.header.performRemap(tableOf("CDP,4R,IEEE,105\nFFID,4R,IEEE,109\nSOURCE,4R,IEEE,113"), 1);
    EXPECT_EQ(f.word("CDP     "), INT_MAX);
    EXPECT_EQ(f.word("FFID    "), INT_MIN);
    EXPECT_EQ(f.word("SOURCE  "), 0);
}

TEST(SegyRemap, AnUnknownFormatLeavesTheWordButTheRowCounts)
{
    Fixture f;
    EXPECT_EQ(f.header.buildRemapIndex(tableOf("CDP,3I,IEEE,1")).size(), 1u);
    f.header.performRemap(tableOf("CDP,3I,IEEE,1"), 1);
    EXPECT_EQ(f.word("CDP     "), -7);
}

TEST(SegyRemap, UnusableRowsAreSkipped)
{
    static const struct {
        const char* row;
        size_t nUsable;
    } cases[] = {{"CDP,4I,IEEE,241", 0}, {"CDP,4I,IEEE,0", 0},    {"CDP,4I,IEEE,", 0},     {"CDP,4I,IEEE,x", 0},
                 {",4I,IEEE,9", 0},      {"CDP,,IEEE,9", 0},      {"CDP,4I,IEEE,237", 1},  {"CDP,4I,IEEE,240", 0},
                 {"CDP,1I,IEEE,240", 0}, {"CDP,1I,IEEE,239", 1},  {"CDP,2I,IEEE,239", 1},  {"CDP,8R,IEEE,233", 1},
                 {"CDP,8R,IEEE,240", 0}, {"CDP,A10,IEEE,230", 1}, {"CDP,A11,IEEE,230", 0}, {"", 0}};
    for (const auto& c : cases) {
        Fixture f;
        EXPECT_EQ(f.header.buildRemapIndex(tableOf(c.row)).size(), c.nUsable) << c.row;
    }
}

TEST(SegyRemap, FastAndSlowFormsGiveTheSameWords)
{
    const SegyRemapTable table = tableOf("CDP,4I,IEEE,9\nSOU_X,4R,IBM,73\nFFID,2I,,115\n,,,\nCHAN,A3,IEEE,100");
    Fixture slow, fast;
    for (int i = 0; i < 60; ++i) slow.raw[i] = fast.raw[i] = 0x40313233 + i;
    slow.header.performRemap(table, 1);
    fast.header.performRemapFast(fast.header.buildRemapIndex(table), 1);
    EXPECT_EQ(std::memcmp(slow.words, fast.words, sizeof slow.words), 0);
    EXPECT_NE(slow.word("CDP     "), -7);
}

TEST(SegyHeader, TheWindowsTableGetsPaddedNamesAndNoneForWordsWithoutOne)
{
    SegyHeader header;
    header.setTreviaVersion(1);
    HeaderTable table;
    table.fill(header.names(), 61);
    EXPECT_TRUE(table._headerSaved);
    ASSERT_EQ(table.count(), 61);
    EXPECT_EQ(table._headerName[14], "CDP     ");
    EXPECT_EQ(table._headerDesc[14], "CDP bin number");
    EXPECT_EQ(table._headerIndex[14], 14);
    EXPECT_EQ(table._headerFormat[14], 1);
    EXPECT_EQ(table._headerExist[14], 1);
    EXPECT_EQ(table._headerLength[14], 1);
    EXPECT_EQ(table._headerName[60], "None");
    EXPECT_EQ(table._headerDesc[60], "None");
    EXPECT_EQ(table._headerExist[60], 0);
}
