// Units, escapes and widths at their boundaries.
#include "common/Utf8.h"
#include "zarnekctl/print/Columns.h"
#include "zarnekctl/print/Units.h"

#include <gmock/gmock.h>

#include <sstream>

using namespace zarnekctl;

TEST(Units, roundAcrossUnits)
{
    const struct {
        std::string text;
        const char* expected;
    } rows[] = {{sizeText(0), "0 B"},           {sizeText(999), "999 B"},
                {sizeText(1000), "1.00 kB"},    {sizeText(999499), "999 kB"},
                {sizeText(999500), "1.00 MB"},  {sizeText(9994999), "9.99 MB"},
                {sizeText(9995000), "10.0 MB"}, {sizeText(18446744073709551615U), "18.4 EB"},
                {speedText(0), "no speed"},     {speedText(1), "0 Gbit/s"},
                {speedText(128), "0.1 Gbit/s"}, {speedText(2048), "2 Gbit/s"},
                {stripeText(0), "0 KiB"},       {stripeText(1), "512 B"},
                {stripeText(1536), "768 KiB"},  {stripeText(2048), "1 MiB"}};
    for (const auto& row : rows)
        EXPECT_EQ(row.text, row.expected);
}

TEST(Text, whatIsNoPlainCharacterIsEscaped)
{
    const std::string controls = "bell\a, del\x7f, \x1b[31mred";
    const struct {
        std::string raw;
        const char* utf8;
        const char* ascii;
    } rows[] = {
        {controls, "bell\\x07, del\\x7f, \\x1b[31mred", "bell\\x07, del\\x7f, \\x1b[31mred"},
        {"\u20ac\U0001f4be", "\u20ac\U0001f4be", "\\xe2\\x82\\xac\\xf0\\x9f\\x92\\xbe"},
        {"\u009b31m", "\\xc2\\x9b31m", "\\xc2\\x9b31m"},        // a C1 control
        {"\xc0\xaf", "\\xc0\\xaf", "\\xc0\\xaf"},               // overlong
        {"\xe0\x80\xaf", "\\xe0\\x80\\xaf", "\\xe0\\x80\\xaf"}, // overlong
        {"\xed\xa0\x80", "\\xed\\xa0\\x80", "\\xed\\xa0\\x80"}, // surrogate
        {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80", "\\xf4\\x90\\x80\\x80"},
        {"\u061b\u061c\u202e", "\u061b\\xd8\\x9c\\xe2\\x80\\xae", "\\xd8\\x9b\\xd8\\x9c\\xe2\\x80\\xae"},
        {"cut \xe2\x82", "cut \\xe2\\x82", "cut \\xe2\\x82"},
        {std::string("a\0b", 3), "a\\x00b", "a\\x00b"}};
    for (const auto& row : rows) {
        EXPECT_EQ(devkit::escaped(row.raw), row.utf8);
        EXPECT_EQ(devkit::escaped(row.raw, true), row.ascii);
    }
}

TEST(Columns, lineUpWhateverTheCharactersWidth)
{
    Columns columns;
    for (const char* label :
         {"plain", "\u78c1\u76d8", "a\u0301\u0323b\u0308", "\u30c7\u30a3\u30b9\u30af", "\xff"})
        columns.add("", {{label, true}, {label}, {"|"}});
    std::ostringstream table;
    columns.print(table, Style{true, false});
    EXPECT_EQ(table.str(), "   plain  plain     |\n"
                           "    \u78c1\u76d8  \u78c1\u76d8      |\n"
                           "      a\u0301\u0323b\u0308  a\u0301\u0323b\u0308        |\n"
                           "\u30c7\u30a3\u30b9\u30af  \u30c7\u30a3\u30b9\u30af  |\n"
                           "       \xff  \xff         |\n");
}
