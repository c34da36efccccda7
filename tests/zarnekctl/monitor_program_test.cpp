// `zarnekctl monitor` with the real plug-in and the simulator.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <csignal>
#include <regex>
#include <thread>

using nlohmann::json;
using testing::HasSubstr;

namespace
{

// The story of the failing disk as JSON.
Words story(const std::string& interval, const Words& more = {})
{
    return joined({"monitor", "--scenario", "disk-failure", "--format", "json", "--interval", interval},
                  more);
}

} // namespace

TEST(Monitor, tellsAlertsAndWhatTheyChanged)
{
    const auto monitored = [](const char* format) {
        const ProgramState state;
        state.setMapping(goldenText("odd-server-mapping.ini"));
        return state.run(
            {"monitor", "--scenario", goldenFile("odd-server.json"), "--interval", "0", "--format", format});
    };
    EXPECT_EQ(std::regex_replace(monitored("text").out, std::regex("\n[0-9:]{8}"), "\nHH:MM:SS"),
              goldenText("odd-server.monitor"));
    const auto records = monitored("json").records();
    expectMembers(records, "odd-server.records");
    EXPECT_THAT(records.at(1).at("time").get<std::string>(),
                testing::MatchesRegex("[0-9-]{10}T[0-9:]{8}[.][0-9]{3}Z"));
}

TEST(Monitor, aSignalAtAnyMomentStopsCleanlyWithTheNumberWritten)
{
    for (int round = 0; round < 12; ++round) {
        // In a pause that would outlast the time that a test has, and at moments of polls without a pause.
        const bool isPausing = round < 3;
        const ProgramState state;
        RunningProgram program = state.start(story(isPausing ? "600" : "0", {"--polls", "1000000"}));
        ASSERT_TRUE(program.waitForOutput(isPausing ? "\"alert\"" : "\"start\""));
        std::this_thread::sleep_for(std::chrono::milliseconds(isPausing ? 0 : 7 * (round - 3)));
        const int number = std::array{SIGINT, SIGTERM, SIGHUP}[static_cast<unsigned int>(round) % 3];
        program.signal(number);
        program.signal(number);
        const ProgramResult result = program.finish();
        EXPECT_EQ(result.status, 0) << result.err;
        const auto records = result.records();
        int last = 0;
        for (const json& record : records)
            if (record.at("record") == "alert")
                last = record.at("sequence");
        EXPECT_EQ(records.back().value("sequence", -1), last);
        EXPECT_THAT(state.mapping(), HasSubstr("SequenceNumber=" + std::to_string(last) + "\n"));
    }
}

TEST(Monitor, aBlankLineThatComesDuringTheRunEndsTheProcessWithAWord)
{
    const ProgramState state;
    RunningProgram program = state.start(story("0.3"));
    ASSERT_TRUE(program.waitForOutput("2051"));
    state.setMapping("[PhysicalDevice]\n \n");
    const ProgramResult result = program.finish();
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(result.err, testing::ContainsRegex("ended the process: basic_string::at.*`zarnekctl check`"));
}

TEST(Monitor, aReaderThatGoesAwayStopsTheRunWithItsNumberWritten)
{
    const ProgramState state;
    const std::string command =
        "XDG_STATE_HOME=" + state.folder.path("state") +
        " " ZARNEKCTL_PROGRAM " monitor --scenario disk-failure --interval 0.05 --polls 1000000 | head -n 1";
    ASSERT_EQ(std::system(command.c_str()), 0);
    // Not every shell waits for the program too.
    for (int wait = 0; wait < 1000 && state.mapping().find("SequenceNumber=0") != std::string::npos; ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_THAT(state.mapping(), testing::ContainsRegex("SequenceNumber=[1-9]"));
}

TEST(Monitor, tellsOfANumberThatCouldNotBeWritten)
{
    const ProgramState state;
    RunningProgram program = state.start(story("600"));
    ASSERT_TRUE(program.waitForOutput("\"alert\""));
    std::filesystem::remove_all(state.folder.path("state"));
    program.signal(SIGTERM);
    EXPECT_THAT(program.finish().err,
                HasSubstr("AlertMapping.ini: the sequence number 1 could not be written"));
}
