// `zarnekctl monitor` with the real plug-in and the simulator.
#include "common/LongForm.h"
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <csignal>
#include <random>
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

TEST(Monitor, aSignalAtAnyMomentLosesNoAlert)
{
    // The events have numbers of their own, as an adapter keeps them for whoever asks next.
    const std::vector<int> all{1, 2, 3, 4, 5, 6};
    json scenario = json::parse(TempFolder::readFile(ZARNEK_SOURCE_DIR "/scenarios/disk-failure.json"));
    scenario["timeline"] = json::array();
    for (const int number : all)
        scenario["timeline"].push_back(
            {{"poll", number}, {"events", {{{"code", "diskFailed"}, {"device", 1}, {"sequence", number}}}}});
    const TempFolder folder;
    folder.write("scenario.json", scenario.dump());
    const Words words{"monitor",    "--format", "json", "--scenario", folder.path("scenario.json"),
                      "--interval", "0.005"};
    const auto told = [](const ProgramResult& result) {
        std::vector<int> numbers;
        for (const json& record : result.records())
            if (record.at("record") == "alert")
                numbers.push_back(record.at("sequence"));
        return numbers;
    };
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(told(ProgramState().run(words)), all);
    std::chrono::duration<double> whole = std::chrono::steady_clock::now() - begin;

    const unsigned int seed = std::random_device()();
    std::mt19937 random(seed);
    const unsigned int times = rounds(28, 268);
    unsigned int kills = 0;
    for (unsigned int time = 0; time < times && !testing::Test::HasFailure(); ++time) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(time));
        const int number = time % 4 != 0 ? SIGKILL : std::array{SIGINT, SIGTERM, SIGHUP}[time / 4 % 3];
        const ProgramState state;
        RunningProgram program = state.start(words);
        std::this_thread::sleep_for(whole * std::generate_canonical<double, 32>(random));
        program.signal(number);
        program.signal(number);
        const ProgramResult result = program.finish();
        const auto first = told(result);
        const std::string mapping = state.mapping();
        const int written = mapping.empty() ? 0 : std::stoi(mapping.substr(mapping.rfind('=') + 1));
        EXPECT_TRUE(std::equal(first.begin(), first.end(), all.begin()));
        ASSERT_LE(written, static_cast<int>(first.size())) << "counts as told and was not";
        if (number != SIGKILL && !result.out.empty()) {
            EXPECT_EQ(result.status, 0) << result.err;
            EXPECT_EQ(written, static_cast<int>(first.size()));
            EXPECT_EQ(result.records().back().value("sequence", -1), written);
        }
        EXPECT_EQ(told(state.run(words)), std::vector<int>(all.begin() + written, all.end()));
        kills += result.status != 0 && !first.empty() ? 1 : 0;
        whole *= number == SIGKILL && result.status == 0 ? 0.9 : 1; // it had ended
    }
    std::cout << "figures: " << kills << " of " << times << " signals killed a run that had told an alert\n";
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
        "XDG_STATE_HOME=" + state.folder.path("state") + " " + state.installation().path("bin/zarnekctl") +
        " monitor --scenario disk-failure --interval 0.05 --polls 1000000 | head -n 1";
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

TEST(Monitor, aFileThatCannotBeRenewedAnyMoreLetsTheRunGoOnAndIsToldInTheEnd)
{
    const ProgramState state;
    const std::string folder = state.folder.path("collected");
    std::filesystem::create_directory(folder);
    RunningProgram program =
        state.start(story("0.1", {"--polls", "1000000", "--metrics", folder + "/zarnek.prom"}));
    ASSERT_TRUE(program.waitForOutput("2051")); // so it was written ahead of the first poll
    std::filesystem::rename(folder, folder + ".gone");
    ASSERT_TRUE(program.waitForOutput("2049"));
    program.signal(SIGTERM);
    const ProgramResult result = program.finish();
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, testing::ContainsRegex("^[^\n]*older state\n[^\n]*cannot be written[^\n]*\n$"));
}
