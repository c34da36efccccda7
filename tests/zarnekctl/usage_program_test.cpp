// The program's promises about its command line, its configuration and its exit status.
#include "zarnekctl/ProgramRun.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <regex>
#include <sys/wait.h>
#include <unistd.h>

using testing::HasSubstr;
namespace fs = std::filesystem;

TEST(Usage, eachRunEndsAsItsRowSays)
{
    for (const auto& row : jsonLines(goldenText("runs"))) {
        SCOPED_TRACE(row.dump());
        const ProgramState state;
        fs::create_directories(state.folder.path("sys/block"));
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

TEST(Road, whatOthersCanWriteIsNamedAndKeepsRootFromMonitoring)
{
    for (const auto& row : jsonLines(goldenText("road"))) {
        SCOPED_TRACE(row.dump());
        const ProgramState state;
        state.run({"check"}); // puts the configuration there
        fs::copy(state.installation().path("lib"), state.folder.path("lib"));
        const Words more{"--plugin", state.folder.path("lib/libpld_sm_zarnek.so")};
        const std::string early = state.folder.path("early"), late = state.folder.path("late");
        fs::create_directory(early);
        fs::create_directory(late);
        const auto path = [&](const char* member) { return state.folder.path(row.value(member, "")); };
        if (row.contains("moved"))
            fs::rename(path("moved"), path("to"));
        if (row.contains("linked"))
            fs::create_symlink(path("to"), path("moved"));
        if (row.contains("mode"))
            fs::permissions(path("item"), fs::perms(std::stoi(row.value("mode", ""), nullptr, 8)));
        if (row.contains("owner") && lchown(path("item").c_str(), row.at("owner"), row.at("group")) != 0)
            continue; // none but root gives files away
        const bool bars = geteuid() == 0 && row.contains("mode") && row.contains("what");
        const std::string vendorLibrary = state.folder.path("lib/libmvsim.so");
        if (bars && fs::exists(vendorLibrary))
            fs::resize_file(vendorLibrary, 0); // to open it would fail, and to open it is to run it
        const std::string line = path("item") + (bars ? ": error: " : ": warning: ") + row.value("what", "");
        for (const Words& command : {Words{"check"}, Words{"monitor", "--interval", "0"}}) {
            const auto result = state.run(joined(command, more), {"LD_LIBRARY_PATH=" + early + ':' + late});
            const std::string told = result.out + result.err;
            EXPECT_EQ(result.status, bars ? 3 : 0) << told;
            EXPECT_THAT(told, testing::Not(HasSubstr("cannot open")));
            EXPECT_THAT(told, HasSubstr(row.contains("what") ? line : ""));
            EXPECT_EQ(told.rfind("has a say"), row.contains("what") ? told.find("has a say") : told.npos);
        }
    }
}
