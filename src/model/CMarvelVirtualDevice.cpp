#include "model/CMarvelVirtualDevice.h"

#include "mvlayer/Binders.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/TextTools.h"

#include <sdo.h>

CMarvelVirtualDevice::CMarvelVirtualDevice() = default;

CMarvelVirtualDevice::CMarvelVirtualDevice(const CMarvelVirtualDevice& other) : CVirtualDevice()
{
    copyAttributes(other);
    attribNameAndTypeMapInit();
}

CMarvelVirtualDevice::~CMarvelVirtualDevice() = default;

CMarvelVirtualDevice& CMarvelVirtualDevice::operator=(void* binder)
{
    const stg::LogScope scope("ZARNEK:CMarvelVirtualDevice::operator =()");

    if (binder != nullptr) {
        const auto& records = *static_cast<const stg::QLVVDBinder_t*>(binder);
        setAttributeMask(0);
        setCurrentMethodMask(0);
        setMasterMethodMask(0);
        setObjType(SDO_OBJTYPE_VIRTUAL_DISK);
        setVILNumber(SDO_VIL_NUMBER);
        if (records.infoHelper != nullptr) {
            setGlobalControllerNo(records.infoHelper->globalCntrlNum);
            setControllerID(records.infoHelper->cntrlId);
        }
        if (records.ldInfo != nullptr) {
            const _LD_Info& info = *records.ldInfo;
            unsigned int state = 0;
            unsigned int status = 0;
            setDeviceID(info.LD_Id);
            setVDSize(info.SizeKB << 10);
            setVDName(stg::textFromField(info.LDName, sizeof info.LDName));
            setVDStripeBlockSize(info.StripeSize * 2U);
            mapVDStateAndStatus(info.LDStatus, &state, &status);
            setVDState(state);
            setVDStatus(status);
            if (mapVDRaidMode(info.RaidMode) == stg::STATUS_SUCCESS)
                stg::message("ZARNEK:CVirtualDevice::setVDRaidMode()")
                    << "getRaidMode " << getVDRaidMode() << '\n';
            const bool cached = (info.CacheFlags & MV_CACHE_IN_USE) != 0;
            setDiskCachePolicy(cached ? SDO_VDDISKCACHE_ON : SDO_VDDISKCACHE_OFF);
            setWritePolicy(cached ? SDO_WRITEPOLICY_BACK : SDO_WRITEPOLICY_THROUGH);
        }
        if (records.ldConfig != nullptr)
            setLogicalDriveNum(records.ldConfig->LogicalDriveNumber);
    }

    setVDNexus({SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_LOGICALDRIVENUM_U32});
    return *this;
}

CMarvelVirtualDevice& CMarvelVirtualDevice::operator=(const CMarvelVirtualDevice& other)
{
    copyAttributes(other);
    return *this;
}

unsigned int CMarvelVirtualDevice::mapVDRaidMode(unsigned int raidMode)
{
    struct Level {
        unsigned int raidMode;
        unsigned int code; // a single bit
    };
    static constexpr Level LEVELS[] = {
        {MV_RAID_0, SDO_RAID_0}, {MV_RAID_1, SDO_RAID_1},       {MV_RAID_5, SDO_RAID_5},
        {MV_RAID_6, SDO_RAID_6}, {MV_RAID_NONE, SDO_RAID_NONE}, {MV_RAID_10, SDO_RAID_10},
        {0x11, SDO_RAID_OTHER},  {MV_RAID_50, SDO_RAID_50},     {MV_RAID_60, SDO_RAID_60},
        {0x66, SDO_RAID_NONE}, // two more codes for no level
        {0xFF, SDO_RAID_NONE},
    };

    const stg::LogScope scope("ZARNEK: CMarvelVirtualDevice:setVDMode");
    for (const Level& level : LEVELS)
        if (level.raidMode == raidMode)
            setVDRaidMode(level.code);
    return stg::STATUS_SUCCESS;
}

unsigned int CMarvelVirtualDevice::mapVDStateAndStatus(unsigned int ldStatus, unsigned int* state,
                                                       unsigned int* status)
{
    struct Meaning {
        unsigned int first; // the first and last LDStatus of the row
        unsigned int last;
        unsigned int state;
        unsigned int status;
    };
    static constexpr Meaning MEANINGS[] = {
        {MV_DRIVE_OPTIMAL, MV_DRIVE_OPTIMAL, SDO_VDSTATE_OPTIMAL, SDO_STATUS_OK},
        {MV_DRIVE_DEGRADED, MV_DRIVE_DEGRADED, SDO_VDSTATE_DEGRADED, SDO_STATUS_WARNING},
        {MV_DRIVE_MISSING, MV_DRIVE_MISSING, SDO_STATE_UNSTATED, SDO_STATUS_UNKNOWN},
        {MV_DRIVE_FAILED, MV_DRIVE_FAILED, SDO_VDSTATE_FAILED, SDO_STATUS_CRITICAL},
        {MV_DRIVE_OFFLINE, MV_DRIVE_OFFLINE, SDO_VDSTATE_OFFLINE, SDO_STATUS_CRITICAL},
        {MV_DRIVE_REBUILDING, 7, SDO_STATE_UNSTATED, SDO_STATUS_WARNING},
        {8, 9, SDO_STATE_UNSTATED, SDO_STATUS_UNKNOWN},
        {MV_DRIVE_CHECKING, MV_DRIVE_CHECKING, SDO_VDSTATE_CHECKING, SDO_STATUS_OK},
        {11, 14, SDO_STATE_UNSTATED, SDO_STATUS_UNKNOWN},
        {MV_DRIVE_INITIALISING, MV_DRIVE_INITIALISING, SDO_VDSTATE_INITIALISING, SDO_STATUS_OK},
        {MV_DRIVE_UNKNOWN, MV_DRIVE_UNKNOWN, SDO_STATE_UNSTATED, SDO_STATUS_UNKNOWN},
    };

    const stg::LogScope scope("ZARNEK:CMarvelVirtualDevice::mapVDStateAndStatus()");
    for (const Meaning& meaning : MEANINGS) {
        if (ldStatus >= meaning.first && ldStatus <= meaning.last) {
            *state = meaning.state;
            *status = meaning.status;
        }
    }
    return stg::STATUS_SUCCESS;
}
