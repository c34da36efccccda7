// Every call of support library and data engine fails at every place where the plug-in makes it, once and for
// good; only a stop of a thread fails in a test of its own.
#include "system/Engine.h"

#include "common/LeaksByDesign.h"

#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <sdo.h>

#include <gtest/gtest.h>

#include <array>
#include <optional>

namespace
{

using FailCall = int (*)(const char*, unsigned int, unsigned int, int);
using CountCalls = unsigned int (*)(const char*);

struct FaultCase {
    const char* call;
    FailCall fail;
    CountCalls count;
    bool givesBack;         // its failure leaks by its own nature
    bool dropsLibrary;      // and so does that of a library that sees no controller
    bool losesNotification; // an alert that refuses the object of its notification leaves it to nobody
};

void PrintTo(const FaultCase& fault, std::ostream* stream)
{
    *stream << fault.call;
}

class FaultTest : public testing::TestWithParam<FaultCase>
{
  protected:
    // The whole life of the plug-in. What it may not do is crash, hang, or leave anything behind.
    static void live(Engine& engine)
    {
        engine.loadPlugin();
        EXPECT_LE(engine.send(ZARNEK_CMD_INITIALIZE), 1U);
        engine.discover(0);
        EXPECT_EQ(engine.monitor(), 0U);
        EXPECT_EQ(engine.send(ZARNEK_CMD_STOP_MONITORING), 0U);
        EXPECT_EQ(engine.send(ZARNEK_CMD_TERMINATE), 0U);
        engine.unloadPlugin();
    }
};

TEST_P(FaultTest, LeavesNothingBehindAndTheNextRunWorks)
{
    const FaultCase& fault = GetParam();
    std::optional<LeaksByDesign> leaks;
    if (fault.givesBack || fault.dropsLibrary)
        leaks.emplace();
    const std::string quiet = TempFolder::readFile(ZARNEK_SOURCE_DIR "/scenarios/small-server.json");
    const std::string alerting =
        quiet.substr(0, quiet.rfind('}')) +
        R"(, "timeline": [{"poll": 1, "events": [{"code": "diskFailed", "device": 0}]}]})";
    for (const auto& [howMany, alerts] : {std::pair(1U, false), {0U, false}, {1U, true}, {0U, true}}) {
        // The event thread's leaks would not be known as such.
        if (alerts && (fault.givesBack || (fault.losesNotification && LeaksByDesign::WATCHED)))
            continue;
        for (unsigned int nth = 1;; ++nth) {
            SCOPED_TRACE(std::string(howMany == 1 ? "once" : "from then on") + ", at call " +
                         std::to_string(nth) + (alerts ? ", with an alert" : ""));
            Engine engine;
            engine.loadScenarioText(alerts ? alerting : quiet);
            const auto held = [] {
                return std::array{morlan_live_sdo_objects(), morlan_live_strings(), ral_live_lists()};
            };
            const auto before = held();
            ASSERT_EQ(fault.fail(fault.call, nth, howMany, 1), 0);
            live(engine);
            const bool reached = fault.count(fault.call) >= nth;
            morlan_clear_faults();
            ral_clear_faults();
            ral_reset();
            auto after = held();
            if (fault.losesNotification && alerts && after[0] == before[0] + 1)
                --after[0]; // there is one alert
            EXPECT_TRUE(after == before || fault.givesBack);
            EXPECT_EQ(morlan_running_threads(), 0U);
            if (HasFailure())
                return;
            if (!reached) {
                EXPECT_EQ(engine.objects(SDO_OBJTYPE_PHYSICAL_DISK), 0U);
                live(engine);
                EXPECT_EQ(engine.objects(SDO_OBJTYPE_PHYSICAL_DISK), 2U);
                break;
            }
        }
    }
}

FaultCase morlan(const char* call, bool givesBack = false, bool dropsLibrary = false,
                 bool losesNotification = false)
{
    return {call, morlan_fail_call, morlan_call_count, givesBack, dropsLibrary, losesNotification};
}
FaultCase ral(const char* call, bool givesBack = false)
{
    return {call, ral_fail_call, ral_call_count, givesBack, false, false};
}
const FaultCase FAULTS[] = {
    morlan("SMMutexCreate"),
    morlan("SMMutexLock"),
    morlan("SMMutexUnLock"),
    morlan("SMMutexDestroy", true),
    morlan("SMThreadStart"),
    morlan("SMLibLoad"),
    morlan("SMLibUnLoad"),
    morlan("sm_create"),
    morlan("GetIniFilePath"),
    morlan("SSGetPrivateIniValue", false, true),
    morlan("SMWriteINIPathFileValue"),
    morlan("SMSDOConfigAlloc", false, false, true),
    morlan("SMSDOConfigFree", true),
    morlan("SMSDOConfigClone"),
    morlan("SMSDOConfigAddData", false, false, true),
    morlan("SMSDOConfigGetDataByID"),
    ral("RalInsertObject"),
    ral("RalLinkObjects"),
    ral("RalListAssociatedObjects"),
    ral("RalListFree", true),
    ral("RalSendNotification"),
};
INSTANTIATE_TEST_SUITE_P(Calls, FaultTest, testing::ValuesIn(FAULTS),
                         [](const auto& instance) { return std::string(instance.param.call); });

class StopFaultTest : public testing::Test
{
  protected:
    Engine m_engine;
};

TEST_F(StopFaultTest, AThreadThatOutlivesItsStopTouchesNothing)
{
    m_engine.loadScenario(ZARNEK_SOURCE_DIR "/scenarios/small-server.json");
    m_engine.loadPlugin();
    ASSERT_EQ(m_engine.send(ZARNEK_CMD_INITIALIZE), 0U);
    m_engine.discover(0);
    ASSERT_EQ(m_engine.monitor(), 0U);
    // No stop works: the subject is deleted under the sleeping thread, which later wakes and leaves.
    morlan_fail_call("SMThreadStop", 1, 0, 7);
    EXPECT_EQ(m_engine.send(ZARNEK_CMD_STOP_MONITORING), 0U);
    EXPECT_TRUE(m_engine.logged("ZARNEK:Thread::stopThread(): Error code (During stopping the Thread) = 7"));
    EXPECT_EQ(morlan_running_threads(), 1U);
    wakeSleeper();
    EXPECT_EQ(morlan_wait_threads(5000), 0);
    EXPECT_EQ(m_engine.send(ZARNEK_CMD_TERMINATE), 0U);
}

} // namespace
