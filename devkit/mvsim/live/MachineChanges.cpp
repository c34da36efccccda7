#include "mvsim/live/MachineChanges.h"

#include "mvsim/model/EventCodes.h"

#include <map>
#include <utility>

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

// Finds the devices of one look by their ids.
template <class Seen>
class SeenIndex
{
  public:
    explicit SeenIndex(const std::vector<Seen>& all)
    {
        for (const Seen& seen : all)
            m_byId.emplace(idOf(seen.device), &seen);
    }
    // Null when it is not there.
    const Seen* find(const Seen& wanted) const
    {
        const auto found = m_byId.find(idOf(wanted.device));
        return found == m_byId.end() ? nullptr : found->second;
    }

  private:
    std::map<std::uint16_t, const Seen*> m_byId;
};

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

// Serves all its data, but not from all its disks.
bool isReduced(std::uint8_t status)
{
    return status == MV_DRIVE_DEGRADED || status == MV_DRIVE_REBUILDING;
}

void compareArray(const SeenArray& known, const SeenArray& array, EventList& events)
{
    const std::uint8_t before = known.device.info.LDStatus;
    const std::uint8_t now = array.device.info.LDStatus;
    const auto begins = [before, now](std::uint8_t status) { return before != status && now == status; };
    const bool whole = isWhole(now);
    const bool finished = whole && before != now;
    // One of several missing members can be rebuilt before the next.
    const bool rebuilt =
        before == MV_DRIVE_REBUILDING && (whole || (isReduced(now) && array.missing < known.missing));
    // Also when a rebuild ends without success, or begins before anybody saw the array without its disk.
    const bool reduced = isReduced(now) && (array.missing > known.missing || !isReduced(before) ||
                                            (begins(MV_DRIVE_DEGRADED) && !rebuilt));
    const struct {
        bool happened;
        std::uint16_t code;
    } CHANGES[] = {
        {rebuilt, REBUILD_COMPLETED},
        {finished && before == MV_DRIVE_CHECKING, CHECK_COMPLETED},
        {finished && before == MV_DRIVE_INITIALISING, INITIALISATION_COMPLETED},
        {whole && !isWhole(before), VIRTUAL_DISK_RECOVERED},
        {begins(MV_DRIVE_CHECKING), CHECK_STARTED},
        {begins(MV_DRIVE_FAILED), VIRTUAL_DISK_FAILED},
        {reduced, VIRTUAL_DISK_DEGRADED},
        {now == MV_DRIVE_REBUILDING && (begins(now) || rebuilt), REBUILD_STARTED},
    };
    for (const auto& change : CHANGES)
        if (change.happened)
            events.addArray(change.code, array);
}

// Whether an array is being given another level or number of disks, or has got another size.
bool isReshaped(const SeenArray& before, const SeenArray& now)
{
    const _LD_Info& was = before.device.info;
    const _LD_Info& is = now.device.info;
    return before.reshaping != now.reshaping || was.RaidMode != is.RaidMode ||
           was.StripeSize != is.StripeSize || was.SizeKB != is.SizeKB;
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
    bool changed = false;
    const SeenIndex disksBefore(before.disks);
    const SeenIndex disksAfter(after.disks);
    for (const SeenDisk& disk : before.disks)
        if (disksAfter.find(disk) == nullptr)
            events.addDisk(DISK_REMOVED, disk);
    for (const SeenDisk& disk : after.disks) {
        const SeenDisk* known = disksBefore.find(disk);
        if (known == nullptr)
            events.addDisk(DISK_INSERTED, disk);
        const std::uint8_t status =
            known != nullptr ? known->device.raidStatus.RaidStatusFlags : MV_DISK_READY;
        compareDisk(status, disk, events);
        changed = changed || wasReleased(status, disk);
    }
    const SeenIndex arraysBefore(before.arrays);
    const SeenIndex arraysAfter(after.arrays);
    for (const SeenArray& array : before.arrays)
        if (arraysAfter.find(array) == nullptr)
            events.addArray(VIRTUAL_DISK_DELETED, array);
    for (const SeenArray& array : after.arrays) {
        const SeenArray* known = arraysBefore.find(array);
        if (known == nullptr)
            events.addArray(VIRTUAL_DISK_CREATED, array);
        compareArray(known != nullptr ? *known : SeenArray{}, array, events); // a new one starts as optimal
        if (known != nullptr) {
            compareProgress(*known, array, events);
            changed = changed || isReshaped(*known, array);
        }
    }
    if (changed)
        events.add(MV_EVENT_CONTROLLER, CONTROLLER_CONFIG_CHANGED, 0);
    return events.take();
}

} // namespace mvsim
