// A scenario as read from its file. The steps of its timeline are kept as they stand there: the states that
// they lead to may take a thousand times the room.
#ifndef ZARNEK_DEVKIT_MVSIM_SCENARIO_H
#define ZARNEK_DEVKIT_MVSIM_SCENARIO_H

#include "mvsim/model/CallRules.h"
#include "mvsim/model/StorageModel.h"
#include "mvsim/scenario/Document.h"

#include <cstdint>
#include <vector>

namespace mvsim
{

struct ScenarioAdapter {
    Adapter model;
    CallRules rules;
};

// What comes into force when an adapter's poll begins.
struct TimelineStep {
    unsigned int poll = 0;
    std::size_t adapter = 0;
    std::size_t change = 0; // index
};

struct Scenario {
    std::uint32_t sequence = 0;
    CallRules vendorRules;
    std::vector<ScenarioAdapter> adapters;
    Document changes;                   // the list of what the steps change
    std::vector<TimelineStep> timeline; // by ascending poll; each was tried in its turn, so that none fails
    unsigned int lastPoll = 0;          // at which a step is made, or a rule of one ends
};

} // namespace mvsim

#endif
