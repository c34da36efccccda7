// The plug-in over a long time, and its two threads at once.
#include "common/LongForm.h"
#include "system/Engine.h"

#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include <thread>

using nlohmann::json;

namespace
{

const json SCENARIO =
    json::parse(TempFolder::readFile(ZARNEK_SOURCE_DIR "/tests/system/scenarios/all-alerts.json"));
const json EVENTS = SCENARIO["timeline"][1]["events"]; // of all kinds; two of them become no alert

std::string withTimeline(const json& timeline)
{
    json scenario = SCENARIO;
    scenario["timeline"] = timeline;
    return scenario.dump();
}

struct Footprint {
    std::vector<std::size_t> held; // open files, and what the stand-ins hold
    long heap;                     // bytes in use
    long resident;                 // KiB
};

Footprint footprint()
{
    const auto files = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return {{static_cast<std::size_t>(files), morlan_live_sdo_objects(), morlan_live_strings(),
             morlan_live_mutexes(), ral_live_lists(), morlan_running_threads()},
            static_cast<long>(mallinfo2().uordblks),
            pages * (sysconf(_SC_PAGESIZE) / 1024)};
}

TEST(EnduranceTest, APollLeavesNothingBehind)
{
    constexpr unsigned int PER_POLL = 4, KEPT = 1000, FIRST_TIMES = 4;
    const std::size_t polls = EVENTS.size();
    const std::size_t alerts = PER_POLL * (EVENTS.size() - 2);
    json timeline;
    for (std::size_t poll = 0; poll < polls; ++poll) {
        timeline.push_back({{"poll", poll + 1}});
        timeline[poll]["virtualDisks"] = {{{"id", 3}, {"status", poll % 2 == 0 ? "degraded" : "optimal"}}};
        for (std::size_t next = PER_POLL * poll; next < PER_POLL * (poll + 1); ++next)
            timeline[poll]["events"].push_back(EVENTS[next % EVENTS.size()]);
    }
    Engine engine;
    // What remembers everything goes.
    morlan_set_debug_sink([](void*, const char*) {}, nullptr);
    ral_set_notification_sink(nullptr, nullptr);
    engine.loadScenarioText(withTimeline(json::array()));
    engine.loadPlugin();
    engine.send(ZARNEK_CMD_INITIALIZE);
    engine.discover(0);
    engine.monitor();
    const auto play = [&engine](const json& played, std::size_t count) {
        engine.loadScenarioText(withTimeline(played));
        while (count-- != 0)
            Engine::poll();
    };
    // So many objects without identity does the data engine keep; each of these events brings one.
    play({{{"poll", 1}, {"events", {{{"code", "diskFailed"}, {"device", 1}, {"repeat", KEPT}}}}}}, KEPT / 50);

    Footprint then{};
    const unsigned int times = rounds(45, 910);
    for (unsigned int time = 1; time <= times; ++time) {
        play(timeline, polls);
        ASSERT_EQ(ral_call_count("RalSendNotification"), KEPT + alerts * time);
        if (time == FIRST_TIMES)
            then = footprint();
    }
    const Footprint now = footprint();
    std::cout << "figures: " << times * polls << " polls, " << times * alerts << " alerts; from poll "
              << FIRST_TIMES * polls << " on the heap grew by " << now.heap - then.heap
              << " bytes, resident memory from " << then.resident << " to " << now.resident << " KiB\n";
    EXPECT_EQ(now.held, then.held);
#ifndef ZARNEK_SANITIZED // a sanitizer keeps what is freed
    EXPECT_LT(now.heap - then.heap, 16 * 1024);
    EXPECT_LT(now.resident - then.resident, 256);
#endif
    engine.send(ZARNEK_CMD_STOP_MONITORING);
    engine.send(ZARNEK_CMD_TERMINATE);
}

TEST(EnduranceTest, CommandsInTheMiddleOfABatchLoseNoAlert)
{
    const json step{{"poll", 1}, {"events", EVENTS}};
    const std::string scenario = withTimeline({step, step});
    const std::size_t alerts = 2 * (EVENTS.size() - 2);
    const unsigned int times = rounds(50, 1000);
    for (unsigned int time = 0; time < times && !testing::Test::HasFailure(); ++time) {
        SCOPED_TRACE("round " + std::to_string(time));
        Engine engine;
        engine.loadScenarioText(scenario);
        engine.loadPlugin();
        engine.send(ZARNEK_CMD_INITIALIZE);
        engine.discover(0);
        engine.send(ZARNEK_CMD_START_MONITORING);
        while (ral_call_count("RalSendNotification") < time % alerts)
            std::this_thread::yield();
        if (time % 3 != 0)
            engine.discover(0);
        engine.send(ZARNEK_CMD_STOP_MONITORING);
        engine.send(ZARNEK_CMD_TERMINATE);
        engine.unloadPlugin();
        EXPECT_EQ(engine.alerts().size(), alerts);
        EXPECT_NE(engine.readMapping().find("SequenceNumber=53\n"), std::string::npos);
        EXPECT_EQ(engine.links(), 1U);
    }
    std::cout << "figures: " << times << " rounds, " << times * alerts << " alerts\n";
}

} // namespace
