// Values on their way to people: units, words, escapes.
#include "zarnekctl/CodeWords.h"
#include "zarnekctl/PropertyTable.h"
#include "zarnekctl/Samples.h"
#include "zarnekctl/Text.h"
#include "zarnekctl/Units.h"

#include <gmock/gmock.h>

using namespace zarnekctl;

TEST(Units, sizesHaveThreeDigitsAndRoundAcrossUnits)
{
    const struct {
        std::uint64_t bytes;
        const char* text;
    } rows[] = {{0, "0 B"},
                {999, "999 B"},
                {1000, "1.00 kB"},
                {999499, "999 kB"},
                {999500, "1.00 MB"},
                {9994999, "9.99 MB"},
                {9995000, "10.0 MB"},
                {480103981056, "480 GB"},
                {4000787030016, "4.00 TB"},
                {18446744073709551615U, "18.4 EB"}};
    for (const auto& row : rows)
        EXPECT_EQ(sizeText(row.bytes), row.text) << row.bytes;
}

TEST(Units, speedsAndStripes)
{
    const struct {
        std::uint64_t code;
        const char* speed;
        const char* stripe;
    } rows[] = {{0, "none", "0 KiB"},          {1, "0 Gbit/s", "512 B"},
                {128, "0.1 Gbit/s", "64 KiB"}, {1536, "1.5 Gbit/s", "768 KiB"},
                {2048, "2 Gbit/s", "1 MiB"},   {12288, "12 Gbit/s", "6 MiB"}};
    for (const auto& row : rows) {
        EXPECT_EQ(speedText(row.code), row.speed);
        EXPECT_EQ(stripeText(row.code), row.stripe);
    }
}

TEST(Text, whatIsNoPlainCharacterIsEscaped)
{
    const struct {
        std::string raw;
        const char* utf8;
        const char* ascii;
    } rows[] = {{"plain \\ text", "plain \\ text", "plain \\ text"},
                {"bell\a, type \b", "bell\\x07, type \\x08", "bell\\x07, type \\x08"},
                {"\x1b[31mred\x7f", "\\x1b[31mred\\x7f", "\\x1b[31mred\\x7f"},
                {"M\u00fcller", "M\u00fcller", "M\\xc3\\xbcller"},
                {"\u20ac\U0001f4be", "\u20ac\U0001f4be", "\\xe2\\x82\\xac\\xf0\\x9f\\x92\\xbe"},
                {"\u009b31m", "\\xc2\\x9b31m", "\\xc2\\x9b31m"},        // a C1 control
                {"\xc0\xaf", "\\xc0\\xaf", "\\xc0\\xaf"},               // overlong
                {"\xe0\x80\xaf", "\\xe0\\x80\\xaf", "\\xe0\\x80\\xaf"}, // overlong
                {"\xed\xa0\x80", "\\xed\\xa0\\x80", "\\xed\\xa0\\x80"}, // surrogate
                {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80", "\\xf4\\x90\\x80\\x80"},
                {"cut \xe2\x82", "cut \\xe2\\x82", "cut \\xe2\\x82"},
                {std::string("a\0b", 3), "a\\x00b", "a\\x00b"}};
    for (const auto& row : rows) {
        EXPECT_EQ(escaped(row.raw), row.utf8);
        EXPECT_EQ(escaped(row.raw, true), row.ascii);
    }
    EXPECT_EQ(padded("M\u00fcl", 5), "M\u00fcl  ");
}

TEST(PropertyWords, dependOnTheObjectAndLeaveUnknownCodesVisible)
{
    const struct {
        Property property;
        ObjectKind kind;
        const char* words;
    } rows[] = {
        {u32(SSPROP_STATE_U32, 8), ObjectKind::PhysicalDisk, "failed"},
        {u32(SSPROP_STATE_U32, 8), ObjectKind::VirtualDisk, "offline"},
        {u32(SSPROP_STATE_U32, 77), ObjectKind::PhysicalDisk, "code 77"},
        {u32(SSPROP_STATUS_U32, 3), ObjectKind::VirtualDisk, "warning"},
        {u32(SSPROP_RAIDMODE_U32, 0x40000), ObjectKind::VirtualDisk, "RAID 60"},
        {u32(SSPROP_RAIDMODE_U32, 0xFFFFFFFF), ObjectKind::VirtualDisk, "not known"},
        {u64(SSPROP_SIZE_U64, 0xFFFFFFFF), ObjectKind::PhysicalDisk, "4.29 GB"},
        {{SSPROP_ATTRIBUTEMASK_U32, SDO_TYPE_BINARY_DATA, std::uint64_t{0xFFFFFFFF}},
         ObjectKind::PhysicalDisk,
         "0xffffffff"},
        {{SSPROP_ALARMSTATE_BOOL, SDO_TYPE_BINARY_DATA, std::uint64_t{1}}, ObjectKind::Controller, "on"},
        {u32(SSPROP_REBUILDRATE_U32, 50), ObjectKind::Controller, "50 %"},
        {text(SSPROP_NAME_ASTRING, "a\tb"), ObjectKind::VirtualDisk, "a\\x09b"},
        {nexus({SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_SLOTNUM_U32}), ObjectKind::PhysicalDisk,
         "controller number, slot"},
        {u32(31000, 5), ObjectKind::Other, "5"},
        {{31000, 200, Bytes{"\x01\xff"}}, ObjectKind::Other, "01ff"}};
    for (const auto& row : rows)
        EXPECT_EQ(describe(row.property, row.kind), row.words) << row.property.id;
    EXPECT_EQ(propertyName(31000), "property_31000");
}

TEST(Objects, namesAndIdentities)
{
    EXPECT_EQ(sampleController(4).fullName(), "controller 4");
    EXPECT_EQ(sampleDisk(1, 6, 1, 2).fullName(), "disk 6 on controller 1");
    EXPECT_EQ(sampleVirtualDisk(1, 2, 1, 2).fullName(), "virtual disk 2 on controller 1");
    EXPECT_EQ(sampleSingleDisk(2, 9).fullName(), "disk 9 on controller 2");
    EXPECT_EQ(Object{}.fullName(), "object on controller ?");
    EXPECT_EQ(sampleDisk(1, 6, 1, 2).identity(), "772/9 24600=1 24810=6");
    EXPECT_EQ(without(sampleDisk(1, 6, 1, 2), SSPROP_SLOTNUM_U32).identity(), "772/9 24600=1 24810=absent");
    EXPECT_EQ(sampleSingleDisk(1, 2).identity(), "");
    EXPECT_EQ(healthOf(sampleDisk(0, 0, 0, 0)), Health::Unknown);
    EXPECT_EQ(healthOf(sampleSingleDisk(0, 0)), Health::Unknown);
}
