#include "common/PluginTest.h"
#include "vendor/IniAccess.h"

#include <zarnek_ini.h>

#include <stdexcept>
#include <sys/stat.h>

namespace
{

using Pairs = std::map<unsigned int, unsigned int>;
using IniTest = PluginTest;

int found(const std::string& keyword, const std::string& section = "Adapter")
{
    return stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, keyword);
}

TEST_F(IniTest, ReadersShareTheirGrammar)
{
    struct Case {
        std::string content;
        int found; // under the key 7 of the section Adapter
    };
    for (const Case& c : {
             Case{"[Other]\n9=1\n[Adapter]\n8=1\n[adapter]\n7=3\n[Adapter]\n7=2", 2},
             // Ahead of the first section every section is meant, and the first of equal keys wins.
             {"7=1\n7=8\n[Other]\n7=9\n[Adapter]\n7=2\n", 1},
             // Line ends, comments, white space.
             {"[Adapter]\r\n;7=1\n \t;7=3\n7=2;x", 2},
             {"\t[ Adap ter ]\n\v7 =\f6 1 \n", 61},
             // Headers whose name is not just what stands between the brackets, and lines that are none.
             {"[Adapter]\nx[Adapter]\n7=5\n", -1},
             {"[Other]\n]x[Adapter\n7=5\n", 5},
             {"[Adapter]\nshort][Adapter\n7=5\n", -1},
             // Where "=" is missing or stands oddly, and numbers beyond the limits.
             {"[Adapter]\n7\n=8\n", 7},
             {"[Adapter]\n007=1\n7==3\n", 0},
             {"[Adapter]\n7=2147483648\n", -2147483647 - 1},
             {"[Adapter]\n7=2\n \n", 2},
         }) {
        writeMapping(c.content);
        EXPECT_EQ(found("7"), c.found) << c.content;
    }
    writeMapping("[x]\n\t\n[Adapter]\n7=2");
    EXPECT_THAT([] { found("7"); }, testing::ThrowsMessage<std::out_of_range>("basic_string::at"));
    writeMapping("[Adapter]\nsequencenumber=4\n#7=3\n7=2\n[Other]\n9=4294967301\n");
    EXPECT_EQ(found(" se\tquence number\r", " \tAdapter\t "), 4);
    EXPECT_EQ(found("#7"), 3);
    mkfifo((stg::getVRAXInstallPath() + "/pipe").c_str(), 0600);
    EXPECT_EQ(stg::readFromIniFileAgainstKey("/pipe", "Adapter", "7"), -1) << "nobody writes into it";

    Pairs from{{7, 100}}, except;
    EXPECT_EQ(stg::createAlertLookupTable(from, INI_ALERT_MAPPING_FILE, "Adapter", true), 0);
    EXPECT_EQ(stg::createAlertLookupTable(except, INI_ALERT_MAPPING_FILE, "Adapter", false), 0);
    EXPECT_EQ(from, (Pairs{{0, 4}, {7, 100}}));
    EXPECT_EQ(except, (Pairs{{9, 4294967295U}}));
}

} // namespace
