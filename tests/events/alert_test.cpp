#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "mvlayer/Binders.h"
#include "sdo/SDOProxy.h"

#include <morlan.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;

namespace
{

constexpr unsigned int NONE = 0xFFFFFFFF;

using AlertTest = PluginTest;

TEST_F(AlertTest, TakesWhatTheRecordsTell)
{
    for (const auto& [eventClass, objType] :
         std::map<unsigned char, unsigned int>{{0, 769}, {1, 773}, {2, 772}, {5, NONE}}) {
        // Class, code, device and sequence where the vendor library puts them, noise between.
        unsigned char bytes[64] = {eventClass, 0, 0xFE, 0xCA, 1, 1, 1, 1, 0xFE, 0xFF, 1, 1, 4, 3, 2, 0xF1, 1};
        stg::QLVEventBinder_t binder(reinterpret_cast<_Event*>(bytes), nullptr);
        CMarvelAlert alert;
        clear();
        static_cast<CAlert&>(alert) = static_cast<void*>(&binder);
        CControl_Notify& notify = alert.getControlNotify();
        EXPECT_EQ(notify.getAttribValueMap()->size(), objType < 800 ? 6U : 5U);
        EXPECT_EQ(notify.getObjType(), objType);
        EXPECT_EQ(alert.getAlertNumber(), 51966U);
        EXPECT_EQ(notify.getDevID(), 65534U);
        EXPECT_EQ(alert.getEventSeqNum(), 4043440900U);
        EXPECT_EQ(messages(),
                  objType < 800 ? Lines{} : Lines{"ZARNEK:CMarvelAlert::operator =() default Event class"});
    }
    CMarvelAlert fresh;
    CControl_Notify& notify = fresh.getControlNotify();
    fresh = static_cast<void*>(nullptr);
    EXPECT_THAT(*fresh.getAttribValueMap(), IsEmpty());
    EXPECT_EQ(fresh.getAlertNumber() & fresh.getNotifyType() & fresh.getEventSeqNum(), NONE);
    stg::QLVEventBinder_t binder(nullptr, nullptr);
    fresh = &binder;
    EXPECT_THAT(*fresh.getAttribValueMap(), ElementsAre(Key("m_NotifyType")));
    EXPECT_THAT(*notify.getAttribValueMap(), ElementsAre(Key("m_AttributeMask"), Key("m_CurrentMethodMask"),
                                                         Key("m_MasterMethodMask"), Key("m_VILNumber")));
    EXPECT_EQ(notify.getDevID() & notify.getControllerID() & notify.getGlobalControllerNumber(), NONE);
}

TEST_F(AlertTest, IsCopiedWithItsNotificationAndItsOwnEntries)
{
    constexpr void (CAlert::*SET[])(std::string) = {
        &CAlert::setReplacementStr01, &CAlert::setReplacementStr02, &CAlert::setReplacementStr03,
        &CAlert::setReplacementStr04, &CAlert::setReplacementStr05, &CAlert::setReplacementStr06};
    constexpr std::string (CAlert::*GET[])()
        const = {&CAlert::getReplacementStr01, &CAlert::getReplacementStr02, &CAlert::getReplacementStr03,
                 &CAlert::getReplacementStr04, &CAlert::getReplacementStr05, &CAlert::getReplacementStr06};
    CMarvelAlert alert, marvelAssigned;
    alert.setAlertNumber(2050);
    alert.getControlNotify().setDevID(3);
    alert.setEventSeqNum(5);
    for (unsigned int index = 0; index < 6; ++index)
        (alert.*SET[index])(std::to_string(index));
    stg::SDOProxy proxy, none;
    proxy.setChildSDOConfigPtr(SMSDOConfigAlloc());
    alert.updateControlNotify(proxy);
    void* const first = alert.getAttribValueMap()->at("m_ControlNotify");
    none.setChildSDOConfigPtr(nullptr);
    alert.updateControlNotify(none);
    EXPECT_EQ(alert.getAttribValueMap()->at("m_ControlNotify"), first) << "the first clone stays";
    SMSDOConfigFree(first);
    SMSDOConfigFree(proxy.getChildSDOConfigPtr());

    CAlert assigned, copied(alert);
    assigned = alert;
    marvelAssigned = alert;
    CMarvelAlert marvelCopied(alert);
    for (CAlert* const copy :
         {&assigned, &copied, static_cast<CAlert*>(&marvelAssigned), static_cast<CAlert*>(&marvelCopied)}) {
        const bool marvel = copy != &assigned && copy != &copied;
        EXPECT_EQ(copy->m_bHasEventSeqNum, !marvel);
        EXPECT_EQ(copy->getEventSeqNum(), marvel ? 5U : NONE);
        EXPECT_EQ(copy->getControlNotify().getDevID(), 3U);
        stg::AttribValMap& entries = *copy->getAttribValueMap();
        EXPECT_EQ(entries.size(), 8U) << "all attributes, but not the notification's object";
        copy->setAlertNumber(2051);
        EXPECT_EQ(*static_cast<unsigned int*>(entries.at("m_AlertNumber")), 2051U);
        for (unsigned int index = 0; index < 6; ++index) {
            const std::string name = "m_ReplacementStr0" + std::to_string(index + 1);
            EXPECT_EQ(*static_cast<std::string*>(entries.at(name)), std::to_string(index));
            EXPECT_EQ((copy->*GET[index])(), std::to_string(index));
            const auto& row = CAlert::getAttribNameAndType().at(name);
            EXPECT_EQ(row.m_AttribType + std::to_string(row.m_PropertyID),
                      "STDSTR" + std::to_string(24786 + index));
        }
    }
    EXPECT_EQ(alert.getAlertNumber(), 2050U);
}

} // namespace
