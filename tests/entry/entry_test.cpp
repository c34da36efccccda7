#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "common/SdoObject.h"
#include "discovery/CMarvelSubSystemMgr.h"
#include "entry/CCommandHandler.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <sdo.h>
#include <zarnek.h>

#include <cstdint>

using namespace testing;

namespace
{

using Numbers = std::vector<unsigned int>;

class EntryTest : public PluginTest
{
  protected:
    // Commands other than initialise and discover get null pointers: they follow neither.
    unsigned int send(unsigned int command)
    {
        const bool discovers = command == ZARNEK_CMD_DISCOVER;
        m_slot = discovers ? &m_total : &m_mark;
        return libpld_sm_zarnek_entry(command, discovers ? &m_first : nullptr,
                                      discovers || command == ZARNEK_CMD_INITIALIZE ? &m_slot : nullptr);
    }

    unsigned int m_mark = 0;
    void* m_slot = nullptr;
    unsigned int m_first = 4294967295U;
    unsigned int m_total = 77;
};

TEST_F(EntryTest, OtherCommandsHaveTheirStatusAndLines)
{
    const std::string handler = "ZARNEK:CCommandHandler:navigator()";
    const auto expect = [&](const Numbers& commands, unsigned int status, const Lines& said) {
        for (const unsigned int command : commands) {
            clear();
            EXPECT_EQ(send(command), status) << command;
            EXPECT_EQ(messages(), said) << command;
            EXPECT_THAT(log(), Contains(handler + " EXIT ").Times(command < ZARNEK_CMD_FIRST ? 0 : 1));
        }
    };
    send(ZARNEK_CMD_NO_OPERATION_26); // makes the handler, and says so
    for (const unsigned int low : {0U, ZARNEK_CMD_FIRST - 1})
        expect({low}, ZARNEK_STATUS_UNSUPPORTED,
               {"ZARNEK:CCommandHandler::navigator(): command not supported - " + std::to_string(low)});
    expect({ZARNEK_CMD_FIRST, ZARNEK_CMD_INITIALIZE - 1, ZARNEK_CMD_UNSUPPORTED_30 + 1, 4294967295U},
           ZARNEK_STATUS_UNSUPPORTED, {});
    expect({ZARNEK_CMD_UNSUPPORTED_24, ZARNEK_CMD_UNSUPPORTED_28, ZARNEK_CMD_UNSUPPORTED_30},
           ZARNEK_STATUS_UNSUPPORTED, {handler + ": Fallen into default case of Control Command."});
    expect({ZARNEK_CMD_NO_OPERATION_26, ZARNEK_CMD_NO_OPERATION_27, ZARNEK_CMD_NO_OPERATION_29},
           ZARNEK_STATUS_DONE, {});
}

TEST_F(EntryTest, NoCommandIsRefusedForItsPlace)
{
    loadScenarioText(R"({"format": 1, "name": "pair",
                         "adapters": [{"slot": 0, "maxBufferKB": 64}, {"slot": 1, "maxBufferKB": 64}]})");
    // What stands at last: totals told and numbers in the data engine, how many managers are listed and were
    // destroyed, how many event threads were started. The nth discovery numbers from n times 10.
    for (const auto& row : dataRows("tests/entry/orders.json")) {
        SCOPED_TRACE(row.dump());
        CMarvelSubSystemMgr::destroyMe();
        CCommandHandler::destroyMe();
        CCommandHandler::m_gQelvoTotalCntrlNumber = 0;
        ral_reset();
        clear();
        m_first = 0;
        Numbers told, found;
        morlan_hold_threads(1); // until they are stopped: two threads must not log at once
        for (const unsigned int command : row.at("commands")) {
            m_first += command == ZARNEK_CMD_DISCOVER ? 10 : 0;
            EXPECT_EQ(send(command), ZARNEK_STATUS_DONE);
            if (command == ZARNEK_CMD_DISCOVER)
                told.push_back(m_total);
            EXPECT_TRUE(command != ZARNEK_CMD_INITIALIZE ||
                        reinterpret_cast<std::uintptr_t>(m_slot) == SDO_VIL_NUMBER);
            EXPECT_TRUE(command != ZARNEK_CMD_TERMINATE || morlan_live_mutexes() == 0);
        }
        EXPECT_EQ(told, row.at("totals").get<Numbers>());
        ral_snapshot* const snapshot = ral_snapshot_create();
        for (unsigned int index = 0; index < ral_snapshot_count(snapshot); ++index)
            found.push_back(numberOf(ral_snapshot_object(snapshot, index), SSPROP_GLOBALCONTROLLERNUM_U32));
        ral_snapshot_destroy(snapshot);
        EXPECT_EQ(found, row.at("controllers").get<Numbers>());
        EXPECT_EQ(CCommandHandler::getUniqueInstance()->accessVector().size(), row.at("listed"));
        EXPECT_THAT(log(), Contains(HasSubstr("~CMarvelSubSystemMgr() ENTRY"))
                               .Times(row.at("destroyed").get<std::size_t>()));
        EXPECT_THAT(
            log(),
            Contains(HasSubstr("Event Thread got created")).Times(row.at("started").get<std::size_t>()));
    }
    EXPECT_EQ(CCommandHandler::m_gValGlobalCntrlNumber, m_first);
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
    void expectDestructions(std::size_t count) const
    {
        EXPECT_THAT(log(), Contains("ZARNEK:CMarvelSubSystemMgr::destroyMe() ENTRY ").Times(count));
    }

