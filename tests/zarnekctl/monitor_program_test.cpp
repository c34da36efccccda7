// `zarnekctl monitor` with the real plug-in and the simulator.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

#include <csignal>
#include <thread>

using nlohmann::json;
using testing::HasSubstr;
using namespace std::chrono_literals;

namespace
{

std::vector<json> ofKind(const std::vector<json>& records, const std::string& kind)
{
    std::vector<json> found;
    for (const json& record : records) {
        if (record.at("record") == kind)
            found.push_back(record);
    }
    return found;
}

std::vector<int> sequences(const std::vector<json>& records)
{
    std::vector<int> numbers;
    for (const json& alert : ofKind(records, "alert"))
        numbers.push_back(alert.at("sequence").get<int>());
    return numbers;
}

const std::vector<std::string> quickStory{"monitor", "--scenario", "disk-failure", "--interval",
                                          "0",       "--format",   "json"};

} // namespace

TEST(Monitor, tellsTheStoryOfAScenarioAndGoesOnFromWhereItWas)
{
    const ProgramState state;
    const ProgramResult first = state.run(quickStory);
    ASSERT_EQ(first.status, 0) << first.err;
    const auto records = first.records();
    EXPECT_EQ(records.front().at("record"), "start");
    EXPECT_EQ(records.back().at("record"), "summary");
    const auto numbers = sequences(records);
    ASSERT_GE(numbers.size(), 5U);
    for (std::size_t index = 0; index < numbers.size(); ++index)
        EXPECT_EQ(numbers[index], static_cast<int>(index) + 1);

    // The disk's failure is seen where all disks are discovered again; the refresh of that one disk has no
    // place.
    bool failed = false;
    bool incomplete = false;
    for (const json& refresh : ofKind(records, "refresh")) {
        incomplete = incomplete || refresh.at("outcome") == "incomplete";
        failed = failed || (refresh.at("kind") == "physical_disk" && refresh.at("outcome") == "changed" &&
                            refresh.at("changes").value("/state/after/words"_json_pointer, "") == "failed");
    }
    EXPECT_TRUE(failed);
    EXPECT_TRUE(incomplete);
    EXPECT_EQ(records.back().at("alerts"), numbers.size());
    EXPECT_EQ(records.back().at("sequence"), numbers.back());

    const ProgramResult second = state.run(quickStory);
    const auto later = sequences(second.records());
    ASSERT_EQ(later.size(), numbers.size());
    EXPECT_EQ(later.front(), numbers.back() + 1);
    EXPECT_EQ(second.records().back().at("sequence"), later.back());
}

TEST(Monitor, stopsAfterThePollsAskedFor)
{
    const ProgramState state;
    auto arguments = quickStory;
    arguments.insert(arguments.end(), {"--polls", "2"});
    const ProgramResult result = state.run(arguments);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.records().back().at("polls"), 2);
    EXPECT_EQ(sequences(result.records()).size(), 3U);
}

TEST(Monitor, aSignalStopsALongPauseWithinASecondAndWritesTheNumber)
{
    for (const int number : {SIGINT, SIGTERM}) {
        const ProgramState state;
        RunningProgram program({"monitor", "--scenario", "disk-failure", "--interval", "600", "--polls", "9",
                                "--format", "json"},
                               state.folder.path("state"));
        ASSERT_TRUE(program.waitForOutput("\"alert\""));
        program.signal(number);
        const ProgramResult result = program.finish();
        EXPECT_LT(result.duration, 1s);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.records().back().at("sequence"), 1);
        EXPECT_THAT(state.folder.read(state.config("MarvelAlertMapping.ini")), HasSubstr("SequenceNumber=1"));
    }
}

TEST(Monitor, aSignalAtAnyMomentStopsCleanly)
{
    for (int delay = 0; delay < 60; delay += 7) {
        const ProgramState state;
        RunningProgram program({"monitor", "--scenario", "disk-failure", "--interval", "0", "--polls",
                                "1000000", "--format", "json"},
                               state.folder.path("state"));
        ASSERT_TRUE(program.waitForOutput("\"start\""));
        std::this_thread::sleep_for(std::chrono::milliseconds(delay));
        program.signal(SIGINT);
        program.signal(SIGINT);
        const ProgramResult result = program.finish();
        EXPECT_LT(result.duration, 1s);
        EXPECT_EQ(result.status, 0) << result.err;
        const auto records = result.records();
        EXPECT_EQ(records.back().at("record"), "summary");
        const auto numbers = sequences(records);
        EXPECT_EQ(records.back().at("sequence"), numbers.empty() ? 0 : numbers.back());
    }
}

