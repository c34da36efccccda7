#include "common/PluginTest.h"
#include "discovery/CControllerDiscovery.h"
#include "discovery/CMarvelSubSystemMgr.h"
#include "discovery/CPDDiscovery.h"
#include "discovery/CVDDiscovery.h"
#include "entry/CCommandHandler.h"
#include "events/CMarvelEventManager.h"
#include "model/IController.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"
#include "support/CLogger.h"

#include <sdo.h>

#include <regex>

using testing::ElementsAre, testing::Key;

namespace
{

// What of a trace matches; the classes go by their initials, what belongs to global controller 101 by a
// slash.
std::string tale(const Lines& trace, const std::string& wanted)
{
    const std::regex longer("ZARNEK:(?:(I)SubSystemManager|C(M)arvelSubSystemMgr|C(P)DDiscovery)|"
                            "(/)9 24600=101|Ral(Insert|Link|List)(?:Associated)?Objects?");
    const std::regex filter(wanted);
    std::string text;
    for (std::string line : trace) {
        line = std::regex_replace(line, longer, "$1$2$3$4$5");
        if (std::regex_search(line, filter))
            text += line.substr(line.find(' ') + 1) + "|";
    }
    return text;
}

// ---- over a vendor whose every call is noted as a line and every answer planned

std::map<std::string, unsigned int> answers; // 0 unless planned

template <class... Numbers>
unsigned int call(std::string text, Numbers... numbers)
{
    ((text += ' ' + std::to_string(numbers)), ...);
    stg::lout << text << '\n';
    return answers[text];
}

struct Events : CMarvelEventManager {
    short instantiate() override { return static_cast<short>(call("instantiate", m_CntrlIdList.size())); }
    void processAllEvent() override { call("process", m_CntrlIdList.front().m_GlobalCntrlNum); }
};

struct Manager : ISubSystemManager {
    using ISubSystemManager::discoverController, ISubSystemManager::m_pEventManager;
    unsigned int getTotalNoOfControllers() override { return call("count"); }
    unsigned int discoverController(unsigned g, unsigned c) override { return call("controller", g, c); }
    unsigned int discoverAllPDs(unsigned g, unsigned c) override { return call("disks", g, c); }
    unsigned int discoverAllVDs(unsigned g, unsigned c) override { return call("drives", g, c); }
    unsigned int discoverPD(unsigned g, unsigned c, unsigned d) override { return call("disk", g, c, d); }
    unsigned int discoverVD(unsigned g, unsigned c, unsigned d) override { return call("drive", g, c, d); }
    unsigned int initialize() override { return 0; }
    unsigned int updateSDOProxyObj(stg::SDOProxy&, unsigned) override { return 0; }
    unsigned int createParentSDOProxyObj(stg::SDOProxy&, unsigned, unsigned) override { return 0; }
};

class PlannedTest : public PluginTest
{
  protected:
    void plan(std::map<std::string, unsigned int> planned)
    {
        m_manager.m_pEventManager = &m_events;
        answers = std::move(planned);
        clear();
    }
    // What the command says, calls and gives.
    template <class Command, class Action, class... Numbers>
    std::string run(Action action, Numbers... numbers)
    {
        plan({{"controller 4 5", 3},
              {"disk 4 5 6", 3},
              {"disks 4 5", 3},
              {"drive 4 5 6", 3},
              {"drives 4 5", 3}});
        auto command = std::make_unique<Command>(&m_manager, action);
        command->setArguments(numbers...);
        const unsigned int result = static_cast<ICommand&>(*command).execute();
        command.reset();
        return tale(trace(), "") + std::to_string(result);
    }

