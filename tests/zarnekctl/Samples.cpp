#include "zarnekctl/Samples.h"

#include <algorithm>

using namespace zarnekctl;

Property u32(unsigned int id, std::uint32_t value)
{
    return {id, SDO_TYPE_U32, std::uint64_t{value}};
}

Property u64(unsigned int id, std::uint64_t value)
{
    return {id, SDO_TYPE_U64, value};
}

Property text(unsigned int id, const std::string& value)
{
    return {id, SDO_TYPE_ASTRING, value};
}

Property nexus(const std::vector<std::uint32_t>& ids)
{
    return {SSPROP_NEXUS_U32, SDO_TYPE_NEXUS_U32, ids};
}

Object sampleController(std::uint32_t number)
{
    return {{u32(SSPROP_OBJTYPE_U32, SDO_OBJTYPE_CONTROLLER), u32(SSPROP_VILNUMBER_U32, 9),
             u32(SSPROP_GLOBALCONTROLLERNUM_U32, number), nexus({SSPROP_GLOBALCONTROLLERNUM_U32}),
             text(SSPROP_NAME_ASTRING, "TALM-Q7"), u32(SSPROP_STATE_U32, 1), u32(SSPROP_STATUS_U32, 2),
             text(SSPROP_FWVERSION_ASTRING, "1.2.3.0004"), u32(SSPROP_REBUILDRATE_U32, 50)}};
}

Object sampleDisk(std::uint32_t controller, std::uint32_t slot, std::uint32_t state, std::uint32_t status)
{
    return {{u32(SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK), u32(SSPROP_VILNUMBER_U32, 9),
             u32(SSPROP_GLOBALCONTROLLERNUM_U32, controller), u32(SSPROP_SLOTNUM_U32, slot),
             nexus({SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_SLOTNUM_U32}), u32(SSPROP_STATE_U32, state),
             u32(SSPROP_STATUS_U32, status), u64(SSPROP_SIZE_U64, 4000787030016),
             u32(SSPROP_BUSPROTOCOL_U32, 8), u32(SSPROP_NEGOTIATEDSPEED_U32, 12288),
             text(SSPROP_MODEL_ASTRING, "MODEL-" + std::to_string(slot))}};
}

Object sampleVirtualDisk(std::uint32_t controller, std::uint32_t drive, std::uint32_t state,
                         std::uint32_t status)
{
    return {{u32(SSPROP_OBJTYPE_U32, SDO_OBJTYPE_VIRTUAL_DISK), u32(SSPROP_VILNUMBER_U32, 9),
             u32(SSPROP_GLOBALCONTROLLERNUM_U32, controller), u32(SSPROP_LOGICALDRIVENUM_U32, drive),
             nexus({SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_LOGICALDRIVENUM_U32}),
             u32(SSPROP_STATE_U32, state), u32(SSPROP_STATUS_U32, status), text(SSPROP_NAME_ASTRING, "data"),
             u64(SSPROP_SIZE_U64, 8001574060032), u32(SSPROP_RAIDMODE_U32, 0x40),
             u32(SSPROP_STRIPEBLOCKSIZE_U32, 128), u32(SSPROP_WRITEPOLICY_U32, 8)}};
}

Object sampleSingleDisk(std::uint32_t controller, std::uint32_t slot)
{
    return {{u32(SSPROP_CONTROLLERID_U32, controller), u32(SSPROP_GLOBALCONTROLLERNUM_U32, controller),
             u32(SSPROP_SLOTNUM_U32, slot)}};
}

Object sampleDiskAlert(std::uint32_t number, std::uint32_t slot)
{
    const Object concerned{{u32(SSPROP_CONTROLLERID_U32, 0), u32(SSPROP_SLOTNUM_U32, slot),
                            u32(SSPROP_OBJTYPE_U32, SDO_OBJTYPE_PHYSICAL_DISK),
                            u32(SSPROP_GLOBALCONTROLLERNUM_U32, 0)}};
    return {
        {u32(SSPROP_ALERTNUMBER_U32, number),
         {SSPROP_CONTROLNOTIFY_SDO, SDO_TYPE_SDOCONFIG, Nested{std::make_shared<const Object>(concerned)}},
         u32(SSPROP_NOTIFYTYPE_U32, 3070)}};
}

System sampleSystem()
{
    System system;
    system.source = "sample";
    system.controllersFound = 1;
    system.nodes = {{sampleController(0), -1, {}, 1, false},
                    {sampleDisk(0, 0, 4, 2), 0, {}, 1, false},
                    {sampleDisk(0, 1, 8, 4), 0, {}, 1, false},
                    {sampleDisk(0, 3, 0, 1), 0, {}, 1, false},
                    {sampleVirtualDisk(0, 0, 0x20, 3), 0, {1, 2, 3}, 2, false},
                    {sampleDisk(5, 7, 4, 2), -1, {}, 1, false},
                    {sampleSingleDisk(0, 2), -1, {}, 1, true}};
    return system;
}

Object with(Object object, const Property& property)
{
    for (Property& existing : object.properties) {
        if (existing.id == property.id) {
            existing = property;
            return object;
        }
    }
    object.properties.push_back(property);
    return object;
}

Object without(Object object, unsigned int id)
{
    auto& properties = object.properties;
    properties.erase(std::remove_if(properties.begin(), properties.end(),
                                    [id](const Property& property) { return property.id == id; }),
                     properties.end());
    return object;
}