TEST(Monitor, traceShowsTheWholeRunInOrderAndIsTheSameEachTime)
{
    const ProgramState first;
    const ProgramState second;
    const std::vector<std::string> arguments{"monitor",    "--scenario", "disk-failure",
                                             "--interval", "0",          "--trace"};
    const ProgramResult result = first.run(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, second.run(arguments).out);
    std::size_t at = 0;
    for (const char* line :
         {"cmd 21 (start monitoring)\n", "cmd 21 (start monitoring) = 0\n", "mv  MV_EVT_GetEvent(0",
          "ntf alert_number (24685/8) = 2051\n", "ntf concerned_object (24678/13)\n",
          "ntf   slot (24810/8) = 1\n", "ral RalSendNotification(", "sys sleep(50)\n",
          "cmd 25 (stop monitoring)\n", "sm  SMWriteINIPathFileValue(", "cmd 23 (terminate) = 0\n"}) {
        at = result.out.find(line, at);
        ASSERT_NE(at, std::string::npos) << line;
    }
}

TEST(Monitor, editsOfTheMappingFileTakeEffectWithTheNextAlert)
{
    const ProgramState state;
    RunningProgram program({"monitor", "--scenario", "disk-failure", "--interval", "0.5", "--format", "json"},
                           state.folder.path("state"));
    ASSERT_TRUE(program.waitForOutput("\"alert\""));
    state.folder.write(state.config("MarvelAlertMapping.ini"),
                       "[VirtualDevice]\n103=4000\n[EventSequenceNumber]\nSequenceNumber=0\n");
    const ProgramResult result = program.finish();
    const auto alerts = ofKind(result.records(), "alert");
    ASSERT_EQ(alerts.size(), 2U) << result.out;
    EXPECT_EQ(alerts[1].at("number"), 4000);
    EXPECT_EQ(alerts[1].at("meaning"), nullptr);
    EXPECT_EQ(alerts[1].at("event_code"), 103);
    EXPECT_EQ(alerts[1].at("sequence"), 3);
}

TEST(Monitor, aBlankLineThatComesDuringTheRunEndsTheProcessWithAWord)
{
    const ProgramState state;
    RunningProgram program({"monitor", "--scenario", "disk-failure", "--interval", "0.3"},
                           state.folder.path("state"));
    ASSERT_TRUE(program.waitForOutput("2051"));
    state.folder.write(state.config("MarvelAlertMapping.ini"), "[PhysicalDevice]\n \n");
    const ProgramResult result = program.finish();
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(result.err, HasSubstr("an exception ended the process: basic_string::at"));
    EXPECT_THAT(result.err, HasSubstr("zarnekctl check"));
}

TEST(Monitor, aReaderThatGoesAwayStopsTheRunWithItsNumberWritten)
{
    const ProgramState state;
    const std::string command =
        "XDG_STATE_HOME=" + state.folder.path("state") +
        " " ZARNEKCTL_PROGRAM " monitor --scenario disk-failure --interval 0.05 --polls 1000000 | head -n 1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    // Not every shell waits for the program too.
    for (int attempt = 0;
         attempt < 1000 &&
         state.folder.read(state.config("MarvelAlertMapping.ini")).find("SequenceNumber=0") !=
             std::string::npos;
         ++attempt)
        std::this_thread::sleep_for(5ms);
    EXPECT_THAT(state.folder.read(state.config("MarvelAlertMapping.ini")),
                testing::ContainsRegex("SequenceNumber=[1-9]"));
}

TEST(Monitor, withoutAControllerThereIsNothingToMonitor)
{
    const ProgramState state;
    const std::string scenario = changedScenario(state.folder, "small-server.json",
                                                 [](json& system) { system["adapters"] = json::array(); });
    const ProgramResult result = state.run({"monitor", "--scenario", scenario, "--format", "json"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("no controller to monitor"));
    EXPECT_EQ(result.records().back().at("polls"), 0);
}