    Events m_events;
    Manager m_manager;
};

TEST_F(PlannedTest, FullDiscoveryNumbersAllAndPollsThoseThatAnswer)
{
    CCommandHandler::m_gQelvoGlobalCntrlNumber = 5;
    CCommandHandler::m_gQelvoTotalCntrlNumber = 7;
    plan({{"count", 3}, {"controller 5 0", 2}, {"disks 6 1", 1}, {"drives 7 2", 2}, {"instantiate 2", 256}});
    EXPECT_EQ(m_manager.discover(), 256);
    EXPECT_EQ(tale(trace(), "^(?!.*EventManager::)"),
              "I::discover() ENTRY |count|I: discover  cntrlCount: 3|controller 5 0|controller 6 1|"
              "I::discover() discoverController Successful|disks 6 1|I::discover() discoverAllPDs Successful|"
              "drives 6 1|controller 7 2|I::discover() discoverController Successful|disks 7 2|drives 7 2|"
              "I::discover() discoverAllVDs Successful|instantiate 2|I::discover(): Failed to instantiate "
              "objects in Event Manager. Not able to process events.|I::discover() EXIT |");
    EXPECT_THAT(CCommandHandler::accessMap(), ElementsAre(Key(5), Key(6), Key(7)));
    plan({});
    EXPECT_EQ(m_manager.discover(), 0);
    m_manager.startProcessingEvents();
    EXPECT_EQ(tale(trace(), "^(?!.*(ENTRY|EXIT) $)"),
              "count|I: discover  cntrlCount: 0|instantiate 2|"
              "I::discover(): Event Manager got initialized properly.|process 6|");
    EXPECT_EQ(CCommandHandler::m_gQelvoGlobalCntrlNumber, 8U);
    EXPECT_EQ(CCommandHandler::m_gQelvoTotalCntrlNumber, 10U);
}

TEST_F(PlannedTest, RediscoveryTellsFailureAndLeavesCountersAndEventsAlone)
{
    const std::string found = "controller 40 2|I::discover() discoverController Successful|disks 40 2|";
    const std::map<std::string, std::string> tales = {
        {"", found + "drives 40 2|I::discover() EXIT |0"},
        {"controller 40 2", "controller 40 2|I::discover() EXIT |1"},
        {"disks 40 2", found + "I::discover() discoverAllPDs Successful|drives 40 2|I::discover() EXIT |1"},
        {"drives 40 2", found + "drives 40 2|I::discover() discoverAllVDs Successful|I::discover() EXIT |1"}};
    for (const auto& [failing, said] : tales) {
        CCommandHandler::accessMap().clear();
        plan({{failing, 2}});
        const unsigned int result = m_manager.discover(40, 2);
        EXPECT_EQ(tale(trace(), "") + std::to_string(result), "I::discover() ENTRY |" + said);
        EXPECT_THAT(CCommandHandler::accessMap(), ElementsAre(Key(40)));
    }
    EXPECT_EQ(CCommandHandler::m_gQelvoGlobalCntrlNumber + CCommandHandler::m_gQelvoTotalCntrlNumber, 0U);

    // Without a query layer there is nothing.
    IController controller;
    EXPECT_EQ(m_manager.processDiscovery(controller), 1U);
    EXPECT_EQ(m_manager.ISubSystemManager::getTotalNoOfControllers(), 0U);
    EXPECT_EQ(m_manager.ISubSystemManager::discoverAllPDs(8, 3), 1U);
    EXPECT_EQ(m_manager.ISubSystemManager::discoverAllVDs(8, 3), 1U);
}

TEST_F(PlannedTest, CommandsRunTheActionThatTheyHold)
{
    using Base = ISubSystemManager;
    const auto framed = [](const std::string& form, const std::string& called) {
        return "P::CPDDiscovery() with " + form +
               "ArgsActionPtr. ENTRY |P::CPDDiscovery() EXIT |"
               "P::setArguments() ENTRY |P::setArguments() EXIT |P::execute() ENTRY |" +
               called + "P::execute() EXIT |P::~CPDDiscovery() ENTRY |P::~CPDDiscovery() EXIT |0";
    };
    const Base::twoArgsActionPtr controller = &Base::discoverController, none = nullptr;
    EXPECT_EQ(run<CControllerDiscovery>(controller, 4U, 5U), "controller 4 5|3");
    EXPECT_EQ(run<CVDDiscovery>(&Base::discoverVD, 4U, 5U, 6U), "drive 4 5 6|0");
    EXPECT_EQ(run<CVDDiscovery>(&Base::discoverAllVDs, 4U, 5U, 6U), "drives 4 5|0");
    EXPECT_EQ(run<CVDDiscovery>(none, 4U, 5U, 6U), "0");
    EXPECT_EQ(run<CPDDiscovery>(&Base::discoverPD, 4U, 5U, 6U), framed("three", "disk 4 5 6|"));
    EXPECT_EQ(run<CPDDiscovery>(&Base::discoverAllPDs, 4U, 5U, 6U), framed("two", "disks 4 5|"));
    EXPECT_EQ(run<CPDDiscovery>(none, 4U, 5U, 6U), framed("two", ""));
}

// ---- with all that is real: the Marvell manager, its layer over the simulator, and the data engine

class WalkTest : public PluginTest
{
  protected:
    // Two adapters, numbered from 100, of which the first answers nothing.
    WalkTest()
    {
        loadScenario(R"({"format": 1, "name": "test", "adapters": [{"slot": 0, "maxBufferKB": 64,
        "fail": {"MV_Adapter_Get_OEM_Data": 187, "MV_LD_GetConfig": 5}}, {"slot": 1, "maxBufferKB": 64,
        "virtualDisks": [{"id": 6, "logicalDrive": 4}], "disks": [{"id": 20, "slot": 7, "linkFlags": "sas",
        "media": "ssd"}, {"id": 21, "slot": 3, "linkFlags": "sata"}]}]})");
        CCommandHandler::getUniqueInstance()->initialize();
        m_manager = CMarvelSubSystemMgr::getUniqueInstance();
        clear();
        unsigned int total = 0;
        CCommandHandler::getUniqueInstance()->discoverAllControllers(100, &total);
    }

    // The data engine's objects: type, insertions, parent, links; of drives what they have from a disk, of
    // incomplete ones everything.
    static std::string engine()
    {
        ral_snapshot* const all = ral_snapshot_create();
        std::string text;
        for (unsigned int index = 0; index < ral_snapshot_count(all); ++index) {
            const void* const object = ral_snapshot_object(all, index);
            const std::string type = property(object, SSPROP_OBJTYPE_U32);
            text += type + "x" + std::to_string(ral_snapshot_insertions(all, index)) + "@" +
                    std::to_string(ral_snapshot_parent(all, index));
            for (unsigned int link = 0; link < ral_snapshot_link_count(all, index); ++link)
                text += ">" + std::to_string(ral_snapshot_link(all, index, link));
            for (const unsigned int id : propertyIds(object))
                if (type == "none" ||
                    (type == "8:773" && (id == SSPROP_BUSPROTOCOL_U32 || id == SSPROP_MEDIA_U32)))
                    text += "," + std::to_string(id) + "=" + property(object, id);
            text += " ";
        }
        ral_snapshot_destroy(all);
        return text;
    }

    CMarvelSubSystemMgr* m_manager = nullptr;
};

