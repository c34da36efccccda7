#include "mvsim/scenario/ScenarioReader.h"

#include "mvsim/scenario/DeviceLists.h"
#include "mvsim/scenario/DeviceReader.h"
#include "mvsim/scenario/RulesReader.h"

#include <algorithm>
#include <utility>

namespace mvsim
{

namespace
{

constexpr std::uint32_t LAST_POLL = 1000000000; // far from where their count wraps

constexpr unsigned int FORMAT = 1;
constexpr std::size_t MOST_ADAPTERS = 255; // the count is read from one byte
constexpr std::size_t MOST_DEVICES = 250000;

ScenarioAdapter readWholeAdapter(StrictObject& object)
{
    ScenarioAdapter adapter;
    readAdapter(object, adapter.model);
    object.needed("slot", object.number<std::uint32_t>("slot"));
    object.needed("maxBufferKB", object.number<std::uint16_t>("maxBufferKB"));
    adapter.rules = readRules(object, false);
    readDevices(object, adapter.model);
    object.finish();
    return adapter;
}

// Sorts the steps by their polls, and makes each of them on a copy of its adapter.
void readTimeline(StrictObject& object, Scenario& scenario)
{
    const Json& changes = object.list("timeline");
    object.each("timeline", [&scenario](StrictObject& element) {
        TimelineStep step;
        step.poll = element.needed("poll", element.number<std::uint32_t>("poll", 1));
        if (step.poll > LAST_POLL)
            throw FormatError(element.place("poll"), "a poll up to " + std::to_string(LAST_POLL),
                              std::to_string(step.poll));
        step.adapter = element.number<std::uint32_t>("adapter").value_or(0);
        if (step.adapter >= scenario.adapters.size())
            throw FormatError(element.place("adapter"), "the index of an adapter",
                              std::to_string(step.adapter));
        step.change = scenario.timeline.size();
        scenario.timeline.push_back(step);
    });
    std::stable_sort(
        scenario.timeline.begin(), scenario.timeline.end(),
        [](const TimelineStep& left, const TimelineStep& right) { return left.poll < right.poll; });

    std::vector<PlayedAdapter> states(scenario.adapters.size());
    std::transform(scenario.adapters.begin(), scenario.adapters.end(), states.begin(),
                   [](const ScenarioAdapter& adapter) {
                       return PlayedAdapter{adapter.model, {}, 0, {}};
                   });
    std::size_t eventsLeft = MOST_EVENTS;
    for (const TimelineStep& step : scenario.timeline) {
        PlayedAdapter& state = states[step.adapter];
        state.polls = step.poll;
        const CallRules rules = makeStep(
            {changes[step.change], placeBelow(object.place("timeline"), step.change)}, state, eventsLeft);
        state.pending.clear();
        scenario.lastPoll = std::max({scenario.lastPoll, step.poll, rules.lastEnd(step.poll)});
    }
}

} // namespace

CallRules makeStep(StrictObject step, PlayedAdapter& adapter, std::size_t& eventsLeft)
{
    for (const char* key : {"poll", "adapter"})
        step.find(key); // which step it is, the caller knows
    if (const Json* controller = step.find("controller")) {
        StrictObject changes(*controller, step.place("controller"));
        readAdapter(changes, adapter.model);
        changes.finish();
    }
    changeDevices(step, adapter.model);
    const CallRules rules = readRules(step, false);
    adapter.rules.merge(rules, adapter.polls);
    step.each("events", [&](StrictObject& element) {
        const PendingEvent event = readEvent(element);
        const std::uint16_t repeats = element.number<std::uint16_t>("repeat", 1).value_or(1);
        element.finish();
        if (repeats > eventsLeft)
            throw FormatError(element.place(),
                              "at most " + std::to_string(MOST_EVENTS) + " events in the timeline", "more");
        eventsLeft -= repeats;
        adapter.pending.insert(adapter.pending.end(), repeats, event);
    });
    step.finish();
    return rules;
}

Scenario readScenario(Document document)
{
    StrictObject object(document.root, "");
    const Json* format = object.find("format");
    if (format == nullptr || *format != FORMAT) {
        throw FormatError(object.place("format"), std::to_string(FORMAT),
                          format ? describe(*format) : "nothing");
    }
    Scenario scenario;
    constexpr std::size_t ANY_LENGTH = std::numeric_limits<std::size_t>::max();
    object.needed("name", object.bytes("name", ANY_LENGTH));
    object.bytes("description", ANY_LENGTH);
    scenario.sequence = object.number<std::uint32_t>("sequence").value_or(0);
    scenario.vendorRules = readRules(object, true);
    if (!object.has("adapters"))
        throw FormatError(object.place("adapters"), "a list", "nothing");
    std::size_t devices = 0;
    object.each("adapters", [&](StrictObject& adapter) {
        scenario.adapters.push_back(readWholeAdapter(adapter));
        const Adapter& model = scenario.adapters.back().model;
        devices += model.disks.size() + model.virtualDisks.size();
        if (devices > MOST_DEVICES)
            throw FormatError(adapter.place(),
                              "at most " + std::to_string(MOST_DEVICES) + " devices on all adapters",
                              std::to_string(devices));
    });
    if (scenario.adapters.size() > MOST_ADAPTERS) {
        throw FormatError(object.place("adapters"), "at most " + std::to_string(MOST_ADAPTERS) + " adapters",
                          std::to_string(scenario.adapters.size()));
    }
    readTimeline(object, scenario);
    object.finish();
    if (!scenario.timeline.empty())
        scenario.changes = Document(std::move(document.root["timeline"]));
    return scenario;
}

} // namespace mvsim
