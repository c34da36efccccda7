// The folder of the configuration and the check of its files.
#include "common/TempFolder.h"
#include "zarnekctl/Golden.h"
#include "zarnekctl/config/ConfigCheck.h"
#include "zarnekctl/config/ConfigFolder.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

using namespace zarnekctl;
namespace fs = std::filesystem;

TEST(ConfigFolder, copiesOfWriteProtectedFilesAreTheUsersAloneToChange)
{
    const TempFolder prefix;
    fs::create_directories(prefix.path("share/zarnek/config"));
    prefix.write("share/zarnek/config/private.ini", "[VendorID]\n");
    prefix.write("share/zarnek/config/MarvelAlertMapping.ini", "shipped\n");
    fs::permissions(prefix.path("share/zarnek/config/MarvelAlertMapping.ini"), fs::perms::owner_read);

    const ConfigFolder config(prefix.path("user/state"));
    const mode_t mask = umask(0);
    config.prepare(Installation(prefix.path("bin/zarnekctl")));
    umask(mask);
    EXPECT_EQ(prefix.read("user/state/MarvelAlertMapping.ini"), "shipped\n");
    EXPECT_EQ(fs::status(config.mapping()).permissions(), fs::perms(0644));
    EXPECT_EQ(fs::status(config.path().parent_path()).permissions(), fs::perms(0755));
}

TEST(ConfigCheck, findsWhatKeepsARunFromWorking)
{
    const std::map<std::string, Effect> effects{{"surprise", Effect::Surprise},
                                                {"repetition", Effect::Repetition},
                                                {"no monitoring", Effect::NoMonitoring},
                                                {"no discovery", Effect::NoDiscovery}};
    const auto rows = jsonLines(goldenText("config-checks"));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.dump());
        const TempFolder folder;
        // What a row leaves out is as in the first one, in which nothing is wrong.
        folder.write("private.ini", row.value("private", rows.front().at("private")));
        folder.write("MarvelAlertMapping.ini", row.value("mapping", rows.front().at("mapping")));
        const ConfigCheck check{ConfigFolder(folder.path())};
        EXPECT_EQ(check.worst(), effects.at(row.value("worst", "surprise")));
        const auto lines = check.lines(check.worst());
        EXPECT_EQ(lines.size(), row.count("finding"));
        EXPECT_THAT(lines, testing::Each(testing::HasSubstr(row.value("finding", ""))));
    }
}
