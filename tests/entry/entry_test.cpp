#include "common/PluginTest.h"
#include "discovery/CMarvelSubSystemMgr.h"
#include "discovery/CSubSystemFactory.h"
#include "entry/CCommandHandler.h"
#include "entry/CCommandHandler_Helper.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <sdo.h>
#include <zarnek.h>

#include <cstdint>
#include <cstring>
#include <regex>
#include <typeinfo>

using namespace testing;

namespace
{

using Numbers = std::vector<unsigned int>;

class EntryTest : public PluginTest
{
  protected:
    // Commands other than 20 and 22 get null pointers: they follow neither.
    unsigned int send(unsigned int command)
    {
        m_slot = command == 22 ? &m_total : &m_mark;
        return libpld_sm_zarnek_entry(command, command == 22 ? &m_first : nullptr,
                                      command == 20 || command == 22 ? &m_slot : nullptr);
    }
    // The exported function's and the handler's lines, each before a '|', the commonest labels and the words
    // of a frame shortened. The singleton's accessor is left out: each walk over the managers calls it too.
    std::string ownLog() const
    {
        std::string joined;
        for (const std::string& line : log())
            joined += std::regex_search(line, std::regex("CCommandHandler(?!::getUnique)|_entry"))
                          ? line + '|'
                          : "";
        joined = std::regex_replace(joined, std::regex("ZARNEK:CCommandHandler::"), "H:");
        joined = std::regex_replace(joined, std::regex("ZARNEK:CCommandHandler:navigator\\(\\)"), "N");
        joined = std::regex_replace(joined, std::regex("ZARNEK:pld_sm_zarnek_entry\\(\\)"), "E");
        return std::regex_replace(std::regex_replace(joined, std::regex(" ENTRY "), "{"),
                                  std::regex(" EXIT "), "}");
    }

    unsigned int m_mark = 0;
    void* m_slot = nullptr;
    unsigned int m_first = 4294967295U;
    unsigned int m_total = 77;
};

TEST_F(EntryTest, EachCommandHasItsStatusAndLines)
{
    writePrivateIni(""); // no vendor, so no manager
    const auto expect = [this](const Numbers& commands, unsigned int status, const std::string& said) {
        for (const unsigned int command : commands) {
            clear();
            EXPECT_EQ(send(command), status) << command;
            EXPECT_EQ(ownLog(), "E{|N{|" + said + "E}|");
        }
    };
    expect({0}, 2052, "H:navigator(): command not supported - 0|");
    expect({10}, 2052, "H:navigator(): command not supported - 10|");
    expect({11, 19, 31, 4294967295U}, 2052, "N}|");
    expect({24, 28, 30}, 2052, "N: Fallen into default case of Control Command.|N}|");
    expect({26, 27, 29}, 0, "N}|");
    expect({21}, 0,
           "N: Start_Monitoring.|H:startMonitoring(){|H:startMonitoring()}|"
           "N: ZARNEK Start_Monitoring is successful.|N}|");
    expect({22}, 0,
           "N: Discover|ZARNEK:CCommandHandler: discoverAllControllers(){|"
           "H:discoverAllControllers(): Global Controller Number received from VAL Layer = 4294967295|"
           "H:discoverAllControllers(): Total Controller Count = 0|"
           "ZARNEK:CCommandHandler: discoverAllControllers()}|N: ZARNEK Discovery is successful.|N}|");
    EXPECT_EQ(m_total, 0U);
    EXPECT_EQ(CCommandHandler::m_gValGlobalCntrlNumber, m_first);
    expect({25}, 0,
           "N: Stop_Monitoring.|H:destroyAllResources(){|H:deleteAllElementsFromVector(){|"
           " H:deleteAllElementsFromVector()}|H:destroyAllResources()}|"
           "N: ZARNEK Stop_Monitoring is successful.|N}|");
    expect({23, 23}, 0,
           "N: Terminate|N: ZARNEK Terminate is being invoked from pld_sm_zarnek_entry().|N}|"
           "E: Releasing CCommand Handler Instance and Going to Terminate The Process.|"
           "CCommandHandler::destroyMe(){|H:~CCommandHandler(){|H:~CCommandHandler(): Destroying Mutex.|"
           "H:~CCommandHandler()}|CCommandHandler::destroyMe()}|");
    expect({20}, 0,
           "N: Initialize|H:initialize(){|H:initialize()}|N: ZARNEK initialization is successful.|N}|");
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(m_slot), 9U);
}

