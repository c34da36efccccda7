// What the model's searches give of the data engine's objects, and what they say of them.
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
    // What was said behind a label, its lines without it.
    Lines said(const std::string& label) const
    {
        Lines lines;
        for (const std::string& line : messages())
            if (line.rfind(label, 0) == 0)
                lines.push_back(line.substr(label.size()));
        return lines;
    }
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
    struct Search {
        unsigned int controller, wanted, diskStatus, driveStatus;
        std::vector<unsigned int> places;
        const char* failing = "none";
        unsigned int nth = 1;
        int failure = 1;
    };
    const std::vector<unsigned int> none{EMPTY, KEPT, KEPT, KEPT, KEPT};
    // Looking for the controller takes the first listing, two readings and a clone.
    const Search searches[] = {{5, ALL, 0, 0, {40, KEPT, KEYLESS, KEPT, 44}},
                               {5, 44, 0, 0, {44, KEPT, KEPT, KEPT, KEPT}},
                               {5, 43, 256, 1, none}, // of no layer
                               {8, ALL, 1, 1, none},
                               {5, ALL, 256, 5, none, "RalListAssociatedObjects", 2, 5},
                               {5, ALL, 1, 1, {40, KEPT, KEYLESS, KEPT, EMPTY}, "SMSDOConfigClone", 4},
                               {5, 40, 1, 1, none, "SMSDOConfigClone", 2},
                               {5, ALL, 0, 1, {40, KEPT, KEYLESS, KEPT, KEPT}, "SMSDOConfigGetDataByID", 7}};
    for (const bool isDisk : {true, false}) {
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
        for (const Search& search : searches) {
            SCOPED_TRACE(testing::Message() << isDisk << ' ' << search.wanted << ' ' << search.failing);
            morlan_fail_call(search.failing, search.nth, 1, search.failure);
            ral_fail_call(search.failing, search.nth, 1, search.failure);
            std::array<void*, 5> places;
            places.fill(this);
            EXPECT_EQ(isDisk ? CPhysicalDevice().getPdObject(search.controller, places.data(), search.wanted)
                             : CVirtualDevice().getVdObject(search.controller, places.data(), search.wanted),
                      isDisk ? search.diskStatus : search.driveStatus);
            EXPECT_EQ(keys(places, key), search.places);
        }
    }
    void* place = nullptr;
    clear();
    CPhysicalDevice().getPdObject(5, &place, 43);
    CVirtualDevice().getVdObject(5, &place, 43);
    const std::string other = std::to_string(OTHER_LAYER), absent = "SSPROP_VILNUMBER_U32 not found.";
    EXPECT_EQ(said("ZARNEK:CPhysicalDevice::getPdObject(): "),
              Lines({"Total Number of PDs = 5", "SSPROP_VILNUMBER_U32 is " + other, absent}));
    EXPECT_EQ(said("ZARNEK:CVirtualDevice::getVdObject(): "),
              Lines({"Total Number of VDs = 5", "SSPROP_VILNUMBER_U32 = " + other, absent}));
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
        clear();
        EXPECT_EQ(IController().getControllerObject(given, global, places.data()), wantedStatus);
        EXPECT_EQ(ral_live_lists(), 0U);
        return keys(places, SSPROP_CONTROLLERID_U32).front();
    };
    EXPECT_EQ(search(nullptr, 5, 0), 2U);
    const std::string label = "ZARNEK:IController::getControllerObject(): ", is = "SSPROP_VILNUMBER_U32 is ";
    const std::string own = is + std::to_string(SDO_VIL_NUMBER), other = is + std::to_string(OTHER_LAYER);
    EXPECT_EQ(said(label), Lines({"Total Number of Controllers = 5", "SSPROP_VILNUMBER_U32 not found.", own,
                                  other, other, own, own}));
    EXPECT_EQ(search(nullptr, 7, stg::STATUS_NO_MATCH), EMPTY);
    morlan_fail_call("SMSDOConfigClone", 1, 1, 0);
    EXPECT_EQ(search(nullptr, 5, stg::STATUS_FAILURE), EMPTY);
    EXPECT_EQ(said(label).back(), "*outSDOConfigObj is NULL.");
    ral_fail_call("RalListAssociatedObjects", 1, 1, 77);
    EXPECT_EQ(search(nullptr, 5, 77), EMPTY);
    EXPECT_EQ(said(label), Lines{"Failed to retrieve Associated SDOObjects"});

    // An object in hand is only looked at.
    void* const found = makeObject(controller(SDO_VIL_NUMBER, 5, 2));
    EXPECT_EQ(search(found, 77, 0), KEPT);
    EXPECT_EQ(said(label), Lines{"Controller Object is available. Controller ID is 5"});
    morlan_fail_call("SMSDOConfigGetDataByID", 1, 1, 2);
    EXPECT_EQ(search(found, 5, stg::STATUS_FAILURE), KEPT);
    SMSDOConfigFree(found);
    ral_reset();
    EXPECT_EQ(search(nullptr, 5, stg::STATUS_NO_MATCH), EMPTY);
}

} // namespace