TEST_F(WalkTest, NothingGoesInOfWhatAQueryRefuses)
{
    EXPECT_THAT(CCommandHandler::accessMap(), ElementsAre(Key(100), Key(101)));
    EXPECT_EQ(m_manager->discoverAllVDs(100, 0) + m_manager->discoverVD(100, 0, 6), 1U);
    EXPECT_EQ(ral_call_count("RalInsertObject"), 5U);
}

TEST_F(WalkTest, FailuresOfTheDataEngineStopNothing)
{
    const std::string head = "8:769x1@-1 ", disk = "8:772x1@0 ", orphan = "8:772x1@-1 ";
    // The second disk has no media.
    const std::string all = head + disk + disk, values = ",24768=8:8,24888=8:2 ", second = ",24768=8:7 ";
    const std::string update = "M::updateSDOProxyObj(): Failed to ", lost = "I: insertIntoRAL() Failed|";
    const std::string noDisk = update + "retrieve associated Objects.|";
    const std::string reading = "ZARNEK:stg::SDOProxy::retrieveSpecificProperty(): ";
    const std::string unread = reading + "Failed to retrieve specific property. Prop Name = ";
    const std::string noLink = update + "create link with PD.|", noRal = update + "insert object into RAL.|";
    const std::string failed = "Failed to update SDOProxy Object.|", noProperty = update + "add property -> ";
    const std::string outdated = "I:createSDOProxyObj( std::vector<CVirtualDevice*>& ): " + failed;
    struct Case {
        const char* call;
        unsigned int nth, back; // the nth call, or so many ahead of the last one
        int status;
        std::string engine, failures;
    };
    for (const Case& c : {
             // Without their controller the disks stand at the top, where the drive finds them.
             Case{"RalInsertObject", 1, 0, 2, orphan + orphan + "8:773x2@-1>0>1" + values, lost},
             Case{"RalInsertObject", 2, 0, 2, head + disk + "8:773x2@0>1" + second, lost + unread + "24888|"},
             Case{"RalInsertObject", 4, 0, 2, all + "8:773x1@0" + values, lost},
             Case{"RalInsertObject", 5, 0, 2, all + "8:773x1@0>1>2 ", lost + noRal + outdated},
             Case{"RalListAssociatedObjects", 1, 0, 1, head + orphan + disk + "8:773x2@0>2" + second,
                  unread + "24888|"},
             Case{"RalListAssociatedObjects", 3, 0, 1, all + "8:773x1@-1 ", noDisk},
             Case{"RalListAssociatedObjects", 4, 0, 1, all + "8:773x2@0" + values, noLink},
             Case{"RalListAssociatedObjects", 5, 0, 1, all + "8:773x1@0>1>2 ", noDisk + outdated},
             Case{"RalListAssociatedObjects", 5, 0, 2, all + "8:773x1@0>1>2 ", noDisk},
             Case{"RalLinkObjects", 2, 0, 1, all + "8:773x2@0>1" + values, noLink},
             Case{"SMSDOConfigClone", 0, 2, 0, all + "8:773x2@0>1>2 ", unread + "24888|"},
             Case{"SMSDOConfigGetDataByID", 0, 1, 1, all + "8:773x2@0>1>2,24888=8:2 ", unread + "24768|"},
             Case{"SMSDOConfigAddData", 0, 1, 1, all + "8:773x2@0>1>2,24888=8:2 ", noProperty + "24768|"},
             Case{"SMSDOConfigAddData", 0, 0, 1, all + "8:773x2@0>1>2,24768=8:8 ", noProperty + "24888|"},
             Case{"SMSDOConfigAddData", 0, 0, 2, all + "8:773x2@0>1>2,24768=8:8 ", ""},
         }) {
        const unsigned int before = morlan_call_count(c.call);
        m_manager->discover(101, 1);
        const unsigned int nth = c.nth != 0 ? c.nth : morlan_call_count(c.call) - before - c.back;
        ral_reset();
        EXPECT_NE(ral_fail_call(c.call, nth, 1, c.status), morlan_fail_call(c.call, nth, 1, c.status));
        clear();
        EXPECT_EQ(m_manager->discover(101, 1), 0U);
        EXPECT_EQ(engine(), c.engine) << c.call << c.nth;
        EXPECT_EQ(tale(trace(), "[IM]:.*Failed|: Failed to retrieve specific"), c.failures);
    }
}

TEST_F(WalkTest, SingleDevicesGoInWithTheNumbersThatTheyAreAskedBy)
{
    clear();
    EXPECT_EQ(m_manager->discoverPD(101, 1, 99) + m_manager->discoverVD(101, 1, 6), 0U);
    const std::string drive = "nonex1@-1,24582=8:1,24809=8:6,24600=8:101";
    EXPECT_EQ(engine(), "8:769x1@-1 8:772x1@0 8:772x1@0 8:773x2@0>1>2,24768=8:8,24888=8:2 "
                        "nonex1@-1,24582=8:1,24600=8:101,24810=8:99 " +
                            drive + " " + drive + ",24768=8:8,24888=8:2 ");
    ral_fail_call("RalInsertObject", 2, 1, 1);
    EXPECT_EQ(m_manager->discoverVD(101, 1, 6), 0U);
    EXPECT_EQ(tale(trace(), "Device& \\)"),
              "I:createSDOProxyObj( CVirtualDevice& ): Failed to update SDOProxy Object.|");
}

} // namespace
