// `zarnekctl discover` with the real plug-in and the simulator.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

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
    state.folder.write("empty.json", R"({"format": 1, "name": "empty", "adapters": []})");
    const struct {
        Words arguments;
        std::string census;
    } rows[] = {
        {{"--scenario", "small-server"}, "\n1 controller, 2 disks, 1 virtual disk; none reports trouble\n"},
        {{"--scenario", "disk-failure.json"},
         "\n1 controller, 3 disks, 1 virtual disk; 1 of unknown status; none"},
        {{"--scenario", "extremes"}, "\n5 controllers, "},
        {{"--scenario", state.folder.path("empty.json")}, "0 controllers, 0 disks, 0 virtual disks\n"},
        {{"--scenario", state.folder.path("empty.json"), "--format", "json"}, "\"objects\": []\n"},
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
    state.folder.write("broken.json", "{\"format\": 1,\n");
    state.folder.write("half.json", R"({"format": 1, "name": "one of two fails", "adapters": [
        {"slot": 1, "maxBufferKB": 64, "fail": {"MV_Adapter_Get_OEM_Data": 1}}, {"slot": 2, "maxBufferKB": 64}]})");
    state.folder.write("refused.json", R"({"format": 1, "name": "rescanning", "adapters": [
        {"slot": 1, "maxBufferKB": 64, "fail": {"MV_PD_GetConfig": 187}}]})");
    state.folder.write("no-library.so", "text");
    const auto inFolder = [&state](const char* name) { return state.folder.path(name); };
    const struct {
        std::string vendorLibrary; // in the private INI
        Words arguments;
        int status;
        std::string message;
    } rows[] = {
        {"libmvsim", {"--scenario", inFolder("broken.json")}, 3, "broken.json: 2:1: expected valid JSON"},
        {"libmvsim", {"--scenario", "nope"}, 3, "nope: no such scenario file; shipped are disk-failure, "},
        {"libmvsim", {"--plugin", inFolder("no-library.so")}, 3, "no-library.so"},
        {"libmvsim", {"--plugin", ZARNEK_QUEUE_LIBRARY}, 3, "exports no libpld_sm_zarnek_entry"},
        {"libmvsim", {"--config", inFolder("broken.json/below")}, 3, "cannot make the configuration folder"},
        {"libnowhere", {}, 3, "cannot open the vendor library: libnowhere.so"},
        {"libpld_sm_queue", {"--scenario", "small-server"}, 3, "libpld_sm_queue is no simulator"},
        {"libpld_sm_queue", {"--live"}, 3, "libpld_sm_queue is no simulator"},
        {"libpld_sm_queue", {}, 1, "has no MV_Adapter_GetCount"},
        {"", {}, 3, "private.ini:4: error: the vendor library has no name"},
        {"libmvsim", {"--scenario", inFolder("half.json")}, 1, "in the data engine\n  ZARNEK:"},
        {"libmvsim",
         {"--scenario", inFolder("refused.json")},
         1,
         "refused 1 call: ERR_RESCANING; what is shown is incomplete\n  "},
    };
    ASSERT_EQ(state.run({"check"}).status, 0);
    for (const auto& row : rows) {
        state.folder.write("state/zarnek/private.ini",
                           "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=" + row.vendorLibrary + "\n");
        const ProgramResult result = state.run(joined({"discover"}, row.arguments));
        EXPECT_EQ(result.status, row.status) << row.message;
        EXPECT_EQ(result.out.empty(), row.status == 3) << row.message;
        EXPECT_THAT(result.err, HasSubstr(row.message));
    }
}
