#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "model/CMarvelPhysicalDevice.h"
#include "model/CMarvelVirtualDevice.h"
#include "model/CMarvellController.h"
#include "mvlayer/CMVLibraryInterfaceLayer.h"
#include "vendor/CLibraryManager.h"

#include <sdo.h>

#include <optional>
#include <tuple>

namespace
{

using namespace testing;

using Layer = CMVLibraryInterfaceLayer;
using Numbers = std::vector<unsigned long long>;
using Outcome = std::vector<Numbers>; // status and objects of a query
constexpr unsigned int NONE = stg::NUMBER_UNKNOWN;

// What each record and the numbers of the controller give to an object.
Numbers numbers(const CPhysicalDevice& disk)
{
    return {disk.getDevID(),          disk.getSlotNum(), disk.getState(), disk.getFreeRaidDiskSpace(),
            disk.getGlobalCntrlNum(), disk.getCntrID()};
}

Numbers numbers(const CVirtualDevice& drive)
{
    return {drive.getDeviceID(), drive.getLogicalDriveNum(), drive.getVDState(),
            drive.getGlobalControllerNo(), drive.getControllerID()};
}

class LayerTest : public PluginTest
{
  protected:
    LayerTest()
    {
        play("");
        CLibraryManager::getUniqueInstance()->initializeLibrary();
        m_layer.emplace(SDO_VIL_NUMBER, nullptr);
    }

    // Plays a system with one adapter from here on.
    void play(const std::string& members, unsigned int maxBufferKB = 64, const std::string& top = "")
    {
        loadAdapter(members, top, maxBufferKB);
        clear();
    }

    // Queries on fresh objects. A 0 is a null element.
    template <class Device, class Base>
    Outcome list(short (Layer::*query)(unsigned int, unsigned int, std::vector<Base*>&),
                 const std::string& marks)
    {
        std::vector<Device> devices(marks.size());
        std::vector<Base*> objects;
        for (std::size_t i = 0; i < marks.size(); ++i)
            objects.push_back(marks[i] == '0' ? nullptr : &devices[i]);
        const auto status = static_cast<unsigned short>((*m_layer.*query)(70, 0, objects));
        Outcome result = {{status}};
        for (const Device& device : devices)
            result.push_back(numbers(device));
        return result;
    }
    Outcome disks(const char* marks) { return list<CMarvelPhysicalDevice>(&Layer::getAllPDInfo, marks); }
    Outcome drives(const char* marks) { return list<CMarvelVirtualDevice>(&Layer::getAllVDInfo, marks); }
    Outcome disk(const char* slot)
    {
        CMarvelPhysicalDevice object;
        object.setCntrID(0);
        object.setSlotNum(static_cast<unsigned int>(*slot - '0'));
        const auto status = static_cast<unsigned short>(m_layer->getPDInfo(object));
        return {{status}, numbers(object)};
    }
    Outcome drive(const char* id)
    {
        CMarvelVirtualDevice object;
        object.setControllerID(0);
        object.setDeviceID(static_cast<unsigned int>(*id - '0'));
        const auto status = static_cast<unsigned short>(m_layer->getVDInfo(object));
        return {{status}, numbers(object)};
    }
    Outcome controller(const char*)
    {
        CMarvellController object;
        object.setControllerID(0);
        const auto status = static_cast<unsigned short>(m_layer->getControllerInfo(object));
        return {{status}, {object.getSlotID(), object.getRebuildRate(), object.getFWVersion().size()}};
    }

