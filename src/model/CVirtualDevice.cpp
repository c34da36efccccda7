#include "model/CVirtualDevice.h"

#include "model/AttributeHelper.h"
#include "model/AttributeTable.h"
#include "model/EngineSearch.h"
#include "support/LogScope.h"

#include <sdo.h>

#include <utility>

stg::AttribTypeMap CVirtualDevice::m_VdAttribNameTypeMap;
bool CVirtualDevice::m_bIsVdAttribNameAndTypeMap = false;

struct CVirtualDevice::Attributes {
    using Owner = CVirtualDevice;

    // In the order in which assignment from a map calls the setters.
    static constexpr auto ROWS = stg::attributes::tableOf<Owner>(
        ZARNEK_ATTRIBUTE(m_VdObjType, setObjType, TAG_UNSIGNED_INTEGER, SSPROP_OBJTYPE_U32),
        ZARNEK_ATTRIBUTE(m_VdCntrlID, setControllerID, TAG_UNSIGNED_INTEGER, SSPROP_CONTROLLERID_U32),
        ZARNEK_ATTRIBUTE(m_VdGlobalCntrlNum, setGlobalControllerNo, TAG_UNSIGNED_INTEGER,
                         SSPROP_GLOBALCONTROLLERNUM_U32),
        ZARNEK_ATTRIBUTE(m_VdVILNumber, setVILNumber, TAG_UNSIGNED_INTEGER, SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(m_VdBusProtocol, setBusProtocol, TAG_UNSIGNED_INTEGER, SSPROP_BUSPROTOCOL_U32),
        ZARNEK_ATTRIBUTE(m_VdMedia, setMedia, TAG_UNSIGNED_INTEGER, SSPROP_MEDIA_U32),
        ZARNEK_ATTRIBUTE(m_VdVendorID, setVendorID, TAG_UNSIGNED_INTEGER, SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(m_VdState, setVDState, TAG_UNSIGNED_INTEGER, SSPROP_STATE_U32),
        ZARNEK_ATTRIBUTE(m_VdStripeBlockSize, setVDStripeBlockSize, TAG_UNSIGNED_INTEGER,
                         SSPROP_STRIPEBLOCKSIZE_U32),
        ZARNEK_ATTRIBUTE(m_VdSectorSize, setVDSectorSize, TAG_UNSIGNED_INTEGER, SSPROP_SECTORSIZE_U32),
        ZARNEK_ATTRIBUTE(m_VdPdCount, setPDCount, TAG_UNSIGNED_INTEGER, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(m_VdRaidDiskSpace, setRaidDiskSpace, TAG_UNSIGNED_INTEGER, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(m_VdWritePolicy, setWritePolicy, TAG_UNSIGNED_INTEGER, SSPROP_WRITEPOLICY_U32),
        ZARNEK_ATTRIBUTE(m_VdReadPolicy, setReadPolicy, TAG_UNSIGNED_INTEGER, SSPROP_READPOLICY_U32),
        ZARNEK_ATTRIBUTE(m_VdDiskCachePolicy, setDiskCachePolicy, TAG_UNSIGNED_INTEGER,
                         SSPROP_VDDISKCACHEPOLICY_U32),
        ZARNEK_ATTRIBUTE(m_VdDevID, setDeviceID, TAG_UNSIGNED_INTEGER, SSPROP_DEVICEID_U32),
        ZARNEK_ATTRIBUTE(m_VdLogicalDriveNum, setLogicalDriveNum, TAG_UNSIGNED_INTEGER,
                         SSPROP_LOGICALDRIVENUM_U32),
        ZARNEK_ATTRIBUTE(m_VdAttributeMask, setAttributeMask, TAG_BINARY_DATA_TYPE, SSPROP_ATTRIBUTEMASK_U32),
        ZARNEK_ATTRIBUTE(m_VdMasterMethodMask, setMasterMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_MASTERMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(m_VdCurrentMethodMask, setCurrentMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_CURRENTMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(m_VdStatus, setVDStatus, TAG_UNSIGNED_INTEGER, SSPROP_STATUS_U32),
        ZARNEK_ATTRIBUTE(m_VdRaidMode, setVDRaidMode, TAG_UNSIGNED_INTEGER, SSPROP_RAIDMODE_U32),
        ZARNEK_ATTRIBUTE(m_VdBlockCount, setVDBlockCount, TAG_USHORT_INT, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(m_VdName, setVDName, TAG_STDSTR, SSPROP_NAME_ASTRING),
        ZARNEK_ATTRIBUTE(m_VdSize, setVDSize, TAG_ULONG_ULONG_INT, SSPROP_SIZE_U64),
        ZARNEK_ATTRIBUTE(m_VdAutoRebuildOn, setVDAutoRebuildOn, TAG_BOOL_TYPE, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(m_VdProductName, setProductName, TAG_STDSTR, SSPROP_VDPRODUCTNAME_ASTRING),
        ZARNEK_ATTRIBUTE(m_PdInVdList, setPdInVdList, TAG_VD_MEMBER_TYPE, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(m_VdNexus, setVDNexus, TAG_NEXUS_TYPE, SSPROP_NEXUS_U32));
    static_assert(stg::attributes::isSound(ROWS, 29));
};

template <auto Field, class Value>
void CVirtualDevice::set(Value value)
{
    stg::attributes::store<Attributes, Field>(*this, std::move(value),
                                              &CVirtualDevice::insertIntoAttribValMap);
}

CVirtualDevice::CVirtualDevice()
{
    attribNameAndTypeMapInit();
}

CVirtualDevice::CVirtualDevice(const CVirtualDevice& other)
{
    copyAttributes(other);
    attribNameAndTypeMapInit();
}

CVirtualDevice::~CVirtualDevice()
{
    const stg::LogScope scope("ZARNEK:CVirtualDevice::~CVirtualDevice()");
}

CVirtualDevice& CVirtualDevice::operator=(void* /*binder*/)
{
    return *this;
}

CVirtualDevice& CVirtualDevice::operator=(stg::AttribValMap& values)
{
    stg::attributes::assign(Attributes::ROWS, *this, values);
    return *this;
}

CVirtualDevice& CVirtualDevice::operator=(const CVirtualDevice& other)
{
    copyAttributes(other);
    return *this;
}

void CVirtualDevice::copyAttributes(const CVirtualDevice& other)
{
    const stg::LogScope scope("ZARNEK:CVirtualDevice::copyAttributes()");
    stg::attributes::copy(Attributes::ROWS, *this, m_VdAttribValMap, other);
}

void CVirtualDevice::attribNameAndTypeMapInit()
{
    if (m_bIsVdAttribNameAndTypeMap)
        return;
    stg::attributes::fillTable(Attributes::ROWS);
    m_bIsVdAttribNameAndTypeMap = true;
}

void CVirtualDevice::updateAttribValMap(std::string name, void* value)
{
    const stg::LogScope scope("ZARNEK:CVirtualDevice::updateAttribValMap()");
    stg::attributes::update(m_VdAttribValMap, std::move(name), value);
}

void CVirtualDevice::deleteFromMap(std::string name)
{
    const stg::LogScope scope("ZARNEK:CVirtualDevice::deleteFromMap()");
    stg::attributes::remove(m_VdAttribValMap, name);
}

void CVirtualDevice::clearMap()
{
    const stg::LogScope scope("ZARNEK:CVirtualDevice::clearMap()");
    stg::attributes::clear(m_VdAttribValMap, CVirtualDevice_Helper(*this));
}

unsigned int CVirtualDevice::getVdObject(unsigned int globalCntrlNum, void** outObjects,
                                         unsigned int logicalDriveNum)
{
    static constexpr stg::EngineSearch DRIVES = {
        "ZARNEK:CVirtualDevice::getVdObject()",
        SDO_OBJTYPE_VIRTUAL_DISK,
        "Total Number of VDs = ",
        SSPROP_LOGICALDRIVENUM_U32,
        "SSPROP_VILNUMBER_U32 = ",
        "ZARNEK:CPhysicalDevice::getPdObject()", // the disks' words
        false,                                   // tellsOwnLayer
        true,                                    // unreadableIsFailure
        false,                                   // failsByStatusOneOnly
    };
    return DRIVES.takeDevices(globalCntrlNum, logicalDriveNum, outObjects);
}

void CVirtualDevice::setPdInVdList(std::list<unsigned int> value)
{
    // In step, to the end of the shorter list.
    auto given = value.cbegin();
    for (auto member = m_PdInVdList.begin(); member != m_PdInVdList.end() && given != value.cend();)
        *member++ = *given++;
    insertIntoAttribValMap(
        stg::attributes::nameOf<&Self::m_PdInVdList>(Attributes::ROWS, &Self::m_PdInVdList), &m_PdInVdList);
}
