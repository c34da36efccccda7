#include "common/PluginTest.h"
#include "model/CMarvellController.h"
#include "model/CPhysicalDevice.h"
#include "model/CVirtualDevice.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"
#include "sdo/SDOProxy_Helper.h"

#include <morlan.h>

#include <regex>

using namespace testing;

namespace
{

const std::string PROXY = "ZARNEK:stg::SDOProxy::", ADD = PROXY + "addProperty(): ";

// A code stands in a line as a raw byte; that of code 0 ends the line.
std::string withCode(const std::string& text, unsigned char code, const std::string& rest = "")
{
    return (text + static_cast<char>(code) + rest).c_str();
}

std::string failed(const std::string& id, unsigned char code)
{
    return withCode(ADD + "Failed to add property to SDOConfig*. propName = " + id + ", propType = ", code);
}

class SDOProxyTest : public PluginTest
{
  protected:
    std::string sent(unsigned int id) const { return property(m_child, id); }
    // The first bytes of what getProperty gives for an attribute.
    std::string read(unsigned int id, unsigned char code, const std::string& name, std::size_t width)
    {
        m_proxy.getProperty(id, code, name, &m_values);
        return m_values.count(name) == 0 ? "none" : std::string(static_cast<char*>(m_values[name]), width);
    }

