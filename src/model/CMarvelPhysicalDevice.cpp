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

// LinkFlags of _HD_Info.
constexpr unsigned int LINK_PROTOCOL_7 = 1U << 0;
constexpr unsigned int LINK_PROTOCOL_8 = 1U << 2;
// MediaFlags of _HD_Info.
constexpr unsigned int MEDIA_FLAG = 1U << 0;
constexpr unsigned int MEDIA_CODE = 2;
// FeatureFlags of _HD_Info.
constexpr unsigned int FEATURE_WRITE_CACHE = 1U << 4;
constexpr unsigned int FEATURE_ENCRYPTION = 1U << 8;

// Link speeds: multiples of 1024 for each Gbit/s.
constexpr unsigned int SPEED_NONE = 0;
constexpr unsigned int SPEED_1_5G = 1536;
constexpr unsigned int SPEED_3G = 3072;
constexpr unsigned int SPEED_6G = 6144;
constexpr unsigned int SPEED_12G = 12288;

unsigned int capableSpeed(unsigned int featureFlags)
{
    struct SpeedBit {
        unsigned int mask;
        unsigned int speed;
    };
    static constexpr SpeedBit BITS[] = {
        {1U << 10, SPEED_12G}, {1U << 7, SPEED_6G}, {1U << 3, SPEED_3G}, {1U << 2, SPEED_1_5G}};
    for (const SpeedBit& bit : BITS)
        if ((featureFlags & bit.mask) != 0)
            return bit.speed;
    return SPEED_NONE;
}

unsigned int negotiatedSpeed(unsigned int linkSpeed)
{
    static constexpr std::array SPEEDS = {SPEED_NONE, SPEED_1_5G, SPEED_3G, SPEED_6G, SPEED_12G};
    return linkSpeed < SPEEDS.size() ? SPEEDS[linkSpeed] : SPEED_NONE;
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
            if ((info.LinkFlags & LINK_PROTOCOL_7) != 0)
                setBusProtocol(7);
            else if ((info.LinkFlags & LINK_PROTOCOL_8) != 0)
                setBusProtocol(8);
            if ((info.MediaFlags & MEDIA_FLAG) != 0)
                setMedia(MEDIA_CODE);
            setCapableSpeed(capableSpeed(info.FeatureFlags));
            if ((info.FeatureFlags & FEATURE_WRITE_CACHE) != 0)
                setWriteCacheSupport(1);
            if ((info.FeatureFlags & FEATURE_ENCRYPTION) != 0)
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
        {0x08, 8, 4}, {0x01, 1, 2}, {0x20, 0, 1}, {0x02, 4, 2}, {0x04, 0, 1}, {0x10, std::nullopt, 1},
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
    *state = 0;
    *status = 1;
    return stg::STATUS_SUCCESS;
}
