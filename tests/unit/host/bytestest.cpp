#include "host/signal/bytes.h"

#include "bothvariants.h"

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

static float fromIbm(uint32_t word)
{
    ibmToIeee(&word, 1);
    return std::bit_cast<float>(word);
}

static uint32_t toIbm(float value)
{
    ieeeToIbm(&value, 1);
    return std::bit_cast<uint32_t>(value);
}

TEST(EndianSwap, ReversesTheBytesOfEveryElement)
{
    for (int size : {2, 3, 4, 8, 16}) {
        SCOPED_TRACE(size);
        std::vector<uint8_t> bytes(size * 37), expected(size * 37);
        for (size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = uint8_t(i * 7);
            expected[i / size * size + (size - 1 - i % size)] = bytes[i];
        }
        endianSwap(bytes.data(), size, 37);
        EXPECT_EQ(bytes, expected);
    }
}

TEST(EndianSwap, LeavesSingleBytesAndBadCountsAlone)
{
    uint8_t bytes[4] = {1, 2, 3, 4};
    endianSwap(bytes, 1, 4);
    endianSwap(bytes, 0, 4);
    endianSwap(bytes, -4, 1);
    endianSwap(bytes, 4, 0);
    endianSwap(bytes, 4, -1);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[3], 4);
}

TEST(EndianSwap, WorksOnAnyAddressAndTouchesNothingBehind)
{
    std::vector<uint8_t> bytes(4 * 21 + 3, 9);
    for (int i = 0; i < 4 * 21; ++i) bytes[1 + i] = uint8_t(i);
    endianSwap(bytes.data() + 1, 4, 21);
    EXPECT_EQ(bytes[0], 9);
    EXPECT_EQ(bytes[1], 3);
    EXPECT_EQ(bytes[4], 0);
    EXPECT_EQ(bytes[4 * 21], 80);
    EXPECT_EQ(bytes[4 * 21 + 1], 9);
    EXPECT_EQ(bytes[4 * 21 + 2], 9);
}

TEST(EndianSwap, GivesTheSameBytesOnEveryProcessor)
{
    std::vector<float> floats(1003);
    std::mt19937 random(3);
    for (float& f : floats) f = std::bit_cast<float>(uint32_t(random()));
    for (int size : {2, 4, 8}) {
        expectSameBitsInBothVariants([&] {
            std::vector<float> copy = floats;
            endianSwap(copy.data(), size, 4012 / size);
            return copy;
        });
    }
}

TEST(ByteOrder, IsThatOfThisMachine)
{
    const uint16_t one = 1;
    EXPECT_EQ(littleEndian(), *reinterpret_cast<const uint8_t*>(&one) == 1);
}

// Sign, exponent to base 16 with bias 64, fraction below 1: 0xC276A000 is -0.463379 x 16^2.
TEST(IbmToIeee, ConvertsPublishedAndHandComputedValues)
{
    const struct {
        uint32_t ibm;
        float value;
    } cases[] = {
        {0x00000000, 0.0f},     {0x41100000, 1.0f},    {0xc1100000, -1.0f},         {0xc276a000, -118.625f},
        {0x42640000, 100.0f},   {0x40800000, 0.5f},    {0x40123456, 0x1.23456p-4f}, {0x46ffffff, 16777215.0f},
        {0x41000001, 0x1p-20f}, {0x60ffffff, FLT_MAX}, {0xe0ffffff, -FLT_MAX},      {0x21400000, FLT_MIN},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.ibm);
        EXPECT_EQ(fromIbm(c.ibm), c.value);
    }
}

TEST(IbmToIeee, BecomesTheLargestFloatOfItsSignBeyondTheRange)
{
    EXPECT_EQ(fromIbm(0x61100000), FLT_MAX);
    EXPECT_EQ(fromIbm(0x7fffffff), FLT_MAX);
    EXPECT_EQ(fromIbm(0xffffffff), -FLT_MAX);
    EXPECT_EQ(fromIbm(0x61080000), 0x1p127f);  // an unnormalised fraction that still fits
}

TEST(IbmToIeee, RoundsDenormalsToTheNearestTiesToEven)
{
    EXPECT_EQ(fromIbm(0x1b800000), 0x1p-149f);
    EXPECT_EQ(fromIbm(0x1b400000), 0.0f);  // half of the least: to even
    EXPECT_EQ(fromIbm(0x1b400001), 0x1p-149f);
    EXPECT_EQ(fromIbm(0x1bc00000), 0x1p-148f);  // one and a half: to even
    EXPECT_EQ(fromIbm(0x00ffffff), 0.0f);
    EXPECT_TRUE(std::signbit(fromIbm(0x80100000)));
}

// An independent way: ldexp in double is exact for every IBM value, and its narrowing rounds to nearest.
TEST(IbmToIeee, AgreesWithExactArithmeticForRandomWords)
{
    std::mt19937 random(11);
    std::vector<uint32_t> words(200001);
    for (uint32_t& w : words) w = uint32_t(random());
    std::vector<uint32_t> converted = words;
    ibmToIeee(converted.data(), int64_t(converted.size()));
    for (size_t i = 0; i < words.size(); ++i) {
        const double exact = std::ldexp(double(words[i] & 0xffffff), 4 * (int(words[i] >> 24 & 0x7f) - 64) - 24);
        const float magnitude = exact > FLT_MAX ? FLT_MAX : float(exact);
        const float expected = words[i] >> 31 ? -magnitude : magnitude;
        ASSERT_EQ(converted[i], std::bit_cast<uint32_t>(expected)) << std::hex << words[i];
    }
}

