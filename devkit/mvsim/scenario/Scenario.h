// A scenario as read from its file: complete adapter states instead of changes, so that playing it cannot
// fail.
#ifndef ZARNEK_DEVKIT_MVSIM_SCENARIO_H
#define ZARNEK_DEVKIT_MVSIM_SCENARIO_H

#include "mvsim/model/CallRules.h"
#include "mvsim/model/StorageModel.h"

#include <cstdint>
#include <optional>
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
    std::optional<Adapter> model; // from then on, all of it; none where nothing of it changes
    CallRules rules;
    std::vector<PendingEvent> events;
};

struct Scenario {
    std::uint32_t sequence = 0;
    CallRules vendorRules;
    std::vector<ScenarioAdapter> adapters;
    std::vector<TimelineStep> timeline; // by ascending poll
};

} // namespace mvsim

#endif
