#include "common/PluginTest.h"
#include "common/SdoObject.h"
#include "discovery/CMarvelSubSystemMgr.h"
#include "discovery/CVDDiscovery.h"
#include "entry/CCommandHandler.h"
#include "events/CMarvelEventManager.h"
#include "model/IController.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"

#include <tuple>

using testing::ElementsAre, testing::ElementsAreArray, testing::Key;

namespace
{

// ---- over a vendor whose every call is noted and every answer planned

struct Plan {
    std::map<std::string, unsigned int> answers; // 0 unless planned
    Lines calls;

    template <class... Numbers>
    unsigned int call(std::string text, Numbers... numbers)
    {
        ((text += ' ' + std::to_string(numbers)), ...);
        calls.push_back(text);
        return answers[text];
    }
};

struct Events : CMarvelEventManager {
    explicit Events(Plan& plan) : m_plan(plan) {}
    short instantiate() override
    {
        return static_cast<short>(m_plan.call("instantiate", m_CntrlIdList.size()));
    }
    void processAllEvent() override { m_plan.call("process", m_CntrlIdList.front().m_GlobalCntrlNum); }
    Plan& m_plan;
};

struct Manager : ISubSystemManager {
    using ISubSystemManager::discoverController;
    explicit Manager(Plan& plan, CMarvelEventManager* events) : m_plan(plan) { m_pEventManager = events; }
    unsigned int getTotalNoOfControllers() override { return m_plan.call("count"); }
    unsigned int discoverController(unsigned g, unsigned c) override
    {
        return m_plan.call("controller", g, c);
    }
    unsigned int discoverAllPDs(unsigned g, unsigned c) override { return m_plan.call("disks", g, c); }
    unsigned int discoverAllVDs(unsigned g, unsigned c) override { return m_plan.call("drives", g, c); }
    unsigned int discoverVD(unsigned g, unsigned c, unsigned d) override
    {
        return m_plan.call("drive", g, c, d);
    }
    unsigned int initialize() override { return 0; }
    unsigned int updateSDOProxyObj(stg::SDOProxy&, unsigned) override { return 0; }
    unsigned int createParentSDOProxyObj(stg::SDOProxy&, unsigned, unsigned) override { return 0; }
    Plan& m_plan;
};

class PlannedTest : public PluginTest
{
  protected:
    // What was said behind the label of a discovery.
    Lines said() const
    {
        const std::string label = "ZARNEK:ISubSystemManager::discover()";
        Lines lines;
        for (const std::string& line : messages())
            if (line.rfind(label, 0) == 0)
                lines.push_back(line.substr(label.size()));
        return lines;
    }

