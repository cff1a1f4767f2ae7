#include "host/dataset/hdr.h"

#include "host/flow/standardwords.h"

#include <gtest/gtest.h>

/// A list of its own for each test.
class HdrList : public testing::Test
{
protected:
    void SetUp() override { _handle = hdr_setup_(); }
    void TearDown() override { hdr_release_(_handle); }

    std::string _text, _name = "kept";
    int _length = -7, _format = -7, _position = -7, _status = -7;
    int _handle = 0;
};

TEST_F(HdrList, PositionsCountFromOne)
{
    EXPECT_GT(_handle, 0);
    EXPECT_EQ(hdr_std_add_(_handle, "FFID"), 0);
    EXPECT_EQ(hdr_add_(_handle, "BIG", "a double", 2, 2, Double8Format), 0);
    EXPECT_EQ(hdr_add_(_handle, "LAST", "behind", 4, 1, Float4Format), 0);
    hdr_naminfo__(_handle, "LAST    ", &_text, &_length, &_format, &_position, &_status);
    EXPECT_EQ(_status, 0);
    EXPECT_EQ(_position, 4);
    EXPECT_EQ(_length, 1);
    EXPECT_EQ(_format, Float4Format);
    EXPECT_EQ(_text, "behind");
    hdr_indinfo_(_handle, 2, &_name, &_text, &_length, &_format, &_status);
    EXPECT_EQ(_status, 0);
    EXPECT_EQ(_name, "BIG     ");
    EXPECT_EQ(_length, 2);
}

TEST_F(HdrList, WhatIsNotThereLeavesTheTargets)
{
    hdr_std_add_(_handle, "FFID");
    hdr_naminfo__(_handle, "CDP", &_text, &_length, &_format, &_position, &_status);
    EXPECT_EQ(_status, 1);
    EXPECT_EQ(_position, -7);
    for (int position : {0, 2, -1}) {
        _status = -7;
        hdr_indinfo_(_handle, position, &_name, &_text, &_length, &_format, &_status);
        EXPECT_EQ(_status, 1);
        EXPECT_EQ(_name, "kept");
    }
}

TEST_F(HdrList, AWordMustComeBehindAllOthers)
{
    EXPECT_EQ(hdr_add_(_handle, "A", "", 2, 1, Integer4Format), 1);
    EXPECT_EQ(hdr_add_(_handle, "A", "", 1, 1, Integer4Format), 0);
    EXPECT_EQ(hdr_add_(_handle, "B", "", 1, 1, Integer4Format), 1);
    EXPECT_EQ(hdr_add_(_handle, "TOOLONGNAME", "", 2, 1, Integer4Format), 1);
    EXPECT_EQ(hdr_std_add_(_handle, "NONE"), 1);
    EXPECT_EQ(hdr_std_add_(_handle, "A"), 1);  // no standard word, though the list has it
}

TEST_F(HdrList, ListsAreKnownByTheirHandles)
{
    const int other = hdr_setup_();
    EXPECT_NE(other, _handle);
    hdr_std_add_(other, "CDP");
    hdr_naminfo__(_handle, "CDP", &_text, &_length, &_format, &_position, &_status);
    EXPECT_EQ(_status, 1);
    hdr_release_(other);
    hdr_release_(other);
    hdr_naminfo__(other, "CDP", &_text, &_length, &_format, &_position, &_status);
    EXPECT_EQ(_status, 1);
    EXPECT_EQ(hdr_std_add_(other, "CDP"), 1);
}
