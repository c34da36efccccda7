// The vendor's event codes: what an event of each class tells, and which number its device field bears. The
// alert mapping file gives each of them its alert number.
#ifndef ZARNEK_DEVKIT_MVSIM_EVENTCODES_H
#define ZARNEK_DEVKIT_MVSIM_EVENTCODES_H

#include <mv.h>

namespace mvsim
{

// Controller events; the device number is 0.
constexpr std::uint16_t CONTROLLER_WARNING = 1;            // its log tells more; nothing else changed
constexpr std::uint16_t CONTROLLER_CONFIG_CHANGED = 2;     // arrays or disks were set up anew
constexpr std::uint16_t CONTROLLER_PROPERTIES_CHANGED = 3; // rebuild rate, alarm and the like

// Virtual disk events; the device number is the logical drive number.
constexpr std::uint16_t VIRTUAL_DISK_CREATED = 101;
constexpr std::uint16_t VIRTUAL_DISK_DELETED = 102;
constexpr std::uint16_t VIRTUAL_DISK_DEGRADED = 103;
constexpr std::uint16_t VIRTUAL_DISK_FAILED = 104;
constexpr std::uint16_t VIRTUAL_DISK_RECOVERED = 105; // optimal again
constexpr std::uint16_t REBUILD_STARTED = 111;
constexpr std::uint16_t REBUILD_PROGRESS = 112;
constexpr std::uint16_t REBUILD_COMPLETED = 113;
constexpr std::uint16_t INITIALISATION_COMPLETED = 121;
constexpr std::uint16_t CHECK_STARTED = 131;
constexpr std::uint16_t CHECK_COMPLETED = 132;

// Physical disk events; the device number is the slot.
constexpr std::uint16_t DISK_FAILED = 201;
constexpr std::uint16_t DISK_REMOVED = 202;
constexpr std::uint16_t DISK_INSERTED = 203;
constexpr std::uint16_t DISK_ONLINE = 204; // became a member of an array
constexpr std::uint16_t DISK_MEDIA_ERRORS = 205;
constexpr std::uint16_t DISK_FAILURE_PREDICTED = 206;
constexpr std::uint16_t SPARE_ASSIGNED = 211;
constexpr std::uint16_t SPARE_ACTIVATED = 212; // takes a failed disk's place

struct EventCode {
    std::uint16_t eventClass;
    std::uint16_t code;
    const char* name; // in scenarios
};

constexpr EventCode EVENT_CODES[] = {
    {MV_EVENT_CONTROLLER, CONTROLLER_WARNING, "controllerWarning"},
    {MV_EVENT_CONTROLLER, CONTROLLER_CONFIG_CHANGED, "controllerConfigChanged"},
    {MV_EVENT_CONTROLLER, CONTROLLER_PROPERTIES_CHANGED, "controllerPropertiesChanged"},
    {MV_EVENT_VIRTUAL_DISK, VIRTUAL_DISK_CREATED, "virtualDiskCreated"},
    {MV_EVENT_VIRTUAL_DISK, VIRTUAL_DISK_DELETED, "virtualDiskDeleted"},
    {MV_EVENT_VIRTUAL_DISK, VIRTUAL_DISK_DEGRADED, "virtualDiskDegraded"},
    {MV_EVENT_VIRTUAL_DISK, VIRTUAL_DISK_FAILED, "virtualDiskFailed"},
    {MV_EVENT_VIRTUAL_DISK, VIRTUAL_DISK_RECOVERED, "virtualDiskRecovered"},
    {MV_EVENT_VIRTUAL_DISK, REBUILD_STARTED, "rebuildStarted"},
    {MV_EVENT_VIRTUAL_DISK, REBUILD_PROGRESS, "rebuildProgress"},
    {MV_EVENT_VIRTUAL_DISK, REBUILD_COMPLETED, "rebuildCompleted"},
    {MV_EVENT_VIRTUAL_DISK, INITIALISATION_COMPLETED, "initialisationCompleted"},
    {MV_EVENT_VIRTUAL_DISK, CHECK_STARTED, "checkStarted"},
    {MV_EVENT_VIRTUAL_DISK, CHECK_COMPLETED, "checkCompleted"},
    {MV_EVENT_PHYSICAL_DISK, DISK_FAILED, "diskFailed"},
    {MV_EVENT_PHYSICAL_DISK, DISK_REMOVED, "diskRemoved"},
    {MV_EVENT_PHYSICAL_DISK, DISK_INSERTED, "diskInserted"},
    {MV_EVENT_PHYSICAL_DISK, DISK_ONLINE, "diskOnline"},
    {MV_EVENT_PHYSICAL_DISK, DISK_MEDIA_ERRORS, "diskMediaErrors"},
    {MV_EVENT_PHYSICAL_DISK, DISK_FAILURE_PREDICTED, "diskFailurePredicted"},
    {MV_EVENT_PHYSICAL_DISK, SPARE_ASSIGNED, "spareAssigned"},
    {MV_EVENT_PHYSICAL_DISK, SPARE_ACTIVATED, "spareActivated"},
};

} // namespace mvsim

#endif
