#include "common/DataRows.h"
#include "common/PluginTest.h"
#include "common/SdoObject.h"
#include "model/CMarvellController.h"
#include "model/CPhysicalDevice.h"
#include "model/CVirtualDevice.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"
#include "sdo/SDOProxy.h"
#include "sdo/SDOProxy_Helper.h"
#include "sdo/SDOTypeCode.h"
#include "support/Status.h"

#include <morlan.h>
#include <sdo.h>

#include <algorithm>

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
    // Type and value of a property of the child.
    using Sent = std::pair<unsigned int, std::string>;
    Sent sent(unsigned int id) const
    {
        const std::vector<SdoProperty> all = propertiesOf(m_child);
        const auto found =
            std::find_if(all.begin(), all.end(), [id](const auto& property) { return property.id == id; });
        return found == all.end() ? Sent() : Sent(found->type, valuesOf(m_child).at(id));
    }
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
        words += word + ' ' + std::to_string(code) + '\n';
    EXPECT_EQ(words, TempFolder::readFile(ZARNEK_SOURCE_DIR "/tests/sdo/type-words.txt"));
}

TEST_F(SDOProxyTest, ScalarsTravelByTypeAndWidthAndComeBackInOneFieldPerCode)
{
    const std::string high = "\x81\x82\x83\x84\x85\x86\x87\x88";
    // Code, type value, width, the type's name, and the high bytes in the object and in the log; null is a
    // byte.
    for (const auto& row : dataRows("tests/sdo/scalars.json")) {
        const unsigned char code = row.at(0);
        const std::size_t width = row.at(2);
        const std::string typeName = row.at(3), value = row.at(4);
        const std::string shown = row.at(5).is_null() ? high.substr(0, 1) : row.at(5).get<std::string>();
        SCOPED_TRACE(typeName);
        m_values.clear();
        clear();
        EXPECT_EQ(m_proxy.addProperty(65537, code, high.data()), 0); // the id travels in 16 bits
        EXPECT_EQ(messages().back(),
                  ADD + "Property Name: 65537, Property Type: " + typeName + ", Value: " + shown);
        EXPECT_EQ(sent(1), Sent(row.at(1), value));
        EXPECT_EQ(read(1, code, "high", width), high.substr(0, width));
        EXPECT_EQ(read(3, code, "absent", 1), "none");
    }
}

TEST_F(SDOProxyTest, TextsNexusAndNestedObjectsAndWhatIsRefused)
{
    for (const std::size_t length : {256U, 255U, 3U}) {
        const std::string text(length, 'x'), kept = text.substr(0, 255);
        EXPECT_EQ(m_proxy.addProperty(2, stg::SDO_CODE_ASTRING, &text), 0);
        EXPECT_EQ(sent(2), Sent(SDO_TYPE_ASTRING, kept));
        EXPECT_EQ(read(2, stg::SDO_CODE_ASTRING, "text", 256), kept + std::string(256 - kept.size(), '\0'));
    }
    read(9, stg::SDO_CODE_ASTRING, "absent", 1);
    EXPECT_STREQ(static_cast<char*>(m_values["text"]), "") << "emptied ahead of the read";
    std::vector<unsigned int> nexus = {SSPROP_GLOBALCONTROLLERNUM_U32, 4294967295U};
    void* const nested = SMSDOConfigAlloc();
    clear();
    EXPECT_EQ(m_proxy.addProperty(1, stg::SDO_CODE_NEXUS, &nexus), 0);
    EXPECT_EQ(sent(1), Sent(SDO_TYPE_NEXUS_U32, SdoValue(nexus)));
    EXPECT_EQ(m_proxy.addProperty(3, stg::SDO_CODE_SDOCONFIG, nested), 0);
    EXPECT_EQ(m_proxy.addProperty(4, stg::SDO_CODE_SDOCONFIG, nested), 1) << "it has an owner";
    EXPECT_EQ(propertiesOf(m_child).back().value, nested) << "nothing copied";
    EXPECT_EQ(messages().back(), failed("4", stg::SDO_CODE_SDOCONFIG));
    nexus.clear();
    for (const unsigned char code : std::vector<unsigned char>{stg::SDO_CODE_NEXUS, 11, 12, 14}) {
        EXPECT_EQ(m_proxy.addProperty(4, code, &nexus), 1);
        EXPECT_EQ(read(4, code, "none", 1), "none");
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
    EXPECT_THAT(valuesOf(m_child), ElementsAre(Pair(SSPROP_NONE, "2")));
    const std::string label = "ZARNEK:stg::SDOProxy_Helper::operator () ( ATTRIB_VALUE_PAIR pairObj ): ";
    EXPECT_THAT(messages(),
                IsSupersetOf({label + "Couldn't find the Attribute type, named VD_MEMBER_TYPE in the lookup "
                                      "table of SDOProxy.",
                              label + "Couldn't find the Attribute, named m_Unknown in "
                                      "ATTRIB_NAME_AND_TYPE_MAP."}));
    stg::AttribTypeMap types = {{"flag", {"BOOL_TYPE", SSPROP_ALARMSTATE_BOOL}}};
    for (std::string field : {std::string("\0\xff\xff\xff", 4), std::string("\1\xff\xff\xff", 4)}) {
        stg::SDOProxy_Helper(m_proxy, &types, nullptr)({"flag", field.data()});
        EXPECT_EQ(sent(SSPROP_ALARMSTATE_BOOL), Sent(SDO_TYPE_BINARY_DATA, field[0] == 0 ? "0" : "1"))
            << "one byte, whatever stands beside it";
    }
}

TEST_F(SDOProxyTest, FreesWhatItOwnsAndNothingElse)
{
    const std::vector<unsigned int> nexus = {7, 8};
    m_proxy.addProperty(1, stg::SDO_CODE_NEXUS, &nexus);
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
        proxy.getProperty(1, stg::SDO_CODE_NEXUS, "one", &m_values);
        target = stg::SDOProxy(proxy);
        target = std::as_const(target);
        EXPECT_EQ(morlan_live_sdo_objects(), 6U) << "two clones, and what an assignment does not free";
        proxy.setChildSDOConfigPtr(m_child);
        proxy.setParentSDOConfigPtr(m_child);
    }
    EXPECT_EQ(morlan_live_sdo_objects(), 4U) << "what the proxy borrowed is still there";
    SMSDOConfigFree(forgotten);
    target.resetPropertyDataType();
    target.getProperty(1, stg::SDO_CODE_NEXUS, "two", &m_values);
    EXPECT_THAT(*static_cast<std::vector<unsigned int>*>(m_values["two"]), ElementsAre(7U, 7U))
        << "the first element, behind what the source had read";
    EXPECT_EQ(m_proxy.sendAlertNotification(), 0);
    EXPECT_EQ(morlan_live_sdo_objects(), 3U) << "a clone went out";
}

