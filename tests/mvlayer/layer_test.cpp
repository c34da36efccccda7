#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "events/CMarvelAlert.h"
#include "model/CMarvelPhysicalDevice.h"
#include "model/CMarvelVirtualDevice.h"
#include "model/CMarvellController.h"
#include "mvlayer/CMVLibraryInterfaceLayer.h"
#include "support/TextTools.h"
#include "vendor/CLibraryManager.h"

#include <sdo.h>

#include <optional>
#include <tuple>

namespace
{

using namespace testing;

using Layer = CMVLibraryInterfaceLayer;
constexpr unsigned int NONE = stg::NUMBER_UNKNOWN;

// Behind a comma, numbers of which "-" stands for one that is not known.
std::string shown(std::initializer_list<unsigned long long> numbers)
{
    std::string text = ",";
    for (const unsigned long long number : numbers)
        text += ' ' + (number == NONE ? "-" : std::to_string(number));
    return text;
}

// What each record and the numbers of the controller give to an object.
std::string shown(const CPhysicalDevice& disk)
{
    return shown({disk.getDevID(), disk.getSlotNum(), disk.getState(), disk.getFreeRaidDiskSpace(),
                  disk.getGlobalCntrlNum(), disk.getCntrID()});
}

std::string shown(const CVirtualDevice& drive)
{
    return shown({drive.getDeviceID(), drive.getLogicalDriveNum(), drive.getVDState(),
                  drive.getGlobalControllerNo(), drive.getControllerID()});
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

    // Queries on fresh objects give their status and the objects. A 0 is a null element.
    template <class Device, class Base>
    std::string list(short (Layer::*query)(unsigned int, unsigned int, std::vector<Base*>&),
                     const std::string& marks)
    {
        std::vector<Device> devices(marks.size());
        std::vector<Base*> objects;
        for (std::size_t i = 0; i < marks.size(); ++i)
            objects.push_back(marks[i] == '0' ? nullptr : &devices[i]);
        std::string result = std::to_string((*m_layer.*query)(70, 0, objects));
        for (const Device& device : devices)
            result += shown(device);
        return result;
    }
    std::string ask(const std::string& words)
    {
        const std::string query = words.substr(0, words.find(' ')), of = words.substr(words.find(' ') + 1);
        if (query == "disks")
            return list<CMarvelPhysicalDevice>(&Layer::getAllPDInfo, of);
        if (query == "drives")
            return list<CMarvelVirtualDevice>(&Layer::getAllVDInfo, of);
        CMarvelPhysicalDevice disk;
        CMarvelVirtualDevice drive;
        CMarvellController controller;
        disk.setCntrID(0);
        drive.setControllerID(0);
        controller.setControllerID(0);
        disk.setSlotNum(stg::toUnsigned32(of));
        drive.setDeviceID(stg::toUnsigned32(of));
        const short status = query == "disk"    ? m_layer->getPDInfo(disk)
                             : query == "drive" ? m_layer->getVDInfo(drive)
                                                : m_layer->getControllerInfo(controller);
        return std::to_string(status) +
               (query == "disk"    ? shown(disk)
                : query == "drive" ? shown(drive)
                                   : shown({controller.getSlotID(), controller.getRebuildRate(),
                                            controller.getFWVersion().size(), controller.getAlarmState()}));
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

TEST_F(LayerTest, FillsDevicesFromListsThatFitTogether)
{
    auto rows = dataRows("tests/mvlayer/queries.json");
    const auto system = rows.front();
    rows.erase(rows.begin());
    for (const auto& row : rows) {
        auto adapter = system;
        adapter.update(row.at(2));
        const unsigned int maxBufferKB = adapter.at("maxBufferKB");
        adapter.erase("maxBufferKB");
        const std::string members = adapter.dump();
        play(members.substr(1, members.size() - 2), maxBufferKB);
        EXPECT_EQ(ask(row.at(0)), row.at(1)) << row;
    }
    m_layer.emplace(SDO_VIL_NUMBER + 1, nullptr);
    clear();
    std::vector<CAlert*> alerts;
    EXPECT_EQ(m_layer->getControllerCount() + m_layer->getPDCount(0) + m_layer->getVDCount(0), 0U);
    EXPECT_EQ(m_layer->getEventInfo({1, 0}, alerts) + m_layer->flushEvents(0), 0);
    EXPECT_EQ(ask("disk 6") + ask("drive 9") + ask("disks 1"), "0, - 6 - - - 00, 9 - - - 00, - - - - - -");
    EXPECT_EQ(vendorCalls(), Lines()) << "nobody has a library of this vendor";
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
    EXPECT_EQ(m_layer->ILibraryInterfaceLayer::releaseEventInfoVector(own) + ends, 0);
    EXPECT_EQ(m_layer->releaseEventInfoVector(own), 0);
    EXPECT_EQ(ends, 2);
    EXPECT_EQ(m_layer->getControllerCount(nullptr), 0U);
    using Case = std::tuple<std::string, std::string, std::string, std::size_t>;
    for (const auto& [repeat, rules, said, count] :
         {Case{"", "", "Count:0", 0}, Case{"49", "", "Count:50", 50},
          Case{"50", R"("answers": {"MV_EVT_GetEvent": {"count": 51}})", "Count:51", 50},
          Case{"1", R"("fail": {"MV_EVT_GetEvent": {"status": 5, "filled": true}})", "ERR_REQ_OUT_OF_RANGE ",
               0}}) {
        const std::string timeline = R"("timeline": [{"poll": 1, "events": [
            {"code": "diskFailed", "sequence": 4000000000}, {"code": "diskFailed", "sequence": 12, "repeat": )";
        play(rules, 64, repeat.empty() ? "" : timeline + repeat + "}]}]");
        std::vector<CAlert*> alerts = {nullptr}; // stays where it is
        EXPECT_EQ(m_layer->getEventInfo({70, 0x100}, alerts), rules.find("fail") == 1 ? 5 : 0);
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
