#include "common/PluginTest.h"
#include "morlan/morlan_inspect.h"
#include "vendor/IniAccess.h"

#include <zarnek_ini.h>

#include <stdexcept>

namespace
{

using Pairs = std::map<unsigned int, unsigned int>;
using IniTest = PluginTest;

const std::string PATH = "ZARNEK: stg::getVRAXInstallPath()";
const std::string EMPTY = PATH + ": str is empty.";
const std::string RESULT = PATH + ": VRAX Install Path: ";

int found(const std::string& keyword, const std::string& section = "Adapter")
{
    return stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, keyword);
}

Pairs pairs(bool fromSection, Pairs map = {})
{
    EXPECT_EQ(stg::createAlertLookupTable(map, INI_ALERT_MAPPING_FILE, "Adapter", fromSection), 0);
    return map;
}

TEST_F(IniTest, ReadersShareTheirGrammar)
{
    struct Case {
        std::string content;
        int found; // under the key 7 of the section Adapter
        Pairs from, except;
    };
    const Case cases[] = {
        {"", -1, {}, {}},
        {"[Other]\n9=1\n[Adapter]\n8=1\n[adapter]\n7=3\n[Adapter]\n7=2",
         2,
         {{7, 2}, {8, 1}},
         {{7, 3}, {9, 1}}},
        // Ahead of the first section every section is meant, and the first of equal keys wins.
        {"7=1\n7=8\n[Other]\n7=9\n[Adapter]\n7=2\n", 1, {{7, 1}}, {{7, 1}}},
        // Line ends, empty lines, comments, white space.
        {"[Adapter]\r\n7=2\r\n", 2, {{7, 2}}, {}},
        {"[Adapter]\n\n;7=1\n \t;7=3\n#7=4\n8;=3\n7=2;x", 2, {{0, 4}, {7, 2}, {8, 3}}, {}},
        {"\t[ Adap ter ]\n 1 2\t34 = 5\n\v7 =\f6 1 \n", 61, {{7, 61}, {1234, 5}}, {}},
        // Headers whose name is not just what stands between the brackets, and lines that are none.
        {"[Other]\n[Adapter]x=1\n7=5\n", 5, {{7, 5}}, {}},
        {"[Adapter]\nx[Adapter]\n7=5\n", -1, {}, {{7, 5}}},
        {"[Other]\n]x[Adapter\n7=5\n", 5, {{7, 5}}, {}},
        {"[Other]\nlonglong][AdapterXY\n7=5\n", 5, {{7, 5}}, {}},
        {"[Adapter]\nshort][Adapter\n7=5\n", -1, {}, {{7, 5}}},
        {"[Adapter]\n[abc\n7]=5\n7=6\n", 6, {{0, 0}, {7, 5}}, {}},
        // Where "=" is missing or stands oddly, and keys that only read as the same number.
        {"[Adapter]\n7\n=8\n", 7, {{0, 8}, {7, 7}}, {}},
        {"[Adapter]\n007=1\n7==3\n", 0, {{7, 1}}, {}},
        // Numbers: read as far as they go, within the limits of 32 bits.
        {"[Adapter]\n7=12e3\n8=0x10\n", 12, {{7, 12}, {8, 0}}, {}},
        {"[Adapter]\n7=2147483648\n8=-2\n", -2147483647 - 1, {{7, 2147483648U}, {8, 4294967294U}}, {}},
        {"[Adapter]\n7=4294967301\n4294967303=1\n", -1, {{7, 4294967295U}, {4294967295U, 1}}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.content);
        writeMapping(c.content);
        EXPECT_EQ(found("7"), c.found);
        EXPECT_EQ(pairs(true), c.from);
        EXPECT_EQ(pairs(false), c.except);
    }
    for (const char* blankLine :
         {" \n", "[x]\n\t\n[Adapter]\n7=2", "[Adapter]\r\n\r\n7=2\r\n", "[Adapter]\n8=2\n\v"}) {
        writeMapping(blankLine);
        EXPECT_THAT([&] { found("7"); }, testing::ThrowsMessage<std::out_of_range>("basic_string::at"))
            << blankLine;
        EXPECT_THROW(pairs(true), std::out_of_range) << blankLine;
        EXPECT_THROW(pairs(false), std::out_of_range) << blankLine;
    }
    writeMapping("[Adapter]\n7=2\n \n");
    EXPECT_EQ(found("7"), 2) << "the search goes no further";
    writeMapping("[Adapter]\nsequencenumber=4\n4294967295=3\n7=2\n");
    EXPECT_EQ(pairs(true, {{7, 100}}), (Pairs{{0, 4}, {7, 100}, {4294967295U, 3}}));
    EXPECT_EQ(found(" se\tquence number\r", " \tAdapter\t "), 4);
    EXPECT_EQ(found("7", "\t Adapter"), -1) << "blanks go first, tabs second";
    EXPECT_EQ(stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, "Adapter", 4294967295U), 3);
    EXPECT_EQ(stg::readFromIniFileAgainstKey("/", "Adapter", "7"), -1) << "a folder is no endless file";
}

TEST_F(IniTest, MissingPathsAndFiles)
{
    struct Case {
        const char *path, *failing;
        Lines said;
        unsigned int destroyed;
    };
    const std::string label = "ZARNEK:stg::readFromIniFileAgainstKey()";
    const std::string noPath = label + ": Not able to generate entire file path.";
    const std::string notAble = PATH + ": Not able to get Install Path.";
    const std::string noFile = ": Cannot open ini file. File Name: /MarvelAlertMapping.ini";
    for (const Case& c : {Case{"/opt/x", "", {RESULT + "/opt/x", label + noFile}, 1},
                          Case{"", "", {EMPTY, RESULT, noPath}, 2},
                          Case{"/opt/x", "GetIniFilePath", {notAble, EMPTY, RESULT, noPath}, 2},
                          Case{"/opt/x", "sm_create", {notAble, RESULT, noPath}, 0}}) {
        morlan_set_install_path(c.path);
        morlan_fail_call(c.failing, 1, 1, -3);
        const unsigned int destroyed = morlan_call_count("sm_destroy");
        clear();
        EXPECT_EQ(found("7"), -1);
        EXPECT_EQ(messages(), c.said);
        EXPECT_EQ(morlan_call_count("sm_destroy") - destroyed, c.destroyed);
    }
    for (const bool fromSection : {true, false}) {
        clear();
        Pairs map;
        EXPECT_EQ(stg::createAlertLookupTable(map, INI_ALERT_MAPPING_FILE, "Adapter", fromSection), -1);
        EXPECT_EQ(messages().back(), std::string("ZARNEK:stg::readAllKeyValueFromIni") +
                                         (fromSection ? "From" : "Except") + "Section()" + noFile);
    }
}

TEST_F(IniTest, FailuresOfTheWriter)
{
    const auto write = [] {
        return stg::writeToIniFileAgainstKey(INI_ALERT_MAPPING_FILE, "S", "a b", 4294967295U);
    };
    morlan_fail_call("SMWriteINIPathFileValue", 1, 1, -3);
    EXPECT_EQ(write(), -3);
    EXPECT_EQ(messages().back(),
              "ZARNEK:stg::writeToIniFileAgainstKey(): Failed to write in /MarvelAlertMapping.ini File under "
              "the section S. Keyword is a b and the value is 4294967295");
    morlan_set_install_path("");
    clear();
    EXPECT_EQ(write(), -1);
    EXPECT_EQ(messages(), (Lines{EMPTY, RESULT}));
}

} // namespace
