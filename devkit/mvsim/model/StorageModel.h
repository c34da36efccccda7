// The simulated system in memory. A device is kept as the very records that the library serves, so that every
// byte of an answer can be set, also those that no reader of the records knows.
#ifndef ZARNEK_DEVKIT_MVSIM_STORAGEMODEL_H
#define ZARNEK_DEVKIT_MVSIM_STORAGEMODEL_H

#include <mv.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace mvsim
{

// A device that is not present is known to the scenario and may come back, but no call tells of it.
struct Disk {
    bool present = true;
    _HD_Info info{};
    _HD_CONFIG config{};
    _HD_RAID_Status_Request raidStatus{};  // only what follows its header is served
    _HD_FreeSpaceInfo_Request freeSpace{}; // only what follows its header is served
};

struct VirtualDisk {
    bool present = true;
    _LD_Info info{};
    _LD_Config config{};
};

// The id by which calls name a device.
inline std::uint16_t idOf(const Disk& disk)
{
    return disk.info.HD_Id;
}
inline std::uint16_t idOf(const VirtualDisk& drive)
{
    return drive.info.LD_Id;
}

// The number under which the outside world knows a device; events name it by that.
inline std::uint16_t numberOf(const Disk& disk)
{
    return disk.config.SlotNumber;
}
inline std::uint16_t numberOf(const VirtualDisk& drive)
{
    return drive.config.LogicalDriveNumber;
}

inline void setNumbers(Disk& disk, std::uint16_t id, std::uint16_t slot)
{
    disk.info.HD_Id = id;
    disk.config.SlotNumber = slot;
}
inline void setNumbers(VirtualDisk& drive, std::uint16_t id, std::uint16_t logicalDrive)
{
    drive.info.LD_Id = id;
    drive.config.LogicalDriveNumber = logicalDrive;
}

struct Adapter {
    _Adapter_Info info{};
    _Adapter_Config_V2 config{};
    _Adapter_OEM_Data oem{};
    // Whether PDCount and VDCount of `info` follow the lists; otherwise they are served as they stand.
    bool countsDisks = true;
    bool countsVirtualDisks = true;
    std::vector<Disk> disks;
    std::vector<VirtualDisk> virtualDisks;
};

// A text fills its field from the left and zeros the rest; one of the field's width has no terminator, and
// what is longer is cut.
template <std::size_t N>
void putText(char (&field)[N], const std::string& text)
{
    std::memset(field, 0, N);
    std::memcpy(field, text.data(), std::min(N, text.size()));
}

struct PendingEvent {
    _Event record{};
    bool numbered = false; // has a sequence number of its own; otherwise it gets one at its delivery
};

} // namespace mvsim

#endif
