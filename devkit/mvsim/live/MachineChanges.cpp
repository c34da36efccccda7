#include "mvsim/live/MachineChanges.h"

#include "mvsim/model/EventCodes.h"

#include <algorithm>

namespace mvsim
{

namespace
{

constexpr unsigned int PROGRESS_STEP = 10; // percent

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
        add(MV_EVENT_PHYSICAL_DISK, code, numberOf(disk.device));
    }
    void addArray(std::uint16_t code, const SeenArray& array)
    {
        add(MV_EVENT_VIRTUAL_DISK, code, numberOf(array.device));
    }
    std::vector<PendingEvent> take() { return std::move(m_events); }

  private:
    std::vector<PendingEvent> m_events;
};

// The same device as `wanted`; null when it is not there.
template <class Seen>
const Seen* find(const std::vector<Seen>& all, const Seen& wanted)
{
    const auto found = std::find_if(all.begin(), all.end(), [&wanted](const Seen& seen) {
        return idOf(seen.device) == idOf(wanted.device);
    });
    return found == all.end() ? nullptr : &*found;
}

void compareDisk(std::uint8_t before, const SeenDisk& disk, EventList& events)
{
    const std::uint8_t now = disk.device.raidStatus.RaidStatusFlags;
    if (now == before)
        return;
    if (now == MV_DISK_BAD)
        events.addDisk(DISK_FAILED, disk);
    else if (now == MV_DISK_SPARE)
        events.addDisk(SPARE_ASSIGNED, disk);
    else if (now == MV_DISK_IN_ARRAY)
        events.addDisk(before == MV_DISK_SPARE ? SPARE_ACTIVATED : DISK_ONLINE, disk);
}

// Whether a disk was taken out of an array.
bool wasReleased(std::uint8_t before, const SeenDisk& disk)
{
    return before != MV_DISK_READY && disk.device.raidStatus.RaidStatusFlags == MV_DISK_READY;
}

// Serves all its data from all its disks.
bool isWhole(std::uint8_t status)
{
    return status == MV_DRIVE_OPTIMAL || status == MV_DRIVE_CHECKING || status == MV_DRIVE_INITIALISING;
}

bool isLost(std::uint8_t status)
{
    return status == MV_DRIVE_FAILED || status == MV_DRIVE_OFFLINE;
}

void compareArray(std::uint8_t before, const SeenArray& array, EventList& events)
{
    const std::uint8_t now = array.device.info.LDStatus;
    if (now == before)
        return;
    if (isWhole(now)) {
        if (before == MV_DRIVE_REBUILDING)
            events.addArray(REBUILD_COMPLETED, array);
        else if (before == MV_DRIVE_CHECKING)
            events.addArray(CHECK_COMPLETED, array);
        else if (before == MV_DRIVE_INITIALISING)
            events.addArray(INITIALISATION_COMPLETED, array);
        if (!isWhole(before))
            events.addArray(VIRTUAL_DISK_RECOVERED, array);
        if (now == MV_DRIVE_CHECKING)
            events.addArray(CHECK_STARTED, array);
    } else if (isLost(now)) {
        if (!isLost(before))
            events.addArray(VIRTUAL_DISK_FAILED, array);
    } else {
        // A rebuild may have begun before anybody looked: the array was degraded all the same.
        if (before != MV_DRIVE_DEGRADED)
            events.addArray(VIRTUAL_DISK_DEGRADED, array);
        if (now == MV_DRIVE_REBUILDING)
            events.addArray(REBUILD_STARTED, array);
    }
}

void compareProgress(const SeenArray& before, const SeenArray& now, EventList& events)
{
    const bool rebuilding =
        before.device.info.LDStatus == MV_DRIVE_REBUILDING && now.device.info.LDStatus == MV_DRIVE_REBUILDING;
    if (rebuilding && now.progress.value_or(0) / PROGRESS_STEP != before.progress.value_or(0) / PROGRESS_STEP)
        events.addArray(REBUILD_PROGRESS, now);
}

} // namespace

std::vector<PendingEvent> changesBetween(const SeenMachine& before, const SeenMachine& after)
{
    EventList events;
    bool released = false;
    for (const SeenDisk& disk : before.disks)
        if (find(after.disks, disk) == nullptr)
            events.addDisk(DISK_REMOVED, disk);
    for (const SeenDisk& disk : after.disks) {
        const SeenDisk* known = find(before.disks, disk);
        if (known == nullptr)
            events.addDisk(DISK_INSERTED, disk);
        const std::uint8_t status =
            known != nullptr ? known->device.raidStatus.RaidStatusFlags : MV_DISK_READY;
        compareDisk(status, disk, events);
        released = released || wasReleased(status, disk);
    }
    for (const SeenArray& array : before.arrays)
        if (find(after.arrays, array) == nullptr)
            events.addArray(VIRTUAL_DISK_DELETED, array);
    for (const SeenArray& array : after.arrays) {
        const SeenArray* known = find(before.arrays, array);
        if (known == nullptr)
            events.addArray(VIRTUAL_DISK_CREATED, array);
        compareArray(known != nullptr ? known->device.info.LDStatus : MV_DRIVE_OPTIMAL, array, events);
        if (known != nullptr)
            compareProgress(*known, array, events);
    }
    if (released)
        events.add(MV_EVENT_CONTROLLER, CONTROLLER_CONFIG_CHANGED, 0);
    return events.take();
}

} // namespace mvsim
