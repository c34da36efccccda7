#include "common/PluginTest.h"
#include "discovery/ICommand.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEventManager.h"
#include "events/CMarvelEvtObserver.h"
#include "events/CMarvelEvtSubject.h"
#include "mvlayer/Binders.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"
#include "support/Status.h"

#include <sdo.h>
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

TEST_F(ObserverTest, ABatchGoesOnBehindAnAlertThatCannotBeSent)
{
    writeMapping("[VirtualDevice]\n1=2057\n");
    CMarvelAlert first, second;
    fill(first, MV_EVENT_VIRTUAL_DISK, 1, 7, 9);
    fill(second, MV_EVENT_VIRTUAL_DISK, 1, 65535, 6);
    std::vector<CAlert*> batch{&first, &second};
    ral_fail_call("RalSendNotification", 1, 1, 5);
    Observer observer;
    observer.updateMyself(batch);
    EXPECT_THAT(observer.m_actions,
                testing::ElementsAre(Observer::Action{2057, SDO_OBJTYPE_VIRTUAL_DISK, 101, 1, 7},
                                     Observer::Action{2057, SDO_OBJTYPE_VIRTUAL_DISK, 101, 1, 65535}));
    EXPECT_EQ(CMarvelEvtObserver::m_CurEventSeqNum, 6U) << "the last that passed, downward too";

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