TEST(IbmToIeee, GivesTheSameBitsOnEveryProcessor)
{
    std::mt19937 random(5);
    std::vector<float> words(1501);
    for (float& w : words) w = std::bit_cast<float>(uint32_t(random()));
    expectSameBitsInBothVariants([&] {
        std::vector<float> copy = words;
        ibmToIeee(copy.data(), int64_t(copy.size()));
        return copy;
    });
}

TEST(IeeeToIbm, IsTheReverseWhereTheFractionFits)
{
    for (float v : {1.0f, -1.0f, 100.0f, -118.625f, 0.5f, 16777215.0f, FLT_MIN, 0x1.23456p-4f, 0.0f}) {
        SCOPED_TRACE(v);
        EXPECT_EQ(fromIbm(toIbm(v)), v);
    }
    EXPECT_EQ(toIbm(-118.625f), 0xc276a000u);
    EXPECT_EQ(toIbm(1.0f), 0x41100000u);
    EXPECT_EQ(toIbm(FLT_MAX), 0x60ffffffu);
}

TEST(IeeeToIbm, RoundsToTheNearestAndCarries)
{
    EXPECT_EQ(toIbm(0x1.fffffep0f), 0x41200000u);  // 2 - 2^-23 has three bits too many
    EXPECT_EQ(toIbm(0x1.fffffep3f), 0x41ffffffu);  // just below 16: all 24 bits
    EXPECT_EQ(toIbm(0x1.000004p0f), 0x41100000u);  // 1 + 2^-22: below half of 2^-20
    EXPECT_EQ(toIbm(0x1.000008p0f), 0x41100001u);  // 1 + 2^-21: half, away from 0
    EXPECT_EQ(toIbm(INFINITY), 0x7fffffffu);
    EXPECT_EQ(toIbm(-INFINITY), 0xffffffffu);
}

// The published code page 037, lines 4 to F of its table.
TEST(Ebcdic, FollowsCodePage037)
{
    const struct {
        std::string text;
        std::vector<uint8_t> ebcdic;
    } cases[] = {
        {"C 1 CLIENT", {0xc3, 0x40, 0xf1, 0x40, 0xc3, 0xd3, 0xc9, 0xc5, 0xd5, 0xe3}},
        {"abcdefghi", {0x81, 0x82, 0x83, 0x84, 0x85, 0x86, 0x87, 0x88, 0x89}},
        {"jklmnopqr", {0x91, 0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0x98, 0x99}},
        {"stuvwxyz", {0xa2, 0xa3, 0xa4, 0xa5, 0xa6, 0xa7, 0xa8, 0xa9}},
        {"JKLMNOPQR", {0xd1, 0xd2, 0xd3, 0xd4, 0xd5, 0xd6, 0xd7, 0xd8, 0xd9}},
        {"STUVWXYZ", {0xe2, 0xe3, 0xe4, 0xe5, 0xe6, 0xe7, 0xe8, 0xe9}},
        {"0123456789", {0xf0, 0xf1, 0xf2, 0xf3, 0xf4, 0xf5, 0xf6, 0xf7, 0xf8, 0xf9}},
        {".<(+|&!$*);-/,%_>?",
         {0x4b, 0x4c, 0x4d, 0x4e, 0x4f, 0x50, 0x5a, 0x5b, 0x5c, 0x5d, 0x5e, 0x60, 0x61, 0x6b, 0x6c, 0x6d, 0x6e, 0x6f}},
        {"`:#@'=\"~^[]{}\\", {0x79, 0x7a, 0x7b, 0x7c, 0x7d, 0x7e, 0x7f, 0xa1, 0xb0, 0xba, 0xbb, 0xc0, 0xd0, 0xe0}},
        {"\n\r\t", {0x25, 0x0d, 0x05}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        std::string text(c.ebcdic.begin(), c.ebcdic.end());
        ebcdicToAscii(text.data(), int64_t(text.size()));
        EXPECT_EQ(text, c.text);
        asciiToEbcdic(text.data(), int64_t(text.size()));
        EXPECT_EQ(text, std::string(c.ebcdic.begin(), c.ebcdic.end()));
    }
}

TEST(Ebcdic, IsOneToOneOverAllBytes)
{
    std::vector<uint8_t> bytes(256), all(256);
    for (int i = 0; i < 256; ++i) bytes[i] = all[i] = uint8_t(i);
    ebcdicToAscii(bytes.data(), 256);
    std::vector<int> seen(256, 0);
    for (uint8_t b : bytes) ++seen[b];
    EXPECT_EQ(seen, std::vector<int>(256, 1));
    asciiToEbcdic(bytes.data(), 256);
    EXPECT_EQ(bytes, all);
}
