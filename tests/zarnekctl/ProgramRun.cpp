#include "zarnekctl/ProgramRun.h"

#include <csignal>
#include <fcntl.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

std::vector<nlohmann::json> ProgramResult::records() const
{
    std::vector<nlohmann::json> records;
    std::istringstream in(out);
    for (std::string line; std::getline(in, line);)
        records.push_back(nlohmann::json::parse(line));
    return records;
}

RunningProgram::RunningProgram(const std::vector<std::string>& arguments, const std::string& stateHome)
{
    std::vector<std::string> words{ZARNEKCTL_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
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
    setenv("XDG_STATE_HOME", stateHome.c_str(), 1);
    setenv("LC_ALL", "C", 1);
    setenv("LSAN_OPTIONS",
           "suppressions=" ZARNEK_SOURCE_DIR "/tests/zarnekctl/leaks_by_design.supp:print_suppressions=0", 1);
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
    for (int attempt = 0; attempt < 6000; ++attempt) {
        if (m_folder.read("out").find(text) != std::string::npos)
            return true;
        std::this_thread::sleep_for(5ms);
    }
    return false;
}

void RunningProgram::signal(int number) const
{
    kill(m_process, number);
}

ProgramResult RunningProgram::finish()
{
    const auto start = std::chrono::steady_clock::now();
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    ProgramResult result;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.out = m_folder.read("out");
    result.err = m_folder.read("err");
    result.duration =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    return result;
}

ProgramResult runProgram(const std::vector<std::string>& arguments, const std::string& stateHome)
{
    return RunningProgram(arguments, stateHome).finish();
}