    std::optional<Layer> m_layer;
};

TEST_F(LayerTest, ReadsTheLowByteAndNamesErrors)
{
    using Case = std::pair<unsigned int, std::string>;
    for (const auto& [result, words] :
         {Case{1, "ERR_FAIL "}, Case{5, "ERR_REQ_OUT_OF_RANGE "}, Case{13, "ERR_INVALID_ADAPTER_ID "},
          Case{0xFFFFFFFF, "UNKOWN ERROR :%d 255"}, Case{0x1BB, "ERR_RESCANING "}, Case{256, ""}}) {
        play(R"("fail": {"MV_EVT_FlushEvent": )" + std::to_string(result) + "}", 64,
             R"("answers": {"MV_Adapter_GetCount": {"count": 514}})");
        EXPECT_EQ(m_layer->flushEvents(0x200), static_cast<short>(result & 0xFF));
        EXPECT_EQ(messages(),
                  words.empty() ? Lines{}
                                : Lines{"ZARNEK:CLibraryInterfaceLayer: mvErrorDisplay() FAILED: " + words});
        EXPECT_EQ(m_layer->getControllerCount(), 2U);
    }
}

// A call that fails although it fills its answer; lists that claim so many entries.
std::string fails(const std::string& call)
{
    return R"(, "fail": {"MV_)" + call + R"(": {"status": 5, "filled": true}})";
}

std::string claims(int count, const std::string& list, const std::string& other = "EVT_GetEvent")
{
    const std::string text = R"(": {"count": )" + std::to_string(count) + "}";
    return R"(, "answers": {"MV_)" + list + text + R"(, "MV_)" + other + text + "}";
}

TEST_F(LayerTest, FillsDevicesFromListsThatFitTogether)
{
    using T = std::decay_t<decltype(*this)>;
    const std::string devices = R"("disks": [{"id": 21, "slot": 5, "freeKB": 1, "raidStatus": "online"},
        {"id": 22, "slot": 6, "freeKB": 2, "raidStatus": "failed"}, {"id": 23, "slot": 7, "freeKB": 3, "raidStatus": "ready"}],
        "virtualDisks": [{"id": 8, "logicalDrive": 3, "status": "degraded"}, {"id": 9, "logicalDrive": 4, "status": "failed"}])";
    const Numbers d1{21, 5, 4, 1024, 70, 0}, d2{22, 6, 8, 2048, 70, 0}, d3{23, 7, 1, 3072, 70, 0}, d(6, NONE);
    const Numbers v1{8, 3, 32, 70, 0}, v2{9, 4, 1048576, 70, 0}, v(5, NONE), ok{0};
    const Numbers at0{NONE, 0, NONE, NONE, NONE, 0}, at6{NONE, 6, NONE, NONE, NONE, 0},
        at9{9, NONE, NONE, NONE, 0};
    const std::string laterFail = R"(, "fail": {"MV_PD_GetHDRaidStatus": {"status": 1, "from": 2},
        "MV_PD_GetFreeSpaceInfo": {"status": 1, "from": 2}})";
    const std::string rom = R"(, "rebuildRate": 255, "rom": [2, 5, 13, 7])";
    struct Case {
        Outcome (LayerTest::*query)(const char*);
        const char* argument;
        std::string rules;
        Outcome result;
        unsigned int maxBufferKB = 64;
    };
    for (const Case& c :
         {Case{&T::disk, "6", "", {ok, {22, 6, 8, 2048, NONE, 0}}},
          Case{&T::disk, "6", fails("PD_GetHDInfo_Ext"), {ok, at6}},
          Case{&T::disk, "6", fails("PD_GetHDRaidStatus"), {ok, {22, 6, 0, 2048, NONE, 0}}},
          Case{&T::disk, "6", fails("PD_GetFreeSpaceInfo"), {ok, {22, 6, 8, 0, NONE, 0}}},
          Case{&T::disk, "0", claims(9000, "PD_GetHDInfo_Ext", "PD_GetConfig"), {ok, at0}, 1},
          Case{&T::disks, "111", "", {ok, d1, d2, d3}},
          Case{&T::disks, "101", "", {ok, d1, d, d2}},
          Case{&T::disks, "111", laterFail, {ok, d1, {22, 6, 0, 0, 70, 0}, {23, 7, 0, 0, 70, 0}}},
          Case{&T::disks, "11", "", {ok, d, d}},
          Case{&T::disks, "111", fails("PD_GetHDInfo_Ext"), {ok, d, d, d}},
          Case{&T::disks,
               "111",
               fails("PD_GetConfig"),
               {ok, {21, NONE, 4, 1024, 70, 0}, {22, NONE, 8, 2048, 70, 0}, {23, NONE, 1, 3072, 70, 0}}},
          Case{&T::disks, "1111", claims(4, "PD_GetHDInfo_Ext", "PD_GetConfig"), {ok, d1, d2, d3, d}, 1},
          Case{&T::drive, "9", "", {ok, {9, 4, 1048576, NONE, 0}}},
          Case{&T::drive, "9", fails("LD_GetInfo"), {ok, at9}},
          Case{&T::drive, "9", fails("LD_GetConfig"), {{5}, {9, NONE, 1048576, NONE, 0}}},
          Case{&T::drive, "0", claims(9, "LD_GetInfo", "LD_GetConfig"), {ok, {0, NONE, NONE, NONE, 0}}, 1},
          Case{&T::drives, "0101", "", {ok, v, v1, v, v2}},
          Case{&T::drives, "111", "", {ok, v1, v2, {0, 0, 1, 70, 0}}},
          Case{&T::drives, "11", fails("LD_GetInfo"), {ok, {NONE, 3, NONE, 70, 0}, {NONE, 4, NONE, 70, 0}}},
          Case{&T::drives, "11", R"(, "fail": {"MV_LD_GetConfig": 187})", {{187}, v, v}},
          Case{&T::drives, "1111", claims(4, "LD_GetInfo", "LD_GetConfig"), {ok, v1, v2, v, v}, 1},
          Case{&T::controller, "", rom, {ok, {3, 100, 11}}},
          Case{&T::controller, "", R"(, "rom": [65535, 65535, 65535, 65535])", {ok, {3, 50, 19}}},
          Case{&T::controller, "", rom + fails("Adapter_GetInfo"), {ok, {0, 100, 11}}},
          Case{&T::controller, "", rom + fails("Adapter_GetConfig"), {ok, {3, 50, 11}}},
          Case{&T::controller, "", rom + fails("Adapter_Get_OEM_Data"), {{5}, {3, 100, 0}}}}) {
        play(devices + c.rules, c.maxBufferKB);
        EXPECT_EQ((this->*c.query)(c.argument), c.result) << c.argument << c.rules;
    }
}

