#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "mvlayer/Binders.h"
#include "sdo/SDOProxy.h"
#include "support/Status.h"

#include <morlan.h>
#include <sdo.h>

#include <cstring>

namespace
{

constexpr unsigned int NONE = stg::NUMBER_UNKNOWN;

using AlertTest = PluginTest;

TEST_F(AlertTest, TakesWhatTheRecordsTell)
{
    struct Case {
        std::uint16_t eventClass;
        unsigned int objectType;
    };
    for (const Case& c : {Case{MV_EVENT_CONTROLLER, SDO_OBJTYPE_CONTROLLER},
                          Case{MV_EVENT_VIRTUAL_DISK, SDO_OBJTYPE_VIRTUAL_DISK},
                          Case{MV_EVENT_PHYSICAL_DISK, SDO_OBJTYPE_PHYSICAL_DISK}, Case{5, NONE}}) {
        _Event event;
        std::memset(&event, 1, sizeof event);
        event.EventClass = c.eventClass;
        event.EventCode = 0xCAFE;
        event.EventDeviceId = 0xFFFE;
        event.EventSequence = 0xF1020304;
        stg::QLVEventBinder_t binder(&event, nullptr);
        CMarvelAlert alert;
        static_cast<CAlert&>(alert) = static_cast<void*>(&binder);
        CControl_Notify& notify = alert.getControlNotify();
        EXPECT_EQ(notify.getAttribValueMap()->size(), c.objectType == NONE ? 5U : 6U);
        EXPECT_EQ(notify.getObjType(), c.objectType);
        EXPECT_EQ(alert.getAlertNumber(), 0xCAFEU);
        EXPECT_EQ(notify.getDevID(), 0xFFFEU);
        EXPECT_EQ(alert.getEventSeqNum(), 0xF1020304);
    }
    CMarvelAlert fresh;
    fresh = static_cast<void*>(nullptr);
    EXPECT_THAT(*fresh.getAttribValueMap(), testing::IsEmpty());
}

TEST_F(AlertTest, KeepsTheFirstNotification)
{
    CAlert alert;
    stg::SDOProxy proxy;
    alert.updateControlNotify(proxy);
    void* const first = alert.getAttribValueMap()->at("m_ControlNotify");
    proxy.setChildSDOConfigPtr(nullptr);
    alert.updateControlNotify(proxy);
    EXPECT_EQ(alert.getAttribValueMap()->at("m_ControlNotify"), first);
    EXPECT_EQ(SMSDOConfigFree(first), 0);
}

TEST_F(AlertTest, IsCopiedWithItsNotificationButNotWithThatOnesObject)
{
    CMarvelAlert alert, assigned;
    alert.getControlNotify().setDevID(3);
    alert.setEventSeqNum(5);
    stg::SDOProxy proxy;
    alert.insertIntoAttribValMap("m_ControlNotify", &proxy);
    assigned = alert;
    CMarvelAlert copied(alert);
    CAlert plain(alert);
    for (CAlert* const copy : std::initializer_list<CAlert*>{&assigned, &copied, &plain}) {
        EXPECT_EQ(copy->getEventSeqNum(), copy == &plain ? NONE : 5U);
        EXPECT_EQ(copy->m_bHasEventSeqNum, copy == &plain)
            << "the vendor's copies have the number, but not the mark";
        EXPECT_EQ(copy->getControlNotify().getDevID(), 3U);
        EXPECT_EQ(copy->getAttribValueMap()->count("m_ControlNotify"), 0U);
    }
}

} // namespace
