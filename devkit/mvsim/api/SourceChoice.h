// Makes the sources that the control interface and the environment name.
#ifndef ZARNEK_DEVKIT_MVSIM_SOURCECHOICE_H
#define ZARNEK_DEVKIT_MVSIM_SOURCECHOICE_H

#include "mvsim/model/ISource.h"

#include <memory>
#include <string>

namespace mvsim
{

// Both throw a std::exception with a one-line text when there is nothing that could be played.
std::unique_ptr<ISource> scenarioSource(const std::string& file);
// An empty state file stands for none.
std::unique_ptr<ISource> liveSource(const std::string& sysfsRoot, const std::string& stateFile);

// What MVSIM_SCENARIO or MVSIM_LIVE names; null without them. An error goes to standard error, and the result
// is null.
std::unique_ptr<ISource> environmentSource();

} // namespace mvsim

#endif
