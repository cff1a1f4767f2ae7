/// Where the guess has to weigh one word of a file against another.
#include "tests/unit/sources/segyguessfixture.h"

#include "sources/segyguessensembles.h"

TEST(SegyGuessRules, ACutTraceGetsRoom)
{
    // One shot of 64 traces, the last one cut in its samples: 63 whole ones.
    SegyBuilder file(50, 5);
    for (size_t i = 0; i < 64; ++i) {
        file.addTrace(std::vector<float>(50, 1.5f));
        fillHeader(&file, i, 7, int(i) + 1, 50);
    }
    file.bytes.resize(file.bytes.size() - 20);
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.search.layout.nTraces, 63);
    EXPECT_EQ(guess.parm.maxtr, 64);
    // What is behind a trace of another shot, and is no header, makes no room.
    file.bytes.resize(file.bytes.size() - 420);
    file.bytes.insert(file.bytes.end(), 17, 0x1a);
    EXPECT_EQ(guessOf(file.bytes).parm.maxtr, 63);
}

TEST(SegyGuessRules, EvidenceWinsOverCodeFour)
{
    const SegyGuess ieee = guessOf(noiseFile(4, true, 50.0, ieeeBits).bytes);
    EXPECT_EQ(ieee.parm.iformat, ChooseIeee) << fact(ieee, "Sample format").choice;
    EXPECT_NE(fact(ieee, "Sample format").choice.find("against the code, which says Integer W/Gain"),
              std::string::npos);
    const SegyGuess ibm = guessOf(noiseFile(4, true, 5000.0, ibmBits).bytes);
    EXPECT_EQ(ibm.parm.iformat, ChooseIbm) << fact(ibm, "Sample format").choice;
}

TEST(SegyGuessRules, CodeFourStaysWhereGainsStandInTheUpperHalf)
{
    SegyBuilder file(50, 4);
    Noise noise;
    for (size_t i = 0; i < 24; ++i) {
        std::vector<uint32_t> words(50);
        // gains 1 to 8 before a mantissa
        for (uint32_t& word : words) word = uint32_t(1 + i % 8) << 16 | (uint32_t(int(1000 * noise.next())) & 0xffff);
        file.addTrace(words);
        fillHeader(&file, i, 101 + int(i) / 6, 1 + int(i) % 6, 50);
    }
    EXPECT_EQ(guessOf(file.bytes).parm.iformat, ChooseGain);
}

/// 40 traces of a line; the receiver words hold their places.
static SegyBuilder line(int reelSort, bool isCounting, int offset)
{
    SegyBuilder file(20, 5);
    file.put<int16_t>(3228, int16_t(reelSort));
    for (size_t i = 0; i < 40; ++i) {
        file.addTrace(std::vector<float>(20, 1.5f));
        fillHeader(&file, i, 12, int(i) + 1, 20);
        file.setHeader<int32_t>(i, 16, isCounting ? 301 + int(i) : 301);
        file.setHeader<int32_t>(i, 20, 1001 + int(i));
        file.setHeader<int32_t>(i, 36, offset * int(i));
        file.setHeader<int32_t>(i, 80, 500000 + 25 * int(i));
    }
    return file;
}

TEST(SegyGuessRules, ALineWhoseFieldRecordIsConstantIsAStackWhereTheReelSaysSo)
{
    EXPECT_EQ(guessOf(line(4, true, 0).bytes).parm.isort, 5);
    EXPECT_EQ(guessOf(line(4, false, 0).bytes).parm.isort, 1) << "one shot point";
    EXPECT_EQ(guessOf(line(4, true, 25).bytes).parm.isort, 1) << "offsets";
    EXPECT_EQ(guessOf(line(1, true, 0).bytes).parm.isort, 1) << "the reel says shots";
}

TEST(SegyGuessRules, NoIntervalIsMadeOfTwoNegativeWords)
{
    for (int word : {-1, -4000}) {
        SegyBuilder file = smallFile();
        file.put<int16_t>(3216, int16_t(word));
        for (size_t i = 0; i < 6; ++i) file.setHeader<int16_t>(i, 116, int16_t(word));
        const SegyGuess guess = guessOf(file.bytes);
        EXPECT_EQ(guess.verdict, SegyGuess::NotFollowed);
        EXPECT_NE(fact(guess, "Sample interval").choice.find("undecidable"), std::string::npos);
        EXPECT_EQ(guess.parm.srate, 0.0f);
    }
}

TEST(SegyGuessRules, TheStringsOfASeg2RecordAreAText)
{
    SegyBuilder file = smallFile();
    std::fill_n(file.bytes.begin(), 3200, char(0));
    const auto put = [&](size_t at, const std::string& words) {
        std::copy(words.begin(), words.end(), file.bytes.begin() + int64_t(at));
    };
    put(4, "LINE_ID 7");
    EXPECT_EQ(fact(guessOf(file.bytes), "Text header").choice.find("ASCII, the strings of a SEG-2 record"), 0u);
    std::fill_n(file.bytes.begin(), 3200, char(0));
    put(4, "abc");
    EXPECT_EQ(fact(guessOf(file.bytes), "Text header").choice, "NUL, but for a few letters");
}

TEST(SegyGuessRules, AnInlineThatGroupsIsSeenBesideAnEmptyCrossline)
{
    SegyBuilder file(20, 5);
    for (size_t i = 0; i < 40; ++i) {
        file.addTrace(std::vector<float>(20, 1.5f));
        fillHeader(&file, i, 0, 0, 20);
        file.setHeader<int32_t>(i, 188, 100 + int(i) / 8);
    }
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.isort, 9);
    EXPECT_NE(fact(guess, "Sort order").evidence.find("inline at byte 189 holds for 8 traces"), std::string::npos);
}

