#include "common/PluginTest.h"
#include "common/SdoObject.h"
#include "discovery/ICommand.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEventManager.h"
#include "events/CMarvelEvtObserver.h"
#include "events/CMarvelEvtSubject.h"
#include "mvlayer/Binders.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"
#include "support/Status.h"

#include <zarnek_ini.h>

#include <array>

namespace
{

constexpr unsigned int NONE = stg::NUMBER_UNKNOWN;

// Notes what is done after an alert: number, object type, global number, adapter index, device.
struct Observer : CMarvelEvtObserver {
    using CMarvelEvtObserver::m_pfnTakeAction;
    using Action = std::array<unsigned int, 5>;
    short generateActionCommand(unsigned alert, unsigned type, unsigned global, unsigned index,
                                unsigned device) override
    {
        m_actions.push_back({alert, type, global, index, device});
        return 0;
    }
    std::vector<Action> m_actions;
};

struct ObserverTest : PluginTest {
    static void fill(CMarvelAlert& alert, std::uint16_t eventClass, std::uint16_t code, std::uint16_t device,
                     unsigned int sequence)
    {
        _Event event{eventClass, code, {}, device, {}, sequence, {}};
        stg::SInfoHelper_t helper{101, 1, 0, 0, ""};
        stg::QLVEventBinder_t binder(&event, &helper);
        alert = &binder;
    }
    static void receive(void* notifications, const void* object)
    {
        static_cast<std::vector<SdoValues>*>(notifications)->push_back(valuesOf(object));
    }
};

TEST_F(ObserverTest, PassesWhatIsMappedAndNewerThanTheStoredNumber)
{
    const std::string below = std::to_string(INI_FIRST_ALERT_NUMBER - 1);
    writeMapping("[Adapter]\n1=" + std::to_string(INI_FIRST_ALERT_NUMBER) + "\n2=" + below +
                 "\n3=4294967294\n4=4294967295\n[PhysicalDevice]\n1=2050\n");
    const std::string label = "ZARNEK:CMarvelEvtObserver::processAlert(): ";
    const std::string typeless = "Object Type is not matching. Not able to process alert.";
    const std::string numberless = "Event Sequence Number is missing. Not able to process this alert.";
    const auto unmapped = [&](unsigned int code) {
        return "Couldn't map Marvel Event Code: " + std::to_string(code) +
               " with VRAX Alert Code in /MarvelAlertMapping.ini File.";
    };
    const auto old = [&](unsigned int sequence) {
        return "Alert Sequence Number: " + std::to_string(sequence) +
               " is not greater than the Sequence Number mentioned in MarvelAlertMapping.ini File. Not "
               "processing this Alert.";
    };
    struct Case {
        unsigned int stored;
        std::uint16_t eventClass, code;
        unsigned int sequence, alert; // 0: refused
        Lines said;
        bool numbered = true;
    };
    for (const Case& c : {Case{100, MV_EVENT_CONTROLLER, 1, 101, INI_FIRST_ALERT_NUMBER, {}},
                          Case{100, MV_EVENT_PHYSICAL_DISK, 1, 300, 2050, {}},
                          Case{100, MV_EVENT_CONTROLLER, 3, NONE - 1, 4294967294, {}},
                          Case{100, MV_EVENT_CONTROLLER, 2, 500, 0, {unmapped(2)}},
                          Case{100, MV_EVENT_CONTROLLER, 4, 500, 0, {unmapped(4)}},
                          Case{100, MV_EVENT_PHYSICAL_DISK, 3, 5, 0, {unmapped(3)}},
                          Case{100, MV_EVENT_CONTROLLER, 1, 100, 0, {old(100)}},
                          Case{0, MV_EVENT_CONTROLLER, 1, 0, 0, {old(0)}},
                          Case{0, MV_EVENT_CONTROLLER, 1, NONE, 0, {old(NONE)}},
                          Case{NONE, MV_EVENT_CONTROLLER, 1, NONE - 1, 0, {old(NONE - 1)}},
                          Case{100, MV_EVENT_CONTROLLER, 2, 500, 0, {unmapped(2)}, false},
                          Case{100, MV_EVENT_CONTROLLER, 1, 500, 0, {numberless}, false},
                          Case{100, 5, 1, 500, 0, {typeless, unmapped(1)}}}) {
        CMarvelEventManager::m_PrevEventSeqNum = c.stored;
        CMarvelEvtObserver::m_CurEventSeqNum = 7;
        CMarvelAlert alert;
        fill(alert, c.eventClass, c.code, 3, c.sequence);
        alert.m_bHasEventSeqNum = c.numbered;
        clear();
        Observer observer;
        EXPECT_EQ(observer.processAlert(&alert), 1);
        const bool passes = c.alert != 0;
        EXPECT_EQ(alert.m_bHasEventSeqNum, !passes && c.numbered);
        EXPECT_EQ(CMarvelEvtObserver::m_CurEventSeqNum, passes ? c.sequence : 7U);
        const auto wanted = c.eventClass == MV_EVENT_CONTROLLER
                                ? Observer::Action{c.alert, SDO_OBJTYPE_CONTROLLER, 101, 1, NONE}
                                : Observer::Action{c.alert, SDO_OBJTYPE_PHYSICAL_DISK, 101, 1, 3};
        EXPECT_EQ(observer.m_actions, std::vector(passes ? 1 : 0, wanted));
        Lines said;
        for (const std::string& line : messages())
            if (line.rfind(label, 0) == 0)
                said.push_back(line.substr(label.size()));
        EXPECT_EQ(said, c.said);
    }
}

TEST_F(ObserverTest, SendsABatchUnderThePropertiesThatNameTheObjects)
{
    writeMapping("[Adapter]\n1=2058\n[PhysicalDevice]\n1=2050\n[VirtualDevice]\n1=2057\n");
    CMarvelAlert alerts[4];
    const std::uint16_t classes[] = {MV_EVENT_CONTROLLER, MV_EVENT_PHYSICAL_DISK, MV_EVENT_CONTROLLER,
                                     MV_EVENT_VIRTUAL_DISK};
    std::vector<CAlert*> batch;
    for (std::uint16_t i = 0; i < 4; ++i) {
        fill(alerts[i], classes[i], 1, static_cast<std::uint16_t>(65535 - i), 9U - i);
        batch.push_back(&alerts[i]);
    }
    std::vector<SdoValues> sent;
    ral_set_notification_sink(receive, &sent);
    ral_fail_call("RalSendNotification", 4, 1, 5);
    Observer observer;
    observer.updateMyself(batch);
    const auto notification = [](unsigned int alert, unsigned int type, unsigned int deviceProperty,
                                 unsigned int device, const std::vector<unsigned int>& nexus) {
        return SdoValues{{SSPROP_ALERTNUMBER_U32, alert},
                         {SSPROP_NOTIFYTYPE_U32, SDO_NOTIFYTYPE_ALERT},
                         {SSPROP_OBJTYPE_U32, type},
                         {deviceProperty, device},
                         {SSPROP_NEXUS_U32, nexus},
                         {SSPROP_ATTRIBUTEMASK_U32, 0},
                         {SSPROP_MASTERMETHODMASK_U32, 0},
                         {SSPROP_CURRENTMETHODMASK_U32, 0},
                         {SSPROP_CONTROLLERID_U32, 1},
                         {SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER},
                         {SSPROP_GLOBALCONTROLLERNUM_U32, 101}};
    };
    const std::vector<unsigned int> controller{SSPROP_GLOBALCONTROLLERNUM_U32};
    const std::vector<unsigned int> disk{SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_SLOTNUM_U32};
    EXPECT_THAT(sent, testing::ElementsAre(
                          notification(2058, SDO_OBJTYPE_CONTROLLER, SSPROP_DEVICEID_U32, 65535, controller),
                          notification(2050, SDO_OBJTYPE_PHYSICAL_DISK, SSPROP_SLOTNUM_U32, 65534, disk),
                          notification(2058, SDO_OBJTYPE_CONTROLLER, SSPROP_SLOTNUM_U32, 65533, controller)));
    EXPECT_THAT(observer.m_actions.back(),
                testing::ElementsAre(2057, SDO_OBJTYPE_VIRTUAL_DISK, 101, 1, 65532))
        << "though it could not be sent";
    EXPECT_EQ(CMarvelEvtObserver::m_CurEventSeqNum, 6U) << "the last that passed, downward too";
    EXPECT_EQ(CControl_Notify::getAttribNameAndType()["m_DevID"].m_PropertyID, SSPROP_LOGICALDRIVENUM_U32);

    // A device without a row of its own, and a type that has no nexus.
    stg::AttribTypeMap rows;
    std::vector<unsigned int> nexus;
    observer.createNexus(SDO_OBJTYPE_PHYSICAL_DISK, rows, nexus);
    clear();
    observer.createNexus(770, rows, nexus);
    EXPECT_THAT(nexus, testing::ElementsAre(SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_DEVICEID_U32));
    EXPECT_EQ(messages(),
              Lines{"ZARNEK:CMarvelEvtObserver::createNexus(): Object Type didn't match. Not able to "
                    "create Nexus for the Object Type: 770"});
}

struct Subject : CMarvelEvtSubject {
    using CMarvelEvtSubject::m_pfnNotify;
    using CMarvelEvtSubject::m_pObserver;
};

short sevenFor(ICommand& /*command*/)
{
    return 7;
}

TEST_F(ObserverTest, IsRegisteredAndSaysWhereCommandsGo)
{
    struct Command : ICommand {
    } command;
    Subject subject;
    Observer first, second;
    first.IEvtObserver::getAssociatedWith(&subject, sevenFor);
    EXPECT_EQ(subject.m_pObserver, &first);
    EXPECT_EQ(subject.m_pfnNotify, &IEvtObserver::updateMyself);
    second = first;
    EXPECT_EQ(second.dispatchCommand(command), 7);
    first.CMarvelEvtObserver::getAssociatedWith(&subject, sevenFor);
    EXPECT_EQ(subject.m_pObserver, CMarvelEvtObserver::getUniqueInstance());
    EXPECT_EQ(subject.m_pfnNotify, nullptr) << "the subject calls it directly";
    stg::SDOProxy proxy;
    ral_fail_call("RalSendNotification", 1, 1, 0x10005);
    EXPECT_EQ(first.sendAlert(proxy), 5);
}

} // namespace
