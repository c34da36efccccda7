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

TEST(Check, tellsFindingsAndWhetherMonitoringCouldWork)
{
    const ProgramState state;
    EXPECT_EQ(state.run({"check"}).status, 0);

    const std::string mapping = state.mapping();
    state.setMapping("[Other]\n" + mapping);
    EXPECT_EQ(state.run({"check"}).status, 0);

    // The line stands behind all that discovery reads; warnings are no reason to refuse.
    state.setMapping("[Other]\n" + mapping + "\n\t\n");
    EXPECT_EQ(state.run({"check"}).status, 3);
    const ProgramResult refused = state.run({"monitor"});
    EXPECT_EQ(refused.status, 3);
    EXPECT_THAT(refused.err,
                testing::ContainsRegex("^zarnekctl: the configuration has 1 error .*\n"
                                       "  .*MarvelAlertMapping.ini:[0-9]+: error: a line of .*\n$"));
    EXPECT_EQ(state.run({"discover", "--scenario", "small-server"}).status, 0);
    state.setMapping("\n \n" + mapping);
    EXPECT_EQ(state.run({"discover", "--scenario", "small-server"}).status, 3);

    state.setMapping(mapping);
    state.folder.write("state/zarnek/private.ini",
                       "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=libnowhere\n");
    const ProgramResult noLibrary = state.run({"check"});
    EXPECT_EQ(noLibrary.status, 3);
    EXPECT_THAT(noLibrary.out, HasSubstr("private.ini:4: error: cannot open the vendor library: libnowhere"));

    // A folder that is named is looked at as it is.
    const ProgramResult empty = state.run({"check", "--config", state.folder.path("nowhere")});
    EXPECT_EQ(empty.status, 3);
    EXPECT_THAT(empty.out, HasSubstr("nowhere/private.ini:1: error: the file cannot be read"));
}

TEST(Check, tellsEachSurpriseWithItsRemedy)
{
    const ProgramState state;
    std::filesystem::create_directories(state.folder.path("config"));
    state.folder.write("config/private.ini", goldenText("surprises-private.ini"));
    state.folder.write("config/MarvelAlertMapping.ini",
                       goldenText("surprises-mapping.ini") + "\xef\xbb\xbf[A\x1b]\n9=2048\r\n\r\n \t\n");
    const ProgramResult result = state.run({"check", "--config", state.folder.path("config")});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(std::regex_replace(result.out, std::regex(state.folder.path("config/")), ""),
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
