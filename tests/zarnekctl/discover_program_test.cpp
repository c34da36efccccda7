// `zarnekctl discover` with the real plug-in and the simulator.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

namespace
{

std::size_t count(const json& document, const std::string& kind)
{
    std::size_t found = 0;
    for (const json& object : document.at("objects"))
        found += object.at("kind") == kind ? 1 : 0;
    return found;
}

} // namespace

TEST(Discover, everyShippedScenarioAndEveryFormat)
{
    const ProgramState state;
    const auto discover = [&state](const std::string& scenario, const std::string& format) {
        const ProgramResult result = state.run({"discover", "--scenario", scenario, "--format", format});
        EXPECT_EQ(result.status, 0) << scenario << ' ' << format << '\n' << result.err;
        EXPECT_EQ(result.err, "");
        return result.out;
    };
    for (const char* format : {"tree", "table", "dot"})
        EXPECT_GT(discover("large-server.json", format).size(), 2000U) << format;
    for (const char* scenario : {"small-server", "large-server", "disk-failure", "extremes"}) {
        const std::string text = discover(scenario, "json");
        ASSERT_TRUE(json::accept(text)) << scenario;
        EXPECT_GE(count(json::parse(text), "physical_disk"), 2U) << scenario;
    }
}

TEST(Discover, withoutASourceTheLargeScenarioIsShown)
{
    const ProgramState state;
    const ProgramResult result = state.run({"discover", "--format", "json", "--global-number", "5"});
    ASSERT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("no source named, playing the scenario large-server.json"));
    const json document = json::parse(result.out);
    EXPECT_EQ(document.at("controllers_found"), 2);
    EXPECT_EQ(count(document, "controller"), 2U);
    EXPECT_EQ(count(document, "physical_disk"), 32U);
    EXPECT_EQ(document.at("objects").at(0).at("identity"), "769/9 24600=5");
    // Virtual disks are linked with the disks of their own controller, and with nothing else.
    for (const json& object : document.at("objects")) {
        if (object.at("kind") != "virtual_disk")
            continue;
        EXPECT_EQ(object.at("links").size(), object.at("parent") == "769/9 24600=5" ? 8U : 24U);
        for (const json& link : object.at("links"))
            EXPECT_EQ(link.get<std::string>().substr(0, 13),
                      "772/9 24600=" + object.at("parent").get<std::string>().substr(12));
    }
}

