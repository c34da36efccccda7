#include "model/CPhysicalDevice.h"

#include "model/AttributeTable.h"
#include "model/CPhysicalDevice_Helper.h"
#include "model/IController.h"
#include "sdo/SDOProxy.h"
#include "support/CLogger.h"
#include "support/LogScope.h"

#include <morlan.h>
#include <sdo.h>

#include <utility>

stg::AttribTypeMap CPhysicalDevice::m_PdAttribNameTypeMap;
bool CPhysicalDevice::m_bPdIsAttribNameAndTypeMap = false;

struct CPhysicalDevice::Attributes {
    // In the order in which assignment from a map calls the setters.
    static constexpr std::array ROWS = {
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdObjType, setObjType, TAG_UNSIGNED_INTEGER, SSPROP_OBJTYPE_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdGlobalCntrlNum, setGlobalCntrlNum, TAG_UNSIGNED_INTEGER,
                         SSPROP_GLOBALCONTROLLERNUM_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdDevID, setDevID, TAG_UNSIGNED_INTEGER, SSPROP_DEVICEID_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdStatus, setStatus, TAG_UNSIGNED_INTEGER, SSPROP_STATUS_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdState, setState, TAG_UNSIGNED_INTEGER, SSPROP_STATE_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdSlotNum, setSlotNum, TAG_UNSIGNED_INTEGER, SSPROP_SLOTNUM_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdPowerStatus, setPowerStatus, TAG_UNSIGNED_INTEGER,
                         SSPROP_POWERSTATUS_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdBusProtocol, setBusProtocol, TAG_UNSIGNED_INTEGER,
                         SSPROP_BUSPROTOCOL_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdMedia, setMedia, TAG_UNSIGNED_INTEGER, SSPROP_MEDIA_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdRRWE, setRRWE, TAG_UNSIGNED_INTEGER, SSPROP_RRWE_U32),
        ZARNEK_UNLISTED_ATTRIBUTE(CPhysicalDevice, m_pdFailurePredicted, setFailurePredicted),
        ZARNEK_UNLISTED_ATTRIBUTE(CPhysicalDevice, m_pdEncryptionCap, setEncryptionCap),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdCapacity, setCapacity, TAG_ULONG_ULONG_INT, SSPROP_SIZE_U64),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdUsedRaidDiskSpace, setUsedRaidDiskSpace, TAG_ULONG_ULONG_INT,
                         SSPROP_USEDRAIDDISKSPACE_U64),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdFreeRaidDiskSpace, setFreeRaidDiskSpace, TAG_ULONG_ULONG_INT,
                         SSPROP_FREERAIDDISKSPACE_U64),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdHotspare, setHotspare, TAG_UNSIGNED_INTEGER,
                         SSPROP_HOTSPARE_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdVendorID, setVendorID, TAG_STDSTR, SSPROP_VENDOR_ASTRING),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdProductID, setProductID, TAG_STDSTR, SSPROP_PRODUCTID_ASTRING),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdSectorSize, setSectorSize, TAG_UNSIGNED_INTEGER,
                         SSPROP_SECTORSIZE_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdDevWriteCache, setDevWriteCache, TAG_UNSIGNED_INTEGER,
                         SSPROP_DEVWRITECACHE_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdDiskCachePolicy, setDiskCachePolicy, TAG_UNSIGNED_INTEGER,
                         SSPROP_PDDISKCACHEPOLICY_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdVILNumber, setVILNumber, TAG_UNSIGNED_INTEGER,
                         SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdCntrID, setCntrID, TAG_UNSIGNED_INTEGER,
                         SSPROP_CONTROLLERID_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdProductName, setProductName, TAG_STDSTR, SSPROP_NAME_ASTRING),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdRevision, setRevision, TAG_STDSTR, SSPROP_REVISION_ASTRING),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdDriverVer, setDriverVer, TAG_STDSTR, SSPROP_DRIVERVER_ASTRING),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdModelNum, setModelNum, TAG_STDSTR, SSPROP_MODEL_ASTRING),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdSerialNum, setSerialNum, TAG_STDSTR, SSPROP_SERIALNUM_ASTRING),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdSASAddress, setSASAddress, TAG_STDSTR,
                         SSPROP_SASADDRESS_ASTRING),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdNexus, setPdNexus, TAG_NEXUS_TYPE, SSPROP_NEXUS_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdAttributeMask, setAttributeMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_ATTRIBUTEMASK_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdMasterMethodMask, setMasterMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_MASTERMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdCurrentMethodMask, setCurrentMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_CURRENTMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdCapableSpeed, setCapableSpeed, TAG_UNSIGNED_INTEGER,
                         SSPROP_CAPABLESPEED_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdNegotiatedSpeed, setNegotiatedSpeed, TAG_UNSIGNED_INTEGER,
                         SSPROP_NEGOTIATEDSPEED_U32),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdWriteCacheSupport, setWriteCacheSupport, TAG_UNSIGNED_INTEGER,
                         SSPROP_NONE),
        ZARNEK_ATTRIBUTE(CPhysicalDevice, m_pdDiskGroupNum, setDiskGroupNum, TAG_UNSIGNED_INTEGER,
                         SSPROP_DISKGROUPNUM_U32),
    };

    template <auto Field, class Value>
    static void store(CPhysicalDevice& object, Value value)
    {
        stg::attributes::store<Attributes, Field>(object, std::move(value),
                                                  &CPhysicalDevice::insertIntoPdAttribValMap);
    }
};

