#include "display/raster/ensemblecopy.h"

#include <gtest/gtest.h>

TEST(EnsembleCopy, KeepsTheWindowOfEachTraceAndItsWords)
{
    float a[] = {1, 2, 3, 4, 5}, b[] = {6, 7, 8, 9, 10};
    int ha[] = {11, 12}, hb[] = {13, 14};
    float* traces[] = {a, b};
    int* headers[] = {ha, hb};
    EnsembleCopy copy;
    std::string error;
    ASSERT_TRUE(copy.copy(traces, headers, 2, 1, 3, 2, &error));
    a[1] = 99.0f;  // the copy is private
    EXPECT_EQ(copy.traces()[0][0], 2.0f);
    EXPECT_EQ(copy.traces()[1][2], 9.0f);
    EXPECT_EQ(copy.headers()[1][1], 14);
    EXPECT_EQ(copy.traceCount(), 2);
}

TEST(EnsembleCopy, AnEmptyBatchLeavesTheFormerOne)
{
    float a[] = {1, 2};
    int h[] = {3};
    float* traces[] = {a};
    int* headers[] = {h};
    EnsembleCopy copy;
    std::string error;
    copy.copy(traces, headers, 1, 0, 2, 1, &error);
    ASSERT_TRUE(copy.copy(nullptr, nullptr, 0, 0, 2, 1, &error));
    EXPECT_EQ(copy.traceCount(), 1);
    EXPECT_EQ(copy.traces()[0][1], 2.0f);
}

TEST(EnsembleCopy, WithoutMemoryTheFormerCopyIsStillWhole)
{
    float a[] = {1, 2};
    int h[] = {3};
    float* traces[] = {a};
    int* headers[] = {h};
    EnsembleCopy copy;
    std::string error;
    copy.copy(traces, headers, 1, 0, 2, 1, &error);
    // More samples than any address space holds: nothing is read from the traces before room is made.
    EXPECT_FALSE(copy.copy(traces, headers, 0x7fffffff, 0, 0x7fffffff, 1, &error));
    EXPECT_EQ(error, "MERIDUNE: loadSeismicData, error while getting memory, 2.");
    EXPECT_EQ(copy.traceCount(), 1);
    EXPECT_EQ(copy.traces()[0][1], 2.0f);
    EXPECT_EQ(copy.headers()[0][0], 3);
}
