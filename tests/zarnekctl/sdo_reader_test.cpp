// Reading what the libraries hold: properties of each type, and the data engine's tree.
#include "morlan.h"
#include "ral.h"
#include "ral/ral_inspect.h"
#include "zarnekctl/Samples.h"
#include "zarnekctl/SdoReader.h"

#include <gmock/gmock.h>

using namespace zarnekctl;

namespace
{

template <typename Number>
void add(void* object, unsigned int id, unsigned char type, Number value)
{
    ASSERT_EQ(SMSDOConfigAddData(object, static_cast<unsigned short>(id), type, &value, sizeof value, 1), 0);
}

void addText(void* object, unsigned int id, const std::string& value)
{
    char block[256] = {};
    value.copy(block, sizeof block);
    ASSERT_EQ(
        SMSDOConfigAddData(object, static_cast<unsigned short>(id), SDO_TYPE_ASTRING, block, sizeof block, 1),
        0);
}

void* newObject(unsigned int type, unsigned int controller, unsigned int numberId, unsigned int number)
{
    void* object = SMSDOConfigAlloc();
    add(object, SSPROP_OBJTYPE_U32, SDO_TYPE_U32, type);
    add(object, SSPROP_VILNUMBER_U32, SDO_TYPE_U32, 9U);
    add(object, SSPROP_GLOBALCONTROLLERNUM_U32, SDO_TYPE_U32, controller);
    add(object, numberId, SDO_TYPE_U32, number);
    const std::uint32_t ids[] = {SSPROP_GLOBALCONTROLLERNUM_U32, numberId};
    SMSDOConfigAddData(object, SSPROP_NEXUS_U32, SDO_TYPE_NEXUS_U32, ids, sizeof ids, 1);
    return object;
}

} // namespace

TEST(SdoReader, readsEachTypeAtItsWidth)
{
    void* handle = SMSDOConfigAlloc();
    add(handle, 1, SDO_TYPE_BOOLN, std::uint8_t{1});
    add(handle, 2, SDO_TYPE_S8, std::int8_t{-2});
    add(handle, 3, SDO_TYPE_S16, std::int16_t{-300});
    add(handle, 4, SDO_TYPE_S32, std::int32_t{-70000});
    add(handle, 5, SDO_TYPE_U8, std::uint8_t{255});
    add(handle, 6, SDO_TYPE_U16, std::uint16_t{65535});
    add(handle, 7, SDO_TYPE_U64, std::uint64_t{18446744073709551615U});
    add(handle, 8, SDO_TYPE_BINARY_DATA, std::uint32_t{0x80000000U});
    addText(handle, 9, "name");
    addText(handle, 10, std::string(256, 'x'));      // no terminator
    add(handle, 11, SDO_TYPE_U32, std::uint16_t{7}); // not the width of its type
    void* nested = SMSDOConfigAlloc();
    add(nested, 12, SDO_TYPE_U32, 5U);
    ASSERT_EQ(SMSDOConfigAddData(handle, 13, SDO_TYPE_SDOCONFIG, nested, sizeof nested, 1), 0);

    const Object object = readObject(handle);
    SMSDOConfigFree(handle);
    const Value values[] = {std::uint64_t{1},
                            std::int64_t{-2},
                            std::int64_t{-300},
                            std::int64_t{-70000},
                            std::uint64_t{255},
                            std::uint64_t{65535},
                            std::uint64_t{18446744073709551615U},
                            std::uint64_t{0x80000000U},
                            std::string("name"),
                            std::string(256, 'x'),
                            Bytes{std::string("\x07\0", 2)},
                            Nested{std::make_shared<const Object>(Object{{u32(12, 5)}})}};
    ASSERT_EQ(object.properties.size(), std::size(values));
    for (std::size_t index = 0; index < std::size(values); ++index)
        EXPECT_TRUE(object.properties[index].value == values[index]) << object.properties[index].id;
    EXPECT_TRUE(readObject(nullptr).properties.empty());
}

TEST(ReadSystem, keepsParentsLinksAndIncompleteObjects)
{
    ral_reset();
    const auto controller = [] { return newObject(SDO_OBJTYPE_CONTROLLER, 2, SSPROP_CONTROLLERID_U32, 0); };
    const auto disk = [] { return newObject(SDO_OBJTYPE_PHYSICAL_DISK, 2, SSPROP_SLOTNUM_U32, 4); };
    const auto drive = [] { return newObject(SDO_OBJTYPE_VIRTUAL_DISK, 2, SSPROP_LOGICALDRIVENUM_U32, 1); };
    ASSERT_EQ(RalInsertObject(controller(), nullptr), 0);
    ASSERT_EQ(RalInsertObject(disk(), controller()), 0);
    ASSERT_EQ(RalInsertObject(SMSDOConfigAlloc(), nullptr), 0);
    ASSERT_EQ(RalInsertObject(drive(), controller()), 0);
    ASSERT_EQ(RalInsertObject(drive(), controller()), 0);
    void* upper = drive();
    void* lower = disk();
    ASSERT_EQ(RalLinkObjects(upper, lower), 0);
    SMSDOConfigFree(upper);
    SMSDOConfigFree(lower);

    const System system = readSystem();
    ral_reset();
    ASSERT_EQ(system.nodes.size(), 4U);
    EXPECT_EQ(system.below(-1, ObjectKind::Controller), std::vector<std::size_t>{0});
    EXPECT_EQ(system.below(0, ObjectKind::PhysicalDisk), std::vector<std::size_t>{1});
    EXPECT_EQ(system.below(0, ObjectKind::VirtualDisk), std::vector<std::size_t>{2});
    EXPECT_EQ(system.nodes[2].links, std::vector<std::size_t>{1});
    EXPECT_EQ(system.nodes[2].insertions, 2U);
    EXPECT_TRUE(system.nodes[3].incomplete);
    EXPECT_EQ(system.count(ObjectKind::Other), 0U);
}
