// The program's promises about its command line, its configuration and its exit status.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <regex>
#include <sys/wait.h>

using testing::HasSubstr;

TEST(Usage, exitStatusTwoAndOneLineForWhatIsNoCommandLine)
{
    const ProgramState state;
    for (const auto& row : jsonLines(goldenText("usage-errors"))) {
        const std::string message = row.at("message");
        const ProgramResult result = state.run(row.at("arguments"));
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, testing::StartsWith("zarnekctl: " + message));
        EXPECT_THAT(result.err, testing::ContainsRegex("^[^\n]+\nRun zarnekctl .*--help [^\n]+\n$"));
    }
}

TEST(Usage, eachRunEndsAsItsRowSays)
{
    for (const auto& row : jsonLines(goldenText("runs"))) {
        SCOPED_TRACE(row.dump());
        const ProgramState state;
        std::filesystem::create_directories(state.folder.path("sys/block"));
        const auto filledIn = [&state](std::string text) {
            text = std::regex_replace(text, std::regex("GOLDEN/"), goldenFile(""));
            text = std::regex_replace(text, std::regex("QUEUE"), ZARNEK_QUEUE_LIBRARY);
            return std::regex_replace(text, std::regex("STATE"), state.folder.path());
        };
        if (row.contains("library"))
            state.setConfig("private.ini", "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=" +
                                               row.at("library").get<std::string>() + "\n");
        if (row.contains("mapping"))
            state.setMapping(row.at("mapping"));
        Words arguments;
        for (const std::string word : row.at("arguments"))
            arguments.push_back(filledIn(word));
        const ProgramResult result = state.run(arguments);
        EXPECT_EQ(result.status, row.value("status", 0));
        // What a row does not name says nothing.
        for (const auto& [stream, text] : {std::pair("out", result.out), std::pair("err", result.err)}) {
            EXPECT_EQ(text.empty(), !row.contains(stream)) << text;
            EXPECT_THAT(text, HasSubstr(filledIn(row.value(stream, ""))));
        }
    }
}

TEST(Usage, helpAndVersionGoToStandardOutput)
{
    const ProgramState state;
    for (const Words& command : {Words{}, Words{"discover"}, Words{"monitor"}, Words{"check"}}) {
        const ProgramResult result = state.run(joined(command, {"--help"}));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_THAT(result.out, HasSubstr("Exit status: 0 done"));
    }
    EXPECT_THAT(state.run({"--version"}).out, testing::MatchesRegex("zarnekctl [0-9.]+\n"));
}

TEST(Usage, outputThatIsLostIsNoSuccess)
{
    for (const char* target : {"/dev/full", "&-"}) {
        const std::string command = std::string(ZARNEKCTL_PROGRAM " --help >") + target + " 2>/dev/null";
        EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1) << target;
    }
}

TEST(Check, tellsEachSurpriseWithItsRemedy)
{
    const ProgramState state;
    state.setConfig("private.ini", goldenText("surprises-private.ini"));
    state.setMapping(goldenText("surprises-mapping.ini") + "\xef\xbb\xbf[A\x1b]\n9=2048\r\n\r\n \t\n");
    const ProgramResult result = state.run({"check"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(std::regex_replace(result.out, std::regex(state.folder.path("state/zarnek/")), ""),
              goldenText("surprises.check"));
}

TEST(Check, theConfigurationIsTheUsersUnlessNamed)
{
    const ProgramState state;
    const std::string folder = state.folder.path();
    const std::string home = "HOME=" + folder;
    const struct {
        Words environment;
        Words arguments;
        std::string place; // empty: nowhere
    } rows[] = {{{home}, {"check"}, "/state/zarnek"},
                {{home, "XDG_STATE_HOME"}, {"check"}, "/.local/state/zarnek"},
                {{home, "XDG_STATE_HOME="}, {"check"}, "/.local/state/zarnek"},
                {{home, "XDG_STATE_HOME=relative"}, {"check"}, "/.local/state/zarnek"},
                {{"HOME"}, {"check", "--config", folder + "/state/zarnek/"}, "/state/zarnek"},
                {{"HOME", "XDG_STATE_HOME"}, {"check"}, ""},
                {{"HOME=", "XDG_STATE_HOME"}, {"check"}, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.environment));
        const ProgramResult result = state.run(row.arguments, row.environment);
        EXPECT_EQ(result.status, row.place.empty() ? 3 : 0);
        EXPECT_THAT(result.out + result.err,
                    HasSubstr(row.place.empty() ? "name a folder with --config"
                                                : folder + row.place + ": nothing wrong"));
    }
}