TEST_F(LayerTest, FetchesAndReleasesEvents)
{
    struct Counted : CMarvelAlert {
        explicit Counted(int& ends) : m_ends(ends) {}
        ~Counted() override { ++m_ends; }
        int& m_ends;
    };
    int ends = 0;
    std::vector<CAlert*> own{new Counted(ends), nullptr, new Counted(ends)};
    EXPECT_EQ(m_layer->releaseEventInfoVector(own), 0);
    EXPECT_EQ(ends, 2);
    using Case = std::tuple<std::string, std::string, std::string, std::size_t>;
    for (const auto& [repeat, rules, said, count] :
         {Case{"", "", "Count:0", 0}, Case{"49", "", "Count:50", 50},
          Case{"50", claims(51, "EVT_GetEvent", "PD_GetConfig"), "Count:51", 50},
          Case{"1", fails("EVT_GetEvent"), "ERR_REQ_OUT_OF_RANGE ", 0}}) {
        const std::string timeline = R"("timeline": [{"poll": 1, "events": [
            {"code": "diskFailed", "sequence": 4000000000}, {"code": "diskFailed", "sequence": 12, "repeat": )";
        play(rules.empty() ? "" : rules.substr(2), 64, repeat.empty() ? "" : timeline + repeat + "}]}]");
        std::vector<CAlert*> alerts = {nullptr}; // stays where it is
        EXPECT_EQ(m_layer->getEventInfo({70, 0x100}, alerts), rules.find("fail") == 3 ? 5 : 0);
        ASSERT_EQ(alerts.size(), 1 + count);
        EXPECT_THAT(vendorCalls(), ElementsAre(HasSubstr("(0, at most 50) = ")));
        EXPECT_THAT(messages().front(), EndsWith(said));
        if (count != 0) {
            EXPECT_EQ(alerts[1]->getEventSeqNum(), 4000000000U);
            EXPECT_EQ(alerts.back()->getEventSeqNum(), 12U);
            EXPECT_EQ(alerts.back()->getControlNotify().getGlobalControllerNumber(), 70U);
            EXPECT_EQ(alerts.back()->getControlNotify().getControllerID(), 0x100U);
        }
        EXPECT_EQ(m_layer->releaseEventInfoVector(alerts), 0);
        EXPECT_THAT(alerts, IsEmpty());
    }
}

} // namespace