// A controller with two disks, of device ids 5 and 6, and a virtual disk, all in the data engine.
class SDOProxyEngineTest : public SDOProxyTest
{
  protected:
    SDOProxyEngineTest()
    {
        const std::string version = "1.2";
        m_controller.addProperty(SSPROP_DRIVERVER_ASTRING, stg::SDO_CODE_ASTRING, &version);
        EXPECT_EQ(m_controller.insertIntoDataEngine(), 0);
        for (const unsigned int slot : {1U, 2U})
            insert({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK},
                    {SSPROP_SLOTNUM_U32, slot},
                    {SSPROP_DEVICEID_U32, slot + 4}});
        insert({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_VIRTUAL_DISK}, {SSPROP_LOGICALDRIVENUM_U32, 4}});
        clear();
    }
    ~SDOProxyEngineTest() override { SMSDOConfigFree(m_above); }
    // Under the controller; the proxy's child becomes the last one.
    void insert(SdoNumbers numbers)
    {
        numbers.insert({{SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER}, {SSPROP_GLOBALCONTROLLERNUM_U32, 0}});
        void* const object = makeObject(numbers);
        m_proxy.cloneSDOConfig(object, m_above);
        SMSDOConfigFree(object);
        EXPECT_EQ(m_proxy.insertIntoDataEngine(), 0);
    }

    void* m_above = makeObject({{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_CONTROLLER},
                                {SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER},
                                {SSPROP_GLOBALCONTROLLERNUM_U32, 0}});
    stg::SDOProxy m_controller{m_above};
};

TEST_F(SDOProxyEngineTest, LinksOneObjectOrAllOfAList)
{
    // How many links it takes to link the virtual disk with disks.
    const auto links = [this](unsigned int id, stg::OBJECT_RELATION relation, int result) {
        const unsigned int before = ral_call_count("RalLinkObjects");
        EXPECT_EQ(m_proxy.createLinkBetween(m_above, SDO_OBJTYPE_PHYSICAL_DISK, relation, id), result);
        return ral_call_count("RalLinkObjects") - before;
    };
    EXPECT_EQ(links(stg::NUMBER_UNKNOWN, stg::RELATION_PARENT, 0), 2U);
    EXPECT_THAT(trace(),
                Contains(HasSubstr("RalLinkObjects(" + std::to_string(SDO_OBJTYPE_PHYSICAL_DISK))).Times(2));
    ral_fail_call("RalLinkObjects", 1, 1, 1);
    EXPECT_EQ(links(stg::NUMBER_UNKNOWN, stg::RELATION_CHILD, 0), 2U);
    EXPECT_EQ(links(6, stg::RELATION_CHILD, 0), 1U);
    ral_fail_call("RalLinkObjects", 1, 1, 1);
    EXPECT_EQ(links(5, stg::RELATION_CHILD, 1), 1U);
}

