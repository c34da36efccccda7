#include "mvsim/MachineChanges.h"

#include "mvsim/EventCodes.h"
#include "mvsim/RecordCodes.h"

#include <algorithm>

namespace mvsim
{

namespace
{

constexpr unsigned int kProgressStep = 10; // percent

class EventList
{
  public:
    void add(std::uint16_t eventClass, std::uint16_t code, std::uint16_t device)
    {
        PendingEvent event;
        event.record.EventClass = eventClass;
        event.record.EventCode = code;
        event.record.EventDeviceId = device;
        m_events.push_back(event);
    }
    void addDisk(std::uint16_t code, const SeenDisk& disk)
    {
        add(MV_EVENT_PHYSICAL_DISK, code, disk.device.config.SlotNumber);
    }
    void addArray(std::uint16_t code, const SeenArray& array)
    {
        add(MV_EVENT_VIRTUAL_DISK, code, array.device.config.LogicalDriveNumber);
    }
    std::vector<PendingEvent> take() { return std::move(m_events); }

  private:
    std::vector<PendingEvent> m_events;
};

const SeenDisk* find(const std::vector<SeenDisk>& disks, const SeenDisk& wanted)
{
    const std::uint16_t id = wanted.device.info.HD_Id;
    const auto found = std::find_if(disks.begin(), disks.end(),
                                    [id](const SeenDisk& disk) { return disk.device.info.HD_Id == id; });
    return found == disks.end() ? nullptr : &*found;
}

const SeenArray* find(const std::vector<SeenArray>& arrays, const SeenArray& wanted)
{
    const std::uint16_t id = wanted.device.info.LD_Id;
    const auto found = std::find_if(arrays.begin(), arrays.end(),
                                    [id](const SeenArray& array) { return array.device.info.LD_Id == id; });
    return found == arrays.end() ? nullptr : &*found;
}

void compareDisk(std::uint8_t before, const SeenDisk& disk, EventList& events)
{
    const std::uint8_t now = disk.device.raidStatus.RaidStatusFlags;
    if (now == before) {
        return;
    }
    if (now == kDiskBad) {
        events.addDisk(kDiskFailed, disk);
    } else if (now == kDiskSpare) {
        events.addDisk(kSpareAssigned, disk);
    } else if (now == kDiskInArray) {
        events.addDisk(before == kDiskSpare ? kSpareActivated : kDiskOnline, disk);
    }
}

// Whether a disk was taken out of an array.
bool wasReleased(std::uint8_t before, const SeenDisk& disk)
{
    return before != kDiskReady && disk.device.raidStatus.RaidStatusFlags == kDiskReady;
}

// Serves all its data from all its disks.
bool isWhole(std::uint8_t status)
{
    return status == kDriveOptimal || status == kDriveChecking || status == kDriveInitialising;
}

bool isLost(std::uint8_t status)
{
    return status == kDriveFailed || status == kDriveOffline;
}

void compareArray(std::uint8_t before, const SeenArray& array, EventList& events)
{
    const std::uint8_t now = array.device.info.LDStatus;
    if (now == before) {
        return;
    }
    if (isWhole(now)) {
        if (before == kDriveRebuilding) {
            events.addArray(kRebuildCompleted, array);
        } else if (before == kDriveChecking) {
            events.addArray(kCheckCompleted, array);
        } else if (before == kDriveInitialising) {
            events.addArray(kInitialisationCompleted, array);
        }
        if (!isWhole(before)) {
            events.addArray(kVirtualDiskRecovered, array);
        }
        if (now == kDriveChecking) {
            events.addArray(kCheckStarted, array);
        }
    } else if (isLost(now)) {
        if (!isLost(before)) {
            events.addArray(kVirtualDiskFailed, array);
        }
    } else {
        // A rebuild may have begun before anybody looked: the array was degraded all the same.
        if (before != kDriveDegraded) {
            events.addArray(kVirtualDiskDegraded, array);
        }
        if (now == kDriveRebuilding) {
            events.addArray(kRebuildStarted, array);
        }
    }
}

void compareProgress(const SeenArray& before, const SeenArray& now, EventList& events)
{
    const bool rebuilding =
        before.device.info.LDStatus == kDriveRebuilding && now.device.info.LDStatus == kDriveRebuilding;
    if (rebuilding &&
        now.progress.value_or(0) / kProgressStep != before.progress.value_or(0) / kProgressStep) {
        events.addArray(kRebuildProgress, now);
    }
}

} // namespace

std::vector<PendingEvent> changesBetween(const SeenMachine& before, const SeenMachine& after)
{
    EventList events;
    bool released = false;
    for (const SeenDisk& disk : before.disks) {
        if (find(after.disks, disk) == nullptr) {
            events.addDisk(kDiskRemoved, disk);
        }
    }
    for (const SeenDisk& disk : after.disks) {
        const SeenDisk* known = find(before.disks, disk);
        if (known == nullptr) {
            events.addDisk(kDiskInserted, disk);
        }
        const std::uint8_t status = known != nullptr ? known->device.raidStatus.RaidStatusFlags : kDiskReady;
        compareDisk(status, disk, events);
        released = released || wasReleased(status, disk);
    }
    for (const SeenArray& array : before.arrays) {
        if (find(after.arrays, array) == nullptr) {
            events.addArray(kVirtualDiskDeleted, array);
        }
    }
    for (const SeenArray& array : after.arrays) {
        const SeenArray* known = find(before.arrays, array);
        if (known == nullptr) {
            events.addArray(kVirtualDiskCreated, array);
        }
        compareArray(known != nullptr ? known->device.info.LDStatus : kDriveOptimal, array, events);
        if (known != nullptr) {
            compareProgress(*known, array, events);
        }
    }
    if (released) {
        events.add(MV_EVENT_CONTROLLER, kControllerConfigChanged, 0);
    }
    return events.take();
}

} // namespace mvsim
