#include "common/PluginTest.h"
#include "discovery/ICommand.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEventManager.h"
#include "events/CMarvelEvtObserver.h"
#include "events/CMarvelEvtSubject.h"
#include "morlan/morlan_inspect.h"
#include "mvlayer/Binders.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"
#include "support/CLogger.h"

namespace
{

constexpr unsigned int NONE = 0xFFFFFFFF;

struct Observer : CMarvelEvtObserver {
    using CMarvelEvtObserver::m_pfnTakeAction;
    short generateActionCommand(unsigned alert, unsigned type, unsigned global, unsigned index,
                                unsigned device) override
    {
        stg::lout << "action " << alert << ' ' << type << ' ' << global << ' ' << index << ' ' << device
                  << '\n';
        return 0;
    }
};

void fill(CMarvelAlert& alert, unsigned eventClass, unsigned code, unsigned device, unsigned sequence)
{
    const auto narrow = [](unsigned number) { return static_cast<std::uint16_t>(number); };
    _Event event{narrow(eventClass), narrow(code), {}, narrow(device), {}, sequence, {}};
    stg::SInfoHelper_t helper{101, 1, 0, 0, ""};
    stg::QLVEventBinder_t binder(&event, &helper);
    alert = &binder;
}

struct ObserverTest : PluginTest {
    // Notes a notification: each property, and after it those of the object inside.
    static void receive(void* text, const void* object)
    {
        unsigned short id = 0;
        unsigned char type = 0;
        const void* value = nullptr;
        unsigned int size = 0;
        for (unsigned int i = 0; morlan_sdo_property_at(object, i, &id, &type, &value, &size) == 0; ++i) {
            *static_cast<std::string*>(text) += std::to_string(id) + '=' + property(object, id) + ' ';
            if (type == 13)
                receive(text, value);
        }
        *static_cast<std::string*>(text) += '|';
    }
};

TEST_F(ObserverTest, PassesWhatIsMappedAndNewerThanTheStoredNumber)
{
    writeMapping("[Adapter]\n20=2048\n21=2047\n22=4294967294\n24=4294967295\n[PhysicalDevice]\n20=2050\n");
    using Case = std::tuple<unsigned, unsigned, unsigned, unsigned, std::string>;
    const std::string type = "Object Type is not matching. Not able to process alert.|";
    for (const auto& [stored, eventClass, code, sequence, outcome] :
         std::vector<Case>{{100, 0, 20, 101, "2048"},
                           {100, 2, 20, 300, "2050"},
                           {100, 0, 22, NONE - 1, "4294967294"},
                           {100, 0, 21, 500, "unmapped"},
                           {100, 0, 24, 500, "unmapped"},
                           {100, 2, 22, 5, "unmapped"},
                           {100, 0, 20, 100, "old"},
                           {0, 0, 20, 0, "old"},
                           {0, 0, 20, NONE, "old"},
                           {NONE, 0, 20, NONE - 1, "old"},
                           {100, 0, 21, 500, "unmapped numberless"},
                           {100, 0, 20, 500, "numberless"},
                           {100, 5, 20, 500, "typeless"}}) {
        CMarvelEventManager::m_PrevEventSeqNum = stored;
        CMarvelEvtObserver::m_CurEventSeqNum = 7;
        CMarvelAlert alert;
        fill(alert, eventClass, code, 3, sequence);
        const bool numbered = outcome.find("numberless") == std::string::npos;
        alert.m_bHasEventSeqNum = numbered;
        clear();
        EXPECT_EQ(Observer().processAlert(&alert), 1);
        const bool passes = outcome[0] <= '9';
        EXPECT_EQ(alert.m_bHasEventSeqNum, !passes && numbered);
        EXPECT_EQ(CMarvelEvtObserver::m_CurEventSeqNum, passes ? sequence : 7U);
        const std::string lines =
            passes ? "action " + outcome + (eventClass == 0 ? " 769 101 1 4294967295|" : " 772 101 1 3|")
            : outcome == "numberless" ? "Event Sequence Number is missing. Not able to process this alert.|"
            : outcome == "old"        ? "Alert Sequence Number: " + std::to_string(sequence) +
                                     " is not greater than the Sequence Number mentioned in "
                                     "MarvelAlertMapping.ini File. Not processing this Alert.|"
                               : (outcome == "typeless" ? type : "") +
                                     "Couldn't map Marvel Event Code: " + std::to_string(code) +
                                     " with VRAX Alert Code in /MarvelAlertMapping.ini File.|";
        std::string said;
        for (const std::string& line : messages())
            if (line.find("CMarvelEvtObserver::processAlert(): ") == 7 || line.find("action") == 0)
                said += line.substr(line[0] == 'a' ? 0 : 43) + '|';
        EXPECT_EQ(said, lines);
    }
}

TEST_F(ObserverTest, SendsABatchUnderThePropertiesThatNameTheObjects)
{
    writeMapping("[Adapter]\n20=2058\n[PhysicalDevice]\n20=2050\n[VirtualDevice]\n20=2057\n");
    CMarvelAlert alerts[4];
    const unsigned int classes[] = {0, 2, 0, 1};
    std::vector<CAlert*> batch;
    for (unsigned int i = 0; i < 4; ++i) {
        fill(alerts[i], classes[i], 20, 65535 - i, 9 - i);
        batch.push_back(&alerts[i]);
    }
    std::string sent;
    ral_set_notification_sink(receive, &sent);
    ral_fail_call("RalSendNotification", 4, 1, 5);
    clear();
    Observer().updateMyself(batch);
    const auto object = [](const std::string& number, const std::string& device, const std::string& nexus) {
        return "24685=8:" + number + " 24678=13: 24577=136:0 24582=8:1 24579=136:0 " + device +
               " 24578=136:0 24692=24:24600" + nexus + " 24583=8:9 24600=8:101 |24680=8:3070 |";
    };
    EXPECT_EQ(sent, object("2058", "24809=8:65535", " 24576=8:769") +
                        object("2050", "24810=8:65534", ",24810 24576=8:772") +
                        object("2058", "24810=8:65533", " 24576=8:769"));
    EXPECT_THAT(messages(), testing::Contains("action 2057 773 101 1 65532"))
        << "though it could not be sent";
    EXPECT_EQ(CMarvelEvtObserver::m_CurEventSeqNum, 6U) << "the last that passed, downward too";
    EXPECT_EQ(CControl_Notify::getAttribNameAndType()["m_DevID"].m_PropertyID, 24629U);

    // The property of a device without a row of its own, and the type that has no nexus.
    stg::AttribTypeMap rows;
    std::vector<unsigned int> nexus;
    Observer().createNexus(772, rows, nexus);
    clear();
    Observer().createNexus(770, rows, nexus);
    EXPECT_THAT(nexus, testing::ElementsAre(24600, 24809));
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
    static_cast<IEvtObserver&>(second) = first;
    EXPECT_EQ(second.m_pfnTakeAction, nullptr);
    second = first;
    EXPECT_EQ(second.dispatchCommand(command), 7);
    first.CMarvelEvtObserver::getAssociatedWith(&subject, sevenFor);
    EXPECT_EQ(subject.m_pObserver, CMarvelEvtObserver::getUniqueInstance());
    EXPECT_EQ(subject.m_pfnNotify, nullptr) << "the subject calls it directly";
    stg::SDOProxy proxy;
    ral_fail_call("RalSendNotification", 1, 1, 0x10005);
    EXPECT_EQ(first.sendAlert(proxy), 5);
    EXPECT_EQ(CMarvelEvtObserver::destroyMe() + CMarvelEvtObserver::destroyMe(), 0);
}

} // namespace
