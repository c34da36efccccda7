// Loads a scenario from its file.
#ifndef ZARNEK_DEVKIT_MVSIM_SCENARIOFILE_H
#define ZARNEK_DEVKIT_MVSIM_SCENARIOFILE_H

#include "mvsim/scenario/Scenario.h"

#include <string>

namespace mvsim
{

// On any error throws a std::runtime_error whose text is one line: the file, the place in it, what was
// expected and what was found. The place is a JSON pointer, or line:column where the text is no JSON.
Scenario loadScenarioFile(const std::string& file);

} // namespace mvsim

#endif
