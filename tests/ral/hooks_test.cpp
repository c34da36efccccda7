// What the host sees and plans: sinks and failures.
#include "Objects.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>

#include <gmock/gmock.h>

namespace
{

using testing::ElementsAre;
using Names = std::vector<std::string>;

using Hooks = RalTest;

TEST_F(Hooks, ChangesComeWithBeforeAndAfter)
{
    Names changes;
    ral_set_change_sink(
        [](void* context, ral_change change, const void* before, const void* after) {
            // The engine holds the new state by now, and may be looked into.
            const std::string holds = std::to_string(content().size());
            static_cast<Names*>(context)->push_back(std::to_string(change) + ' ' + nameOf(before) + ' ' +
                                                    nameOf(after) + ' ' + holds);
        },
        &changes);
    insertObject("ctl0");
    insertObject("ctl0", "", 3);
    insertObject("pd0.1", "ctl9");
    RalInsertObject(SMSDOConfigAlloc(), nullptr);
    deleteObject("ctl1");
    deleteObject("ctl0");
    EXPECT_THAT(changes, ElementsAre("0 none ctl0 1", "1 ctl0 ctl0:3 1", "3 none ? 2", "2 ctl0:3 none 1"));
}

TEST_F(Hooks, NotificationsAreLentToTheSinkAndFreed)
{
    Names alerts;
    ral_set_notification_sink(
        [](void* context, const void* object) { static_cast<Names*>(context)->push_back(nameOf(object)); },
        &alerts);
    EXPECT_EQ(RalSendNotification(make("pd0.3")), 0);
    ral_fail_call("RalSendNotification", 1, 1, 9);
    EXPECT_EQ(RalSendNotification(make("pd0.4")), 9);
    EXPECT_THAT(alerts, ElementsAre("pd0.3"));
    EXPECT_EQ(morlan_live_sdo_objects(), 0U);
}

// A failure planned for the plug-in's own clones is not used up by the copies that the engine makes.
TEST_F(Hooks, TheEnginesCopiesDoNotCount)
{
    insertObject("ctl0");
    morlan_fail_call("SMSDOConfigClone", 1, 0, 1);
    morlan_fail_call("SMSDOConfigFree", 1, 0, 1);
    EXPECT_EQ(listObjects("", SDO_OBJTYPE_CONTROLLER), "ctl0");
    EXPECT_EQ(insertObject("ctl0"), 0);
    EXPECT_EQ(morlan_call_count("SMSDOConfigClone") + morlan_call_count("SMSDOConfigFree"), 0U);
}

} // namespace
