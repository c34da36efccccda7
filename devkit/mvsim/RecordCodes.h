// Codes and flags of the vendor's records that have a meaning: what the live machine is translated into, and
// the words for them in scenarios.
#ifndef ZARNEK_DEVKIT_MVSIM_RECORDCODES_H
#define ZARNEK_DEVKIT_MVSIM_RECORDCODES_H

#include "mvsim/StrictObject.h"

namespace mvsim
{

// _HD_Info.LinkFlags
constexpr std::uint8_t kLinkSata = 0x01;
constexpr std::uint8_t kLinkSas = 0x04;

// _HD_Info.FeatureFlags
constexpr std::uint32_t kFeature1500M = 1U << 2;
constexpr std::uint32_t kFeature3G = 1U << 3;
constexpr std::uint32_t kFeatureWriteCache = 1U << 4;
constexpr std::uint32_t kFeature6G = 1U << 7;
constexpr std::uint32_t kFeatureEncryption = 1U << 8;
constexpr std::uint32_t kFeature12G = 1U << 10;

// _HD_Info.MediaFlags
constexpr std::uint8_t kMediaSolidState = 0x01;

// _HD_CONFIG.LinkSpeed
constexpr std::uint8_t kSpeed1500M = 1;
constexpr std::uint8_t kSpeed3G = 2;
constexpr std::uint8_t kSpeed6G = 3;
constexpr std::uint8_t kSpeed12G = 4;

// _HD_RAID_Status_Request.RaidStatusFlags
constexpr std::uint8_t kDiskReady = 0x01;
constexpr std::uint8_t kDiskInArray = 0x02;
constexpr std::uint8_t kDiskSpare = 0x04;
constexpr std::uint8_t kDiskBad = 0x08;
constexpr std::uint8_t kDiskChecking = 0x10;
constexpr std::uint8_t kDiskForeign = 0x20;

// _LD_Info.RaidMode
constexpr std::uint8_t kRaid0 = 0;
constexpr std::uint8_t kRaid1 = 1;
constexpr std::uint8_t kRaid5 = 5;
constexpr std::uint8_t kRaid6 = 6;
constexpr std::uint8_t kNoRaid = 15;
constexpr std::uint8_t kRaid10 = 16;
constexpr std::uint8_t kRaid50 = 80;
constexpr std::uint8_t kRaid60 = 96;

// _LD_Info.LDStatus
constexpr std::uint8_t kDriveOptimal = 0;
constexpr std::uint8_t kDriveDegraded = 1;
constexpr std::uint8_t kDriveMissing = 2;
constexpr std::uint8_t kDriveFailed = 3;
constexpr std::uint8_t kDriveOffline = 4;
constexpr std::uint8_t kDriveRebuilding = 5;
constexpr std::uint8_t kDriveChecking = 10;
constexpr std::uint8_t kDriveInitialising = 15;
constexpr std::uint8_t kDriveUnknown = 255;

// _LD_Info.CacheFlags
constexpr std::uint8_t kWriteThrough = 0x00;
constexpr std::uint8_t kWriteBack = 0x01;

constexpr Word kLinkWords[] = {{"none", 0}, {"sata", kLinkSata}, {"sas", kLinkSas}};
constexpr Word kFeatureWords[] = {
    {"1.5G", kFeature1500M},
    {"3G", kFeature3G},
    {"6G", kFeature6G},
    {"12G", kFeature12G},
    {"writeCache", kFeatureWriteCache},
    {"encryption", kFeatureEncryption},
};
constexpr Word kMediaWords[] = {{"hdd", 0}, {"ssd", kMediaSolidState}};
constexpr Word kSpeedWords[] = {
    {"none", 0}, {"1.5G", kSpeed1500M}, {"3G", kSpeed3G}, {"6G", kSpeed6G}, {"12G", kSpeed12G}};
constexpr Word kDiskStateWords[] = {
    {"ready", kDiskReady}, {"online", kDiskInArray},    {"spare", kDiskSpare},
    {"failed", kDiskBad},  {"checking", kDiskChecking}, {"foreign", kDiskForeign},
};
constexpr Word kRaidWords[] = {
    {"0", kRaid0},   {"1", kRaid1},   {"5", kRaid5},   {"6", kRaid6},
    {"10", kRaid10}, {"50", kRaid50}, {"60", kRaid60}, {"none", kNoRaid},
};
constexpr Word kDriveStatusWords[] = {
    {"optimal", kDriveOptimal},   {"degraded", kDriveDegraded},         {"missing", kDriveMissing},
    {"failed", kDriveFailed},     {"offline", kDriveOffline},           {"rebuilding", kDriveRebuilding},
    {"checking", kDriveChecking}, {"initialising", kDriveInitialising}, {"unknown", kDriveUnknown},
};
constexpr Word kCacheWords[] = {{"writeThrough", kWriteThrough}, {"writeBack", kWriteBack}};

} // namespace mvsim

#endif
