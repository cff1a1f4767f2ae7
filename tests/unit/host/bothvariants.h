/// Runs a kernel once for the plain processor and once for x86-64-v3.
#ifndef BOTHVARIANTS_H
#define BOTHVARIANTS_H

#include "host/cpuvariant.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

/// Sets a variant for the life of the object, then the machine's best again.
class WithVariant
{
public:
    explicit WithVariant(CpuVariant variant) { useCpuVariant(variant); }
    ~WithVariant() { useCpuVariant(CpuVariant::V3); }
};

/// True if both have the same bits.
inline bool sameBits(const std::vector<float>& a, const std::vector<float>& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0;
}

/// Expects the bits of work(), a vector of floats, to be the same in both variants. A machine without
/// x86-64-v3 has nothing to compare.
template <class Work>
void expectSameBitsInBothVariants(const Work& work)
{
    if (!hasCpuV3()) GTEST_SKIP() << "this machine has no x86-64-v3";
    std::vector<float> plain, v3;
    {
        WithVariant variant(CpuVariant::Plain);
        ASSERT_EQ(cpuVariant(), CpuVariant::Plain);
        plain = work();
    }
    {
        WithVariant variant(CpuVariant::V3);
        ASSERT_EQ(cpuVariant(), CpuVariant::V3);
        v3 = work();
    }
    ASSERT_FALSE(plain.empty());
    EXPECT_TRUE(sameBits(plain, v3));
}

#endif
