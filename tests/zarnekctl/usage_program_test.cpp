// The program's promises about its command line, its configuration and its exit status.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <regex>
#include <sys/wait.h>

using testing::HasSubstr;

TEST(Usage, eachRunEndsAsItsRowSays)
{
    for (const auto& row : jsonLines(goldenText("runs"))) {
        SCOPED_TRACE(row.dump());
        const ProgramState state;
        std::filesystem::create_directories(state.folder.path("sys/block"));
        const auto filledIn = [&state](std::string text) {
            text = std::regex_replace(text, std::regex("GOLDEN/"), goldenFile(""));
            text = std::regex_replace(text, std::regex("QUEUE"), ZARNEK_QUEUE_LIBRARY);
            return std::regex_replace(text, std::regex("STATE\\b"), state.folder.path());
        };
        if (row.contains("library"))
            state.setConfig("private.ini", "[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=" +
                                               row.at("library").get<std::string>() + "\n");
        if (row.contains("mapping"))
            state.setMapping(row.at("mapping"));
        const auto words = [&row, &filledIn](const char* member) {
            Words all;
            for (const std::string word : row.value(member, nlohmann::json::array()))
                all.push_back(filledIn(word));
            return all;
        };
        const ProgramResult result = state.run(words("arguments"), words("environment"));
        EXPECT_EQ(result.status, row.value("status", 0));
        if (result.status == 2) {
            EXPECT_THAT(result.err, testing::ContainsRegex("^[^\n]+\nRun zarnekctl .*--help [^\n]+\n$"));
        }
        if (row.contains("golden")) {
            EXPECT_EQ(result.out, goldenText(row.at("golden")));
        }
        if (row.contains("objects")) {
            expectMembers(nlohmann::json::parse(result.out).at("objects"), row.at("objects"));
        }
        // What a row does not name says nothing.
        for (const auto& [stream, text] : {std::pair("out", result.out), std::pair("err", result.err)}) {
            EXPECT_EQ(text.empty(), !row.contains(stream)) << text;
            EXPECT_THAT(text, HasSubstr(filledIn(row.value(stream, ""))));
        }
    }
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
