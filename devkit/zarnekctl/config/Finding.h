// Something wrong or surprising in a configuration file.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_FINDING_H
#define ZARNEK_DEVKIT_ZARNEKCTL_FINDING_H

#include <cstddef>
#include <string>
#include <vector>

namespace zarnekctl
{

// What becomes of a run with it.
enum class Effect {
    Surprise,     // it works, but not as the line seems to say
    Exposure,     // others than who runs it have a say in what is loaded
    Repetition,   // the next run tells the same alerts again
    NoMonitoring, // no alert would arrive, or the event thread would end the process
    NoDiscovery   // not even discovery would work
};

struct Finding {
    std::size_t line = 1; // from 1; 0 for the file as a whole
    Effect effect = Effect::Surprise;
    std::string what;
    std::string remedy;

    // `file:line: error|warning: what; remedy`, without the line where there is none
    std::string text(const std::string& file) const;
};

using Findings = std::vector<Finding>;

// The remedy for a missing file.
constexpr const char* PUT_THE_FILE_THERE =
    "run `zarnekctl discover` with this folder once, which puts it there";

// "[Adapter]", as a remedy has it.
std::string inBrackets(const std::string& section);

// By line, in the order found where the line is the same.
void sortByLine(Findings& findings);
// The worst effect; Surprise when there is none.
Effect worstOf(const Findings& findings);

} // namespace zarnekctl

#endif
