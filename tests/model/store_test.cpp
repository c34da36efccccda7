#include "common/PluginTest.h"
#include "model/CController_Helper.h"
#include "model/CPhysicalDevice.h"
#include "model/CPhysicalDevice_Helper.h"
#include "model/CVirtualDevice.h"
#include "model/CVirtualDevice_Helper.h"
#include "model/IController.h"
#include "support/CLogger.h"

using namespace testing;

namespace
{

using AttributeStoreTest = PluginTest;

// Entries of any name and pointer, the helper that removes them, and the class's table.
template <class Object, class Helper, class Enter, class Values>
void expectEntries(Enter insert, Enter update, Values values, stg::AttribTypeMap& table)
{
    int one = 1, two = 2;
    Object object, other;
    const stg::AttribValMap& entries = *(object.*values)();
    for (const char* const name : {"b", "\xe9", "Z", "a", "b"})
        (object.*insert)(name, entries.count(name) == 0 ? &one : &two);
    (object.*update)("a", &two);
    (object.*update)("null", nullptr);
    object.deleteFromMap("absent");
    object.deleteFromMap("null");
    EXPECT_EQ(object.retrieveValFromMap("absent"), nullptr);
    EXPECT_THAT(entries, ElementsAre(Pair("Z", &one), Pair("a", &two), Pair("b", &one), Pair("null", nullptr),
                                     Pair("\xe9", &one)));
    (object.*update)("null", &one);
    other.setVILNumber(5);
    Helper helper(object), otherHelper(other);
    helper = otherHelper; // copies attributes and keeps its owner
    Helper(helper).operator()({"b", nullptr});
    object.deleteFromMap(std::pair<std::string, void*>("Z", nullptr));
    EXPECT_EQ(entries.count("b") + entries.count("Z"), 0U);
    EXPECT_EQ(entries.size(), table.size() + 3);
    Object::setKeyValPair("m_Own", "U32", 7);
    Object::setKeyValPair("m_Own", "STDSTR", 8);
    object.clearMap();
    EXPECT_EQ(table["m_Own"].m_AttribType + std::to_string(table["m_Own"].m_PropertyID), "U327");
    table.erase("m_Own");
    EXPECT_THAT(entries, IsEmpty());
    EXPECT_EQ(object.getVILNumber(), 5U);
}

TEST_F(AttributeStoreTest, ADiskSpeaksPastTheLogger)
{
    stg::lout << "begun, ";
    CPhysicalDevice disk;
    disk.setSlotNum(3);
    disk.clearMap();
    stg::lout << "ended" << '\n';
    const std::string at = "ZARNEK: CPhysicalDevice ";
    EXPECT_THAT(log(), ElementsAre(at + "clearMap Entry", at + "deleteFromMap Entry",
                                   at + "deleteFromMap Exit", at + "clearMap Exit", "begun, ended"));
}

TEST_F(AttributeStoreTest, KeepsEntriesByName)
{
    expectEntries<IController, CController_Helper>(
        &IController::insertIntoAttribValMap, &IController::updateAttribValMap,
        &IController::getAttribValueMap, IController::getAttribNameAndType());
    expectEntries<CPhysicalDevice, CPhysicalDevice_Helper>(
        &CPhysicalDevice::insertIntoPdAttribValMap, &CPhysicalDevice::updatePdAttribValMap,
        &CPhysicalDevice::getPdAttribValueMap, CPhysicalDevice::getPdAttribNameAndType());
    expectEntries<CVirtualDevice, CVirtualDevice_Helper>(
        &CVirtualDevice::insertIntoAttribValMap, &CVirtualDevice::updateAttribValMap,
        &CVirtualDevice::getAttribValueMap, CVirtualDevice::getAttribNameAndType());
}

} // namespace
