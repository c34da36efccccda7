#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "common/SdoObject.h"
#include "discovery/CMarvelSubSystemMgr.h"
#include "discovery/CSubSystemFactory.h"
#include "discovery/CVDDiscovery.h"
#include "entry/CCommandHandler.h"
#include "events/CMarvelEventManager.h"
#include "model/IController.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"

using testing::Contains, testing::ElementsAre, testing::ElementsAreArray, testing::Key;

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
    const Lines all{"controller 40 2", "disks 40 2", "drives 40 2"};
    for (const auto& row : dataRows("tests/discovery/rediscovery.json")) {
        CCommandHandler::accessMap().clear();
        clear();
        m_plan = {{{row.at("failing"), 2}}, {}};
        EXPECT_EQ(m_manager.discover(40, 2), row.at("status")) << row;
        EXPECT_THAT(m_plan.calls, ElementsAreArray(all.begin(), all.begin() + row.at("calls").get<int>()));
        EXPECT_EQ(said(), row.at("said").get<Lines>()) << row;
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
    EXPECT_EQ(command.execute() + command.ICommand::execute(), 0U);
    EXPECT_EQ(m_plan.calls.back(), "drive 4 5 6");
    // What no vendor has done so far.
    ISubSystemManager& base = m_manager;
    EXPECT_EQ(base.discoverController(1) + base.discoverAllChannels(1) + base.discoverChannel(1, 2) +
                  base.discoverAllEnclosures(1) + base.discoverEnclosure(1, 2) +
                  base.discoverBatteryInfo(1, this),
              0U);
    EXPECT_EQ(base.getAllPhysicalDeviceIDs(1).size() + base.getAllPhysicalDevices(1).size() +
                  base.getAllVirtualDeviceIDs(1).size() + base.getAllVirtualDevices(1).size(),
              0U);
    EXPECT_EQ(m_plan.calls.back(), "drive 4 5 6");
}

// ---- with all that is real: the Marvell manager, its layer over the simulator, and the data engine

// What is in the data engine: how often inserted, under which and above which, and what virtual disks have
// from a disk.
std::string engine()
{
    ral_snapshot* const all = ral_snapshot_create();
    std::string text;
    for (unsigned int index = 0; index < ral_snapshot_count(all); ++index) {
        const void* const object = ral_snapshot_object(all, index);
        const unsigned int type = numberOf(object, SSPROP_OBJTYPE_U32);
        const bool isDisk = type == SDO_OBJTYPE_PHYSICAL_DISK;
        text += std::string(index == 0 ? "" : "; ") +
                (isDisk                           ? "disk x"
                 : type == SDO_OBJTYPE_CONTROLLER ? "controller x"
                                                  : "drive x") +
                std::to_string(ral_snapshot_insertions(all, index)) + " under " +
                std::to_string(ral_snapshot_parent(all, index));
        for (unsigned int link = 0; link < ral_snapshot_link_count(all, index); ++link)
            text += " above " + std::to_string(ral_snapshot_link(all, index, link));
        for (const auto& [name, property] :
             {std::pair(" bus ", SSPROP_BUSPROTOCOL_U32), std::pair(" media ", SSPROP_MEDIA_U32)})
            if (!isDisk && numberOf(object, property) != NO_NUMBER)
                text += name + std::to_string(numberOf(object, property));
    }
    ral_snapshot_destroy(all);
    return text;
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
};

TEST_F(WalkTest, NothingGoesInOfWhatAQueryRefuses)
{
    EXPECT_THAT(CCommandHandler::accessMap(), ElementsAre(Key(100), Key(101)));
    EXPECT_EQ(m_manager->getMgrUniqueID(), 1U) << "the number that the handler removes it by";
    EXPECT_EQ(m_manager->discoverAllVDs(100, 0) + m_manager->discoverVD(100, 0, 6), 1U);
    EXPECT_EQ(ral_call_count("RalInsertObject"), 5U);
    EXPECT_EQ(m_manager->exit(), 0);
    std::pair<unsigned int, IVendorLibrary*> other(SDO_VIL_NUMBER + 1, nullptr);
    EXPECT_EQ(CSubSystemFactory().createSubSystemMgrObj(other), nullptr) << "a vendor that nobody manages";
}

TEST_F(WalkTest, OneVirtualDiskGoesInWithItsNumbersAlone)
{
    clear();
    EXPECT_EQ(m_manager->discoverVD(101, 1, 6), 0U);
    EXPECT_THAT(log(), Contains("ZARNEK:ISubSystemManager: createSDOProxyObj() createSDOProxyObj&"
                                "createParentSDOProxyObj successful"));
    EXPECT_EQ(ral_incomplete_count(), 2U) << "twice, and each time without what would identify it";
    stg::SDOProxy proxy;
    EXPECT_EQ(m_manager->createParentSDOProxyObj(proxy, SDO_OBJTYPE_CONTROLLER, 101), 1U);
    EXPECT_EQ(proxy.getParentSDOConfigPtr(), nullptr);
    EXPECT_EQ(m_manager->updateSDOProxyObj(proxy, SDO_OBJTYPE_PHYSICAL_DISK), 0U);
    EXPECT_EQ(ral_call_count("RalInsertObject"), 7U);
}

TEST_F(WalkTest, FailuresOfTheDataEngineStopNothing)
{
    for (const auto& row : dataRows("tests/discovery/failures.json")) {
        const std::string text = row.at("call");
        const char* const call = text.c_str();
        const unsigned int before = morlan_call_count(call);
        m_manager->discover(101, 1);
        int nth = row.at("nth"); // from the last one if that is negative
        if (nth < 0)
            nth += static_cast<int>(morlan_call_count(call) - before);
        ral_reset();
        const auto failing = static_cast<unsigned int>(nth);
        EXPECT_NE(ral_fail_call(call, failing, 1, row.at("status")),
                  morlan_fail_call(call, failing, 1, row.at("status")));
        clear();
        EXPECT_EQ(m_manager->discover(101, 1), 0U);
        EXPECT_EQ(engine(), row.at("engine")) << row;
        EXPECT_EQ(failures(), row.at("said").get<Lines>()) << row;
    }
}

} // namespace
