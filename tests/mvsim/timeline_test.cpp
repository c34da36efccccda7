// What changes by polls, and how events get through.
#include "mvsim/SimTest.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

using TimelineTest = SimTest;

TEST_F(TimelineTest, StepsChangeDevicesAtTheirPoll)
{
    loadScenario(scenarioFile("steps.json"));
    poll();
    poll();
    const auto drive = list(&MV_LD_GetInfo).entry<_LD_Info>(0);
    EXPECT_EQ(drive.LDStatus, MV_DRIVE_DEGRADED);
    EXPECT_STREQ(drive.LDName, "DATA") << "what a step does not name stays";
    _Adapter_Config_V2 config{};
    EXPECT_EQ(MV_Adapter_GetConfig(0, nullptr, &config), 0U);
    EXPECT_EQ(config.RebuildRate, 9);
    poll();
    EXPECT_THAT(diskIds(), ElementsAre(2));
    EXPECT_EQ(diskStatus(1), std::nullopt);
    poll();
    EXPECT_THAT(diskIds(), ElementsAre(2, 3));
    poll();
    EXPECT_EQ(list(&MV_LD_GetInfo).returned, 0U);
    EXPECT_EQ(list(&MV_PD_GetConfig).entry<_HD_CONFIG>(0).SlotNumber, 0) << "the two have changed places";
    EXPECT_EQ(list(&MV_PD_GetConfig).entry<_HD_CONFIG>(1).SlotNumber, 1);
}

TEST_F(TimelineTest, EveryAdapterCountsItsOwnPollsAndTheSinkSeesAll)
{
    loadScenario(scenarioFile("two-adapters.json"));
    std::vector<std::string> seen;
    mvsim_set_event_sink(
        [](void* context, const mvsim_event* event) {
            // A sink may ask.
            static_cast<std::vector<std::string>*>(context)->push_back(
                std::to_string(event->sequence) + " of adapter " + std::to_string(event->adapter) +
                ", poll " + std::to_string(mvsim_polls()));
        },
        &seen);
    EXPECT_THAT(poll(1), IsEmpty());
    EXPECT_EQ(mvsim_polls(), 0U);
    EXPECT_THAT(poll(0), ElementsAre("11: 0/8 0"));
    EXPECT_THAT(diskIds(1), ElementsAre(4));
    EXPECT_THAT(poll(1, 1), ElementsAre("12: 2/7 3")) << "the numbers run over all adapters";
    EXPECT_THAT(diskIds(1), IsEmpty());
    EXPECT_EQ(seen.size(), 2U) << "not yet what waits";
    EXPECT_THAT(poll(1), ElementsAre("4294967295: 9/8 262"));
    EXPECT_THAT(seen, ElementsAre("11 of adapter 0, poll 1", "12 of adapter 1, poll 1",
                                  "4294967295 of adapter 1, poll 1"));
}

TEST_F(TimelineTest, EventsBeyondFiftyWait)
{
    loadScenario(scenarioFile("burst.json"));
    EXPECT_EQ(poll().size(), 50U);
    const auto second = poll();
    ASSERT_EQ(second.size(), 50U);
    EXPECT_EQ(second[19], "70: diskFailed 3") << "older events go first";
    EXPECT_EQ(second[20], "71: virtualDiskDegraded 1");
    EXPECT_EQ(poll().back(), "105: virtualDiskDegraded 1");
    EXPECT_THAT(poll(), IsEmpty());

    loadScenario(scenarioFile("burst.json"));
    EXPECT_EQ(poll(0, 7).size(), 7U) << "never more than the caller has room for";
    EXPECT_EQ(MV_EVT_FlushEvent(0), 0U);
    EXPECT_EQ(poll().size(), 35U) << "what waited is gone";
}

TEST_F(TimelineTest, RulesComeAndGo)
{
    loadScenario(scenarioFile("rules.json"));
    EXPECT_EQ(mvsim_last_poll(), 8U) << "the end of the last failure counts";
    poll();
    EXPECT_EQ(configStatus(), 9U);
    EXPECT_EQ(list(&MV_LD_GetConfig).status, 3U);

    _Event event{};
    unsigned int count = 77;
    for (const unsigned int failing : {2U, 3U}) {
        EXPECT_EQ(MV_EVT_GetEvent(0, 1, &count, &event), MV_ERR_RESCANING);
        EXPECT_EQ(mvsim_polls(), failing) << "a failed poll is one all the same";
        EXPECT_EQ(configStatus(), 0U);
        EXPECT_EQ(list(&MV_LD_GetConfig).status, 0U);
        EXPECT_THAT(diskIds(), IsEmpty());
    }
    EXPECT_EQ(count, 77U);
    EXPECT_THAT(poll(), ElementsAre("1: controllerWarning 0")) << "the event waited";
    poll();
    EXPECT_THAT(diskIds(), ElementsAre(1));
}

TEST_F(TimelineTest, DescribedExampleLoads)
{
    const std::string description = TempFolder::readFile(ZARNEK_SOURCE_DIR "/docs/scenario-format.md");
    const std::size_t start = description.find("```json\n") + 8;
    loadScenarioText(description.substr(start, description.find("```", start) - start));
    EXPECT_EQ(mvsim_last_poll(), 4U);
}

} // namespace
