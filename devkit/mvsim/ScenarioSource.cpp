#include "mvsim/ScenarioSource.h"

#include <algorithm>
#include <utility>

namespace mvsim
{

namespace
{

constexpr unsigned int kFirstPoll = 1; // rules that stand from the start run from here

} // namespace

ScenarioSource::ScenarioSource(Scenario scenario) : scenario_(std::move(scenario)) {}

std::vector<PlayedAdapter> ScenarioSource::adapters()
{
    std::vector<PlayedAdapter> played;
    for (const ScenarioAdapter& adapter : scenario_.adapters) {
        PlayedAdapter start;
        start.model = adapter.model;
        start.rules.merge(adapter.rules, kFirstPoll);
        played.push_back(std::move(start));
    }
    return played;
}

void ScenarioSource::beginPoll(unsigned int index, PlayedAdapter& adapter)
{
    for (const TimelineStep& step : scenario_.timeline) {
        if (step.adapter == index && step.poll == adapter.polls) {
            adapter.model = step.model;
            adapter.rules.merge(step.rules, step.poll);
            adapter.pending.insert(adapter.pending.end(), step.events.begin(), step.events.end());
        }
    }
}

unsigned int ScenarioSource::lastPoll() const
{
    unsigned int last = 0;
    if (!scenario_.timeline.empty()) {
        for (const ScenarioAdapter& adapter : scenario_.adapters) {
            last = std::max(last, adapter.rules.lastEnd(kFirstPoll));
        }
    }
    for (const TimelineStep& step : scenario_.timeline) {
        last = std::max({last, step.poll, step.rules.lastEnd(step.poll)});
    }
    return last;
}

} // namespace mvsim
