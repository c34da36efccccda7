#include "common/PluginTest.h"
#include "model/CMarvellController.h"
#include "morlan/morlan_inspect.h"
#include "mvlayer/Binders.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"

#include <morlan.h>

#include <cstring>
#include <memory>

using namespace testing;

namespace
{

// Tag, how a default travels, the number 5 as a value, and how that travels.
struct Kind {
    const char *tag, *fresh, *five, *sent;
};
constexpr Kind NUMBER{"UNSIGNED_INTEGER", "8:4294967295", "5", "8:5"},
    MASK{"BINARY_DATA_TYPE", "136:0", "5", "136:5"}, TEXT{"STDSTR", "10:/256", "\"5\"", "10:5/256"},
    NEXUS{"NEXUS_TYPE", "none", "{ 5 }", "24:5"}, FLAG{"BOOL_TYPE", "136:0", "true", "136:1"},
    NO_ROW{"", "none", "5", "none"};

// Field, setter, getter, kind and property of every attribute, in the order in which a map is assigned.
#define ATTRIBUTES(ROW)                                                                                      \
    ROW(m_globalControllerNumber, setGlobalControllerNumber, getGlobalControllerNumber, NUMBER, 24600)       \
    ROW(m_ObjType, setObjType, getObjType, NUMBER, 24576)                                                    \
    ROW(m_VendorID, setVendorID, getVendorID, NUMBER, 24583)                                                 \
    ROW(m_VILNumber, setVILNumber, getVILNumber, NUMBER, 24583)                                              \
    ROW(m_CntrlNexus, setControllerNexus, getControllerNexus, NEXUS, 24692)                                  \
    ROW(m_AttributeMask, setAttributeMask, getAttributeMask, MASK, 24577)                                    \
    ROW(m_MasterMethodMask, setMasterMethodMask, getMasterMethodMask, MASK, 24578)                           \
    ROW(m_CurrentMethodMask, setCurrentMethodMask, getCurrentMethodMask, MASK, 24579)                        \
    ROW(m_BusProtocolNumber, setBusProtocolNumber, getBusProtocolNumber, NUMBER, 24768)                      \
    ROW(m_ProductName, setProductName, getProductName, TEXT, 24587)                                          \
    ROW(m_PortCount, setPortCount, getPortCount, NUMBER, 25112)                                              \
    ROW(m_PDCount, setPDCount, getPDCount, NUMBER, 24936)                                                    \
    ROW(m_VDCount, setVDCount, getVDCount, NUMBER, 24667)                                                    \
    ROW(m_NoOfBattery, setNoOfBattery, getNoOfBattery, NO_ROW, 0)                                            \
    ROW(m_CntrID, setControllerID, getCntrlID, NUMBER, 24582)                                                \
    ROW(m_SlotID, setSlotID, getSlotID, NUMBER, 24601)                                                       \
    ROW(m_FWVer, setFWVersion, getFWVersion, TEXT, 24594)                                                    \
    ROW(m_CacheMemSize, setCacheMemSize, getCacheMemSize, NUMBER, 24596)                                     \
    ROW(m_RebuildRate, setRebuildRate, getRebuildRate, NUMBER, 24597)                                        \
    ROW(m_BGIRate, setBGIRate, getBGIRate, NUMBER, 24801)                                                    \
    ROW(m_CheckConsistRate, setCheckConsistRate, getCheckConsistRate, NUMBER, 24802)                         \
    ROW(m_PatrolReadRate, setPatrolReadRate, getPatrolReadRate, NUMBER, 24800)                               \
    ROW(m_bAlarmState, setAlarmState, getAlarmState, FLAG, 24806)                                            \
    ROW(m_SerialNum, setSerialNum, getSerialNum, TEXT, 24656)                                                \
    ROW(m_ModelNum, setModelNum, getModelNum, NUMBER, 24777)                                                 \
    ROW(m_DriverVer, setDriverVer, getDriverVer, TEXT, 24741)                                                \
    ROW(m_SubVenID, setSubVenID, getSubVenID, NO_ROW, 0)                                                     \
    ROW(m_DevID, setDevID, getDevID, NUMBER, 24809)                                                          \
    ROW(m_SubDevID, setSubDevID, getSubDevID, NO_ROW, 0)                                                     \
    ROW(m_Status, setStatus, getStatus, NUMBER, 24581)                                                       \
    ROW(m_State, setState, getState, NUMBER, 24580)

// A number as whatever a setter takes.
struct Value {
    unsigned int number;
    operator unsigned int() const { return number; }
    operator bool() const { return number != 0; }
    operator std::string() const { return std::to_string(number); }
    operator std::vector<unsigned int>() const { return {number}; }
};

using Attribute = std::tuple<std::string, Kind, unsigned int, void (*)(IController&, Value)>;
#define ATTRIBUTE(field, setter, getter, kind, id)                                                           \
    Attribute(#field, kind, id, [](IController& to, Value value) { to.setter(value); }),
const std::vector<Attribute> ALL = {ATTRIBUTES(ATTRIBUTE)};

// Says which setters run, and what the getters then give, among the messages.
struct Recorder : CMarvellController {
    using CMarvellController::operator=;
#define RECORDED(field, setter, getter, kind, id)                                                            \
    void setter(decltype(std::declval<CMarvellController>().getter()) value) override                        \
    {                                                                                                        \
        CMarvellController::setter(value);                                                                   \
        DebugPrint((#field "=" + PrintToString(getter())).c_str());                                          \
    }
    ATTRIBUTES(RECORDED)
};

class ControllerTest : public PluginTest
{
  protected:
    // The messages in one text, without the label.
    std::string said(const std::string& label = "") const
    {
        std::string all;
        for (const std::string& line : messages())
            all += line.substr(line.find(label) == 0 ? label.size() : 0) + "; ";
        return all;
    }

    Recorder m_recorder;
    IController& m_controller = m_recorder;
};

TEST_F(ControllerTest, EachAttributeHasItsFieldItsRowAndItsProperty)
{
    const stg::AttribTypeMap& table = IController::getAttribNameAndType();
    for (const auto& [name, kind, id, set] : ALL) {
        SCOPED_TRACE(name);
        const auto sent = [id = id](IController& controller) {
            stg::SDOProxy proxy;
            proxy.createSDOObject(controller);
            return property(proxy.getChildSDOConfigPtr(), id);
        };
        CMarvellController controller, copy;
        IController fresh(controller);
        EXPECT_EQ(sent(fresh), kind.fresh);
        set(controller, {0});
        void* const field = controller.retrieveValFromMap(name);
        set(controller, {5});
        EXPECT_THAT(*controller.getAttribValueMap(), ElementsAre(Pair(name, field)));
        EXPECT_EQ(sent(controller), kind.sent);
        EXPECT_EQ(said().find("named " + name + " in ATTRIB_NAME_AND_TYPE_MAP.") == std::string::npos,
                  id != 0);
        controller.deleteFromMap(name);
        EXPECT_EQ(sent(controller), "none");
        copy = controller; // set or not
        set(controller, {0});
        EXPECT_THAT(*controller.getAttribValueMap(), ElementsAre(Pair(name, field)));
        EXPECT_EQ(copy.getAttribValueMap()->size() + table.size(), 28U + 28U);
        copy.deleteFromMap(name == "m_VILNumber" ? "m_VendorID" : ""); // it has the same property
        EXPECT_EQ(sent(copy), kind.sent);
        ASSERT_EQ(table.count(name), id == 0 ? 0U : 1U);
        EXPECT_TRUE(id == 0 ||
                    (table.at(name).m_AttribType == kind.tag && table.at(name).m_PropertyID == id));
    }
}

TEST_F(ControllerTest, AMapIsAssignedThroughTheSettersInOrder)
{
    CMarvellController source;
    std::string calls;
    std::list<std::string> names;
    for (const auto& [name, kind, id, set] : ALL) {
        set(source, {5});
        calls += name + "=" + kind.five + "; ";
        names.push_back(name);
    }
    stg::AttribValMap values = *source.getAttribValueMap();
    values["m_Unknown"] = this;
    m_controller = values;
    EXPECT_EQ(said(), calls);
    values = {{"m_SlotID", values["m_DevID"]}};
    clear();
    m_controller = values;
    EXPECT_EQ(said(), "m_SlotID=5; ");
    IController plain;
    plain = values;
    plain = static_cast<void*>(&values);
    EXPECT_EQ(plain.getAttribValueMap()->size() + plain.getCntrlSpecificAttrib()->size(), 0U);

    // What can be read back are the same names, but for the place of the nexus; a copy has a list of its own.
    names.splice(std::next(names.begin(), 23), names, std::next(names.begin(), 4));
    m_controller.getCntrlSpecificAttrib()->pop_back();
    EXPECT_EQ(*CMarvellController(m_recorder).getCntrlSpecificAttrib(), names);
}

TEST_F(ControllerTest, FindsTheDataEnginesObjectOfItsOwnLayer)
{
    void* found = nullptr;
    // Status, what was delivered and what was said.
    const auto find = [&](void* given, unsigned int number) {
        void* out = this;
        clear();
        const std::string status = std::to_string(m_controller.getControllerObject(given, number, &out));
        found = out == this ? found : out;
        EXPECT_EQ(ral_live_lists(), 0U);
        return status + (out == this ? " kept; " : ' ' + property(out, 24582) + "; ") +
               said("ZARNEK:IController::getControllerObject(): ");
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

TEST_F(ControllerTest, TakesOverWhatItsRecordsGive)
{
    const auto record = std::make_unique<_Adapter_Info>(); // with nothing behind it
    std::string bytes(304, '\xEE');
    bytes.replace(0x34, 4, "\x78\x56\x34\xF2").replace(0x46, 3, "\x80\x92\xFE");
    std::memcpy(record.get(), bytes.replace(0x5a, 4, "\xFD\xEE\xEE\xFC").data(), 304);
    _Adapter_Config_V2 config;
    stg::SInfoHelper_t helper{7, 3, 0, 0, "1.2"};
    stg::QLVCntrlBinder_t nothing, withoutConfig(record.get(), nullptr, &helper),
        onlyConfig(nullptr, &config, nullptr);
    const std::string always =
                          "m_MasterMethodMask=0; m_CurrentMethodMask=0; m_AttributeMask=0; m_ObjType=769; "
                          "m_VILNumber=9; m_ProductName=\"TALM-Q7\"; m_State=1; m_Status=2; "
                          "m_BusProtocolNumber=7; ",
                      ids = "m_CntrID=3; m_globalControllerNumber=7; m_FWVer=\"1.2\"; ",
                      numbers = "m_PortCount=254; m_SlotID=4063516280; m_VDCount=252; m_PDCount=253; "
                                "m_ModelNum=37504; ",
                      unknown = "4294967295";
    // What is said and set, in order; without a layer's number there was no binder.
    const auto expectTaken = [&](void* binder, const std::string& ofHelper, const std::string& logged,
                                 const std::string& ofRecords, const std::string& rate,
                                 const std::string& layer = "9") {
        clear();
        m_controller = binder;
        const std::string label = "ZARNEK: CMarvellController::operator = () - ";
        EXPECT_EQ(said(), (binder == nullptr ? ""
                                             : always + ofHelper +
                                                   "ZARNEK: CMarvellController:operator=() - GCN: " + logged +
                                                   "; " + ofRecords + label + "RebuildRate:" + rate + "; ") +
                              label + "VIL No: " + layer + "; m_CntrlNexus={ 24600 }; ");
    };
    expectTaken(nullptr, "", "", "", "", unknown);
    EXPECT_THAT(*m_controller.getAttribValueMap(), ElementsAre(Key("m_CntrlNexus")));
    expectTaken(&nothing, "", unknown + " CNTRLID: " + unknown, "", unknown);
    expectTaken(&withoutConfig, ids, "7 CNTRLID: 3", numbers, unknown);
    EXPECT_EQ(m_controller.getAttribValueMap()->size(), 18U);
    using Case = std::tuple<int, int, std::string>;
    for (const auto& [scale, alarm, rate] :
         {Case{0, 0, "50"}, Case{1, 1, "0"}, Case{2, 0, "0"}, Case{3, 128, "1"}, Case{51, 0, "20"},
          Case{127, 2, "49"}, Case{128, 0, "50"}, Case{254, 255, "99"}, Case{255, 0, "100"}}) {
        bytes.assign(64, '\xEE');
        bytes[0x00] = static_cast<char>(alarm);
        bytes[0x08] = static_cast<char>(scale);
        std::memcpy(&config, bytes.data(), 64);
        expectTaken(&onlyConfig, "", "7 CNTRLID: 3",
                    "m_RebuildRate=" + rate + "; m_bAlarmState=" + (alarm != 0 ? "true; " : "false; "), rate);
    }
}

} // namespace
