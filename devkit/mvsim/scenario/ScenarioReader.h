// Turns a scenario's JSON into what is played. Both throw FormatError at the first thing that is not as it
// has to be.
#ifndef ZARNEK_DEVKIT_MVSIM_SCENARIOREADER_H
#define ZARNEK_DEVKIT_MVSIM_SCENARIOREADER_H

#include "mvsim/model/ISource.h"
#include "mvsim/scenario/Scenario.h"
#include "mvsim/scenario/StrictObject.h"

namespace mvsim
{

Scenario readScenario(Document document);

constexpr std::size_t MOST_EVENTS = 1000000; // of all adapters, so that few words cannot take all memory

// Makes one step of the timeline, on top of what those before it have made of the adapter, whose `polls` is
// the poll of the step. `eventsLeft` is how many more may come, and counts down. Gives the step's rules,
// which are in force then.
CallRules makeStep(StrictObject step, PlayedAdapter& adapter, std::size_t& eventsLeft);

} // namespace mvsim

#endif
