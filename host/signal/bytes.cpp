#include "host/signal/bytes.h"

#include "host/cpuvariant.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <cmath>

// Samples stand behind headers of any length, so no element may count on its alignment.
typedef uint16_t AnyUint16 __attribute__((aligned(1), may_alias));
typedef uint32_t AnyUint32 __attribute__((aligned(1), may_alias));
typedef uint64_t AnyUint64 __attribute__((aligned(1), may_alias));

/// Code page 037, EBCDIC to Latin-1; a row for each high half.
// clang-format off
static constexpr std::array<uint8_t, 256> latinOfEbcdic = {
    0x00, 0x01, 0x02, 0x03, 0x9c, 0x09, 0x86, 0x7f, 0x97, 0x8d, 0x8e, 0x0b, 0x0c, 0x0d, 0x0e, 0x0f,
    0x10, 0x11, 0x12, 0x13, 0x9d, 0x85, 0x08, 0x87, 0x18, 0x19, 0x92, 0x8f, 0x1c, 0x1d, 0x1e, 0x1f,
    0x80, 0x81, 0x82, 0x83, 0x84, 0x0a, 0x17, 0x1b, 0x88, 0x89, 0x8a, 0x8b, 0x8c, 0x05, 0x06, 0x07,
    0x90, 0x91, 0x16, 0x93, 0x94, 0x95, 0x96, 0x04, 0x98, 0x99, 0x9a, 0x9b, 0x14, 0x15, 0x9e, 0x1a,
    0x20, 0xa0, 0xe2, 0xe4, 0xe0, 0xe1, 0xe3, 0xe5, 0xe7, 0xf1, 0xa2, 0x2e, 0x3c, 0x28, 0x2b, 0x7c,
    0x26, 0xe9, 0xea, 0xeb, 0xe8, 0xed, 0xee, 0xef, 0xec, 0xdf, 0x21, 0x24, 0x2a, 0x29, 0x3b, 0xac,
    0x2d, 0x2f, 0xc2, 0xc4, 0xc0, 0xc1, 0xc3, 0xc5, 0xc7, 0xd1, 0xa6, 0x2c, 0x25, 0x5f, 0x3e, 0x3f,
    0xf8, 0xc9, 0xca, 0xcb, 0xc8, 0xcd, 0xce, 0xcf, 0xcc, 0x60, 0x3a, 0x23, 0x40, 0x27, 0x3d, 0x22,
    0xd8, 0x61, 0x62, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0xab, 0xbb, 0xf0, 0xfd, 0xfe, 0xb1,
    0xb0, 0x6a, 0x6b, 0x6c, 0x6d, 0x6e, 0x6f, 0x70, 0x71, 0x72, 0xaa, 0xba, 0xe6, 0xb8, 0xc6, 0xa4,
    0xb5, 0x7e, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x7a, 0xa1, 0xbf, 0xd0, 0xdd, 0xde, 0xae,
    0x5e, 0xa3, 0xa5, 0xb7, 0xa9, 0xa7, 0xb6, 0xbc, 0xbd, 0xbe, 0x5b, 0x5d, 0xaf, 0xa8, 0xb4, 0xd7,
    0x7b, 0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0xad, 0xf4, 0xf6, 0xf2, 0xf3, 0xf5,
    0x7d, 0x4a, 0x4b, 0x4c, 0x4d, 0x4e, 0x4f, 0x50, 0x51, 0x52, 0xb9, 0xfb, 0xfc, 0xf9, 0xfa, 0xff,
    0x5c, 0xf7, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58, 0x59, 0x5a, 0xb2, 0xd4, 0xd6, 0xd2, 0xd3, 0xd5,
    0x30, 0x31, 0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38, 0x39, 0xb3, 0xdb, 0xdc, 0xd9, 0xda, 0x9f,
};
// clang-format on

static constexpr std::array<uint8_t, 256> inverseOf(const std::array<uint8_t, 256>& table)
{
    std::array<uint8_t, 256> inverse = {};
    for (int i = 0; i < 256; ++i) inverse[table[i]] = uint8_t(i);
    return inverse;
}

static constexpr std::array<uint8_t, 256> ebcdicOfLatin = inverseOf(latinOfEbcdic);

bool littleEndian()
{
    return std::endian::native == std::endian::little;
}