    Plan m_plan;
    Events m_events{m_plan};
    Manager m_manager{m_plan, &m_events};
    const std::string m_found = " discoverController Successful";
    const std::string m_noDisks = " discoverAllPDs Successful", m_noDrives = " discoverAllVDs Successful";
};

TEST_F(PlannedTest, FullDiscoveryNumbersAllAndPollsThoseThatAnswer)
{
    CCommandHandler::m_gQelvoGlobalCntrlNumber = 5;
    CCommandHandler::m_gQelvoTotalCntrlNumber = 7;
    m_plan.answers = {
        {"count", 3}, {"controller 5 0", 2}, {"disks 6 1", 1}, {"drives 7 2", 2}, {"instantiate 2", 256}};
    EXPECT_EQ(m_manager.discover(), 256);
    EXPECT_THAT(m_plan.calls,
                ElementsAre("count", "controller 5 0", "controller 6 1", "disks 6 1", "drives 6 1",
                            "controller 7 2", "disks 7 2", "drives 7 2", "instantiate 2"));
    EXPECT_THAT(said(), ElementsAre(m_found, m_noDisks, m_found, m_noDrives,
                                    ": Failed to instantiate objects in Event Manager. Not able to process "
                                    "events."));
    EXPECT_THAT(CCommandHandler::accessMap(), ElementsAre(Key(5), Key(6), Key(7)));
    m_plan = {};
    clear();
    EXPECT_EQ(m_manager.discover(), 0);
    m_manager.startProcessingEvents();
    EXPECT_THAT(m_plan.calls, ElementsAre("count", "instantiate 2", "process 6"));
    EXPECT_THAT(said(), ElementsAre(": Event Manager got initialized properly."));
    EXPECT_EQ(CCommandHandler::m_gQelvoGlobalCntrlNumber, 8U);
    EXPECT_EQ(CCommandHandler::m_gQelvoTotalCntrlNumber, 10U);
}

TEST_F(PlannedTest, RediscoveryTellsFailureAndLeavesCountersAndEventsAlone)
{
    struct Case {
        std::string failing;
        unsigned int status;
        std::size_t calls;
        Lines said;
    };
    const Lines all{"controller 40 2", "disks 40 2", "drives 40 2"};
    for (const Case& c :
         {Case{"", 0, 3, {m_found}}, Case{"controller 40 2", 1, 1, {}},
          Case{"disks 40 2", 1, 3, {m_found, m_noDisks}}, Case{"drives 40 2", 1, 3, {m_found, m_noDrives}}}) {
        CCommandHandler::accessMap().clear();
        clear();
        m_plan = {{{c.failing, 2}}, {}};
        EXPECT_EQ(m_manager.discover(40, 2), c.status);
        EXPECT_THAT(m_plan.calls, ElementsAreArray(all.begin(), all.begin() + static_cast<int>(c.calls)));
        EXPECT_EQ(said(), c.said);
        EXPECT_THAT(CCommandHandler::accessMap(), ElementsAre(Key(40)));
    }
    EXPECT_EQ(CCommandHandler::m_gQelvoGlobalCntrlNumber + CCommandHandler::m_gQelvoTotalCntrlNumber, 0U);

    // Without a query layer there is nothing.
    IController controller;
    EXPECT_EQ(m_manager.processDiscovery(controller), 1U);
    EXPECT_EQ(m_manager.ISubSystemManager::getTotalNoOfControllers(), 0U);
    EXPECT_EQ(m_manager.ISubSystemManager::discoverAllPDs(8, 3), 1U);
    EXPECT_EQ(m_manager.ISubSystemManager::discoverAllVDs(8, 3), 1U);

    CVDDiscovery command(&m_manager, &ISubSystemManager::discoverVD);
    command.setArguments(4, 5, 6);
    EXPECT_EQ(command.execute(), 0U);
    EXPECT_EQ(m_plan.calls.back(), "drive 4 5 6");
}

// ---- with all that is real: the Marvell manager, its layer over the simulator, and the data engine

// An object in the data engine, and what a virtual disk has from a disk.
struct Stored {
    unsigned int type = NO_NUMBER;
    unsigned int insertions = 1;
    int parent = -1; // -1 at the top
    std::vector<int> links = {};
    unsigned int protocol = NO_NUMBER, media = NO_NUMBER;

    bool operator==(const Stored& other) const
    {
        return std::tie(type, insertions, parent, links, protocol, media) ==
               std::tie(other.type, other.insertions, other.parent, other.links, other.protocol, other.media);
    }
};
using Engine = std::vector<Stored>;

Engine engine()
{
    ral_snapshot* const all = ral_snapshot_create();
    Engine objects;
    for (unsigned int index = 0; index < ral_snapshot_count(all); ++index) {
        const void* const object = ral_snapshot_object(all, index);
        Stored stored{numberOf(object, SSPROP_OBJTYPE_U32), ral_snapshot_insertions(all, index),
                      ral_snapshot_parent(all, index)};
        for (unsigned int link = 0; link < ral_snapshot_link_count(all, index); ++link)
            stored.links.push_back(ral_snapshot_link(all, index, link));
        if (stored.type != SDO_OBJTYPE_PHYSICAL_DISK) {
            stored.protocol = numberOf(object, SSPROP_BUSPROTOCOL_U32);
            stored.media = numberOf(object, SSPROP_MEDIA_U32);
        }
        objects.push_back(stored);
    }
    ral_snapshot_destroy(all);
    return objects;
}

class WalkTest : public PluginTest
{
  protected:
    // Two adapters, numbered from 100, of which the first answers nothing.
    WalkTest()
    {
        loadScenarioText(R"({"format": 1, "name": "test", "adapters": [{"slot": 0, "maxBufferKB": 64,
        "fail": {"MV_Adapter_Get_OEM_Data": 187, "MV_LD_GetConfig": 5}}, {"slot": 1, "maxBufferKB": 64,
        "virtualDisks": [{"id": 6, "logicalDrive": 4}], "disks": [{"id": 20, "slot": 7, "linkFlags": "sas",
        "media": "ssd"}, {"id": 21, "slot": 3, "linkFlags": "sata"}]}]})");
        CCommandHandler::getUniqueInstance()->initialize();
        m_manager = CMarvelSubSystemMgr::getUniqueInstance();
        clear();
        unsigned int total = 0;
        CCommandHandler::getUniqueInstance()->discoverAllControllers(100, &total);
    }
    // What the walk said of failures, behind the names of its classes.
    Lines failures() const
    {
        Lines lines;
        for (const std::string& line : messages())
            for (const std::string label : {"ZARNEK:ISubSystemManager:", "ZARNEK:CMarvelSubSystemMgr::"})
                if (line.rfind(label, 0) == 0 && line.find("Failed") != std::string::npos)
                    lines.push_back(line.substr(label.size()));
        return lines;
    }

    CMarvelSubSystemMgr* m_manager = nullptr;
    const Stored m_controller{SDO_OBJTYPE_CONTROLLER, 1, -1, {}, SDO_BUS_SATA};
    const Stored m_disk{SDO_OBJTYPE_PHYSICAL_DISK, 1, 0};
};

