// zarnekctl run as its users run it: as a program, with a state folder of its own.
#ifndef ZARNEK_TESTS_ZARNEKCTL_PROGRAM_RUN_H
#define ZARNEK_TESTS_ZARNEKCTL_PROGRAM_RUN_H

#include "common/TempFolder.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

struct ProgramResult {
    int status = -1; // exit status; -1 when a signal ended it
    std::string out;
    std::string err;
    std::chrono::milliseconds duration{};

    // The output as one JSON object for each line.
    std::vector<nlohmann::json> records() const;
};

// A running program. Its output goes to files in a folder that lives as long as this.
class RunningProgram
{
  public:
    // `stateHome` is its XDG_STATE_HOME.
    RunningProgram(const std::vector<std::string>& arguments, const std::string& stateHome);
    ~RunningProgram(); // ends it if it still runs
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    // Waits until its standard output holds the text; false when it does not come in time.
    bool waitForOutput(const std::string& text) const;
    void signal(int number) const;
    // Waits for its end; the duration is that of this call.
    ProgramResult finish();

  private:
    TempFolder m_folder;
    pid_t m_process = -1;
};

ProgramResult runProgram(const std::vector<std::string>& arguments, const std::string& stateHome);

// A test with a state folder of its own.
struct ProgramState {
    TempFolder folder;

    ProgramResult run(const std::vector<std::string>& arguments) const
    {
        return runProgram(arguments, folder.path("state"));
    }
    // A file of the user's configuration, there from the first run on.
    std::string config(const std::string& name) const { return "state/zarnek/" + name; }
};

// A shipped scenario, changed.
template <typename Change>
std::string changedScenario(const TempFolder& folder, const std::string& name, Change change)
{
    std::ifstream file(std::string(ZARNEK_SOURCE_DIR) + "/scenarios/" + name);
    nlohmann::json scenario = nlohmann::json::parse(file);
    change(scenario);
    folder.write("changed.json", scenario.dump());
    return folder.path("changed.json");
}

#endif
