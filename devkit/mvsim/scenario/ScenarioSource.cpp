#include "mvsim/scenario/ScenarioSource.h"

#include "mvsim/scenario/ScenarioReader.h"

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
    const auto isDue = [index, &adapter](const TimelineStep& step) {
        return step.adapter == index && step.poll == adapter.polls;
    };
    if (std::none_of(m_scenario.timeline.begin(), m_scenario.timeline.end(), isDue))
        return;
    PlayedAdapter next = adapter; // for want of memory a step is not made, rather than in part
    std::size_t eventsLeft = MOST_EVENTS;
    for (const TimelineStep& step : m_scenario.timeline)
        if (isDue(step))
            makeStep({m_scenario.changes.root[step.change], ""}, next, eventsLeft);
    adapter = std::move(next);
}

unsigned int ScenarioSource::lastPoll() const
{
    unsigned int last = m_scenario.lastPoll;
    if (!m_scenario.timeline.empty())
        for (const ScenarioAdapter& adapter : m_scenario.adapters)
            last = std::max(last, adapter.rules.lastEnd(FIRST_POLL));
    return last;
}

} // namespace mvsim