TEST_F(WalkTest, NothingGoesInOfWhatAQueryRefuses)
{
    EXPECT_THAT(CCommandHandler::accessMap(), ElementsAre(Key(100), Key(101)));
    EXPECT_EQ(m_manager->getMgrUniqueID(), 1U) << "the number that the handler removes it by";
    EXPECT_EQ(m_manager->discoverAllVDs(100, 0) + m_manager->discoverVD(100, 0, 6), 1U);
    EXPECT_EQ(ral_call_count("RalInsertObject"), 5U);
}

TEST_F(WalkTest, FailuresOfTheDataEngineStopNothing)
{
    constexpr unsigned int DRIVE = SDO_OBJTYPE_VIRTUAL_DISK, NONE = NO_NUMBER;
    constexpr unsigned int SAS = SDO_BUS_SAS, SSD = SDO_MEDIA_SSD;
    const Stored bare{DRIVE, 1, 0, {1, 2}};
    const auto with = [this](const Stored& drive) { return Engine{m_controller, m_disk, m_disk, drive}; };
    const std::string update = "updateSDOProxyObj(): Failed to ";
    const std::string
        noDisk = update + "retrieve associated Objects.",
        noLink = update + "create link with PD.",
        outdated = "createSDOProxyObj( std::vector<CVirtualDevice*>& ): Failed to update SDOProxy Object.";
    struct Case {
        const char* call;
        unsigned int nth, back; // the nth call, or so many ahead of the last one
        int status;
        Engine engine;
        Lines failures;
    };
    for (const Case& c : {
             // The second disk has no media.
             Case{"RalInsertObject",
                  2,
                  0,
                  2,
                  {m_controller, m_disk, {DRIVE, 2, 0, {1}, SDO_BUS_SATA}},
                  {" insertIntoRAL() Failed"}},
             Case{"RalListAssociatedObjects", 3, 0, 1, with({DRIVE}), {noDisk}},
             Case{"RalListAssociatedObjects", 4, 0, 1, with({DRIVE, 2, 0, {}, SAS, SSD}), {noLink}},
             Case{"RalListAssociatedObjects", 5, 0, 1, with(bare), {noDisk, outdated}},
             Case{"RalListAssociatedObjects", 5, 0, 2, with(bare), {noDisk}},
             Case{"RalLinkObjects", 2, 0, 1, with({DRIVE, 2, 0, {1}, SAS, SSD}), {noLink}},
             Case{"SMSDOConfigClone", 0, 2, 0, with({DRIVE, 2, 0, {1, 2}}), {}},
             Case{"SMSDOConfigGetDataByID", 0, 1, 1, with({DRIVE, 2, 0, {1, 2}, NONE, SSD}), {}},
         }) {
        SCOPED_TRACE(testing::Message() << c.call << ' ' << c.nth << ' ' << c.back);
        const unsigned int before = morlan_call_count(c.call);
        m_manager->discover(101, 1);
        const unsigned int nth = c.nth != 0 ? c.nth : morlan_call_count(c.call) - before - c.back;
        ral_reset();
        EXPECT_NE(ral_fail_call(c.call, nth, 1, c.status), morlan_fail_call(c.call, nth, 1, c.status));
        clear();
        EXPECT_EQ(m_manager->discover(101, 1), 0U);
        EXPECT_EQ(engine(), c.engine);
        EXPECT_EQ(failures(), c.failures);
    }
}

} // namespace
