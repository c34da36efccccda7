// `zarnekctl discover` with the real plug-in and the simulator.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

#include <regex>

using nlohmann::json;
using testing::HasSubstr;

TEST(Discover, printsOddNamesAndCodesInEachForm)
{
    const struct {
        std::string format;
        std::string golden;
        std::string locale;
    } rows[] = {{"tree", "odd-server.tree", "C"},
                {"tree", "odd-server.utf8.tree", "C.UTF-8"},
                {"table", "odd-server.table", "C"},
                {"dot", "odd-server.dot", "C"}};
    const ProgramState state;
    for (const auto& row : rows) {
        const ProgramResult result =
            state.run({"discover", "--scenario", goldenFile("odd-server.json"), "--format", row.format},
                      {"LC_ALL=" + row.locale});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out, goldenText(row.golden));
    }
}

TEST(Discover, jsonObjectsNameEachOtherAndKeepRawValues)
{
    const ProgramState state;
    const ProgramResult result =
        state.run({"discover", "--scenario", goldenFile("odd-server.json"), "--format", "json"});
    const json document = json::parse(result.out);
    EXPECT_EQ(document.at("format_version"), 1);
    expectMembers(document.at("objects"), "odd-server.objects");
}

TEST(Discover, findsWhatItIsGivenToLookAt)
{
    const ProgramState state;
    std::filesystem::create_directories(state.folder.path("sys/block"));
    const struct {
        Words arguments;
        std::string census;
    } rows[] = {
        {{"--scenario", "small-server"}, "\n1 controller, 2 disks, 1 virtual disk; none reports trouble\n"},
        {{"--scenario", "disk-failure.json"},
         "\n1 controller, 3 disks, 1 virtual disk; 1 of unknown status; none"},
        {{"--scenario", "extremes"}, "\n5 controllers, "},
        {{"--scenario", goldenFile("empty.json")}, "0 controllers, 0 disks, 0 virtual disks\n"},
        {{"--scenario", goldenFile("empty.json"), "--format", "json"}, "\"objects\": []\n"},
        {{}, "\n2 controllers, 32 disks, "},
        {{"--live", "--sysfs", state.folder.path("sys")}, "\n1 controller, 0 disks, 0 virtual disks; none"},
    };
    const std::string unasked = "zarnekctl: no source named, playing the scenario large-server.json; "
                                "see --scenario and --live\n";
    for (const auto& row : rows) {
        const ProgramResult result = state.run(joined({"discover"}, row.arguments));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, row.arguments.empty() ? unasked : "");
        EXPECT_THAT(result.out, HasSubstr(row.census));
    }
}

TEST(Discover, logGoesToStandardErrorAndChangesNoResult)
{
    const ProgramState state;
    const ProgramResult quiet = state.run({"discover", "--scenario", "small-server"});
    const ProgramResult loud = state.run({"discover", "--scenario", "small-server", "--log"});
    EXPECT_EQ(quiet.out, loud.out);
    EXPECT_THAT(loud.err, HasSubstr("ZARNEK:CCommandHandler:navigator(): ZARNEK Discovery is successful."));
}

TEST(Discover, tellsBadInputAndFailuresInOneClearLine)
{
    const ProgramState state;
    ASSERT_EQ(state.run({"check"}).status, 0);
    for (const json& row : jsonLines(goldenText("discover-failures"))) {
        SCOPED_TRACE(row.dump());
        Words arguments{"discover"};
        for (std::string word : row.at("arguments")) {
            word = std::regex_replace(word, std::regex("^GOLDEN/"), goldenFile(""));
            arguments.push_back(std::regex_replace(word, std::regex("^QUEUE$"), ZARNEK_QUEUE_LIBRARY));
        }
        state.folder.write("state/zarnek/private.ini", "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=" +
                                                           row.at("library").get<std::string>() + "\n");
        const ProgramResult result = state.run(arguments);
        EXPECT_EQ(result.status, row.at("status"));
        EXPECT_EQ(result.out.empty(), row.at("status") == 3);
        EXPECT_THAT(result.err, HasSubstr(row.at("message").get<std::string>()));
    }
}
