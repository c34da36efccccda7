// What makes two objects the same one, and objects without an identity.
#include "Objects.h"
#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>

#include <array>

namespace
{

constexpr unsigned short kKey = SSPROP_SLOTNUM_U32;

struct Property {
    unsigned short id;
    unsigned char type;
    std::string bytes;
};

template <typename Value>
Property property(unsigned short id, unsigned char type, Value value)
{
    return {id, type, std::string(reinterpret_cast<const char*>(&value), sizeof value)};
}

Property number(unsigned short id, std::uint32_t value)
{
    return property(id, SDO_TYPE_U32, value);
}

Property text(const std::string& characters, std::size_t blockSize)
{
    return {kKey, SDO_TYPE_ASTRING, characters + std::string(blockSize - characters.size(), '\0')};
}

void* withProperties(const std::vector<Property>& properties)
{
    void* const object = SMSDOConfigAlloc();
    for (const Property& row : properties)
        EXPECT_EQ(SMSDOConfigAddData(object, row.id, row.type, row.bytes.data(),
                                     static_cast<unsigned int>(row.bytes.size()), 1),
                  0);
    return object;
}

using Identity = RalTest;

TEST_F(Identity, IsTypeLayerAndTheValuesThatTheNexusNames)
{
    const Property slot3 = number(kKey, 3);
    const struct {
        const char* what;
        std::vector<Property> first;
        std::vector<Property> second;
        bool same;
    } cases[] = {
        {"same value", {slot3}, {slot3}, true},
        {"other value", {slot3}, {number(kKey, 4)}, false},
        {"a property outside the nexus", {number(SSPROP_STATUS_U32, 1)}, {}, true},
        {"other type", {}, {number(SSPROP_OBJTYPE_U32, 773)}, false},
        {"other layer", {}, {number(SSPROP_VILNUMBER_U32, 8)}, false},
        {"other nexus", {}, {property(SSPROP_NEXUS_U32, SDO_TYPE_NEXUS_U32, std::uint32_t{kKey})}, false},
        {"absent in both", {}, {}, true},
        {"absent in one", {number(kKey, 0)}, {}, false},
        {"another width", {slot3}, {property(kKey, SDO_TYPE_U16, std::uint16_t{3})}, true},
        {"signed and unsigned", {number(kKey, ~0U)}, {property(kKey, SDO_TYPE_S32, -1)}, false},
        {"text in blocks of two sizes", {text("ab", 256)}, {text("ab", 3)}, true},
        {"texts", {text("ab", 256)}, {text("ac", 256)}, false},
        {"text and number", {text("3", 256)}, {slot3}, false},
    };
    for (const auto& pair : cases) {
        for (std::vector<Property> properties : {pair.first, pair.second}) {
            // Later values replace earlier ones.
            properties.insert(properties.begin(),
                              {number(SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK),
                               number(SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER),
                               property(SSPROP_NEXUS_U32, SDO_TYPE_NEXUS_U32,
                                        std::array<std::uint32_t, 2>{SSPROP_GLOBALCONTROLLERNUM_U32, kKey})});
            EXPECT_EQ(RalInsertObject(withProperties(properties), nullptr), 0);
        }
        EXPECT_EQ(content().size(), pair.same ? 1U : 2U) << pair.what;
        ral_reset();
    }
}

TEST_F(Identity, AnObjectWithoutOneIsKeptApart)
{
    const Property type = number(SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK);
    const Property nexus = property(SSPROP_NEXUS_U32, SDO_TYPE_NEXUS_U32, std::uint32_t{kKey});
    const struct {
        const char* what;
        std::vector<Property> properties;
    } cases[] = {
        {"empty", {}},
        {"no nexus", {type}},
        {"no type", {nexus}},
        {"nexus of no whole id", {type, property(SSPROP_NEXUS_U32, SDO_TYPE_U16, std::uint16_t{kKey})}},
        {"text in place of the type", {{SSPROP_OBJTYPE_U32, SDO_TYPE_ASTRING, "772"}, nexus}},
    };
    insertObject("ctl0");
    std::vector<std::string> expected{"ctl0<"};
    for (const auto& row : cases) {
        EXPECT_EQ(RalInsertObject(withProperties(row.properties), make("ctl5")), 0) << row.what;
        expected.emplace_back("!?<");
        EXPECT_EQ(content(), expected) << row.what;
        void* const twin = withProperties(row.properties);
        EXPECT_EQ(RalDeleteObject(twin, 1, 0), 256) << row.what;
        morlan_sdo_free(twin);
    }
    insertObject("pd0.1", "ctl0");
    expected.insert(expected.begin() + 1, "pd0.1<ctl0");
    EXPECT_EQ(content(), expected) << "incomplete objects come last";
    EXPECT_EQ(listObjects("", SDO_OBJTYPE_PHYSICAL_DISK), "");
}

} // namespace
