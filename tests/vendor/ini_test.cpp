#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "vendor/IniAccess.h"

#include <zarnek_ini.h>

#include <stdexcept>
#include <sys/stat.h>

namespace
{

using IniTest = PluginTest;

int found(const std::string& keyword, const std::string& section = "Adapter")
{
    return stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, keyword);
}

TEST_F(IniTest, ReadersShareTheirGrammar)
{
    // A file's content, and what stands in it under the key 7 of the section Adapter.
    for (const auto& row : dataRows("tests/vendor/mapping-grammar.json")) {
        writeMapping(row.at(0));
        EXPECT_EQ(found("7"), row.at(1)) << row;
    }
    writeMapping("[x]\n\t\n[Adapter]\n7=2");
    EXPECT_THAT([] { found("7"); }, testing::ThrowsMessage<std::out_of_range>("basic_string::at"));
    writeMapping("[Adapter]\nsequencenumber=4\n#7=3\n7=2\n");
    EXPECT_EQ(found(" se\tquence number\r", " \tAdapter\t "), 4);
    EXPECT_EQ(found("#7"), 3);
    mkfifo((stg::getVRAXInstallPath() + "/pipe").c_str(), 0600);
    EXPECT_EQ(stg::readFromIniFileAgainstKey("/pipe", "Adapter", "7"), -1) << "nobody writes into it";
    EXPECT_EQ(messages().back(),
              "ZARNEK:stg::readFromIniFileAgainstKey(): Cannot open ini file. File Name: /pipe");
}

} // namespace