    CCommandHandler& m_handler = *CCommandHandler::getUniqueInstance();
    std::vector<ISubSystemManager*>& m_list = m_handler.accessVector();
    std::vector<const void*> m_calls;
    FakeManager m_one{m_calls}, m_two{m_calls};
    LikeCMarvelSubSystemMgr2 m_alike{m_calls};
};

TEST_F(HandlerTest, ListIsWalkedInOrderAndLosesByIdentifierAndClassName)
{
    writePrivateIni("");
    m_list = {nullptr, &m_alike, &m_one, &m_two};
    EXPECT_EQ(m_handler.initialize(), 0);
    EXPECT_EQ(m_handler.discoverAllControllers(5, &m_total), 0);
    EXPECT_THAT(m_calls, ElementsAre(&m_alike, &m_one, &m_two, &m_alike, &m_one, &m_two));

    m_one.setMgrUniqueID(1);
    m_list = {nullptr, &m_alike, &m_one, &m_alike, &m_two};
    m_handler.deleteFromVector(7U);
    m_handler.deleteFromVector(nullptr);
    m_handler.deleteFromVector(&m_two); // by its identifier, which another bears before it, at each place
    EXPECT_THAT(m_list, ElementsAre(nullptr, &m_one, &m_two));
    m_handler.deleteFromVector(&m_one);
    EXPECT_THAT(m_list, ElementsAre(nullptr, &m_two)) << "which does not die of it";
    expectDestructions(1);

    m_list = {nullptr, &m_one, &m_alike};
    clear();
    EXPECT_EQ(m_handler.startMonitoring() + m_handler.destroyAllResources(), 0);
    EXPECT_THAT(m_list, IsEmpty());
    expectDestructions(1);
}

TEST_F(HandlerTest, MapLosesAManagerThatDiesUnderEachOfItsNumbers)
{
    auto& map = CCommandHandler::accessMap();
    const auto fill = [&] {
        clear();
        for (const auto& [number, manager] : std::vector<std::pair<unsigned int, ISubSystemManager*>>{
                 {1, nullptr}, {2, &m_alike}, {3, &m_one}, {4, &m_alike}, {5, &m_two}, {3, &m_two}})
            CCommandHandler::insertIntoMap({number, manager});
        EXPECT_EQ(map.at(3), &m_one) << "a number keeps its manager";
    };
    fill();
    CCommandHandler::deleteFromMap(7);
    CCommandHandler::deleteFromMap({5, nullptr});
    EXPECT_EQ(map.size(), 5U);
    CCommandHandler::deleteFromMap({1, &m_one});
    CCommandHandler::deleteFromMap(2);
    CCommandHandler::deleteFromMap(5);
    EXPECT_THAT(map, ElementsAre(Key(3)));
    expectDestructions(1);
    fill();
    CCommandHandler::deleteAllElementsFromMap();
    EXPECT_THAT(map, IsEmpty());
    expectDestructions(1);
}

} // namespace
