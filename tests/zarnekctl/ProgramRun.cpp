#include "zarnekctl/ProgramRun.h"

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

Words joined(Words words, const Words& more)
{
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

RunningProgram::RunningProgram(Words words, Words environment)
{
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    const std::string out = m_folder.path("out");
    const std::string err = m_folder.path("err");
    m_process = fork();
    if (m_process != 0)
        return;
    const auto redirect = [](const std::string& file, int to) {
        return dup2(open(file.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0600), to) == to;
    };
    for (std::string& variable : environment)
        putenv(variable.data());
    if (redirect(out, STDOUT_FILENO) && redirect(err, STDERR_FILENO))
        execv(argv[0], argv.data());
    _exit(127);
}

RunningProgram::~RunningProgram()
{
    if (m_process <= 0)
        return;
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
}

bool RunningProgram::waitForOutput(const std::string& text) const
{
    const auto end = Clock::now() + 30s;
    while (m_folder.read("out").find(text) == std::string::npos) {
        if (Clock::now() > end)
            return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

ProgramResult RunningProgram::finish()
{
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, m_folder.read("out"), m_folder.read("err")};
}

const TempFolder& ProgramState::installation()
{
    static const TempFolder prefix;
    static const std::string command =
        "cd " ZARNEKCTL_BUILD
        "; cp -rL --parents bin/zarnekctl lib/libmorlan.so.9 lib/libmvsim.so lib/libpld* share " +
        prefix.path() + " && chmod -R go-w " + prefix.path();
    static const int status = std::system(command.c_str());
    EXPECT_EQ(status, 0);
    umask(022); // the user's files are like that too
    return prefix;
}

RunningProgram ProgramState::start(const Words& arguments, const Words& environment) const
{
    const Words own{"XDG_STATE_HOME=" + folder.path("state"), "LC_ALL=C",
                    "LSAN_OPTIONS=suppressions=" ZARNEK_SOURCE_DIR
                    "/tests/zarnekctl/leaks_by_design.supp:print_suppressions=0"};
    return {joined({installation().path("bin/zarnekctl")}, arguments), joined(own, environment)};
}

void ProgramState::setConfig(const std::string& file, const std::string& content) const
{
    std::filesystem::create_directories(folder.path("state/zarnek"));
    folder.write("state/zarnek/" + file, content);
}