    stg::SDOProxy m_proxy;
    void* m_child = m_proxy.getChildSDOConfigPtr();
    stg::AttribValMap m_values;
};

TEST_F(SDOProxyTest, TypeWordsHaveTheirCodes)
{
    stg::SDOProxy::initializeLookupTable(); // a second time
    std::string words;
    for (const auto& [word, code] : stg::SDOProxy::getLookupTable())
        words += word + ' ' + std::to_string(code) + ", ";
    EXPECT_EQ(
        words,
        "BINARY_DATA_TYPE 0, BOOL_TYPE 0, CHARPTR 10, CHAR_ 2, CONTROL_NOTIFY_TYPE 13, INTEGER 4, LONG 8, "
        "NEXUS_TYPE 5, SHORT_INT 3, STDSTR 10, U32 8, UCHAR_ 6, ULONG_INT 8, ULONG_ULONG_INT 9, "
        "UNSIGNED_INTEGER 8, USHORT_INT 7, bool 0, char 2, char* 10, int 4, short 3, short int 3, "
        "string 10, u8 6, unsigned 8, unsigned char 6, unsigned int 8, unsigned long 8, "
        "unsigned long int 8, unsigned long long 9, unsigned long long int 9, unsigned short 7, "
        "unsigned short int 7, ");
}

TEST_F(SDOProxyTest, ScalarsTravelByTypeAndWidthAndComeBackInOneFieldPerCode)
{
    const std::string high = "\x81\x82\x83\x84\x85\x86\x87\x88", low = "\1\2\3\4\5\6\7\x08";
    // Code, width, name, the high bytes as a property and in the log.
    using Case = std::tuple<unsigned char, std::size_t, std::string, std::string, std::string>;
    for (const auto& [code, width, type, property, shown] :
         {Case{0, 4, "SM_SDO_NUMBERFORMAT_BINARY_DATA", "136:2223211137", "2223211137"},
          Case{1, 1, "SM_SDO_TYPE_BOOLN", "1:129", "\x81"}, Case{2, 1, "SM_SDO_TYPE_S8", "2:129", "-127"},
          Case{3, 2, "SM_SDO_TYPE_S16", "3:33409", "-32127"},
          Case{4, 4, "SM_SDO_TYPE_S32", "4:2223211137", "-2071756159"},
          Case{6, 1, "SM_SDO_TYPE_U8", "6:129", "\x81"}, Case{7, 2, "SM_SDO_TYPE_U16", "7:33409", "33409"},
          Case{8, 4, "SM_SDO_TYPE_U32", "8:2223211137", "2223211137"},
          Case{9, 8, "SM_SDO_TYPE_U64", "9:9837979819026121345", "9837979819026121345"}}) {
        m_values.clear();
        clear();
        EXPECT_EQ(m_proxy.addProperty(65537, code, high.data()), 0); // the id travels in 16 bits
        morlan_fail_call("SMSDOConfigAddData", 1, 1, 7);
        EXPECT_EQ(m_proxy.addProperty(65537, code, low.data()), 7);
        EXPECT_EQ(sent(1), property);
        m_proxy.addProperty(2, code, low.data());
        EXPECT_EQ(read(1, code, "high", width), high.substr(0, width)) << type;
        EXPECT_EQ(read(2, code, "low", width), low.substr(0, width)) << type;
        EXPECT_EQ(m_values["low"], m_values["high"]) << type;
        EXPECT_EQ(read(3, code, "absent", 1), "none") << type;
        read(2, code, "low", 1);
        const std::string line = ADD + "Property Name: 65537, Property Type: " + type + ", Value: ";
        const std::string twice = PROXY + "getProperty(): propName:2propType :";
        EXPECT_THAT(messages(), ElementsAre(line + shown, StartsWith(line), failed("65537", code), _,
                                            withCode(twice, code, "attribName :low")));
    }
    EXPECT_EQ(read(2, 8, "eight bytes", 4), "none");
}

TEST_F(SDOProxyTest, TextsNexusAndNestedObjectsAndWhatIsRefused)
{
    for (const std::size_t length : {400U, 256U, 255U, 3U}) {
        const std::string text(length, 'x'), kept = text.substr(0, 255);
        clear();
        EXPECT_EQ(m_proxy.addProperty(2, 10, &text), 0);
        EXPECT_EQ(messages().at(0),
                  ADD + "Property Name: 2, Property Type: SM_SDO_TYPE_ASTRING, Value: " + kept);
        EXPECT_EQ(sent(2), "10:" + kept + "/256");
        EXPECT_EQ(read(2, 10, "text", 256), kept + std::string(256 - kept.size(), '\0'));
    }
    read(9, 10, "absent", 1);
    EXPECT_STREQ(static_cast<char*>(m_values["text"]), "") << "emptied ahead of the read";
    std::vector<unsigned int> nexus = {24600, 4294967295U};
    void* const nested = SMSDOConfigAlloc();
    clear();
    EXPECT_EQ(m_proxy.addProperty(1, 5, &nexus), 0);
    EXPECT_EQ(m_proxy.addProperty(3, 13, nested), 0);
    EXPECT_EQ(m_proxy.addProperty(4, 13, nested), 1) << "it has an owner";
    EXPECT_EQ(sent(1) + ' ' + sent(3), "24:24600,4294967295 13:");
    EXPECT_EQ(morlan_live_sdo_objects(), 2U) << "nothing copied";
    const std::string type = "Property Type: SM_SDO_NUMBERFORMAT_NEXUS_U32, Value: 24600  4294967295  ";
    const std::string nestedLine = ADD + "Property Name: 3, Property Type: SM_SDO_TYPE_SDOCONFIG";
    EXPECT_THAT(messages(), ElementsAre(ADD + "Property Name: 1, " + type, nestedLine, _, failed("4", 13)));
    nexus.clear();
    for (const unsigned char code : std::vector<unsigned char>{5, 11, 12, 14, 255}) {
        clear();
        EXPECT_EQ(m_proxy.addProperty(4, code, &nexus), 1);
        EXPECT_EQ(read(4, code, "none", 1), "none");
        const std::string unknown = withCode("propType has hit \"default\" label. propType = ", code);
        Lines expected = {code == 5 ? "Nexus Vector is empty." : unknown, failed("4", code)};
        if (code != 5)
            expected.push_back(PROXY + "getProperty(): default");
        EXPECT_EQ(messages(), expected);
    }
}

TEST_F(SDOProxyTest, WalksAttributesByNameAndPassesOverWhatFails)
{
    CVirtualDevice drive;
    drive.setVDName("name");
    drive.setPDCount(2); // no property of its own
    drive.setPdInVdList({1});
    drive.insertIntoAttribValMap("m_Unknown", &drive);
    morlan_fail_call("SMSDOConfigAddData", 1, 1, 1);
    clear();
    EXPECT_EQ(m_proxy.createSDOObject(drive), 0);
    EXPECT_THAT(propertyIds(m_child), ElementsAre(0U));
    stg::SDOProxy_Helper reader(m_proxy, &CVirtualDevice::getAttribNameAndType(), &m_values);
    for (const char* const attribute : {"m_PdInVdList", "m_Unknown", "m_VdPdCount"})
        reader(std::string(attribute));
    EXPECT_THAT(m_values, ElementsAre(Key("m_VdPdCount")));
    const std::string label = "ZARNEK:stg::SDOProxy_Helper::operator () ( ";
    const std::string pair = label + "ATTRIB_VALUE_PAIR pairObj ): Couldn't find the Attribute";
    const std::string name = label + "STDSTR objSpecificAttrib ): Couldn't find the Attribute";
    const std::string noCode = " type, named VD_MEMBER_TYPE in the lookup table of SDOProxy.";
    const std::string noRow = ", named m_Unknown in ATTRIB_NAME_AND_TYPE_MAP.";
    EXPECT_THAT(messages(), ElementsAre(pair + noCode, pair + noRow,
                                        EndsWith("Property name = 24587, Property Type = 10"), _,
                                        failed("24587", 10), EndsWith("Property name = 0, Property Type = 8"),
                                        _, name + noCode, name + noRow));
    EXPECT_EQ(stg::SDOProxy::getLookupTable().count("VD_MEMBER_TYPE"), 0U) << "a search adds no row";
    stg::AttribTypeMap types = {{"flag", {"BOOL_TYPE", 24806}}};
    for (std::string field : {std::string("\0\xff\xff\xff", 4), std::string("\1\xff\xff\xff", 4)}) {
        stg::SDOProxy_Helper(m_proxy, &types, nullptr)({"flag", field.data()});
        EXPECT_EQ(sent(24806), field[0] == 0 ? "136:0" : "136:1") << "one byte, whatever stands beside it";
    }
}

TEST_F(SDOProxyTest, FreesWhatItOwnsAndNothingElse)
{
    const std::vector<unsigned int> nexus = {24600, 24810};
    m_proxy.addProperty(1, 5, &nexus);
    stg::SDOProxy target;
    void* const forgotten = target.getChildSDOConfigPtr();
    {
        stg::SDOProxy proxy(m_child);
        EXPECT_EQ(proxy.getParentSDOConfigPtr(), nullptr);
        proxy.setParentSDOConfigPtr(m_child);
        proxy.setChildSDOConfigPtr(SMSDOConfigAlloc());
        proxy.cloneSDOConfig(m_child, nullptr); // frees the present child, borrowed as it is
        EXPECT_EQ(proxy.getParentSDOConfigPtr(), m_child);
        EXPECT_EQ(morlan_live_sdo_objects(), 3U);
        proxy.setChildSDOConfigPtr(nullptr);
        EXPECT_EQ(proxy.getChildSDOConfigPtr(), nullptr);
        proxy.setParentSDOConfigPtr(SMSDOConfigAlloc());
        proxy.cloneSDOConfig(m_child, m_child);
        EXPECT_EQ(morlan_live_sdo_objects(), 4U);
        proxy.getProperty(1, 5, "one", &m_values);
        target = stg::SDOProxy(proxy);
        EXPECT_EQ(morlan_live_sdo_objects(), 6U) << "two clones, and what an assignment does not free";
        proxy.setChildSDOConfigPtr(m_child);
        proxy.setParentSDOConfigPtr(m_child);
    }
    EXPECT_EQ(morlan_live_sdo_objects(), 4U) << "what the proxy borrowed is still there";
    SMSDOConfigFree(forgotten);
    target.resetPropertyDataType();
    target.getProperty(1, 5, "two", &m_values);
    EXPECT_THAT(*static_cast<std::vector<unsigned int>*>(m_values["two"]), ElementsAre(24600U, 24600U))
        << "the first element, behind what the source had read";
    EXPECT_EQ(m_proxy.sendAlertNotification(), 0);
    EXPECT_EQ(morlan_live_sdo_objects(), 3U) << "a clone went out";
}

// A controller with three disks, of device ids 5, 6 and none, and a virtual disk, all in the data engine.
class SDOProxyEngineTest : public SDOProxyTest
{
  protected:
    SDOProxyEngineTest()
    {
        const std::string version = "1.2";
        m_controller.addProperty(24741, 10, &version);
        insert(m_controller, {{24576, 769}}, {24600});
        for (unsigned int slot = 1; slot <= 3; ++slot) {
            stg::SDOProxy disk;
            disk.setParentSDOConfigPtr(m_above);
            insert(disk, {{24576, 772}, {24810, slot}, {slot < 3 ? 24809 : 24580, slot + 4}}, {24600, 24810});
        }
        m_proxy.setParentSDOConfigPtr(m_above);
        insert(m_proxy, {{24576, 773}, {24629, 4}}, {24600, 24629});
        clear();
    }
    static void insert(stg::SDOProxy& proxy, std::vector<std::pair<unsigned int, unsigned int>> numbers,
                       const std::vector<unsigned int>& nexus)
    {
        numbers.insert(numbers.end(), {{24583, 9}, {24600, 0}});
        for (auto& [id, value] : numbers)
            proxy.addSpecificProperty(id, 8, &value);
        proxy.addProperty(24692, 5, &nexus);
        EXPECT_EQ(proxy.insertIntoDataEngine(), 0);
    }

