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

TEST(Discover, logGoesToStandardErrorAndChangesNoResult)
{
    const ProgramState state;
    const ProgramResult quiet = state.run({"discover", "--scenario", "small-server"});
    const ProgramResult loud = state.run({"discover", "--scenario", "small-server", "--log"});
    EXPECT_EQ(quiet.out, loud.out);
    EXPECT_THAT(loud.err, HasSubstr("ZARNEK:CCommandHandler:navigator(): ZARNEK Discovery is successful."));
}