CPhysicalDevice::CPhysicalDevice()
{
    attribNameAndTypeMapInit();
}

CPhysicalDevice::CPhysicalDevice(const CPhysicalDevice& other)
{
    static_assert(stg::attributes::isSound(Attributes::ROWS, 35));
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

void CPhysicalDevice::setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
{
    stg::attributes::setKeyValPair(m_PdAttribNameTypeMap, std::move(name), std::move(typeTag), propertyId);
}

void CPhysicalDevice::insertIntoPdAttribValMap(std::string name, void* value)
{
    stg::attributes::insert(m_PdAttribValMap, std::move(name), value);
}

void CPhysicalDevice::updatePdAttribValMap(std::string name, void* value)
{
    const stg::LogScope scope("ZARNEK:CPhysicalDevice::updatePdAttribValMap()");
    stg::attributes::update(m_PdAttribValMap, std::move(name), value);
}

void* CPhysicalDevice::retrieveValFromMap(std::string name)
{
    return stg::attributes::retrieve(m_PdAttribValMap, name);
}

void CPhysicalDevice::deleteFromMap(std::string name)
{
    DebugPrint("ZARNEK: CPhysicalDevice deleteFromMap Entry");
    stg::attributes::remove(m_PdAttribValMap, name);
    DebugPrint("ZARNEK: CPhysicalDevice deleteFromMap Exit");
}

void CPhysicalDevice::deleteFromMap(std::pair<std::string, void*> entry)
{
    deleteFromMap(entry.first);
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
    static constexpr char LABEL[] = "ZARNEK:CPhysicalDevice::getPdObject()";
    static constexpr char MESSAGE[] = "ZARNEK:CPhysicalDevice::getPdObject(): ";
    const stg::LogScope scope(LABEL);

    outObjects[0] = nullptr;
    IController controller;
    controller.setGlobalControllerNumber(globalCntrlNum);
    stg::SDOProxy proxy;
    void* const controllerObject = proxy.retrieveSingleSDOObject(controller);
    void** list = nullptr;
    unsigned int count = 0;
    // Of the listing's statuses only 1 is a failure here; after any other the count stands as it is.
    if (controllerObject == nullptr ||
        proxy.retrieveAssociatedSDOObjects(controllerObject, SDO_OBJTYPE_PHYSICAL_DISK, &list, &count) ==
            stg::STATUS_FAILURE) {
        stg::lout << MESSAGE << "Failed to retrieve Associated SDOObjects" << '\n';
        return stg::STATUS_FAILURE;
    }
    stg::lout << MESSAGE << "Total Number of PDs = " << count << '\n';
    if (count == 0 || list == nullptr)
        return stg::STATUS_NO_MATCH;

    unsigned int result = stg::STATUS_NO_MATCH;
    for (unsigned int index = 0; index < count; ++index) {
        unsigned int vilNumber = stg::NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(list[index], SSPROP_VILNUMBER_U32, &vilNumber) != 0) {
            stg::lout << MESSAGE << "SSPROP_VILNUMBER_U32 not found." << '\n';
            continue;
        }
        if (vilNumber != SDO_VIL_NUMBER) {
            stg::lout << MESSAGE << "SSPROP_VILNUMBER_U32 is " << vilNumber << '\n';
            continue;
        }
        if (deviceId == stg::NUMBER_UNKNOWN) {
            outObjects[index] = proxy.cloneMyself(list[index]);
            result = stg::STATUS_SUCCESS;
            if (outObjects[index] == nullptr) {
                stg::lout << MESSAGE << "*outSDOConfigObj is NULL (From else Part)" << '\n';
                result = stg::STATUS_FAILURE;
            }
            continue;
        }
        unsigned int foundId = stg::NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(list[index], SSPROP_DEVICEID_U32, &foundId) != 0 ||
            foundId != deviceId)
            continue;
        outObjects[0] = proxy.cloneMyself(list[index]);
        result = stg::STATUS_SUCCESS;
        if (outObjects[0] == nullptr) {
            stg::lout << MESSAGE << "*outSDOConfigObj is NULL." << '\n';
            result = stg::STATUS_FAILURE;
        }
        break;
    }
    proxy.deleteAssociatedSDOObjects(list, count);
    return result;
}

