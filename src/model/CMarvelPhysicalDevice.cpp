#include "model/CMarvelPhysicalDevice.h"

#include "mvlayer/Binders.h"
#include "support/LogScope.h"
#include "support/TextTools.h"

#include <sdo.h>

#include <array>
#include <cstring>
#include <optional>

namespace
{

constexpr char VENDOR_TEXT[] = "VORN"; // the same for every disk

unsigned int capableSpeed(unsigned int featureFlags)
{
    struct SpeedBit {
        unsigned int mask;
        unsigned int speed;
    };
    static constexpr SpeedBit BITS[] = {{MV_FEATURE_12G, SDO_SPEED_12G},
                                        {MV_FEATURE_6G, SDO_SPEED_6G},
                                        {MV_FEATURE_3G, SDO_SPEED_3G},
                                        {MV_FEATURE_1_5G, SDO_SPEED_1_5G}};
    for (const SpeedBit& bit : BITS)
        if ((featureFlags & bit.mask) != 0)
            return bit.speed;
    return SDO_SPEED_NONE;
}

unsigned int negotiatedSpeed(unsigned int linkSpeed)
{
    switch (linkSpeed) {
    case MV_SPEED_1_5G:
        return SDO_SPEED_1_5G;
    case MV_SPEED_3G:
        return SDO_SPEED_3G;
    case MV_SPEED_6G:
        return SDO_SPEED_6G;
    case MV_SPEED_12G:
        return SDO_SPEED_12G;
    default:
        return SDO_SPEED_NONE;
    }
}

// One scratch for all the fixed-width texts of a disk, not cleared between them: a text that fills its width
// runs on into what an earlier, longer text left behind it.
class TextScratch
{
  public:
    template <std::size_t Width>
    std::string read(const char (&field)[Width])
    {
        static_assert(Width < SIZE);
        // To a zero byte, the rest of the width filled with zero.
        const std::size_t length = strnlen(field, Width);
        std::memcpy(m_text.data(), field, length);
        std::memset(m_text.data() + length, 0, Width - length);
        return stg::textFromField(m_text.data(), SIZE);
    }

    template <std::size_t Width>
    std::string readTrimmed(const char (&field)[Width])
    {
        std::string text = read(field);
        return stg::removeBeginingAndTrailingSpaces(text);
    }

  private:
    static constexpr std::size_t SIZE = 64;
    std::array<char, SIZE> m_text{};
};

} // namespace

CMarvelPhysicalDevice::CMarvelPhysicalDevice() = default;

CMarvelPhysicalDevice::CMarvelPhysicalDevice(const CMarvelPhysicalDevice& other) : CPhysicalDevice()
{
    copyAttributes(other);
    attribNameAndTypeMapInit();
}

CMarvelPhysicalDevice::~CMarvelPhysicalDevice() = default;

CMarvelPhysicalDevice& CMarvelPhysicalDevice::operator=(void* binder)
{
    const stg::LogScope scope("ZARNEK:CMarvelPhysicalDevice::operator =()");

    if (binder != nullptr) {
        const auto& records = *static_cast<const stg::QLVPDBinder_t*>(binder);
        setAttributeMask(0);
        setCurrentMethodMask(0);
        setMasterMethodMask(0);
        setObjType(SDO_OBJTYPE_PHYSICAL_DISK);
        setVILNumber(SDO_VIL_NUMBER);
        if (records.infoHelper != nullptr) {
            unsigned int state = 0;
            unsigned int status = 0;
            setGlobalCntrlNum(records.infoHelper->globalCntrlNum);
            setCntrID(records.infoHelper->cntrlId);
            mapPDStateAndStatus(records.infoHelper->hdRaidStatus, &state, &status);
            setStatus(status);
            setState(state);
        }
        if (records.hdInfo != nullptr) {
            const _HD_Info& info = *records.hdInfo;
            TextScratch scratch;
            setDevID(info.HD_Id);
            setRevision(scratch.read(info.RevisionText));
            setSerialNum(scratch.readTrimmed(info.SerialText));
            setCapacity(info.SizeKB << 10);
            const std::string model = scratch.readTrimmed(info.ModelText);
            setModelNum(model);
            setProductID(model);
            setVendorID(VENDOR_TEXT);
            setSASAddress(scratch.read(info.SASAddress));
            setSectorSize(info.BlockSize);
            if ((info.LinkFlags & MV_LINK_SATA) != 0)
                setBusProtocol(SDO_BUS_SATA);
            else if ((info.LinkFlags & MV_LINK_SAS) != 0)
                setBusProtocol(SDO_BUS_SAS);
            if ((info.MediaFlags & MV_MEDIA_SSD) != 0)
                setMedia(SDO_MEDIA_SSD);
            setCapableSpeed(capableSpeed(info.FeatureFlags));
            if ((info.FeatureFlags & MV_FEATURE_WRITE_CACHE) != 0)
                setWriteCacheSupport(1);
            if ((info.FeatureFlags & MV_FEATURE_ENCRYPTION) != 0)
                setEncryptionCap(1);
        }
        if (records.hdConfig != nullptr) {
            setSlotNum(records.hdConfig->SlotNumber);
            setNegotiatedSpeed(negotiatedSpeed(records.hdConfig->LinkSpeed));
        }
        if (records.hdFreeSpace != nullptr) {
            setFreeRaidDiskSpace(records.hdFreeSpace->FreeSizeKB << 10);
            setUsedRaidDiskSpace(getCapacity() - getFreeRaidDiskSpace());
        }
    }

    setPdNexus({SSPROP_GLOBALCONTROLLERNUM_U32, SSPROP_SLOTNUM_U32});
    return *this;
}

CMarvelPhysicalDevice& CMarvelPhysicalDevice::operator=(const CMarvelPhysicalDevice& other)
{
    copyAttributes(other);
    return *this;
}

unsigned int CMarvelPhysicalDevice::mapPDStateAndStatus(unsigned int flags, unsigned int* state,
                                                        unsigned int* status)
{
    struct Rule {
        unsigned int mask;
        std::optional<unsigned int> state;
        unsigned int status;
    };
    // The first rule that applies decides.
    static constexpr Rule RULES[] = {
        {MV_DISK_BAD, SDO_STATE_FAILED, SDO_STATUS_CRITICAL},
        {MV_DISK_READY, SDO_STATE_READY, SDO_STATUS_OK},
        {MV_DISK_FOREIGN, SDO_STATE_UNSTATED, SDO_STATUS_UNKNOWN},
        {MV_DISK_IN_ARRAY, SDO_STATE_ONLINE, SDO_STATUS_OK},
        {MV_DISK_SPARE, SDO_STATE_UNSTATED, SDO_STATUS_UNKNOWN},
        {MV_DISK_CHECKING, std::nullopt, SDO_STATUS_UNKNOWN},
    };

    const stg::LogScope scope("ZARNEK:CMarvelPhysicalDevice::mapPDStateAndStatus()");
    for (const Rule& rule : RULES) {
        if ((flags & rule.mask) == 0)
            continue;
        if (rule.state)
            *state = *rule.state;
        *status = rule.status;
        return stg::STATUS_SUCCESS;
    }
    *state = SDO_STATE_UNSTATED;
    *status = SDO_STATUS_UNKNOWN;
    return stg::STATUS_SUCCESS;
}