TEST(SegyGuessRules, SamplesWithoutSignAreSetInTheLayout)
{
    SegyBuilder one(40, 16), two(40, 11);
    for (size_t i = 0; i < 8; ++i) {
        one.addTrace(std::vector<uint8_t>(40, uint8_t(i + 1)));
        two.addTrace(std::vector<uint16_t>(40, uint16_t(i + 1)));
        fillHeader(&one, i, 1, int(i) + 1, 40);
        fillHeader(&two, i, 1, int(i) + 1, 40);
    }
    EXPECT_EQ(guessOf(one.bytes).parm.layout.sampleFormat, SegyUnsigned1);
    EXPECT_EQ(guessOf(two.bytes).parm.layout.sampleFormat, SegyUnsigned2);
    const SegyGuess four = guessOf(noiseFile(10, true, 1e6, [](double v) { return uint32_t(std::fabs(v)); }).bytes);
    EXPECT_EQ(four.parm.layout.sampleFormat, SegyUnsigned4);
    EXPECT_NE(fact(four, "Other samples").choice.find("Unsigned (4 byte): set in the group Layout"), std::string::npos);
}

TEST(SegyGuessRules, SamplesOfThreeBytesAreSetInTheLayout)
{
    for (const auto& [code, format] : {std::pair{7, SegyInteger3}, std::pair{15, SegyUnsigned3}}) {
        SegyBuilder file(40, code);
        for (size_t i = 0; i < 8; ++i) {
            file.addTrace(std::vector<uint8_t>(120, uint8_t(i + 1)));
            fillHeader(&file, i, 1, int(i) + 1, 40);
        }
        EXPECT_EQ(guessOf(file.bytes).parm.layout.sampleFormat, format);
    }
}

TEST(SegyGuessRules, WhereTheConstantTellsTheOrderTheTypeFollowsTheText)
{
    SegyBuilder file = smallFile(false);
    std::fill_n(file.bytes.begin(), 3200, char(0x40));
    file.put<int32_t>(3296, 0x01020304);
    const SegyGuess guess = guessOf(file.bytes);
    EXPECT_EQ(guess.parm.itype, 0);
    EXPECT_EQ(guess.parm.layout.byteOrder, SegyByteOrder::LowestFirst);
    file.put<int32_t>(3296, 0);
    EXPECT_EQ(guessOf(file.bytes).parm.itype, 1);
    EXPECT_TRUE(guessOf(file.bytes).parm.layout.isStandard());
}

TEST(SegyGuessRules, ACountThatAlmostNothingOfIsThereIsNotBelieved)
{
    SegyBuilder file(0);  // no other count than the long one of revision 2
    file.addTrace(std::vector<float>(40, 1.5f));
    fillHeader(&file, 0, 1, 1, 0);
    file.put<int16_t>(3500, 0x0200);
    for (int count : {45, 10000000}) {
        file.put<int32_t>(3268, count);
        const SegyGuess guess = guessOf(file.bytes);
        EXPECT_EQ(guess.verdict, count == 45 ? SegyGuess::Read : SegyGuess::NotSegy);
        EXPECT_EQ(guess.parm.nsamp, count == 45 ? 45 : 0) << "a trace cut of its last samples, or of nearly all";
    }
}

/// Headers with a word at byte 200 (from 0) that counts on from 65530 by 3, so that its upper half moves once.
static SegyHeaderSample counting(bool isBigEndian)
{
    SegyHeaderSample sample;
    sample.isBigEndian = isBigEndian;
    sample.nTraces = 40;
    for (int i = 0; i < 40; ++i) {
        SegyRawHeader header;
        header.rank = i;
        const uint32_t value = 65530 + 3 * uint32_t(i);
        for (int j = 0; j < 4; ++j)
            header.bytes[size_t(200 + j)] = static_cast<unsigned char>(value >> (8 * (isBigEndian ? 3 - j : j)));
        sample.headers.push_back(header);
    }
    return sample;
}

TEST(SegyGuessRules, TheUpperHalfOfAWordNeverRanksAboveIt)
{
    for (bool isBigEndian : {true, false}) {
        int place = 0, word = -1, upper = -1;
        for (const SegyVaryingWord& row : rankSegyWords(counting(isBigEndian))) {
            if (row.byte == 201 && row.width == 4) word = place;
            if (row.byte == (isBigEndian ? 201 : 203) && row.width == 2) upper = place;
            ++place;
        }
        ASSERT_GE(word, 0);
        ASSERT_GE(upper, 0);
        EXPECT_LT(word, upper);
    }
}

TEST(SegyGuessRules, ColumnsNamedAsCoordinatesMustLookLikeCoordinates)
{
    const auto behaviourOf = [](int (*value)(int)) {
        SegyHeaderSample sample;
        sample.nTraces = 40;
        for (int i = 0; i < 40; ++i) {
            SegyRawHeader header;
            header.rank = i;
            const auto number = uint32_t(value(i));
            for (int j = 0; j < 4; ++j)
                header.bytes[size_t(72 + j)] = static_cast<unsigned char>(number >> (24 - 8 * j));
            sample.headers.push_back(header);
        }
        for (const SegyVaryingWord& row : rankSegyWords(sample))
            if (row.byte == 73) return row.behaviour;
        return SegyBehaviour::Constant;
    };
    EXPECT_EQ(behaviourOf([](int i) { return 1 + i; }), SegyBehaviour::CountsUp);
    EXPECT_EQ(behaviourOf([](int i) { return i % 2 ? 900000 : -900000; }), SegyBehaviour::Varies);
    EXPECT_EQ(behaviourOf([](int i) { return 1000 + 25 * i; }), SegyBehaviour::Coordinates);
}
