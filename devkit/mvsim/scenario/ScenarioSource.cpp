#include "mvsim/scenario/ScenarioSource.h"

#include <algorithm>
#include <utility>

namespace mvsim
{

namespace
{

constexpr unsigned int FIRST_POLL = 1; // rules that stand from the start run from here

} // namespace

ScenarioSource::ScenarioSource(Scenario scenario) : m_scenario(std::move(scenario)) {}

std::vector<PlayedAdapter> ScenarioSource::adapters()
{
    std::vector<PlayedAdapter> played;
    for (const ScenarioAdapter& adapter : m_scenario.adapters) {
        PlayedAdapter start;
        start.model = adapter.model;
        start.rules.merge(adapter.rules, FIRST_POLL);
        played.push_back(std::move(start));
    }
    return played;
}

void ScenarioSource::beginPoll(unsigned int index, PlayedAdapter& adapter)
{
    for (const TimelineStep& step : m_scenario.timeline) {
        if (step.adapter == index && step.poll == adapter.polls) {
            if (step.model)
                adapter.model = *step.model;
            adapter.rules.merge(step.rules, step.poll);
            adapter.pending.insert(adapter.pending.end(), step.events.begin(), step.events.end());
        }
    }
}

unsigned int ScenarioSource::lastPoll() const
{
    unsigned int last = 0;
    if (!m_scenario.timeline.empty())
        for (const ScenarioAdapter& adapter : m_scenario.adapters)
            last = std::max(last, adapter.rules.lastEnd(FIRST_POLL));
    for (const TimelineStep& step : m_scenario.timeline)
        last = std::max({last, step.poll, step.rules.lastEnd(step.poll)});
    return last;
}

} // namespace mvsim
