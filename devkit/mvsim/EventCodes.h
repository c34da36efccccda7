// The vendor's event codes: what an event of each class tells, and which number its device field bears. The
// alert mapping file gives each of them its alert number.
#ifndef ZARNEK_DEVKIT_MVSIM_EVENTCODES_H
#define ZARNEK_DEVKIT_MVSIM_EVENTCODES_H

#include "mv.h"

namespace mvsim
{

// Controller events; the device number is 0.
constexpr std::uint16_t kControllerWarning = 1;           // its log tells more; nothing else changed
constexpr std::uint16_t kControllerConfigChanged = 2;     // arrays or disks were set up anew
constexpr std::uint16_t kControllerPropertiesChanged = 3; // rebuild rate, alarm and the like

// Virtual disk events; the device number is the logical drive number.
constexpr std::uint16_t kVirtualDiskCreated = 101;
constexpr std::uint16_t kVirtualDiskDeleted = 102;
constexpr std::uint16_t kVirtualDiskDegraded = 103;
constexpr std::uint16_t kVirtualDiskFailed = 104;
constexpr std::uint16_t kVirtualDiskRecovered = 105; // optimal again
constexpr std::uint16_t kRebuildStarted = 111;
constexpr std::uint16_t kRebuildProgress = 112;
constexpr std::uint16_t kRebuildCompleted = 113;
constexpr std::uint16_t kInitialisationCompleted = 121;
constexpr std::uint16_t kCheckStarted = 131;
constexpr std::uint16_t kCheckCompleted = 132;

// Physical disk events; the device number is the slot.
constexpr std::uint16_t kDiskFailed = 201;
constexpr std::uint16_t kDiskRemoved = 202;
constexpr std::uint16_t kDiskInserted = 203;
constexpr std::uint16_t kDiskOnline = 204; // became a member of an array
constexpr std::uint16_t kDiskMediaErrors = 205;
constexpr std::uint16_t kDiskFailurePredicted = 206;
constexpr std::uint16_t kSpareAssigned = 211;
constexpr std::uint16_t kSpareActivated = 212; // takes a failed disk's place

struct EventCode {
    std::uint16_t eventClass;
    std::uint16_t code;
    const char* name; // in scenarios
};

constexpr EventCode kEventCodes[] = {
    {MV_EVENT_CONTROLLER, kControllerWarning, "controllerWarning"},
    {MV_EVENT_CONTROLLER, kControllerConfigChanged, "controllerConfigChanged"},
    {MV_EVENT_CONTROLLER, kControllerPropertiesChanged, "controllerPropertiesChanged"},
    {MV_EVENT_VIRTUAL_DISK, kVirtualDiskCreated, "virtualDiskCreated"},
    {MV_EVENT_VIRTUAL_DISK, kVirtualDiskDeleted, "virtualDiskDeleted"},
    {MV_EVENT_VIRTUAL_DISK, kVirtualDiskDegraded, "virtualDiskDegraded"},
    {MV_EVENT_VIRTUAL_DISK, kVirtualDiskFailed, "virtualDiskFailed"},
    {MV_EVENT_VIRTUAL_DISK, kVirtualDiskRecovered, "virtualDiskRecovered"},
    {MV_EVENT_VIRTUAL_DISK, kRebuildStarted, "rebuildStarted"},
    {MV_EVENT_VIRTUAL_DISK, kRebuildProgress, "rebuildProgress"},
    {MV_EVENT_VIRTUAL_DISK, kRebuildCompleted, "rebuildCompleted"},
    {MV_EVENT_VIRTUAL_DISK, kInitialisationCompleted, "initialisationCompleted"},
    {MV_EVENT_VIRTUAL_DISK, kCheckStarted, "checkStarted"},
    {MV_EVENT_VIRTUAL_DISK, kCheckCompleted, "checkCompleted"},
    {MV_EVENT_PHYSICAL_DISK, kDiskFailed, "diskFailed"},
    {MV_EVENT_PHYSICAL_DISK, kDiskRemoved, "diskRemoved"},
    {MV_EVENT_PHYSICAL_DISK, kDiskInserted, "diskInserted"},
    {MV_EVENT_PHYSICAL_DISK, kDiskOnline, "diskOnline"},
    {MV_EVENT_PHYSICAL_DISK, kDiskMediaErrors, "diskMediaErrors"},
    {MV_EVENT_PHYSICAL_DISK, kDiskFailurePredicted, "diskFailurePredicted"},
    {MV_EVENT_PHYSICAL_DISK, kSpareAssigned, "spareAssigned"},
    {MV_EVENT_PHYSICAL_DISK, kSpareActivated, "spareActivated"},
};

} // namespace mvsim

#endif
