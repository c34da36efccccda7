#include "AttributeRows.h"
#include "model/CMarvellController.h"
#include "morlan/morlan_inspect.h"
#include "mvlayer/Binders.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"

#include <morlan.h>

using namespace testing;

namespace
{

using ControllerTest = PluginTest;

constexpr char ROWS[] = R"(
m_globalControllerNumber UNSIGNED_INTEGER 24600  m_ObjType UNSIGNED_INTEGER 24576
m_VendorID UNSIGNED_INTEGER 24583  m_VILNumber UNSIGNED_INTEGER 24583  m_CntrlNexus NEXUS_TYPE 24692
m_AttributeMask BINARY_DATA_TYPE 24577  m_MasterMethodMask BINARY_DATA_TYPE 24578
m_CurrentMethodMask BINARY_DATA_TYPE 24579  m_BusProtocolNumber UNSIGNED_INTEGER 24768
m_ProductName STDSTR 24587  m_PortCount UNSIGNED_INTEGER 25112  m_PDCount UNSIGNED_INTEGER 24936
m_VDCount UNSIGNED_INTEGER 24667  m_CntrID UNSIGNED_INTEGER 24582  m_SlotID UNSIGNED_INTEGER 24601
m_FWVer STDSTR 24594  m_CacheMemSize UNSIGNED_INTEGER 24596  m_RebuildRate UNSIGNED_INTEGER 24597
m_BGIRate UNSIGNED_INTEGER 24801  m_CheckConsistRate UNSIGNED_INTEGER 24802
m_PatrolReadRate UNSIGNED_INTEGER 24800  m_bAlarmState BOOL_TYPE 24806  m_SerialNum STDSTR 24656
m_ModelNum UNSIGNED_INTEGER 24777  m_DriverVer STDSTR 24741  m_DevID UNSIGNED_INTEGER 24809
m_Status UNSIGNED_INTEGER 24581  m_State UNSIGNED_INTEGER 24580)";

TEST_F(ControllerTest, KeepsItsAttributesByTheTable)
{
    checkAttributes<CMarvellController>(
        ROWS, IController::getAttribNameAndType(),
        [](CMarvellController& controller) { return controller.getAttribValueMap(); });
}

TEST_F(ControllerTest, FindsTheDataEnginesObjectOfItsOwnLayer)
{
    const std::string label = "ZARNEK:IController::getControllerObject(): ";
    void* found = nullptr;
    // Status, what was delivered and what was said.
    const auto find = [&](void* given, unsigned int number) {
        void* out = this;
        clear();
        const std::string status = std::to_string(IController().getControllerObject(given, number, &out));
        found = out == this ? found : out;
        EXPECT_EQ(ral_live_lists(), 0U);
        std::string told = status + (out == this ? " kept; " : ' ' + property(out, 24582) + "; ");
        for (const std::string& line : messages())
            told += line.substr(line.find(label) == 0 ? label.size() : 0) + "; ";
        return told;
    };
    EXPECT_EQ(find(nullptr, 5), "256 none; Total Number of Controllers = 0; ");
    // Type, layer, number and the vendor's index, those that it has.
    using Object = std::vector<std::pair<unsigned int, unsigned int>>;
    for (const Object& object :
         {Object{{24576, 769}, {24600, 5}}, Object{{24576, 769}, {24583, 9}},
          Object{{24576, 769}, {24583, 3}, {24600, 5}}, Object{{24576, 772}, {24583, 9}, {24600, 5}},
          Object{{24576, 769}, {24583, 9}, {24600, 4}, {24582, 1}},
          Object{{24576, 769}, {24583, 9}, {24600, 5}, {24582, 2}},
          Object{{24576, 769}, {24583, 9}, {24600, 6}, {24582, 3}}}) {
        stg::SDOProxy proxy;
        const std::vector<unsigned int> nexus = {24600};
        proxy.addProperty(24692, 5, &nexus);
        for (const auto& [id, value] : object)
            proxy.addProperty(id, 8, &value);
        EXPECT_EQ(proxy.insertIntoDataEngine(), 0);
    }
    const std::string unread =
                          "ZARNEK:stg::SDOProxy::retrieveSpecificProperty(): Failed to retrieve specific "
                          "property. Prop Name = ",
                      is = "SSPROP_VILNUMBER_U32 is ",
                      walk = "Total Number of Controllers = 6; " + unread + "24583; SSPROP_VILNUMBER_U32 " +
                             "not found.; " + is + "9; " + unread + "24600; " + is + "3; " + is + "3; " + is +
                             "9; " + is + "9; ";
    morlan_fail_call("SMSDOConfigClone", 1, 1, 0);
    EXPECT_EQ(find(nullptr, 5), "1 none; " + walk + "*outSDOConfigObj is NULL.; ");
    EXPECT_EQ(find(nullptr, 7), "256 none; " + walk + is + "9; ");
    ral_fail_call("RalListAssociatedObjects", 1, 1, 77);
    EXPECT_EQ(find(nullptr, 5), "77 none; Failed to retrieve Associated SDOObjects; ");
    EXPECT_EQ(find(nullptr, 5), "0 8:2; " + walk);
    EXPECT_EQ(find(found, 77), "0 kept; Controller Object is available. Controller ID is 5; ");
    morlan_fail_call("SMSDOConfigGetDataByID", 1, 1, 2);
    EXPECT_EQ(find(found, 5), "1 kept; " + unread + "24600; Controller Object is available, but failed to " +
                                  "retrieve GlobalControllerNumber.; ");
    EXPECT_EQ(SMSDOConfigFree(found), 0) << "the clone is the caller's";
}

