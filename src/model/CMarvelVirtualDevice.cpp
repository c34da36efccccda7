#include "model/CMarvelVirtualDevice.h"

#include "mvlayer/Binders.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/TextTools.h"

#include <sdo.h>

namespace
{

// CacheFlags of _LD_Info that stand for a cache in use, and the policies for one and for none.
constexpr unsigned int CACHE_IN_USE = 0x0B;
constexpr unsigned int DISK_CACHE_POLICY_CACHED = 4;
constexpr unsigned int DISK_CACHE_POLICY_NONE = 2;
constexpr unsigned int WRITE_POLICY_CACHED = 8;
constexpr unsigned int WRITE_POLICY_NONE = 4;

} // namespace

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
                stg::lout << "ZARNEK:CVirtualDevice::setVDRaidMode(): "
                          << "getRaidMode " << getVDRaidMode() << '\n';
            const bool cached = (info.CacheFlags & CACHE_IN_USE) != 0;
            setDiskCachePolicy(cached ? DISK_CACHE_POLICY_CACHED : DISK_CACHE_POLICY_NONE);
            setWritePolicy(cached ? WRITE_POLICY_CACHED : WRITE_POLICY_NONE);
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
        {0x00, 0x2},     // RAID 0
        {0x01, 0x4},     // RAID 1
        {0x05, 0x40},    // RAID 5
        {0x06, 0x80},    // RAID 6
        {0x0F, 0x4000},  // no level of its own
        {0x10, 0x200},   // RAID 10
        {0x11, 0x80000}, // no level of its own
        {0x50, 0x800},   // RAID 50
        {0x60, 0x40000}, // RAID 60
        {0x66, 0x4000},  // no level of its own
        {0xFF, 0x4000},  // no level of its own
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
        {0, 0, 0x1, 2},   {1, 1, 0x20, 3},
        {2, 2, 0, 1},     {3, 3, 0x100000, 4},
        {4, 4, 0x8, 4},   {5, 7, 0, 3},
        {8, 9, 0, 1},     {10, 10, 0x800000, 2},
        {11, 14, 0, 1},   {15, 15, 0x10000000, 2},
        {255, 255, 0, 1},
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