TEST_F(EntryTest, NoCommandIsRefusedForItsPlace)
{
    loadScenario(R"({"format": 1, "name": "pair",
                     "adapters": [{"slot": 0, "maxBufferKB": 64}, {"slot": 1, "maxBufferKB": 64}]})");
    // What stands at last: totals told, controllers in the data engine, managers listed and destroyed, event
    // threads started. The nth discovery numbers from n times 10.
    const auto expect = [this](const Numbers& commands, const Numbers& totals, const Numbers& controllers,
                               std::size_t listed, int destroyed, int started) {
        SCOPED_TRACE(PrintToString(commands));
        CMarvelSubSystemMgr::destroyMe();
        CCommandHandler::destroyMe();
        CCommandHandler::m_gQelvoTotalCntrlNumber = 0;
        ral_reset();
        clear();
        m_first = 0;
        Numbers told;
        morlan_hold_threads(1); // until they are stopped: two threads must not log at once
        for (const unsigned int command : commands) {
            m_first += command == 22 ? 10 : 0;
            EXPECT_EQ(send(command), 0U);
            EXPECT_TRUE(command != 23 || morlan_live_mutexes() == 0);
            if (command == 22)
                told.push_back(m_total);
        }
        EXPECT_EQ(told, totals);
        EXPECT_EQ(engineObjectCount(), controllers.size());
        for (const unsigned int number : controllers)
            EXPECT_NE(engineObject(SDO_OBJTYPE_CONTROLLER, SSPROP_GLOBALCONTROLLERNUM_U32, number), nullptr);
        EXPECT_EQ(CCommandHandler::getUniqueInstance()->accessVector().size(), listed);
        EXPECT_THAT(log(), Contains(HasSubstr("~CMarvelSubSystemMgr() ENTRY")).Times(destroyed));
        EXPECT_THAT(log(), Contains(HasSubstr("Event Thread got created")).Times(started));
    };
    expect({20, 22, 21, 25, 23}, {2}, {10, 11}, 0, 1, 1);
    // Without a manager nothing happens.
    expect({21, 22, 25, 23, 23}, {0}, {}, 0, 0, 0);
    expect({20, 22, 25, 22, 21}, {2, 2}, {10, 11}, 0, 1, 0);
    // The total is a running sum and outlives the handler.
    expect({20, 22, 22}, {2, 4}, {10, 11, 20, 21}, 1, 0, 0);
    expect({20, 22, 25, 23, 20, 22}, {2, 4}, {10, 11, 20, 21}, 1, 1, 0);
    EXPECT_THAT(CCommandHandler::accessMap(), ElementsAre(Key(10), Key(11), Key(20), Key(21)));
    // Each initialise lists the manager once per library, and the libraries add up until 23.
    expect({20, 20, 22, 25, 25}, {6}, {10, 11, 12, 13, 14, 15}, 0, 1, 0);
    expect({20, 22, 25, 20, 22}, {2, 6}, {10, 11, 20, 21, 22, 23}, 2, 1, 0);
}

// Notes its calls, all of which fail.
struct FakeManager : ISubSystemManager {
    explicit FakeManager(std::vector<const void*>& calls) : m_calls(calls) { setMgrUniqueID(2); }
    using ISubSystemManager::discover;
    using ISubSystemManager::discoverController;
    short discover() override { return m_calls.push_back(this), 1; }
    unsigned int initialize() override { return m_calls.push_back(this), 1; }
    unsigned int discoverController(unsigned int, unsigned int) override { return 1; }
    unsigned int updateSDOProxyObj(stg::SDOProxy&, unsigned int) override { return 1; }
    unsigned int createParentSDOProxyObj(stg::SDOProxy&, unsigned int, unsigned int) override { return 1; }
    std::vector<const void*>& m_calls;
};

// Removing it destroys the singleton, whose class name stands within this one's.
struct LikeCMarvelSubSystemMgr2 : FakeManager {
    using FakeManager::FakeManager;
};

class HandlerTest : public EntryTest
{
  protected:
    // So often the singleton was to be destroyed since the last clear.
    void expectDestructions(int count) const
    {
        EXPECT_THAT(log(), Contains("ZARNEK:CMarvelSubSystemMgr::destroyMe() ENTRY ").Times(count));
    }

    CCommandHandler& m_handler = *CCommandHandler::getUniqueInstance();
    std::vector<ISubSystemManager*>& m_list = m_handler.accessVector();
    std::map<unsigned int, ISubSystemManager*>& m_map = CCommandHandler::accessMap();
    std::vector<const void*> m_calls;
    FakeManager m_one{m_calls}, m_two{m_calls};
    LikeCMarvelSubSystemMgr2 m_alike{m_calls};
};

