// What the host sees and plans: sinks, call lines, failures.
#include "Objects.h"
#include "common/LineLog.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>

#include <gmock/gmock.h>

namespace
{

using testing::ElementsAre;
using Names = std::vector<std::string>;

void* alertOn(const char* name, std::uint32_t number)
{
    void* const alert = SMSDOConfigAlloc();
    addU32(alert, SSPROP_ALERTNUMBER_U32, number);
    if (name != nullptr)
        SMSDOConfigAddData(alert, SSPROP_CONTROLNOTIFY_SDO, SDO_TYPE_SDOCONFIG, make(name), 4, 1);
    return alert;
}

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

TEST_F(Hooks, ASinkMayEmptyTheEngine)
{
    insertObject("ctl0");
    ral_set_change_sink(
        [](void*, ral_change, const void* before, const void* after) {
            ral_reset();
            EXPECT_EQ(nameOf(before), "ctl0");
            EXPECT_EQ(nameOf(after), "ctl0:1");
        },
        nullptr);
    EXPECT_EQ(insertObject("ctl0", "", 1), 0);
    EXPECT_TRUE(content().empty());
}

TEST_F(Hooks, NotificationsAreLentToTheSinkAndFreed)
{
    Names alerts;
    ral_set_notification_sink(
        [](void* context, const void* object) {
            unsigned short id = 0;
            unsigned char type = 0;
            const void* value = nullptr;
            unsigned int size = 0;
            ASSERT_EQ(morlan_sdo_property_at(object, 1, &id, &type, &value, &size), 0);
            static_cast<Names*>(context)->push_back(nameOf(value));
        },
        &alerts);
    EXPECT_EQ(RalSendNotification(alertOn("pd0.3", 2048)), 0);
    ral_fail_call("RalSendNotification", 1, 1, 9);
    EXPECT_EQ(RalSendNotification(alertOn("pd0.4", 2048)), 9);
    EXPECT_EQ(RalSendNotification(alertOn("pd0.5", 2048)), 0);
    EXPECT_THAT(alerts, ElementsAre("pd0.3", "pd0.5"));
    EXPECT_EQ(morlan_live_sdo_objects(), 0U);
}

TEST_F(Hooks, TheCallSinkSeesTheCallsByIdentity)
{
    LineLog log;
    ral_set_call_sink(LineLog::sink, &log);
    insertObject("ctl0");
    insertObject("pd0.3", "ctl0");
    insertObject("pd1.3", "ctl1");
    void* const odd = make("pd0.4");
    addNexus(odd, {SSPROP_SERIALNUM_ASTRING, SSPROP_MODEL_ASTRING, SSPROP_SLOTNUM_U32, 100000});
    SMSDOConfigAddData(odd, SSPROP_SERIALNUM_ASTRING, SDO_TYPE_ASTRING, "a\"\n", 4, 1);
    SMSDOConfigAddData(odd, SSPROP_MODEL_ASTRING, SDO_TYPE_BINARY_DATA, "\x01\xfe\x00", 3, 1);
    const std::int8_t negative = -2;
    SMSDOConfigAddData(odd, SSPROP_SLOTNUM_U32, SDO_TYPE_S8, &negative, sizeof negative, 1);
    RalInsertObject(odd, nullptr);
    RalInsertObject(SMSDOConfigAlloc(), make("ctl0"));
    RalInsertObject(nullptr, nullptr);
    linkObjects("ctl0", "pd0.3");
    listObjects("ctl0", SDO_OBJTYPE_PHYSICAL_DISK);
    listObjects("", SDO_OBJTYPE_CONTROLLER);
    listObjects("ctl4", SDO_OBJTYPE_PHYSICAL_DISK);
    RalSendNotification(alertOn("pd0.3", 2048));
    RalSendNotification(alertOn(nullptr, 7));
    RalSendNotification(SMSDOConfigAlloc());
    ral_fail_call("RalDeleteObject", 1, 1, 77);
    deleteObject("pd0.3");
    deleteObject("pd0.3");
    EXPECT_THAT(
        log.lines(),
        ElementsAre(
            "RalInsertObject(769/9 24600=0, under none) = 0",
            "RalInsertObject(772/9 24600=0 24810=3, under 769/9 24600=0) = 0",
            "RalInsertObject(772/9 24600=1 24810=3, under 769/9 24600=1) = 256",
            "RalInsertObject(772/9 24656=\"a\\\"\\x0a\" 25004=0x01fe00 24810=-2 100000=absent, "
            "under none) = 0",
            "RalInsertObject(incomplete, under 769/9 24600=0) = 0", "RalInsertObject(null, under none) = 256",
            "RalLinkObjects(769/9 24600=0, 772/9 24600=0 24810=3) = 0",
            "RalListAssociatedObjects(772, of 769/9 24600=0) = 0, 1 objects", "RalListFree(1) = 0",
            "RalListAssociatedObjects(769, of top) = 0, 1 objects", "RalListFree(1) = 0",
            "RalListAssociatedObjects(772, of 769/9 24600=4) = 256, 0 objects", "RalListFree(0) = 0",
            "RalSendNotification(alert 2048, 772/9 24600=0 24810=3) = 0", "RalSendNotification(alert 7) = 0",
            "RalSendNotification(alert absent) = 0", "RalDeleteObject(772/9 24600=0 24810=3, 1, 0) = 77",
            "RalDeleteObject(772/9 24600=0 24810=3, 1, 0) = 0"));
}

TEST_F(Hooks, PlannedFailuresStrikeThePlannedCallsAlone)
{
    insertObject("ctl0");
    insertObject("pd0.1", "ctl0");
    void** empty = nullptr;
    unsigned int none = 0;
    const struct {
        const char* name;
        int (*make)();
    } calls[] = {
        {"RalInsertObject", [] { return insertObject("pd0.2", "ctl0"); }},
        {"RalDeleteObject", [] { return insertObject("vd0.0", "ctl0"), deleteObject("vd0.0"); }},
        {"RalLinkObjects", [] { return linkObjects("ctl0", "pd0.1"); }},
        {"RalListAssociatedObjects", [] { return listObjects("ctl0", 769) == "77" ? 77 : 0; }},
        {"RalListFree", [] { return RalListFree(nullptr, 0); }},
        {"RalSendNotification", [] { return RalSendNotification(alertOn("pd0.1", 1)); }},
    };
    for (const auto& call : calls) {
        const unsigned int before = ral_call_count(call.name);
        ASSERT_EQ(ral_fail_call(call.name, 2, 2, 77), 0);
        for (const int expected : {0, 77, 77, 0})
            EXPECT_EQ(call.make(), expected) << call.name;
        EXPECT_EQ(ral_call_count(call.name) - before, 4U) << call.name;
        ral_clear_faults();
    }
    EXPECT_NE(ral_fail_call("RalUnlinkObjects", 1, 1, 77), 0);

    const Names before = content();
    for (const auto& call : calls)
        ral_fail_call(call.name, 1, 0, 77);
    EXPECT_EQ(insertObject("ctl7"), 77);
    EXPECT_EQ(linkObjects("pd0.1", "pd0.2"), 77);
    EXPECT_EQ(deleteObject("ctl0"), 77);
    EXPECT_EQ(RalListAssociatedObjects(nullptr, 769, &empty, &none), 77);
    EXPECT_EQ(none, 0U);
    EXPECT_EQ(content(), before);
    ral_reset();
    EXPECT_TRUE(content().empty());
    EXPECT_EQ(ral_call_count("RalInsertObject"), 0U);
    EXPECT_EQ(insertObject("ctl7"), 0);
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