// A controller and what it is filled from.
struct Filled : CMarvellController {
    using CMarvellController::operator=;
    _Adapter_Info info{};
    _Adapter_Config_V2 config{};
    stg::SInfoHelper_t helper{7, 3, 0, 0, "1.2"};
    stg::QLVCntrlBinder_t binder;

    const stg::AttribValMap& fill()
    {
        *this = static_cast<void*>(&binder);
        return *getAttribValueMap();
    }
};

TEST_F(ControllerTest, TakesTheRecordsThatAreThere)
{
    CMarvellController untold;
    untold = static_cast<void*>(nullptr);
    EXPECT_THAT(*untold.getAttribValueMap(), ElementsAre(Key("m_CntrlNexus")));
    EXPECT_THAT(untold.getControllerNexus(), ElementsAre(24600));

    Filled controller;
    std::memset(&controller.info, 0xEE, sizeof controller.info);
    put(controller.info, 0x34, 4, 0xF2345678);
    put(controller.info, 0x46, 2, 0x9280);
    put(controller.info, 0x48, 1, 0xFE);
    put(controller.info, 0x5a, 1, 0xFD);
    put(controller.info, 0x5d, 1, 0xFC);
    EXPECT_EQ(controller.fill().size(), 10U); // masks, type, layer, name, state, status, protocol, nexus
    controller.binder = {&controller.info, nullptr, &controller.helper};
    const stg::AttribValMap& values = controller.fill();
    EXPECT_EQ(numbers(values, "m_MasterMethodMask m_CurrentMethodMask m_AttributeMask m_ObjType m_VILNumber "
                              "m_State m_Status m_BusProtocolNumber m_CntrID m_globalControllerNumber "
                              "m_PortCount m_SlotID m_VDCount m_PDCount m_ModelNum"),
              "0 0 0 769 9 1 2 7 3 7 254 4063516280 252 253 37504 ");
    EXPECT_EQ(values.size(), 15U + 3U); // product, firmware, nexus
    EXPECT_EQ(controller.getProductName() + ' ' + controller.getFWVersion(), "TALM-Q7 1.2");

    controller.binder = {nullptr, &controller.config, nullptr};
    using Case = std::tuple<unsigned int, unsigned int, std::string>;
    for (const auto& [scale, alarm, rate] :
         {Case{0, 0, "50 "}, Case{1, 1, "0 "}, Case{2, 0, "0 "}, Case{3, 128, "1 "}, Case{51, 0, "20 "},
          Case{127, 2, "49 "}, Case{128, 0, "50 "}, Case{254, 255, "99 "}, Case{255, 0, "100 "}}) {
        put(controller.config, 0x00, 1, alarm);
        put(controller.config, 0x08, 1, scale);
        EXPECT_EQ(numbers(controller.fill(), "m_RebuildRate"), rate);
        EXPECT_EQ(controller.getAlarmState(), alarm != 0);
    }
}

} // namespace
