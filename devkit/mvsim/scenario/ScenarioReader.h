// Turns a scenario's JSON into the states that are played.
#ifndef ZARNEK_DEVKIT_MVSIM_SCENARIOREADER_H
#define ZARNEK_DEVKIT_MVSIM_SCENARIOREADER_H

#include "mvsim/scenario/Scenario.h"
#include "mvsim/scenario/StrictObject.h"

namespace mvsim
{

// Throws FormatError at the first thing that is not as it has to be.
Scenario readScenario(const Json& document);

} // namespace mvsim

#endif
