#include "model/CPhysicalDevice.h"

#include "model/AttributeHelper.h"
#include "model/AttributeTable.h"
#include "model/EngineSearch.h"
#include "support/LogScope.h"

#include <morlan.h>
#include <sdo.h>

#include <utility>

stg::AttribTypeMap CPhysicalDevice::m_PdAttribNameTypeMap;
bool CPhysicalDevice::m_bPdIsAttribNameAndTypeMap = false;

struct CPhysicalDevice::Attributes {
    using Owner = CPhysicalDevice;

    // In the order in which assignment from a map calls the setters.
    static constexpr auto ROWS = stg::attributes::tableOf<Owner>(
        ZARNEK_ATTRIBUTE(m_pdObjType, setObjType, TAG_UNSIGNED_INTEGER, SSPROP_OBJTYPE_U32),
        ZARNEK_ATTRIBUTE(m_pdGlobalCntrlNum, setGlobalCntrlNum, TAG_UNSIGNED_INTEGER,
                         SSPROP_GLOBALCONTROLLERNUM_U32),
        ZARNEK_ATTRIBUTE(m_pdDevID, setDevID, TAG_UNSIGNED_INTEGER, SSPROP_DEVICEID_U32),
        ZARNEK_ATTRIBUTE(m_pdStatus, setStatus, TAG_UNSIGNED_INTEGER, SSPROP_STATUS_U32),
        ZARNEK_ATTRIBUTE(m_pdState, setState, TAG_UNSIGNED_INTEGER, SSPROP_STATE_U32),
        ZARNEK_ATTRIBUTE(m_pdSlotNum, setSlotNum, TAG_UNSIGNED_INTEGER, SSPROP_SLOTNUM_U32),
        ZARNEK_ATTRIBUTE(m_pdPowerStatus, setPowerStatus, TAG_UNSIGNED_INTEGER, SSPROP_POWERSTATUS_U32),
        ZARNEK_ATTRIBUTE(m_pdBusProtocol, setBusProtocol, TAG_UNSIGNED_INTEGER, SSPROP_BUSPROTOCOL_U32),
        ZARNEK_ATTRIBUTE(m_pdMedia, setMedia, TAG_UNSIGNED_INTEGER, SSPROP_MEDIA_U32),
        ZARNEK_ATTRIBUTE(m_pdRRWE, setRRWE, TAG_UNSIGNED_INTEGER, SSPROP_RRWE_U32),
        ZARNEK_UNLISTED_ATTRIBUTE(m_pdFailurePredicted, setFailurePredicted),
        ZARNEK_UNLISTED_ATTRIBUTE(m_pdEncryptionCap, setEncryptionCap),
        ZARNEK_ATTRIBUTE(m_pdCapacity, setCapacity, TAG_ULONG_ULONG_INT, SSPROP_SIZE_U64),
        ZARNEK_ATTRIBUTE(m_pdUsedRaidDiskSpace, setUsedRaidDiskSpace, TAG_ULONG_ULONG_INT,
                         SSPROP_USEDRAIDDISKSPACE_U64),
        ZARNEK_ATTRIBUTE(m_pdFreeRaidDiskSpace, setFreeRaidDiskSpace, TAG_ULONG_ULONG_INT,
                         SSPROP_FREERAIDDISKSPACE_U64),
        ZARNEK_ATTRIBUTE(m_pdHotspare, setHotspare, TAG_UNSIGNED_INTEGER, SSPROP_HOTSPARE_U32),
        ZARNEK_ATTRIBUTE(m_pdVendorID, setVendorID, TAG_STDSTR, SSPROP_VENDOR_ASTRING),
        ZARNEK_ATTRIBUTE(m_pdProductID, setProductID, TAG_STDSTR, SSPROP_PRODUCTID_ASTRING),
        ZARNEK_ATTRIBUTE(m_pdSectorSize, setSectorSize, TAG_UNSIGNED_INTEGER, SSPROP_SECTORSIZE_U32),
        ZARNEK_ATTRIBUTE(m_pdDevWriteCache, setDevWriteCache, TAG_UNSIGNED_INTEGER, SSPROP_DEVWRITECACHE_U32),
        ZARNEK_ATTRIBUTE(m_pdDiskCachePolicy, setDiskCachePolicy, TAG_UNSIGNED_INTEGER,
                         SSPROP_PDDISKCACHEPOLICY_U32),
        ZARNEK_ATTRIBUTE(m_pdVILNumber, setVILNumber, TAG_UNSIGNED_INTEGER, SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(m_pdCntrID, setCntrID, TAG_UNSIGNED_INTEGER, SSPROP_CONTROLLERID_U32),
        ZARNEK_ATTRIBUTE(m_pdProductName, setProductName, TAG_STDSTR, SSPROP_NAME_ASTRING),
        ZARNEK_ATTRIBUTE(m_pdRevision, setRevision, TAG_STDSTR, SSPROP_REVISION_ASTRING),
        ZARNEK_ATTRIBUTE(m_pdDriverVer, setDriverVer, TAG_STDSTR, SSPROP_DRIVERVER_ASTRING),
        ZARNEK_ATTRIBUTE(m_pdModelNum, setModelNum, TAG_STDSTR, SSPROP_MODEL_ASTRING),
        ZARNEK_ATTRIBUTE(m_pdSerialNum, setSerialNum, TAG_STDSTR, SSPROP_SERIALNUM_ASTRING),
        ZARNEK_ATTRIBUTE(m_pdSASAddress, setSASAddress, TAG_STDSTR, SSPROP_SASADDRESS_ASTRING),
        ZARNEK_ATTRIBUTE(m_pdNexus, setPdNexus, TAG_NEXUS_TYPE, SSPROP_NEXUS_U32),
        ZARNEK_ATTRIBUTE(m_pdAttributeMask, setAttributeMask, TAG_BINARY_DATA_TYPE, SSPROP_ATTRIBUTEMASK_U32),
        ZARNEK_ATTRIBUTE(m_pdMasterMethodMask, setMasterMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_MASTERMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(m_pdCurrentMethodMask, setCurrentMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_CURRENTMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(m_pdCapableSpeed, setCapableSpeed, TAG_UNSIGNED_INTEGER, SSPROP_CAPABLESPEED_U32),
        ZARNEK_ATTRIBUTE(m_pdNegotiatedSpeed, setNegotiatedSpeed, TAG_UNSIGNED_INTEGER,
                         SSPROP_NEGOTIATEDSPEED_U32),
        ZARNEK_ATTRIBUTE(m_pdWriteCacheSupport, setWriteCacheSupport, TAG_UNSIGNED_INTEGER, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(m_pdDiskGroupNum, setDiskGroupNum, TAG_UNSIGNED_INTEGER, SSPROP_DISKGROUPNUM_U32));
    static_assert(stg::attributes::isSound(ROWS, 35));

    // The names that can be read back from the data engine.
    static constexpr stg::attributes::Move MOVES[] = {
        {"m_pdRevision", "m_pdFailurePredicted"},
        {"m_pdDriverVer", "m_pdRevision"},
        {"m_pdModelNum", "m_pdDriverVer"},
        {"m_pdSerialNum", "m_pdProductID"},
        {"m_pdSASAddress", "m_pdDiskCachePolicy"},
        {"m_pdAttributeMask", "m_pdSASAddress"},
        {"m_pdMasterMethodMask", "m_pdAttributeMask"},
        {"m_pdCurrentMethodMask", "m_pdMasterMethodMask"},
        {"m_pdNexus", "m_pdCurrentMethodMask"},
        {"m_pdSlotNum", "m_pdProductName"},
    };
    static constexpr auto READABLE = stg::attributes::namesOf(ROWS, MOVES);
};

template <auto Field, class Value>
void CPhysicalDevice::set(Value value)
{
    stg::attributes::store<Attributes, Field>(*this, std::move(value),
                                              &CPhysicalDevice::insertIntoPdAttribValMap);
}

CPhysicalDevice::CPhysicalDevice()
{
    attribNameAndTypeMapInit();
}

CPhysicalDevice::CPhysicalDevice(const CPhysicalDevice& other)
{
    copyAttributes(other);
    attribNameAndTypeMapInit();
}

CPhysicalDevice::~CPhysicalDevice()
{
    DebugPrint("ZARNEK: CPhysicalDevice D-tor Entry");
}

CPhysicalDevice& CPhysicalDevice::operator=(void* /*binder*/)
{
    return *this;
}

CPhysicalDevice& CPhysicalDevice::operator=(stg::AttribValMap& values)
{
    stg::attributes::assign(Attributes::ROWS, *this, values);
    return *this;
}

CPhysicalDevice& CPhysicalDevice::operator=(const CPhysicalDevice& other)
{
    copyAttributes(other);
    return *this;
}

void CPhysicalDevice::copyAttributes(const CPhysicalDevice& other)
{
    const stg::LogScope scope("ZARNEK:CPhysicalDevice::copyAttributes()");
    stg::attributes::copy(Attributes::ROWS, *this, m_PdAttribValMap, other);
}

void CPhysicalDevice::attribNameAndTypeMapInit()
{
    if (m_bPdIsAttribNameAndTypeMap)
        return;
    stg::attributes::fillTable(Attributes::ROWS);
    m_bPdIsAttribNameAndTypeMap = true;
}

void CPhysicalDevice::updatePdAttribValMap(std::string name, void* value)
{
    const stg::LogScope scope("ZARNEK:CPhysicalDevice::updatePdAttribValMap()");
    stg::attributes::update(m_PdAttribValMap, std::move(name), value);
}

void CPhysicalDevice::deleteFromMap(std::string name)
{
    DebugPrint("ZARNEK: CPhysicalDevice deleteFromMap Entry");
    stg::attributes::remove(m_PdAttribValMap, name);
    DebugPrint("ZARNEK: CPhysicalDevice deleteFromMap Exit");
}

void CPhysicalDevice::clearMap()
{
    DebugPrint("ZARNEK: CPhysicalDevice clearMap Entry");
    stg::attributes::clear(m_PdAttribValMap, CPhysicalDevice_Helper(*this));
    DebugPrint("ZARNEK: CPhysicalDevice clearMap Exit");
}

unsigned int CPhysicalDevice::getPdObject(unsigned int globalCntrlNum, void** outObjects,
                                          unsigned int deviceId)
{
    static constexpr stg::EngineSearch DISKS = {
        "ZARNEK:CPhysicalDevice::getPdObject()",
        SDO_OBJTYPE_PHYSICAL_DISK,
        "Total Number of PDs = ",
        SSPROP_DEVICEID_U32,
        "SSPROP_VILNUMBER_U32 is ",
        "ZARNEK:CPhysicalDevice::getPdObject()",
        false, // tellsOwnLayer
        false, // unreadableIsFailure
        true,  // failsByStatusOneOnly
    };
    return DISKS.takeDevices(globalCntrlNum, deviceId, outObjects);
}

void CPhysicalDevice::loadPdSpecificAttrib()
{
    const stg::LogScope scope("ZARNEK:CPhysicalDevice::loadPdSpecificAttrib()");
    m_PdSpecificAttrib.insert(m_PdSpecificAttrib.end(), Attributes::READABLE.begin(),
                              Attributes::READABLE.end());
}
