// The words of scenarios for the codes and flags of the vendor's records.
#ifndef ZARNEK_DEVKIT_MVSIM_RECORDCODES_H
#define ZARNEK_DEVKIT_MVSIM_RECORDCODES_H

#include "mvsim/scenario/StrictObject.h"

#include <mv.h>

namespace mvsim
{

constexpr Word LINK_WORDS[] = {{"none", 0}, {"sata", MV_LINK_SATA}, {"sas", MV_LINK_SAS}};
constexpr Word FEATURE_WORDS[] = {
    {"1.5G", MV_FEATURE_1_5G},
    {"3G", MV_FEATURE_3G},
    {"6G", MV_FEATURE_6G},
    {"12G", MV_FEATURE_12G},
    {"writeCache", MV_FEATURE_WRITE_CACHE},
    {"encryption", MV_FEATURE_ENCRYPTION},
};
constexpr Word MEDIA_WORDS[] = {{"hdd", 0}, {"ssd", MV_MEDIA_SSD}};
constexpr Word SPEED_WORDS[] = {
    {"none", 0}, {"1.5G", MV_SPEED_1_5G}, {"3G", MV_SPEED_3G}, {"6G", MV_SPEED_6G}, {"12G", MV_SPEED_12G}};
constexpr Word DISK_STATE_WORDS[] = {
    {"ready", MV_DISK_READY}, {"online", MV_DISK_IN_ARRAY},   {"spare", MV_DISK_SPARE},
    {"failed", MV_DISK_BAD},  {"checking", MV_DISK_CHECKING}, {"foreign", MV_DISK_FOREIGN},
};
constexpr Word RAID_WORDS[] = {
    {"0", MV_RAID_0},   {"1", MV_RAID_1},   {"5", MV_RAID_5},   {"6", MV_RAID_6},
    {"10", MV_RAID_10}, {"50", MV_RAID_50}, {"60", MV_RAID_60}, {"none", MV_RAID_NONE},
};
constexpr Word DRIVE_STATUS_WORDS[] = {
    {"optimal", MV_DRIVE_OPTIMAL},   {"degraded", MV_DRIVE_DEGRADED},
    {"missing", MV_DRIVE_MISSING},   {"failed", MV_DRIVE_FAILED},
    {"offline", MV_DRIVE_OFFLINE},   {"rebuilding", MV_DRIVE_REBUILDING},
    {"checking", MV_DRIVE_CHECKING}, {"initialising", MV_DRIVE_INITIALISING},
    {"unknown", MV_DRIVE_UNKNOWN},
};
constexpr Word CACHE_WORDS[] = {{"writeThrough", MV_CACHE_NONE}, {"writeBack", MV_CACHE_WRITE_BACK}};

} // namespace mvsim

#endif