void CPhysicalDevice::loadPdSpecificAttrib()
{
    const stg::LogScope scope("ZARNEK:CPhysicalDevice::loadPdSpecificAttrib()");
    static constexpr const char* NAMES[] = {
        "m_pdObjType",
        "m_pdGlobalCntrlNum",
        "m_pdDevID",
        "m_pdStatus",
        "m_pdState",
        "m_pdPowerStatus",
        "m_pdBusProtocol",
        "m_pdMedia",
        "m_pdRRWE",
        "m_pdFailurePredicted",
        "m_pdRevision",
        "m_pdDriverVer",
        "m_pdModelNum",
        "m_pdEncryptionCap",
        "m_pdCapacity",
        "m_pdUsedRaidDiskSpace",
        "m_pdFreeRaidDiskSpace",
        "m_pdHotspare",
        "m_pdVendorID",
        "m_pdProductID",
        "m_pdSerialNum",
        "m_pdSectorSize",
        "m_pdDevWriteCache",
        "m_pdDiskCachePolicy",
        "m_pdSASAddress",
        "m_pdAttributeMask",
        "m_pdMasterMethodMask",
        "m_pdCurrentMethodMask",
        "m_pdNexus",
        "m_pdVILNumber",
        "m_pdCntrID",
        "m_pdProductName",
        "m_pdSlotNum",
        "m_pdCapableSpeed",
        "m_pdNegotiatedSpeed",
        "m_pdWriteCacheSupport",
        "m_pdDiskGroupNum",
    };
    m_PdSpecificAttrib.insert(m_PdSpecificAttrib.end(), std::begin(NAMES), std::end(NAMES));
}

void CPhysicalDevice::setObjType(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdObjType>(*this, value);
}

void CPhysicalDevice::setGlobalCntrlNum(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdGlobalCntrlNum>(*this, value);
}

void CPhysicalDevice::setDevID(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdDevID>(*this, value);
}

void CPhysicalDevice::setStatus(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdStatus>(*this, value);
}

void CPhysicalDevice::setState(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdState>(*this, value);
}

void CPhysicalDevice::setSlotNum(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdSlotNum>(*this, value);
}

