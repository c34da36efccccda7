// What the model's searches give of the data engine's objects.
#include "common/PluginTest.h"
#include "common/SdoObject.h"
#include "model/CPhysicalDevice.h"
#include "model/CVirtualDevice.h"
#include "model/IController.h"
#include "ral/ral_inspect.h"
#include "support/Status.h"

#include <morlan.h>
#include <ral.h>

#include <array>

namespace
{

constexpr unsigned int OTHER_LAYER = SDO_VIL_NUMBER + 1;
constexpr unsigned int ALL = stg::NUMBER_UNKNOWN;
// What stands in a place for an object's key: the caller's pointer, a null, an object without the key.
constexpr unsigned int KEPT = 1001, EMPTY = 1002, KEYLESS = 1003;

// Puts an object into the data engine, under the controller that it names.
void insert(const SdoNumbers& numbers)
{
    const unsigned int global = numbers.at(SSPROP_GLOBALCONTROLLERNUM_U32);
    const SdoNumbers controller{{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_CONTROLLER},
                                {SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER},
                                {SSPROP_GLOBALCONTROLLERNUM_U32, global}};
    EXPECT_EQ(RalInsertObject(makeObject(controller), nullptr), 0);
    EXPECT_EQ(RalInsertObject(makeObject(numbers), makeObject(controller)), 0);
}

struct SearchTest : PluginTest {
    // The keys of found objects, which are freed.
    std::vector<unsigned int> keys(const std::array<void*, 5>& places, unsigned int key) const
    {
        std::vector<unsigned int> found;
        for (void* const place : places) {
            if (place == nullptr || place == this) {
                found.push_back(place == this ? KEPT : EMPTY);
                continue;
            }
            const unsigned int number = numberOf(place, key);
            found.push_back(number == NO_NUMBER ? KEYLESS : number);
            SMSDOConfigFree(place);
        }
        return found;
    }
};

TEST_F(SearchTest, FindsTheDevicesOfAController)
{
    for (const bool isDisk : {true, false}) {
        SCOPED_TRACE(isDisk);
        const unsigned int type = isDisk ? SDO_OBJTYPE_PHYSICAL_DISK : SDO_OBJTYPE_VIRTUAL_DISK;
        const unsigned int key = isDisk ? SSPROP_DEVICEID_U32 : SSPROP_LOGICALDRIVENUM_U32;
        for (const SdoNumbers& others :
             {SdoNumbers{{SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER}, {key, 40}},
              SdoNumbers{{SSPROP_VILNUMBER_U32, OTHER_LAYER}, {key, 41}},
              SdoNumbers{{SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER}}, SdoNumbers{{key, 43}},
              SdoNumbers{{SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER}, {key, 44}}}) {
            SdoNumbers device{{SSPROP_OBJTYPE_U32, type}, {SSPROP_GLOBALCONTROLLERNUM_U32, 5}};
            device.insert(others.begin(), others.end());
            insert(device);
        }
        const auto search = [&](unsigned int controller, unsigned int wanted, unsigned int status) {
            std::array<void*, 5> places;
            places.fill(this);
            EXPECT_EQ(isDisk ? CPhysicalDevice().getPdObject(controller, places.data(), wanted)
                             : CVirtualDevice().getVdObject(controller, places.data(), wanted),
                      status);
            return keys(places, key);
        };
        const std::vector<unsigned int> none{EMPTY, KEPT, KEPT, KEPT, KEPT};
        EXPECT_THAT(search(5, ALL, 0), testing::ElementsAre(40, KEPT, KEYLESS, KEPT, 44));
        EXPECT_THAT(search(5, 44, 0), testing::ElementsAre(44, KEPT, KEPT, KEPT, KEPT));
        EXPECT_EQ(search(8, ALL, 1), none);
        EXPECT_EQ(search(5, 43, isDisk ? stg::STATUS_NO_MATCH : stg::STATUS_FAILURE), none) << "of no layer";
        // Looking for the controller takes the first listing and a clone.
        ral_fail_call("RalListAssociatedObjects", 2, 1, 5);
        EXPECT_EQ(search(5, ALL, isDisk ? stg::STATUS_NO_MATCH : 5), none);
        morlan_fail_call("SMSDOConfigClone", 4, 1, 0);
        EXPECT_THAT(search(5, ALL, 1), testing::ElementsAre(40, KEPT, KEYLESS, KEPT, EMPTY));
    }
}

TEST_F(SearchTest, FindsTheControllerOfItsOwnLayer)
{
    const auto controller = [](unsigned int layer, unsigned int global, unsigned int index) {
        return SdoNumbers{{SSPROP_OBJTYPE_U32, SDO_OBJTYPE_CONTROLLER},
                          {SSPROP_VILNUMBER_U32, layer},
                          {SSPROP_GLOBALCONTROLLERNUM_U32, global},
                          {SSPROP_CONTROLLERID_U32, index}};
    };
    SdoNumbers ofNoLayer = controller(0, 5, 0), numberless = controller(SDO_VIL_NUMBER, 0, 9);
    ofNoLayer.erase(SSPROP_VILNUMBER_U32);
    numberless.erase(SSPROP_GLOBALCONTROLLERNUM_U32);
    for (const SdoNumbers& object : {ofNoLayer, numberless, controller(OTHER_LAYER, 5, 0),
                                     controller(SDO_VIL_NUMBER, 4, 1), controller(SDO_VIL_NUMBER, 5, 2)})
        EXPECT_EQ(RalInsertObject(makeObject(object), nullptr), 0);

    // The vendor's index of what is found.
    const auto search = [this](void* given, unsigned int global, unsigned int wantedStatus) {
        std::array<void*, 5> places;
        places.fill(this);
        EXPECT_EQ(IController().getControllerObject(given, global, places.data()), wantedStatus);
        EXPECT_EQ(ral_live_lists(), 0U);
        return keys(places, SSPROP_CONTROLLERID_U32).front();
    };
    EXPECT_EQ(search(nullptr, 5, 0), 2U);
    EXPECT_EQ(search(nullptr, 7, stg::STATUS_NO_MATCH), EMPTY);
    morlan_fail_call("SMSDOConfigClone", 1, 1, 0);
    EXPECT_EQ(search(nullptr, 5, stg::STATUS_FAILURE), EMPTY);
    ral_fail_call("RalListAssociatedObjects", 1, 1, 77);
    EXPECT_EQ(search(nullptr, 5, 77), EMPTY);

    // An object in hand is only looked at.
    void* const found = makeObject(controller(SDO_VIL_NUMBER, 5, 2));
    EXPECT_EQ(search(found, 77, 0), KEPT);
    morlan_fail_call("SMSDOConfigGetDataByID", 1, 1, 2);
    EXPECT_EQ(search(found, 5, stg::STATUS_FAILURE), KEPT);
    SMSDOConfigFree(found);
}

} // namespace
