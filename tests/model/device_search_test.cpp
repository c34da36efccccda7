#include "common/PluginTest.h"
#include "model/CPhysicalDevice.h"
#include "model/CVirtualDevice.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>

#include <algorithm>
#include <map>

namespace
{

constexpr unsigned int ALL = 0xFFFFFFFF;

// An object with these numbers; all but type and layer are its identity.
void* make(const std::map<unsigned int, unsigned int>& numbers)
{
    void* const object = SMSDOConfigAlloc();
    std::vector<unsigned int> nexus;
    for (auto [id, value] : numbers) {
        SMSDOConfigAddData(object, static_cast<unsigned short>(id), 8, &value, 4, 1);
        if (id != 24576 && id != 24583)
            nexus.push_back(id);
    }
    SMSDOConfigAddData(object, 24692, 24, nexus.data(), 4 * static_cast<unsigned int>(nexus.size()), 1);
    return object;
}

// Puts an object into the data engine, under the controller that it names.
void insert(const std::map<unsigned int, unsigned int>& numbers)
{
    const std::map<unsigned int, unsigned int> controller{
        {24576, 769}, {24583, 9}, {24600, numbers.at(24600)}};
    EXPECT_EQ(RalInsertObject(make(controller), nullptr), 0);
    EXPECT_EQ(RalInsertObject(make(numbers), make(controller)), 0);
}

using DeviceSearchTest = PluginTest;

TEST_F(DeviceSearchTest, FindsTheDevicesOfAController)
{
    // Status; five places, "-" as the caller had it, else the key; what is said: the (T)otal, a (F)oreign or
    // (U)nknown layer, a clone that is a (G)ap or (N)ull, a listing's (E)rror. Virtual disks as disks if
    // empty. Looking for the controller takes the first listing, four readings and a clone.
    struct {
        unsigned int controller, wanted;
        std::string disks, drives;
        const char* failing = nullptr;
        unsigned int nth = 0;
        int status = 1;
    } const searches[] = {
        {5, ALL, "0 8:40 - none - 8:44 T5 F4 U", ""},
        {5, 40, "0 8:40 - - - - T5", ""},
        {5, 44, "0 8:44 - - - - T5 F4 U", ""},
        {5, 41, "256 null - - - - T5 F4 U", "1 null - - - - T5 F4 U"},
        {5, 43, "256 null - - - - T5 F4 U", "1 null - - - - T5 F4 U"},
        {6, ALL, "256 null - - - - T1 F4", ""},
        {6, 40, "256 null - - - - T1 F4", ""},
        {7, ALL, "256 null - - - - T0", ""},
        {8, ALL, "1 null - - - - E", ""},
        {5, ALL, "1 null - - - - E", "", "RalListAssociatedObjects", 2, 1},
        {5, ALL, "256 null - - - - T0", "5 null - - - - E", "RalListAssociatedObjects", 2, 5},
        {5, ALL, "0 null - none - 8:44 T5 G F4 U", "", "SMSDOConfigClone", 2},
        {5, ALL, "1 8:40 - none - null T5 F4 U G", "", "SMSDOConfigClone", 4},
        {5, 40, "1 null - - - - T5 N", "", "SMSDOConfigClone", 2},
        {5, ALL, "0 8:40 - none - - T5 F4 U U", "1 8:40 - none - - T5 F4 U U", "SMSDOConfigGetDataByID", 9}};
    insert({{24576, 700}, {24600, 7}});
    for (const bool isDisk : {true, false}) {
        const unsigned int type = isDisk ? 772 : 773, key = isDisk ? 24809 : 24629;
        insert({{24576, type}, {24600, 5}, {24583, 9}, {key, 40}});
        insert({{24576, type}, {24600, 5}, {24583, 4}, {key, 41}});
        insert({{24576, type}, {24600, 5}, {24583, 9}});
        insert({{24576, type}, {24600, 5}, {key, 43}});
        insert({{24576, type}, {24600, 5}, {24583, 9}, {key, 44}});
        insert({{24576, type}, {24600, 6}, {24583, 4}, {key, 40}});
        const std::string at =
            isDisk ? "ZARNEK:CPhysicalDevice::getPdObject(): " : "ZARNEK:CVirtualDevice::getVdObject(): ";
        const std::pair<std::string, std::string> words[] = {
            {at + "Total Number of " + (isDisk ? "PDs = " : "VDs = "), " T"},
            {at + "SSPROP_VILNUMBER_U32 " + (isDisk ? "is " : "= "), " F"},
            {at + "SSPROP_VILNUMBER_U32 not found.", " U"},
            {"ZARNEK:CPhysicalDevice::getPdObject(): *outSDOConfigObj is NULL (From else Part)", " G"},
            {at + "*outSDOConfigObj is NULL.", " N"},
            {at + "Failed to retrieve Associated SDOObjects", " E"},
            {"ZARNEK:CPhysicalDevice", " ?"},
            {"ZARNEK:CVirtualDevice", " ?"}};
        for (const auto& c : searches) {
            if (c.failing != nullptr)
                (*c.failing == 'R' ? ral_fail_call : morlan_fail_call)(c.failing, c.nth, 1, c.status);
            clear();
            void* objects[5] = {this, this, this, this, this};
            std::string found =
                std::to_string(isDisk ? CPhysicalDevice().getPdObject(c.controller, objects, c.wanted)
                                      : CVirtualDevice().getVdObject(c.controller, objects, c.wanted));
            for (void* const place : objects) {
                found += place == this ? " -" : place == nullptr ? " null" : ' ' + property(place, key);
                if (place != this && place != nullptr)
                    SMSDOConfigFree(place);
            }
            for (const std::string& line : messages()) {
                const auto said = std::find_if(std::begin(words), std::end(words), [&line](const auto& word) {
                    return line.rfind(word.first, 0) == 0;
                });
                if (said != std::end(words))
                    found += said->second + line.substr(said->first.size());
            }
            EXPECT_EQ(found, isDisk || c.drives.empty() ? c.disks : c.drives) << at << c.wanted;
        }
    }
}

} // namespace