TEST_F(SDOProxyEngineTest, FetchesObjectsByTheirKeys)
{
    // In the place of a child that the proxy owns, and of no other.
    const auto expect = [this](auto& object, const std::string& missingKey, bool found) {
        stg::SDOProxy owner, borrower(m_above);
        clear();
        EXPECT_EQ(owner.retrieveSingleSDOObject(object) != nullptr, found);
        EXPECT_THAT(messages(), Contains(HasSubstr(missingKey)));
        EXPECT_EQ(borrower.retrieveSingleSDOObject(object), nullptr);
    };
    IController controller;
    expect(controller, "GlobalControllerNumber", false);
    for (const unsigned int number : {1U, 0U}) {
        controller.setGlobalControllerNumber(number);
        expect(controller, "", number == 0);
    }
    CPhysicalDevice disk;
    expect(disk, "GlobalControllerNumber", false);
    disk.setGlobalCntrlNum(0);
    expect(disk, "Physical Device ID", false);
    disk.setDevID(6);
    expect(disk, "", true);
    CVirtualDevice drive;
    drive.setGlobalControllerNo(0);
    expect(drive, "Logical Drive Number", false);
    drive.setLogicalDriveNum(4);
    expect(drive, "", true);
}

TEST_F(SDOProxyEngineTest, ReadsModelObjectsBack)
{
    CMarvellController controller;
    controller.setGlobalControllerNumber(0);
    EXPECT_EQ(m_proxy.retrieveObjectFromSDO(controller), 0U);
    EXPECT_EQ(controller.getDriverVer(), "1.2");
    EXPECT_EQ(controller.getObjType(), SDO_VIL_NUMBER)
        << "numbers share a field, and the vendor layer came last";
    CPhysicalDevice disk;
    disk.setGlobalCntrlNum(0);
    disk.loadPdSpecificAttrib();
    EXPECT_EQ(m_proxy.retrieveObjectFromSDO(disk), 1U) << "of which disk?";
    disk.setDevID(6);
    EXPECT_EQ(m_proxy.retrieveObjectFromSDO(disk), 0U);
    EXPECT_EQ(numberOf(m_proxy.getChildSDOConfigPtr(), SSPROP_SLOTNUM_U32), 2U);
    EXPECT_EQ(disk.getSlotNum(), disk.getGlobalCntrlNum());
    CVirtualDevice drive;
    EXPECT_EQ(m_proxy.retrieveObjectFromSDO(drive), 1U);
}

TEST_F(SDOProxyEngineTest, WorksOnOneObjectAndOnePropertyToo)
{
    unsigned int value = 77;
    EXPECT_EQ(m_proxy.addSpecificProperty(m_above, SSPROP_STATE_U32, SDO_TYPE_U32, &value), 0);
    EXPECT_EQ(numberOf(m_above, SSPROP_STATE_U32), 77U);
    EXPECT_EQ(m_proxy.retrieveSpecificProperty(SSPROP_LOGICALDRIVENUM_U32, &value), 0);
    EXPECT_EQ(value, 4U);
    EXPECT_NE(m_proxy.retrieveSpecificProperty(SSPROP_STATE_U32, &value), 0);
    EXPECT_EQ(m_proxy.addProperty(SSPROP_STATE_U32, stg::SDO_CODE_U32, nullptr), 1);

    const unsigned int links = ral_call_count("RalLinkObjects");
    EXPECT_EQ(m_proxy.createSDOParentChildLink(), 0);
    EXPECT_EQ(ral_call_count("RalLinkObjects"), links + 1);
    void** list = nullptr;
    unsigned int count = 0;
    EXPECT_EQ(m_proxy.retrieveAssociatedSDOObjects(nullptr, SDO_OBJTYPE_CONTROLLER, &list, &count), 0);
    EXPECT_EQ(m_proxy.deleteAssociatedSDOObjects(list, 0), 1);
    EXPECT_EQ(m_proxy.deleteAssociatedSDOObjects(list, count), 0);
    EXPECT_EQ(m_proxy.removeFromDataEngine(nullptr), 1);
    EXPECT_EQ(m_proxy.removeFromDataEngine(m_above), 0);
    EXPECT_EQ(m_proxy.retrieveAssociatedSDOObjects(nullptr, SDO_OBJTYPE_CONTROLLER, &list, &count), 0);
    EXPECT_EQ(count, 0U);
}

} // namespace
