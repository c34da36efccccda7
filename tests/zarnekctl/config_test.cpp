// The folder of the configuration and the check of its files.
#include "common/TempFolder.h"
#include "zarnekctl/config/ConfigCheck.h"
#include "zarnekctl/config/ConfigFolder.h"

#include <gmock/gmock.h>

using namespace zarnekctl;
namespace fs = std::filesystem;

TEST(ConfigFolder, copiesOfWriteProtectedFilesAreTheUsersToChange)
{
    const TempFolder prefix;
    fs::create_directories(prefix.path("share/zarnek/config"));
    prefix.write("share/zarnek/config/private.ini", "[VendorID]\n");
    prefix.write("share/zarnek/config/MarvelAlertMapping.ini", "shipped\n");
    fs::permissions(prefix.path("share/zarnek/config/MarvelAlertMapping.ini"), fs::perms::owner_read);

    const ConfigFolder config(prefix.path("user/state"));
    config.prepare(Installation(prefix.path("bin/zarnekctl")));
    EXPECT_EQ(prefix.read("user/state/MarvelAlertMapping.ini"), "shipped\n");
    EXPECT_NE(fs::status(config.mapping()).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST(ConfigCheck, findsWhatKeepsARunFromWorking)
{
    const std::string id = "[VendorID]\nMarvell=9\n";
    const std::string library = "[VendorLibName]\nLinux_9=";
    const std::string adapter = "[Adapter]\n1=2048\n";
    const std::string sequence = "[EventSequenceNumber]\nSequenceNumber=";
    const std::string ini = "; comment\n# of both kinds\n\n" + id + "[VendorLibName]\r\nLinux_9=libmvsim\r\n";
    const std::string mapping = adapter + "; comment\n\n" + sequence + "7";
    const struct {
        std::string ini;
        std::string mapping;
        Effect effect;
        std::string finding; // empty: none
    } rows[] = {
        {ini, mapping, Effect::Surprise, ""},
        {ini, adapter, Effect::NoMonitoring, ":1: error: the sequence number is missing"},
        {ini, adapter + "[EventSequenceNumber]", Effect::NoMonitoring, ":3: error: the sequence number is"},
        {ini, adapter + sequence + "4294967295", Effect::NoMonitoring, ":4: error: the sequence number 4294"},
        {ini, adapter + sequence + "4294967296", Effect::NoMonitoring, ":4: error: the sequence number"},
        {"[VendorID\n" + id + library + "libmvsim", mapping, Effect::Surprise,
         ":1: warning: a section header without"},
        {ini, adapter + sequence + "4294967290", Effect::Surprise,
         ":4: warning: only 4 more events can pass"},
        {ini, "\xef\xbb\xbf;\n" + mapping, Effect::Surprise, ":1: warning: a byte-order mark"},
        {ini, adapter + sequence + "none", Effect::Surprise, "the sequence number \"none\" reads as 0"},
        {ini, sequence + "7", Effect::NoMonitoring, ":1: error: no event code is mapped"},
        {library + "libmvsim", mapping, Effect::NoDiscovery, ":1: error: the vendor id is missing"},
        {"[VendorID]\nMarvell=8\n[VendorLibName]\nLinux_8=libmvsim", mapping, Effect::NoDiscovery,
         ":2: error: the vendor id \"8\" is not the number of the one known vendor"},
        {id, mapping, Effect::NoDiscovery, ":1: error: the vendor library has no name"},
        {id + library + std::string(31, 'x'), mapping, Effect::Surprise, ""},
        {id + library + std::string(32, 'x'), mapping, Effect::NoDiscovery,
         "the vendor library's name has 32 characters"},
        {id + library + "libmvsim.so", mapping, Effect::NoDiscovery,
         ":4: error: the vendor library's name ends in .so"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ini + "\n" + row.mapping);
        const TempFolder folder;
        folder.write("private.ini", row.ini);
        folder.write("MarvelAlertMapping.ini", row.mapping);
        const ConfigCheck check{ConfigFolder(folder.path())};
        EXPECT_EQ(check.worst(), row.effect);
        EXPECT_EQ(check.lines().size(), row.finding.empty() ? 0U : 1U);
        EXPECT_THAT(check.lines(), testing::Each(testing::HasSubstr(row.finding)));
    }
}