    stg::SDOProxy m_controller;
    void* m_above = m_controller.getChildSDOConfigPtr();
};

TEST_F(SDOProxyEngineTest, LinksOneObjectOrAllOfAList)
{
    // What was said, the links between drive 4 and disks 1 to 3, each with its status, and the result.
    const auto link = [this](unsigned int id, stg::OBJECT_RELATION relation = stg::RELATION_CHILD) {
        clear();
        const int status = m_proxy.createLinkBetween(m_above, 772, relation, id);
        std::string told;
        for (const std::string& line : messages())
            told += line.substr(PROXY.size()) + '\n';
        for (const std::string& call : ralCalls()) {
            if (call.find("RalLink") == 0)
                told += std::regex_replace(call, std::regex(".*=(.), .*=(.)\\) = "), "$1>$2=") + " ";
        }
        return told + std::to_string(status);
    };
    constexpr unsigned int ALL = 0xFFFFFFFF;
    const std::string failure = "createChildLinkWith(): Failed to ",
                      wrongId = failure + "retrieve device ID.\n";
    const std::string noId =
        "retrieveSpecificProperty(): Failed to retrieve specific property. Prop Name = 24809\n";
    EXPECT_EQ(link(ALL), "4>1=0 4>2=0 4>3=0 0");
    EXPECT_EQ(link(ALL, stg::RELATION_PARENT), "1>4=0 2>4=0 3>4=0 0");
    EXPECT_EQ(link(6), wrongId + "4>2=0 0");
    EXPECT_EQ(link(5, stg::RELATION_PARENT), "1>4=0 0");
    EXPECT_EQ(link(7), wrongId + wrongId + noId + wrongId + "1");
    ral_fail_call("RalLinkObjects", 1, 1, 1);
    EXPECT_EQ(link(ALL), failure + "create link with its Child (From else part).\n4>1=1 4>2=0 4>3=0 0");
    morlan_fail_call("SMSDOConfigClone", 2, 1, 1);
    EXPECT_EQ(link(ALL), "4>1=0 4>3=0 0");
    ral_fail_call("RalLinkObjects", 1, 1, 1);
    EXPECT_EQ(link(5), failure + "create link with its Child.\n4>1=1 1");
}

TEST_F(SDOProxyEngineTest, FetchesObjectsByTheirKeys)
{
    // With a child that the proxy owns and with one that it does not.
    const auto expect = [this](auto& object, const std::string& parameter, const std::string& kind,
                               const std::string& missingKey, bool found) {
        const std::string label = PROXY + "retrieveSingleSDOObject( " + parameter + " )";
        const std::string failure = label + ": Failed to get " + kind + " Object from Data Engine.";
        const std::string elsewhere =
            "Child Pointer of SDOProxy is pointing somewhere else. Not able to replace ";
        const std::string reason = missingKey.empty()
                                       ? elsewhere + "the Child Pointer."
                                       : missingKey + " is missing. Not able to proceed further.";
        stg::SDOProxy owner, borrower(m_above);
        EXPECT_EQ(owner.retrieveSingleSDOObject(object) != nullptr, found);
        EXPECT_EQ(log().back(), found ? label + " EXIT " : failure);
        clear();
        EXPECT_EQ(borrower.retrieveSingleSDOObject(object), nullptr);
        EXPECT_EQ(log(), Lines({label + " ENTRY ", label + ": " + reason, failure}));
    };
    IController controller;
    expect(controller, "IController& cntrlRef", "Controller", "GlobalControllerNumber", false);
    for (const unsigned int number : {1U, 0U}) {
        controller.setGlobalControllerNumber(number);
        expect(controller, "IController& cntrlRef", "Controller", "", number == 0);
    }
    CPhysicalDevice disk;
    expect(disk, "CPhysicalDevice& physicalDeviceRef", "PD", "GlobalControllerNumber", false);
    disk.setGlobalCntrlNum(0);
    expect(disk, "CPhysicalDevice& physicalDeviceRef", "PD", "Physical Device ID", false);
    disk.setDevID(6);
    expect(disk, "CPhysicalDevice& physicalDeviceRef", "PD", "", true);
    CVirtualDevice drive;
    expect(drive, "CVirtualDevice& virtualDeviceRef", "VD", "GlobalControllerNumber", false);
    drive.setGlobalControllerNo(0);
    expect(drive, "CVirtualDevice& virtualDeviceRef", "VD", "Logical Drive Number", false);
    drive.setLogicalDriveNum(4);
    expect(drive, "CVirtualDevice& virtualDeviceRef", "VD", "", true);
}

TEST_F(SDOProxyEngineTest, ReadsModelObjectsBack)
{
    CPhysicalDevice disk;
    disk.setGlobalCntrlNum(0);
    disk.setDevID(6);
    *disk.getPdSpecificAttrib() = {"m_pdSlotNum", "m_pdState"};
    EXPECT_EQ(m_proxy.retrieveObjectFromSDO(disk), 0U);
    EXPECT_EQ(disk.getSlotNum(), 2U);
    EXPECT_EQ(disk.getPdAttribValueMap()->count("m_pdState"), 0U) << "the object has none";
    CMarvellController controller;
    controller.setGlobalControllerNumber(0);
    EXPECT_EQ(m_proxy.retrieveObjectFromSDO(controller), 0U);
    EXPECT_EQ(controller.getDriverVer(), "1.2");
    EXPECT_EQ(controller.getObjType(), 9U) << "numbers share a field, and the vendor layer came last";
}

} // namespace
