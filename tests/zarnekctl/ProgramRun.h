// zarnekctl run as its users run it: as a program, with a state folder of its own.
#ifndef ZARNEK_TESTS_ZARNEKCTL_PROGRAMRUN_H
#define ZARNEK_TESTS_ZARNEKCTL_PROGRAMRUN_H

#include "common/TempFolder.h"
#include "zarnekctl/Golden.h"

#include <csignal>
#include <string>
#include <sys/types.h>
#include <vector>

using Words = std::vector<std::string>;
Words joined(Words words, const Words& more);

struct ProgramResult {
    int status = -1; // exit status; -1 when a signal ended it
    std::string out;
    std::string err;

    std::vector<nlohmann::json> records() const { return jsonLines(out); }
};

// A running program. Its output goes to files in a folder that lives as long as this.
class RunningProgram
{
  public:
    // `words` are the program's file and its arguments, `environment` is NAME=VALUE; a bare NAME takes the
    // variable away.
    RunningProgram(Words words, Words environment);
    ~RunningProgram(); // ends it if it still runs
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    // Waits until its standard output holds the text; false when it does not come in time.
    bool waitForOutput(const std::string& text) const;
    void signal(int number) const { kill(m_process, number); }
    // Waits for its end.
    ProgramResult finish();

  private:
    TempFolder m_folder;
    pid_t m_process = -1;
};

// A user with a folder of his own.
struct ProgramState {
    TempFolder folder;

    ProgramState() { installation(); }
    // The program with its libraries, where nobody else can write: the tree may stand anywhere.
    static const TempFolder& installation();
    RunningProgram start(const Words& arguments, const Words& environment = {}) const;
    ProgramResult run(const Words& arguments, const Words& environment = {}) const
    {
        return start(arguments, environment).finish();
    }
    // The alert mapping file of the user's configuration, there from the first run on.
    std::string mapping() const { return folder.read("state/zarnek/MarvelAlertMapping.ini"); }
    void setMapping(const std::string& content) const { setConfig("MarvelAlertMapping.ini", content); }
    void setConfig(const std::string& file, const std::string& content) const;
};

#endif
