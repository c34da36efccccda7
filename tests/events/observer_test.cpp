#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "discovery/ICommand.h"
#include "events/CEvtObserver_Helper.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEventManager.h"
#include "events/CMarvelEvtObserver.h"
#include "events/IEvtSubject.h"
#include "mvlayer/Binders.h"

#include <sdo.h>

#include <array>

namespace
{

constexpr unsigned int NONE = stg::NUMBER_UNKNOWN;

// Notes what is done after an alert: number, object type, global number, adapter index, device.
struct Observer : CMarvelEvtObserver {
    using Action = std::array<unsigned int, 5>;
    short generateActionCommand(unsigned alert, unsigned type, unsigned global, unsigned index,
                                unsigned device) override
    {
        m_actions.push_back({alert, type, global, index, device});
        return 0;
    }
    std::vector<Action> m_actions;
};

struct CopiedTest : PluginTest {
    // Notes the alerts.
    struct Observer : CMarvelEvtObserver {
        using CMarvelEvtObserver::m_pfnTakeAction;
        short processAlert(CAlert* alert) override { return m_alerts.push_back(alert), 1; }
        std::vector<CAlert*> m_alerts;
    };
    struct Subject : IEvtSubject {
        short process() override { return 0; }
        using IEvtSubject::m_AlertVector;
    };
};

TEST_F(CopiedTest, SubjectsNotifyTheirObserverAndObserversDispatch)
{
    CMarvelAlert first, second;
    Observer observer, other;
    CEvtObserver_Helper helper(observer);
    helper = CEvtObserver_Helper(other);
    EXPECT_EQ(helper(&second), 1);

    Subject subject, assigned;
    subject.notifyObserver(); // nobody is registered
    subject.setSubjectID(7);
    observer.IEvtObserver::getAssociatedWith(&subject, [](ICommand&) -> short { return 5; });
    assigned = subject;
    EXPECT_EQ(assigned.getSubjectID(), 7U);
    assigned.m_AlertVector = {&first, &second};
    assigned.notifyObserver();
    assigned.m_AlertVector.clear();
    EXPECT_THAT(observer.m_alerts, testing::ElementsAre(&second, &first, &second));

    ICommand command;
    static_cast<IEvtObserver&>(other) = observer;
    EXPECT_EQ(other.m_pfnTakeAction, nullptr);
    EXPECT_EQ(Observer(observer).m_pfnTakeAction, nullptr);
    static_cast<CMarvelEvtObserver&>(other) = observer;
    EXPECT_EQ(other.dispatchCommand(command), 5);

    stg::AttribTypeMap rows;
    std::vector<unsigned int> nexus;
    observer.createNexus(SDO_OBJTYPE_CONTROLLER + 1, rows, nexus);
    EXPECT_EQ(messages().back(),
              "ZARNEK:CMarvelEvtObserver::createNexus(): Object Type didn't match. Not able "
              "to create Nexus for the Object Type: 770");
    observer.createNexus(SDO_OBJTYPE_VIRTUAL_DISK, rows, nexus);
    EXPECT_THAT(nexus, testing::ElementsAre(SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_DEVICEID_U32));
}

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
    writeMapping("[Adapter]\n1=2048\n2=2047\n3=4294967294\n4=4294967295\n[PhysicalDevice]\n1=2050\n");
    // The alert number is 0 for one that is refused.
    for (const auto& row : dataRows("tests/events/alerts.json")) {
        const std::uint16_t eventClass = row.at("class");
        const unsigned int sequence = row.at("sequence"), number = row.at("alert");
        const bool numbered = row.value("numbered", true);
        CMarvelEventManager::m_PrevEventSeqNum = row.at("stored");
        CMarvelEvtObserver::m_CurEventSeqNum = 7;
        CMarvelAlert alert;
        fill(alert, eventClass, row.at("code"), 3, sequence);
        alert.m_bHasEventSeqNum = numbered;
        Observer observer;
        EXPECT_EQ(observer.processAlert(&alert), 1);
        const bool passes = number != 0;
        EXPECT_EQ(alert.m_bHasEventSeqNum, !passes && numbered) << row;
        EXPECT_EQ(CMarvelEvtObserver::m_CurEventSeqNum, passes ? sequence : 7U);
        const auto wanted = eventClass == MV_EVENT_CONTROLLER
                                ? Observer::Action{number, SDO_OBJTYPE_CONTROLLER, 101, 1, NONE}
                                : Observer::Action{number, SDO_OBJTYPE_PHYSICAL_DISK, 101, 1, 3};
        EXPECT_EQ(observer.m_actions, std::vector(passes ? 1 : 0, wanted));
    }
}

} // namespace
