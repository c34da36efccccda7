#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "mvlayer/Binders.h"
#include "sdo/SDOProxy.h"
#include "support/Status.h"

#include <morlan.h>
#include <sdo.h>

#include <cstring>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;

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
        clear();
        static_cast<CAlert&>(alert) = static_cast<void*>(&binder);
        CControl_Notify& notify = alert.getControlNotify();
        EXPECT_EQ(notify.getAttribValueMap()->size(), c.objectType == NONE ? 5U : 6U);
        EXPECT_EQ(notify.getObjType(), c.objectType);
        EXPECT_EQ(alert.getAlertNumber(), 0xCAFEU);
        EXPECT_EQ(notify.getDevID(), 0xFFFEU);
        EXPECT_EQ(alert.getEventSeqNum(), 0xF1020304);
        EXPECT_EQ(messages(), c.objectType == NONE
                                  ? Lines{"ZARNEK:CMarvelAlert::operator =() default Event class"}
                                  : Lines{});
    }
    CMarvelAlert fresh;
    fresh = static_cast<void*>(nullptr);
    EXPECT_THAT(*fresh.getAttribValueMap(), IsEmpty());
    EXPECT_EQ(fresh.getEventSeqNum(), NONE);
    stg::QLVEventBinder_t binder(nullptr, nullptr);
    fresh = &binder;
    EXPECT_THAT(*fresh.getAttribValueMap(), ElementsAre(Key("m_NotifyType")));
    EXPECT_THAT(*fresh.getControlNotify().getAttribValueMap(),
                ElementsAre(Key("m_AttributeMask"), Key("m_CurrentMethodMask"), Key("m_MasterMethodMask"),
                            Key("m_VILNumber")));
}

TEST_F(AlertTest, HasTextsOfItsOwnAndKeepsTheFirstNotification)
{
    constexpr void (CAlert::*SET[])(std::string) = {
        &CAlert::setReplacementStr01, &CAlert::setReplacementStr02, &CAlert::setReplacementStr03,
        &CAlert::setReplacementStr04, &CAlert::setReplacementStr05, &CAlert::setReplacementStr06};
    CAlert alert;
    for (unsigned int index = 0; index < std::size(SET); ++index) {
        const std::string text = std::to_string(index + 1);
        (alert.*SET[index])(text);
        EXPECT_EQ(*static_cast<std::string*>(alert.getAttribValueMap()->at("m_ReplacementStr0" + text)),
                  text);
    }
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
    CAlert plain(alert), plainAssigned;
    plainAssigned = alert;
    for (CAlert* const copy : std::initializer_list<CAlert*>{&assigned, &copied, &plain, &plainAssigned}) {
        const bool isPlain = copy == &plain || copy == &plainAssigned;
        EXPECT_EQ(copy->getEventSeqNum(), isPlain ? NONE : 5U);
        EXPECT_EQ(copy->m_bHasEventSeqNum, isPlain)
            << "the vendor's copies have the number, but not the mark";
        EXPECT_EQ(copy->getControlNotify().getDevID(), 3U);
        EXPECT_EQ(copy->getAttribValueMap()->count("m_ControlNotify"), 0U);
    }
}

} // namespace
