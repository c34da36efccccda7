#include "zarnekctl/print/CodeWords.h"

#include <sdo.h>

#include <algorithm>
#include <string_view>

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

constexpr ObjectKind ANY = ObjectKind::Other;
constexpr ObjectKind PHYSICAL = ObjectKind::PhysicalDisk;
constexpr ObjectKind VIRTUAL = ObjectKind::VirtualDisk;

constexpr Row ROWS[] = {
    {SSPROP_OBJTYPE_U32, ANY, SDO_OBJTYPE_CONTROLLER, "controller"},
    {SSPROP_OBJTYPE_U32, ANY, SDO_OBJTYPE_PHYSICAL_DISK, "physical disk"},
    {SSPROP_OBJTYPE_U32, ANY, SDO_OBJTYPE_VIRTUAL_DISK, "virtual disk"},

    {SSPROP_STATUS_U32, ANY, 0, "unstated"},
    {SSPROP_STATUS_U32, ANY, SDO_STATUS_UNKNOWN, "unknown"},
    {SSPROP_STATUS_U32, ANY, SDO_STATUS_OK, "ok"},
    {SSPROP_STATUS_U32, ANY, SDO_STATUS_WARNING, "warning"},
    {SSPROP_STATUS_U32, ANY, SDO_STATUS_CRITICAL, "critical"},

    // The plug-in tells no state: spares and disks under a check, arrays that rebuild, and whatever else the
    // vendor's flags have no name for. How bad it is, the status tells.
    {SSPROP_STATE_U32, ANY, SDO_STATE_UNSTATED, "unstated"},
    {SSPROP_STATE_U32, ObjectKind::Controller, SDO_STATE_READY, "ready"},

    {SSPROP_STATE_U32, PHYSICAL, SDO_STATE_READY, "ready"},
    {SSPROP_STATE_U32, PHYSICAL, SDO_STATE_ONLINE, "online"},
    {SSPROP_STATE_U32, PHYSICAL, SDO_STATE_FAILED, "failed"},

    {SSPROP_STATE_U32, VIRTUAL, SDO_VDSTATE_OPTIMAL, "optimal"},
    {SSPROP_STATE_U32, VIRTUAL, SDO_VDSTATE_OFFLINE, "offline"},
    {SSPROP_STATE_U32, VIRTUAL, SDO_VDSTATE_DEGRADED, "degraded"},
    {SSPROP_STATE_U32, VIRTUAL, SDO_VDSTATE_FAILED, "failed"},
    {SSPROP_STATE_U32, VIRTUAL, SDO_VDSTATE_CHECKING, "checking"},
    {SSPROP_STATE_U32, VIRTUAL, SDO_VDSTATE_INITIALISING, "initialising"},

    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_0, "RAID 0"},
    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_1, "RAID 1"},
    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_5, "RAID 5"},
    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_6, "RAID 6"},
    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_10, "RAID 10"},
    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_50, "RAID 50"},
    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_NONE, "no RAID"},
    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_60, "RAID 60"},
    {SSPROP_RAIDMODE_U32, ANY, SDO_RAID_OTHER, "no RAID"},

    {SSPROP_BUSPROTOCOL_U32, ANY, SDO_BUS_SATA, "SATA"},
    {SSPROP_BUSPROTOCOL_U32, ANY, SDO_BUS_SAS, "SAS"},
    {SSPROP_MEDIA_U32, ANY, SDO_MEDIA_HDD, "HDD"},
    {SSPROP_MEDIA_U32, ANY, SDO_MEDIA_SSD, "SSD"},

    {SSPROP_WRITEPOLICY_U32, ANY, SDO_WRITEPOLICY_THROUGH, "write through"},
    {SSPROP_WRITEPOLICY_U32, ANY, SDO_WRITEPOLICY_BACK, "write back"},
    {SSPROP_VDDISKCACHEPOLICY_U32, ANY, SDO_VDDISKCACHE_OFF, "off"},
    {SSPROP_VDDISKCACHEPOLICY_U32, ANY, SDO_VDDISKCACHE_ON, "on"},
};

bool belongsTo(const Row& row, unsigned int property, ObjectKind kind)
{
    return row.property == property && (row.kind == ANY || row.kind == kind);
}

} // namespace

const char* codeWord(unsigned int property, ObjectKind kind, std::uint64_t code)
{
    for (const Row& row : ROWS)
        if (belongsTo(row, property, kind) && row.code == code)
            return row.word;
    return nullptr;
}

std::vector<const char*> codeWords(unsigned int property, ObjectKind kind)
{
    std::vector<const char*> words;
    for (const Row& row : ROWS) {
        const auto isSame = [&row](const char* word) { return std::string_view(word) == row.word; };
        if (belongsTo(row, property, kind) && std::none_of(words.begin(), words.end(), isSame))
            words.push_back(row.word);
    }
    return words;
}

} // namespace zarnekctl
