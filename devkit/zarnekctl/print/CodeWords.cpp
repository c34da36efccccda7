#include "zarnekctl/print/CodeWords.h"

#include <sdo.h>

namespace zarnekctl
{

namespace
{

struct Row {
    unsigned int property;
    ObjectKind kind; // Other: objects of any kind
    std::uint64_t code;
    const char* word;
};

constexpr ObjectKind any = ObjectKind::Other;
constexpr ObjectKind physical = ObjectKind::PhysicalDisk;
constexpr ObjectKind virtuals = ObjectKind::VirtualDisk;

constexpr Row rows[] = {
    {SSPROP_OBJTYPE_U32, any, SDO_OBJTYPE_CONTROLLER, "controller"},
    {SSPROP_OBJTYPE_U32, any, SDO_OBJTYPE_PHYSICAL_DISK, "physical disk"},
    {SSPROP_OBJTYPE_U32, any, SDO_OBJTYPE_VIRTUAL_DISK, "virtual disk"},

    {SSPROP_STATUS_U32, any, 0, "unstated"},
    {SSPROP_STATUS_U32, any, 1, "unknown"},
    {SSPROP_STATUS_U32, any, 2, "ok"},
    {SSPROP_STATUS_U32, any, 3, "warning"},
    {SSPROP_STATUS_U32, any, 4, "critical"},

    // The plug-in tells no state: spares and disks under a check, arrays that rebuild, and whatever else the
    // vendor's flags have no name for. How bad it is, the status tells.
    {SSPROP_STATE_U32, any, 0, "unstated"},
    {SSPROP_STATE_U32, ObjectKind::Controller, 1, "ready"},

    {SSPROP_STATE_U32, physical, 1, "ready"},
    {SSPROP_STATE_U32, physical, 4, "online"},
    {SSPROP_STATE_U32, physical, 8, "failed"},

    {SSPROP_STATE_U32, virtuals, 0x1, "optimal"},
    {SSPROP_STATE_U32, virtuals, 0x8, "offline"},
    {SSPROP_STATE_U32, virtuals, 0x20, "degraded"},
    {SSPROP_STATE_U32, virtuals, 0x100000, "failed"},
    {SSPROP_STATE_U32, virtuals, 0x800000, "checking"},
    {SSPROP_STATE_U32, virtuals, 0x10000000, "initialising"},

    {SSPROP_RAIDMODE_U32, any, 0x2, "RAID 0"},
    {SSPROP_RAIDMODE_U32, any, 0x4, "RAID 1"},
    {SSPROP_RAIDMODE_U32, any, 0x40, "RAID 5"},
    {SSPROP_RAIDMODE_U32, any, 0x80, "RAID 6"},
    {SSPROP_RAIDMODE_U32, any, 0x200, "RAID 10"},
    {SSPROP_RAIDMODE_U32, any, 0x800, "RAID 50"},
    {SSPROP_RAIDMODE_U32, any, 0x4000, "no RAID"},
    {SSPROP_RAIDMODE_U32, any, 0x40000, "RAID 60"},
    {SSPROP_RAIDMODE_U32, any, 0x80000, "no RAID"},

    {SSPROP_BUSPROTOCOL_U32, any, 7, "SATA"},
    {SSPROP_BUSPROTOCOL_U32, any, 8, "SAS"},
    {SSPROP_MEDIA_U32, any, 1, "HDD"},
    {SSPROP_MEDIA_U32, any, 2, "SSD"},

    {SSPROP_WRITEPOLICY_U32, any, 4, "write through"},
    {SSPROP_WRITEPOLICY_U32, any, 8, "write back"},
    {SSPROP_VDDISKCACHEPOLICY_U32, any, 2, "off"},
    {SSPROP_VDDISKCACHEPOLICY_U32, any, 4, "on"},
};

} // namespace

const char* codeWord(unsigned int property, ObjectKind kind, std::uint64_t code)
{
    for (const Row& row : rows)
        if (row.property == property && row.code == code && (row.kind == any || row.kind == kind))
            return row.word;
    return nullptr;
}

Health healthOf(const Object& object)
{
    switch (object.number(SSPROP_STATUS_U32).value_or(1)) {
    case 2:
        return Health::Good;
    case 3:
        return Health::Warning;
    case 4:
        return Health::Critical;
    default:
        return Health::Unknown;
    }
}

} // namespace zarnekctl
