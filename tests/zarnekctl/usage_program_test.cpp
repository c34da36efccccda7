// The program's promises about its command line and its exit status.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

TEST(Usage, exitStatusTwoForWhatIsNoCommandLine)
{
    const std::vector<std::string> rows[] = {{},
                                             {"frobnicate"},
                                             {"discover", "--frobnicate"},
                                             {"discover", "--format", "text"},
                                             {"monitor", "--format", "tree"},
                                             {"discover", "--scenario"},
                                             {"discover", "--scenario", "a", "--live"},
                                             {"discover", "--sysfs", "/sys"},
                                             {"discover", "--trace", "--format", "json"},
                                             {"discover", "--polls", "3"},
                                             {"monitor", "--polls", "0"},
                                             {"monitor", "--polls", "-1"},
                                             {"monitor", "--interval", "-1"},
                                             {"monitor", "--interval", "soon"},
                                             {"discover", "--global-number", "4294967296"},
                                             {"check", "--live"}};
    const ProgramState state;
    for (const auto& arguments : rows) {
        const ProgramResult result = state.run(arguments);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err, "");
    }
}

TEST(Usage, helpAndVersionGoToStandardOutput)
{
    const ProgramState state;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                      {"discover", "--help"},
                                                      {"monitor", "--help"},
                                                      {"check", "--help"}}) {
        const ProgramResult result = state.run(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_THAT(result.out, HasSubstr("Exit status: 0 done"));
        EXPECT_EQ(result.err, "");
    }
    EXPECT_THAT(state.run({"--version"}).out, testing::MatchesRegex("zarnekctl [0-9.]+\n"));
}

TEST(Check, tellsFindingsAndWhetherMonitoringCouldWork)
{
    const ProgramState state;
    const ProgramResult clean = state.run({"check"});
    EXPECT_EQ(clean.status, 0);
    EXPECT_THAT(clean.out, HasSubstr("nothing wrong"));

    const std::string mapping = state.folder.read(state.config("MarvelAlertMapping.ini"));
    state.folder.write(state.config("MarvelAlertMapping.ini"), "[Other]\n" + mapping);
    const ProgramResult warned = state.run({"check"});
    EXPECT_EQ(warned.status, 0);
    EXPECT_THAT(warned.out, HasSubstr("MarvelAlertMapping.ini:1: warning: nothing reads a section"));

    state.folder.write(state.config("MarvelAlertMapping.ini"), mapping + "\n\t\n");
    for (const char* command : {"check", "monitor"}) {
        const ProgramResult refused = state.run({command});
        EXPECT_EQ(refused.status, 3);
        EXPECT_THAT(refused.out + refused.err,
                    testing::ContainsRegex("MarvelAlertMapping.ini:[0-9]+: error: a line of"));
    }
    // The line stands behind all that discovery reads.
    EXPECT_EQ(state.run({"discover", "--scenario", "small-server"}).status, 0);

    // A folder that is named is looked at as it is.
    const ProgramResult empty = state.run({"check", "--config", state.folder.path("nowhere")});
    EXPECT_EQ(empty.status, 3);
    EXPECT_THAT(empty.out, HasSubstr("nowhere/private.ini:1: error: the file cannot be read"));
}
