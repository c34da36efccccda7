// What the files themselves can do to a read or a write of an INI.
#include "common/TempFolder.h"
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace
{

// Does something in a process of its own and kills that at its nth stop; each system call is one as it begins
// and one as it ends. False when there were not so many.
bool killedAt(unsigned int stop, const std::function<void()>& act)
{
    const pid_t process = fork();
    if (process == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        act();
        _exit(0);
    }
    int status = 0;
    while (waitpid(process, &status, 0) == process && WIFSTOPPED(status))
        if (stop-- != 0)
            ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
        else
            kill(process, SIGKILL);
    return WIFSIGNALED(status);
}

TEST(Files, AWriterKilledAtAnyMomentLeavesTheOldFileOrTheNewOne)
{
    const TempFolder folder;
    const auto write = [&](const char* value) {
        return SMWriteINIPathFileValue("A", "k", 0, value, 2, folder.path("f.ini").c_str(), 0);
    };
    const auto content = [](const std::string& value) { return "[A]\nk=" + value + "\n[B]\nk=0\n"; };
    unsigned int old = 0;
    unsigned int kills = 0;
    for (bool isKilled = true; isKilled; kills += isKilled ? 1 : 0) {
        folder.write("f.ini", content("1"));
        isKilled = killedAt(kills, [&] { write("2"); });
        old += old == kills && folder.read("f.ini") == content("1") ? 1 : 0;
        EXPECT_EQ(folder.read("f.ini"), content(old > kills ? "1" : "2")) << "killed at stop " << kills;
        EXPECT_EQ(write("3"), 0) << "what was left behind hinders";
        EXPECT_EQ(folder.read("f.ini"), content("3"));
    }
    std::cout << "figures: " << kills << " kills of a writer, " << old
              << " of them ahead of the replacement\n";
    EXPECT_GT(old, 10U);
}

TEST(Files, AWritePassesOverWhatAFormerProcessOfTheSameIdLeftBehind)
{
    constexpr unsigned int LEFT = 300;
    const TempFolder folder;
    for (unsigned int count = 1; count <= LEFT; ++count)
        folder.write(".f.ini." + std::to_string(getpid()) + '-' + std::to_string(count) + ".tmp", "other");
    EXPECT_EQ(SMWriteINIPathFileValue("A", "k", 0, "1", 2, folder.path("f.ini").c_str(), 0), 0);
    EXPECT_EQ(folder.read("f.ini"), "[A]\nk=1\n");
    EXPECT_EQ(folder.entries(), LEFT + 1) << "what this process did not make stays, what it made is gone";
}

TEST(Files, AFileIsReadWholeOrNotAtAll)
{
    const TempFolder folder;
    const std::string file = folder.path("f.ini");
    morlan_set_private_ini(file.c_str());
    const std::string text = "[A]\nk=1\n";
    constexpr std::uintmax_t MOST = 1024 * 1024;
    for (const std::uintmax_t size : {MOST, MOST + 1, 3072 * MOST}) {
        folder.write("f.ini", text + ";\n");
        std::filesystem::resize_file(file, size);
        char value[8] = {};
        unsigned int room = sizeof value;
        EXPECT_EQ(SSGetPrivateIniValue("A", "k", value, &room) == 0, size <= MOST) << size;
        EXPECT_EQ(SMWriteINIPathFileValue("A", "k", 0, "1", 2, file.c_str(), 0) == 0, size <= MOST) << size;
        EXPECT_EQ(std::filesystem::file_size(file), size) << "what was not read is not replaced";
    }
    morlan_reset();
}

} // namespace