TEST(Discover, theLiveMachineIsReadFromTheFolderNamed)
{
    const ProgramState state;
    std::filesystem::create_directories(state.folder.path("sys/block"));
    const ProgramResult result =
        state.run({"discover", "--live", "--sysfs", state.folder.path("sys"), "--format", "json"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(count(json::parse(result.out), "physical_disk"), 0U);
}

TEST(Discover, logGoesToStandardErrorAndChangesNoResult)
{
    const ProgramState state;
    const ProgramResult quiet = state.run({"discover", "--scenario", "small-server"});
    const ProgramResult loud = state.run({"discover", "--scenario", "small-server", "--log"});
    EXPECT_EQ(quiet.out, loud.out);
    EXPECT_THAT(loud.err, HasSubstr("ZARNEK:CCommandHandler:navigator(): ZARNEK Discovery is successful."));
}

TEST(Discover, traceIsTheSameEachTimeAndNamesNoFolder)
{
    const ProgramState first;
    const ProgramState second;
    const std::vector<std::string> arguments{"discover", "--scenario", "small-server", "--trace"};
    const ProgramResult result = first.run(arguments);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, second.run(arguments).out);
    EXPECT_THAT(result.out, testing::StartsWith("cmd 20 (initialise)\nlog "));
    EXPECT_THAT(result.out, testing::EndsWith("cmd 23 (terminate) = 0\n"));
    EXPECT_THAT(result.out, Not(HasSubstr(first.folder.path())));
    for (const char* kind : {"\nsm  SMLibLoad(", "\nmv  MV_Adapter_GetInfo(0)",
                             "\nral RalInsertObject(769/9 24600=0, under none)"})
        EXPECT_THAT(result.out, HasSubstr(kind));
}

TEST(Discover, badInputIsExitStatusThreeWithOneClearLine)
{
    const ProgramState state;
    state.folder.write("broken.json", "{\"format\": 1,\n");
    state.folder.write("no-library.so", "text");
    const std::string config = state.folder.path("config");
    const auto withConfig = [&](const std::string& library, const std::string& mapping) {
        std::filesystem::create_directories(config);
        state.folder.write("config/private.ini",
                           "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=" + library + "\n");
        state.folder.write("config/MarvelAlertMapping.ini", mapping);
    };
    const std::string mapping = "[Adapter]\n1=2048\n[EventSequenceNumber]\nSequenceNumber=0\n";
    const struct {
        std::string library;
        std::string mapping;
        std::vector<std::string> arguments;
        std::string message;
    } rows[] = {
        {"libmvsim", mapping, {"--scenario", state.folder.path("broken.json")}, "broken.json: "},
        {"libmvsim", mapping, {"--scenario", "no-such-scenario"}, "no-such-scenario"},
        {"libmvsim", mapping, {"--plugin", state.folder.path("nowhere.so")}, "nowhere.so"},
        {"libmvsim", mapping, {"--plugin", state.folder.path("no-library.so")}, "no-library.so"},
        {"libmvsim",
         mapping,
         {"--plugin", ZARNEK_QUEUE_LIBRARY},
         "not the plug-in, it exports no libpld_sm_zarnek_entry"},
        {"libnowhere", mapping, {}, "cannot open the vendor library: libnowhere.so"},
        {"libpld_sm_queue", mapping, {"--scenario", "small-server"}, "libpld_sm_queue is no simulator"},
        {"libpld_sm_queue", mapping, {"--live"}, "libpld_sm_queue is no simulator"},
        {"", mapping, {}, "private.ini:4: error: the vendor library has no name"},
        {"libmvsim",
         "\n \n" + mapping,
         {},
         "MarvelAlertMapping.ini:2: error: a line of nothing but white space"},
    };
    for (const auto& row : rows) {
        withConfig(row.library, row.mapping);
        std::vector<std::string> arguments{"discover", "--config", config};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const ProgramResult result = state.run(arguments);
        EXPECT_EQ(result.status, 3) << row.message;
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, HasSubstr(row.message));
    }
}

TEST(Discover, aControllerThatFailsIsExitStatusOneWithTheLog)
{
    const ProgramState state;
    const std::string scenario = changedScenario(state.folder, "large-server.json", [](json& system) {
        system["adapters"][0]["fail"]["MV_Adapter_Get_OEM_Data"] = 1;
    });
    const ProgramResult result = state.run({"discover", "--scenario", scenario, "--format", "json"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(count(json::parse(result.out), "controller"), 1U);
    EXPECT_THAT(result.err, HasSubstr("only 1 of 2 controllers arrived in the data engine\n  ZARNEK:"));
}

TEST(Discover, aVendorLibraryThatCannotBeUsedIsExitStatusOne)
{
    const ProgramState state;
    ASSERT_EQ(state.run({"check"}).status, 0);
    state.folder.write(state.config("private.ini"),
                       "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=libpld_sm_queue\n");
    const ProgramResult result = state.run({"discover", "--format", "json"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(json::parse(result.out).at("objects").empty());
    EXPECT_THAT(result.err, HasSubstr("has no MV_Adapter_GetCount"));
}

TEST(Discover, aSystemWithoutControllersIsAnEmptyResult)
{
    const ProgramState state;
    const std::string scenario = changedScenario(state.folder, "small-server.json",
                                                 [](json& system) { system["adapters"] = json::array(); });
    const ProgramResult result = state.run({"discover", "--scenario", scenario, "--format", "json"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(json::parse(result.out).at("objects").empty());
}
