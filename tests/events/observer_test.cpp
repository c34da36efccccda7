#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEventManager.h"
#include "events/CMarvelEvtObserver.h"
#include "mvlayer/Binders.h"

#include <sdo.h>
#include <zarnek_ini.h>

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
    struct Case {
        unsigned int stored;
        std::uint16_t eventClass, code;
        unsigned int sequence, alert; // 0: refused
        bool numbered = true;
    };
    for (const Case& c :
         {Case{100, MV_EVENT_CONTROLLER, 1, 101, INI_FIRST_ALERT_NUMBER},
          Case{100, MV_EVENT_PHYSICAL_DISK, 1, 300, 2050},
          Case{100, MV_EVENT_CONTROLLER, 3, NONE - 1, 4294967294}, Case{100, MV_EVENT_CONTROLLER, 2, 500, 0},
          Case{100, MV_EVENT_CONTROLLER, 4, 500, 0}, Case{100, MV_EVENT_PHYSICAL_DISK, 3, 500, 0},
          Case{100, MV_EVENT_CONTROLLER, 1, 100, 0}, Case{0, MV_EVENT_CONTROLLER, 1, NONE, 0},
          Case{100, MV_EVENT_CONTROLLER, 1, 500, 0, false}, Case{100, 5, 1, 500, 0}}) {
        CMarvelEventManager::m_PrevEventSeqNum = c.stored;
        CMarvelEvtObserver::m_CurEventSeqNum = 7;
        CMarvelAlert alert;
        fill(alert, c.eventClass, c.code, 3, c.sequence);
        alert.m_bHasEventSeqNum = c.numbered;
        Observer observer;
        EXPECT_EQ(observer.processAlert(&alert), 1);
        const bool passes = c.alert != 0;
        EXPECT_EQ(alert.m_bHasEventSeqNum, !passes && c.numbered);
        EXPECT_EQ(CMarvelEvtObserver::m_CurEventSeqNum, passes ? c.sequence : 7U);
        const auto wanted = c.eventClass == MV_EVENT_CONTROLLER
                                ? Observer::Action{c.alert, SDO_OBJTYPE_CONTROLLER, 101, 1, NONE}
                                : Observer::Action{c.alert, SDO_OBJTYPE_PHYSICAL_DISK, 101, 1, 3};
        EXPECT_EQ(observer.m_actions, std::vector(passes ? 1 : 0, wanted));
    }
}

} // namespace