void CPhysicalDevice::setPowerStatus(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdPowerStatus>(*this, value);
}

void CPhysicalDevice::setBusProtocol(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdBusProtocol>(*this, value);
}

void CPhysicalDevice::setMedia(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdMedia>(*this, value);
}

void CPhysicalDevice::setRRWE(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdRRWE>(*this, value);
}

void CPhysicalDevice::setFailurePredicted(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdFailurePredicted>(*this, value);
}

void CPhysicalDevice::setEncryptionCap(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdEncryptionCap>(*this, value);
}

void CPhysicalDevice::setCapacity(unsigned long long value)
{
    Attributes::store<&CPhysicalDevice::m_pdCapacity>(*this, value);
}

void CPhysicalDevice::setUsedRaidDiskSpace(unsigned long long value)
{
    Attributes::store<&CPhysicalDevice::m_pdUsedRaidDiskSpace>(*this, value);
}

void CPhysicalDevice::setFreeRaidDiskSpace(unsigned long long value)
{
    Attributes::store<&CPhysicalDevice::m_pdFreeRaidDiskSpace>(*this, value);
}

void CPhysicalDevice::setHotspare(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdHotspare>(*this, value);
}

void CPhysicalDevice::setVendorID(std::string value)
{
    Attributes::store<&CPhysicalDevice::m_pdVendorID>(*this, std::move(value));
}

void CPhysicalDevice::setProductID(std::string value)
{
    Attributes::store<&CPhysicalDevice::m_pdProductID>(*this, std::move(value));
}

void CPhysicalDevice::setSectorSize(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdSectorSize>(*this, value);
}

void CPhysicalDevice::setDevWriteCache(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdDevWriteCache>(*this, value);
}

void CPhysicalDevice::setDiskCachePolicy(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdDiskCachePolicy>(*this, value);
}

void CPhysicalDevice::setVILNumber(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdVILNumber>(*this, value);
}

void CPhysicalDevice::setCntrID(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdCntrID>(*this, value);
}

void CPhysicalDevice::setProductName(std::string value)
{
    Attributes::store<&CPhysicalDevice::m_pdProductName>(*this, std::move(value));
}

void CPhysicalDevice::setRevision(std::string value)
{
    Attributes::store<&CPhysicalDevice::m_pdRevision>(*this, std::move(value));
}

void CPhysicalDevice::setDriverVer(std::string value)
{
    Attributes::store<&CPhysicalDevice::m_pdDriverVer>(*this, std::move(value));
}

void CPhysicalDevice::setModelNum(std::string value)
{
    Attributes::store<&CPhysicalDevice::m_pdModelNum>(*this, std::move(value));
}

void CPhysicalDevice::setSerialNum(std::string value)
{
    Attributes::store<&CPhysicalDevice::m_pdSerialNum>(*this, std::move(value));
}

void CPhysicalDevice::setSASAddress(std::string value)
{
    Attributes::store<&CPhysicalDevice::m_pdSASAddress>(*this, std::move(value));
}

void CPhysicalDevice::setPdNexus(std::vector<unsigned int> value)
{
    Attributes::store<&CPhysicalDevice::m_pdNexus>(*this, std::move(value));
}

void CPhysicalDevice::setAttributeMask(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdAttributeMask>(*this, value);
}

void CPhysicalDevice::setMasterMethodMask(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdMasterMethodMask>(*this, value);
}

void CPhysicalDevice::setCurrentMethodMask(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdCurrentMethodMask>(*this, value);
}

void CPhysicalDevice::setCapableSpeed(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdCapableSpeed>(*this, value);
}

void CPhysicalDevice::setNegotiatedSpeed(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdNegotiatedSpeed>(*this, value);
}

void CPhysicalDevice::setWriteCacheSupport(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdWriteCacheSupport>(*this, value);
}

void CPhysicalDevice::setDiskGroupNum(unsigned int value)
{
    Attributes::store<&CPhysicalDevice::m_pdDiskGroupNum>(*this, value);
}