TEST_F(HandlerTest, ListIsWalkedInOrderAndLosesByIdentifierAndClassName)
{
    writePrivateIni("");
    m_list = {&m_alike, &m_one, &m_two};
    EXPECT_EQ(m_handler.initialize(), 0);
    EXPECT_EQ(m_handler.discoverAllControllers(5, &m_total), 0);
    EXPECT_THAT(m_calls, ElementsAre(&m_alike, &m_one, &m_two, &m_alike, &m_one, &m_two));

    m_one.setMgrUniqueID(1);
    m_handler.deleteFromVector(7U);
    m_handler.deleteFromVector(nullptr);
    EXPECT_EQ(m_list.size(), 3U);
    m_handler.deleteFromVector(&m_two); // by its identifier, which another bears before it
    EXPECT_THAT(m_list, ElementsAre(&m_one, &m_two));
    expectDestructions(1);

    m_list = {&m_one, &m_alike};
    clear();
    EXPECT_EQ(m_handler.destroyAllResources(), 0);
    EXPECT_THAT(m_list, IsEmpty());
    expectDestructions(1);
    const std::string label = "ZARNEK:CCommandHandler::removeSubSystemMgr()";
    const std::string name = label + ": SubSystem Manager Name => ";
    EXPECT_EQ(messages(), Lines({name + typeid(m_one).name(), name + typeid(m_alike).name(),
                                 label + ": Destroying CMarvelSubSystemMgr."}));
    clear();
    ISubSystemManager* none = nullptr;
    EXPECT_THROW(m_handler.removeSubSystemMgr(none), std::bad_typeid);
    EXPECT_THAT(log(), ElementsAre(label + " ENTRY "));
}

TEST_F(HandlerTest, MapKeepsTheFirstManagerAndLosesByKey)
{
    CCommandHandler::insertIntoMap(5, &m_one);
    CCommandHandler::insertIntoMap(5, &m_two);
    CCommandHandler::insertIntoMap({6, &m_alike});
    CCommandHandler::insertIntoMap({6, &m_one});
    CCommandHandler::deleteFromMap(8U);
    CCommandHandler::deleteFromMap({8, &m_alike});
    CCommandHandler::deleteFromMap({5, nullptr});
    EXPECT_THAT(m_map, ElementsAre(Pair(5, &m_one), Pair(6, &m_alike)));
    CCommandHandler::deleteFromMap({5, &m_alike}); // what stands under the key is what counts
    expectDestructions(0);
    CCommandHandler::deleteFromMap(6U);
    expectDestructions(1);
    EXPECT_THAT(m_map, IsEmpty());
    m_map = {{0, nullptr}, {1, &m_one}, {2, &m_alike}};
    CCommandHandler::deleteAllElementsFromMap();
    EXPECT_THAT(m_map, IsEmpty());
    expectDestructions(2);
}

TEST_F(HandlerTest, CopiedHelperKeepsItsModeButNoFactory)
{
    CSubSystemFactory factory;
    CSubSystemFactory* borrowed = &factory;
    const stg::CCommandHandler_Helper original(borrowed), copy(original);
    const void* fields[4]; // handler and factory, twice
    std::memcpy(fields, &original, sizeof fields / 2);
    std::memcpy(fields + 2, &copy, sizeof fields / 2);
    EXPECT_THAT(fields, ElementsAre(&m_handler, &factory, &m_handler, nullptr));

    const stg::CCommandHandler_Helper remover(true);
    ISubSystemManager* removed = &m_alike;
    EXPECT_TRUE(stg::CCommandHandler_Helper(remover)(removed));
    expectDestructions(1);
}

TEST_F(HandlerTest, NullInTheListIsNotFollowed)
{
    writePrivateIni("");
    m_list = {nullptr, &m_one};
    EXPECT_EQ(m_handler.initialize(), 0);
    EXPECT_EQ(m_handler.discoverAllControllers(5, &m_total), 0);
    EXPECT_THAT(m_calls, ElementsAre(&m_one, &m_one));
    m_handler.deleteFromVector(2U);
    EXPECT_THAT(m_list, ElementsAre(nullptr));
    EXPECT_EQ(m_handler.startMonitoring(), 0);
    EXPECT_EQ(m_handler.destroyAllResources(), 0);
    EXPECT_THAT(m_list, IsEmpty());
}

} // namespace
