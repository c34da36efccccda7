#include "common/PluginTest.h"
#include "model/AttributeHelper.h"
#include "model/CPhysicalDevice.h"
#include "model/CVirtualDevice.h"
#include "model/IController.h"
#include "support/CLogger.h"

using namespace testing;

namespace
{

using AttributeStoreTest = PluginTest;

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
    EXPECT_THAT(*disk.getPdAttribValueMap(), IsEmpty());
}

TEST_F(AttributeStoreTest, KeepsEntriesByNameUntilTheyAreRemoved)
{
    int one = 1, two = 2;
    IController controller, other;
    CVirtualDevice drive;
    const stg::AttribValMap& entries = *controller.getAttribValueMap();
    for (int* const value : {&one, &two})
        for (const char* const name : {"b", "\xe9", "Z"})
            controller.insertIntoAttribValMap(name, value); // the first stays
    controller.updateAttribValMap("b", &two);
    controller.updateAttribValMap("null", nullptr);
    controller.deleteFromMap("null");
    controller.deleteFromMap(std::pair<std::string, void*>("Z", nullptr));
    EXPECT_THAT(entries, ElementsAre(Pair("b", &two), Pair("null", nullptr), Pair("\xe9", &one)));
    EXPECT_EQ(controller.retrieveValFromMap("Z"), nullptr);
    other.setVILNumber(5);
    CController_Helper helper(controller), otherHelper(other);
    helper = otherHelper; // copies attributes and keeps its owner
    CController_Helper(helper).operator()({"b", nullptr});
    EXPECT_EQ(entries.count("b"), 0U);
    EXPECT_EQ(controller.getVILNumber(), 5U);
    controller.updateAttribValMap("null", &one);
    controller.clearMap();
    drive.setVILNumber(5);
    drive.clearMap();
    EXPECT_EQ(entries.size() + drive.getAttribValueMap()->size(), 0U);

    stg::AttribTypeMap& table = IController::getAttribNameAndType();
    IController::setKeyValPair("m_Own", "U32", 7);
    IController::setKeyValPair("m_Own", "STDSTR", 8);
    EXPECT_EQ(table["m_Own"].m_AttribType, "U32");
    table.erase("m_Own");
}

} // namespace
