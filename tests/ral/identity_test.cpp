// What makes two objects the same one, and objects without an identity.
#include "Objects.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>

#include <gmock/gmock.h>

#include <cstring>
#include <functional>

namespace
{

using testing::ElementsAre;
using Edit = std::function<void(void*)>;

constexpr unsigned short kKey = SSPROP_SLOTNUM_U32;

template <typename Value>
Edit with(unsigned short id, unsigned char type, Value value)
{
    return [=](void* object) { EXPECT_EQ(SMSDOConfigAddData(object, id, type, &value, sizeof value, 1), 0); };
}

Edit withNumber(unsigned short id, std::uint32_t value)
{
    return with(id, SDO_TYPE_U32, value);
}

Edit withText(unsigned short id, const char* text, unsigned int size)
{
    return [=](void* object) {
        std::vector<char> block(size, '\0');
        std::strncpy(block.data(), text, size - 1);
        EXPECT_EQ(SMSDOConfigAddData(object, id, SDO_TYPE_ASTRING, block.data(), size, 1), 0);
    };
}

Edit withNexus(const std::vector<std::uint32_t>& ids)
{
    return [=](void* object) { addNexus(object, ids); };
}

Edit withNested(unsigned short id, const char* name)
{
    return [=](void* object) {
        EXPECT_EQ(SMSDOConfigAddData(object, id, SDO_TYPE_SDOCONFIG, make(name), 4, 1), 0);
    };
}

// An object of type 772 in layer 9 whose nexus names controller number and slot, but that has neither.
void* edited(const std::vector<Edit>& edits)
{
    void* const object = SMSDOConfigAlloc();
    addU32(object, SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK);
    addU32(object, SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER);
    addNexus(object, {SSPROP_GLOBALCONTROLLERNUM_U32, kKey});
    for (const Edit& edit : edits)
        edit(object);
    return object;
}

using Identity = RalTest;

TEST_F(Identity, IsTypeLayerAndTheValuesThatTheNexusNames)
{
    const struct {
        const char* what;
        std::vector<Edit> first;
        std::vector<Edit> second;
        bool same;
    } cases[] = {
        {"same value", {withNumber(kKey, 3)}, {withNumber(kKey, 3)}, true},
        {"other value", {withNumber(kKey, 3)}, {withNumber(kKey, 4)}, false},
        {"a property outside the nexus", {withNumber(24580, 1)}, {withNumber(24580, 2)}, true},
        {"other type", {}, {withNumber(SSPROP_OBJTYPE_U32, 773)}, false},
        {"other layer", {}, {withNumber(SSPROP_VILNUMBER_U32, 8)}, false},
        {"other nexus", {}, {withNexus({SSPROP_GLOBALCONTROLLERNUM_U32})}, false},
        {"other order in the nexus",
         {withNumber(kKey, 3)},
         {withNumber(kKey, 3), withNexus({kKey, 24600})},
         false},
        {"absent in both", {}, {}, true},
        {"absent in one", {withNumber(kKey, 0)}, {}, false},
        {"number of another width",
         {withNumber(kKey, 3)},
         {with(kKey, SDO_TYPE_U16, std::uint16_t{3})},
         true},
        {"signed and unsigned", {withNumber(kKey, 0xffffffff)}, {with(kKey, SDO_TYPE_S32, -1)}, false},
        {"wide numbers",
         {with(kKey, SDO_TYPE_U64, std::uint64_t{1} << 40)},
         {with(kKey, SDO_TYPE_U64, std::uint64_t{1} << 41)},
         false},
        {"text in blocks of two sizes", {withText(kKey, "ab", 256)}, {withText(kKey, "ab", 3)}, true},
        {"texts", {withText(kKey, "ab", 256)}, {withText(kKey, "ac", 256)}, false},
        {"text and number", {withText(kKey, "3", 256)}, {withNumber(kKey, 3)}, false},
        {"lists", {with(kKey, SDO_TYPE_NEXUS_U32, std::uint64_t{1})}, {withNumber(kKey, 1)}, true},
        {"nested", {withNested(kKey, "pd0.1")}, {withNested(kKey, "pd0.1")}, true},
        {"other nested", {withNested(kKey, "pd0.1")}, {withNested(kKey, "pd0.2")}, false},
    };
    for (const auto& pair : cases) {
        EXPECT_EQ(RalInsertObject(edited(pair.first), nullptr), 0);
        EXPECT_EQ(RalInsertObject(edited(pair.second), nullptr), 0);
        EXPECT_EQ(content().size(), pair.same ? 1U : 2U) << pair.what;
        ral_reset();
    }
}

TEST_F(Identity, AnObjectWithoutOneIsKeptApart)
{
    const struct {
        const char* what;
        std::vector<Edit> edits;
    } cases[] = {
        {"nexus of no whole id", {with(SSPROP_NEXUS_U32, SDO_TYPE_U16, std::uint16_t{24600})}},
        {"nested in place of the nexus", {withNested(SSPROP_NEXUS_U32, "pd0.1")}},
        {"text in place of the type", {withText(SSPROP_OBJTYPE_U32, "772", 4)}},
        {"nested in place of the type", {withNested(SSPROP_OBJTYPE_U32, "pd0.1")}},
    };
    insertObject("ctl0");
    std::vector<std::string> expected{"ctl0<"};
    const auto insertIncomplete = [&](void* object, const char* what) {
        void* const twin = morlan_sdo_clone(object);
        EXPECT_EQ(RalInsertObject(object, make("ctl0")), 0) << what;
        expected.emplace_back("!?<");
        EXPECT_EQ(content(), expected) << what;
        EXPECT_EQ(RalDeleteObject(twin, 1, 0), 256) << what;
        morlan_sdo_free(twin);
    };
    for (const auto& incomplete : cases)
        insertIncomplete(edited(incomplete.edits), incomplete.what);
    void* const noNexus = SMSDOConfigAlloc();
    addU32(noNexus, SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK);
    insertIncomplete(noNexus, "no nexus");
    void* const noType = SMSDOConfigAlloc();
    addNexus(noType, {SSPROP_GLOBALCONTROLLERNUM_U32});
    insertIncomplete(noType, "no type");
    EXPECT_EQ(RalInsertObject(SMSDOConfigAlloc(), make("ctl5")), 0) << "even under an unknown parent";
    expected.emplace_back("!?<");

    insertObject("pd0.1", "ctl0");
    expected.insert(expected.begin() + 1, "pd0.1<ctl0");
    EXPECT_EQ(content(), expected) << "incomplete objects come last";
    EXPECT_EQ(listObjects("ctl0", SDO_OBJTYPE_PHYSICAL_DISK), "pd0.1");
    EXPECT_EQ(listObjects("", SDO_OBJTYPE_PHYSICAL_DISK), "");
}

} // namespace