static inline MERIDUNE_KERNEL void swapKernel(void* data, int elementBytes, int64_t count)
{
    if (elementBytes == 2) {
        AnyUint16* p = static_cast<AnyUint16*>(data);
#pragma omp simd
        for (int64_t i = 0; i < count; ++i) p[i] = uint16_t(p[i] << 8 | p[i] >> 8);
    } else if (elementBytes == 4) {
        AnyUint32* p = static_cast<AnyUint32*>(data);
#pragma omp simd
        for (int64_t i = 0; i < count; ++i) p[i] = __builtin_bswap32(p[i]);
    } else {
        AnyUint64* p = static_cast<AnyUint64*>(data);
#pragma omp simd
        for (int64_t i = 0; i < count; ++i) p[i] = __builtin_bswap64(p[i]);
    }
}

static void swapPlain(void* data, int elementBytes, int64_t count)
{
    swapKernel(data, elementBytes, count);
}

MERIDUNE_V3 static void swapV3(void* data, int elementBytes, int64_t count)
{
    swapKernel(data, elementBytes, count);
}

void endianSwap(void* data, int elementBytes, int64_t count)
{
    if (elementBytes < 2) return;
    if (elementBytes == 2 || elementBytes == 4 || elementBytes == 8) {
        (cpuVariant() == CpuVariant::V3 ? swapV3 : swapPlain)(data, elementBytes, count);
        return;
    }
    auto* bytes = static_cast<uint8_t*>(data);
    for (int64_t i = 0; i < count; ++i, bytes += elementBytes) std::reverse(bytes, bytes + elementBytes);
}

/// The value is fraction x 2^(4 e - 280). The power is applied as its square root twice: the first product
/// is exact, so that only the second one rounds, and neither factor leaves the range of a float.
static inline MERIDUNE_KERNEL void ibmKernel(AnyUint32* p, int64_t count)
{
#pragma omp simd
    for (int64_t i = 0; i < count; ++i) {
        const uint32_t word = p[i];
        int power = int(word >> 24 & 0x7f) * 2 - 140;
        power = power < -90 ? -90 : power;
        power = power > 64 ? 64 : power;
        const float root = std::bit_cast<float>(uint32_t(power + 127) << 23);
        float value = float(int(word & 0x00ffffff)) * root * root;
        value = value < FLT_MAX ? value : FLT_MAX;
        p[i] = std::bit_cast<uint32_t>(value) | (word & 0x80000000u);
    }
}

static void ibmPlain(AnyUint32* p, int64_t count)
{
    ibmKernel(p, count);
}

MERIDUNE_V3 static void ibmV3(AnyUint32* p, int64_t count)
{
    ibmKernel(p, count);
}

void ibmToIeee(void* data, int64_t count)
{
    (cpuVariant() == CpuVariant::V3 ? ibmV3 : ibmPlain)(static_cast<AnyUint32*>(data), count);
}

static uint32_t ibmOf(float value)
{
    const uint32_t sign = std::bit_cast<uint32_t>(value) & 0x80000000u;
    if (value == 0.0f) return sign;
    if (!std::isfinite(value)) return sign | 0x7fffffffu;
    int power = 0;
    const double fraction = std::frexp(std::fabs(double(value)), &power);  // 0.5 to 1
    const int hexPower = (power + 3) >> 2;                                 // rounded up: fraction stays below 1
    auto digits = uint32_t(std::floor(std::ldexp(fraction, power - 4 * hexPower + 24) + 0.5));
    int exponent = hexPower + 64;
    if (digits == 0x01000000u) {
        digits >>= 4;
        ++exponent;
    }
    return sign | uint32_t(exponent) << 24 | digits;
}

void ieeeToIbm(void* data, int64_t count)
{
    AnyUint32* p = static_cast<AnyUint32*>(data);
    for (int64_t i = 0; i < count; ++i) p[i] = ibmOf(std::bit_cast<float>(uint32_t(p[i])));
}

static void translate(void* text, int64_t count, const std::array<uint8_t, 256>& table)
{
    auto* bytes = static_cast<uint8_t*>(text);
    for (int64_t i = 0; i < count; ++i) bytes[i] = table[bytes[i]];
}

void ebcdicToAscii(void* text, int64_t count)
{
    translate(text, count, latinOfEbcdic);
}

void asciiToEbcdic(void* text, int64_t count)
{
    translate(text, count, ebcdicOfLatin);
}
