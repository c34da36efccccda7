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

// Reads one step on top of what the steps before it have made of the adapter, and changes that.
void readStep(StrictObject& object, Adapter& model, TimelineStep& step)
{
    if (const Json* controller = object.find("controller")) {
        StrictObject changes(*controller, object.place("controller"));
        readAdapter(changes, model);
        changes.finish();
    }
    const bool devices = changeDevices(object, model);
    step.rules = readRules(object, false);
    object.each("events", [&step](StrictObject& element) {
        const PendingEvent event = readEvent(element);
        const std::uint16_t repeats = element.number<std::uint16_t>("repeat", 1).value_or(1);
        element.finish();
        step.events.insert(step.events.end(), repeats, event);
    });
    object.finish();
    if (object.find("controller") != nullptr || devices)
        step.model = model;
}

std::vector<TimelineStep> readTimeline(StrictObject& object, const std::vector<ScenarioAdapter>& adapters)
{
    std::vector<std::pair<TimelineStep, StrictObject>> steps;
    object.each("timeline", [&](StrictObject& element) {
        TimelineStep step;
        step.poll = element.needed("poll", element.number<std::uint32_t>("poll", 1));
        if (step.poll > LAST_POLL)
            throw FormatError(element.place("poll"), "a poll up to " + std::to_string(LAST_POLL),
                              std::to_string(step.poll));
        step.adapter = element.number<std::uint32_t>("adapter").value_or(0);
        if (step.adapter >= adapters.size())
            throw FormatError(element.place("adapter"), "the index of an adapter",
                              std::to_string(step.adapter));
        steps.emplace_back(step, element);
    });
    std::stable_sort(steps.begin(), steps.end(),
                     [](const auto& left, const auto& right) { return left.first.poll < right.first.poll; });

    std::vector<Adapter> states;
    states.reserve(adapters.size());
    for (const ScenarioAdapter& adapter : adapters)
        states.push_back(adapter.model);
    std::vector<TimelineStep> timeline;
    for (auto& [step, element] : steps) {
        readStep(element, states[step.adapter], step);
        timeline.push_back(std::move(step));
    }
    return timeline;
}

} // namespace

Scenario readScenario(const Json& document)
{
    StrictObject object(document, "");
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
    object.each("adapters", [&scenario](StrictObject& adapter) {
        scenario.adapters.push_back(readWholeAdapter(adapter));
    });
    if (scenario.adapters.size() > MOST_ADAPTERS) {
        throw FormatError(object.place("adapters"), "at most " + std::to_string(MOST_ADAPTERS) + " adapters",
                          std::to_string(scenario.adapters.size()));
    }
    scenario.timeline = readTimeline(object, scenario.adapters);
    object.finish();
    return scenario;
}

} // namespace mvsim
