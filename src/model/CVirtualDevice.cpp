#include "model/CVirtualDevice.h"

#include "model/AttributeTable.h"
#include "model/CVirtualDevice_Helper.h"
#include "model/IController.h"
#include "sdo/SDOProxy.h"
#include "support/CLogger.h"
#include "support/LogScope.h"

#include <sdo.h>

#include <utility>

stg::AttribTypeMap CVirtualDevice::m_VdAttribNameTypeMap;
bool CVirtualDevice::m_bIsVdAttribNameAndTypeMap = false;

struct CVirtualDevice::Attributes {
    // In the order in which assignment from a map calls the setters.
    static constexpr std::array ROWS = {
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdObjType, setObjType, TAG_UNSIGNED_INTEGER, SSPROP_OBJTYPE_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdCntrlID, setControllerID, TAG_UNSIGNED_INTEGER,
                         SSPROP_CONTROLLERID_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdGlobalCntrlNum, setGlobalControllerNo, TAG_UNSIGNED_INTEGER,
                         SSPROP_GLOBALCONTROLLERNUM_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdVILNumber, setVILNumber, TAG_UNSIGNED_INTEGER,
                         SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdBusProtocol, setBusProtocol, TAG_UNSIGNED_INTEGER,
                         SSPROP_BUSPROTOCOL_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdMedia, setMedia, TAG_UNSIGNED_INTEGER, SSPROP_MEDIA_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdVendorID, setVendorID, TAG_UNSIGNED_INTEGER,
                         SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdState, setVDState, TAG_UNSIGNED_INTEGER, SSPROP_STATE_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdStripeBlockSize, setVDStripeBlockSize, TAG_UNSIGNED_INTEGER,
                         SSPROP_STRIPEBLOCKSIZE_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdSectorSize, setVDSectorSize, TAG_UNSIGNED_INTEGER,
                         SSPROP_SECTORSIZE_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdPdCount, setPDCount, TAG_UNSIGNED_INTEGER, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdRaidDiskSpace, setRaidDiskSpace, TAG_UNSIGNED_INTEGER,
                         SSPROP_NONE),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdWritePolicy, setWritePolicy, TAG_UNSIGNED_INTEGER,
                         SSPROP_WRITEPOLICY_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdReadPolicy, setReadPolicy, TAG_UNSIGNED_INTEGER,
                         SSPROP_READPOLICY_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdDiskCachePolicy, setDiskCachePolicy, TAG_UNSIGNED_INTEGER,
                         SSPROP_VDDISKCACHEPOLICY_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdDevID, setDeviceID, TAG_UNSIGNED_INTEGER, SSPROP_DEVICEID_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdLogicalDriveNum, setLogicalDriveNum, TAG_UNSIGNED_INTEGER,
                         SSPROP_LOGICALDRIVENUM_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdAttributeMask, setAttributeMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_ATTRIBUTEMASK_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdMasterMethodMask, setMasterMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_MASTERMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdCurrentMethodMask, setCurrentMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_CURRENTMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdStatus, setVDStatus, TAG_UNSIGNED_INTEGER, SSPROP_STATUS_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdRaidMode, setVDRaidMode, TAG_UNSIGNED_INTEGER,
                         SSPROP_RAIDMODE_U32),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdBlockCount, setVDBlockCount, TAG_USHORT_INT, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdName, setVDName, TAG_STDSTR, SSPROP_NAME_ASTRING),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdSize, setVDSize, TAG_ULONG_ULONG_INT, SSPROP_SIZE_U64),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdAutoRebuildOn, setVDAutoRebuildOn, TAG_BOOL_TYPE, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdProductName, setProductName, TAG_STDSTR,
                         SSPROP_VDPRODUCTNAME_ASTRING),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_PdInVdList, setPdInVdList, TAG_VD_MEMBER_TYPE, SSPROP_NONE),
        ZARNEK_ATTRIBUTE(CVirtualDevice, m_VdNexus, setVDNexus, TAG_NEXUS_TYPE, SSPROP_NEXUS_U32),
    };

    template <auto Field, class Value>
    static void store(CVirtualDevice& object, Value value)
    {
        stg::attributes::store<Attributes, Field>(object, std::move(value),
                                                  &CVirtualDevice::insertIntoAttribValMap);
    }
};

CVirtualDevice::CVirtualDevice()
{
    attribNameAndTypeMapInit();
}

CVirtualDevice::CVirtualDevice(const CVirtualDevice& other)
{
    static_assert(stg::attributes::isSound(Attributes::ROWS, 29));
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

void CVirtualDevice::setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
{
    stg::attributes::setKeyValPair(m_VdAttribNameTypeMap, std::move(name), std::move(typeTag), propertyId);
}

void CVirtualDevice::insertIntoAttribValMap(std::string name, void* value)
{
    stg::attributes::insert(m_VdAttribValMap, std::move(name), value);
}

void CVirtualDevice::updateAttribValMap(std::string name, void* value)
{
    const stg::LogScope scope("ZARNEK:CVirtualDevice::updateAttribValMap()");
    stg::attributes::update(m_VdAttribValMap, std::move(name), value);
}

void* CVirtualDevice::retrieveValFromMap(std::string name)
{
    return stg::attributes::retrieve(m_VdAttribValMap, name);
}

void CVirtualDevice::deleteFromMap(std::string name)
{
    const stg::LogScope scope("ZARNEK:CVirtualDevice::deleteFromMap()");
    stg::attributes::remove(m_VdAttribValMap, name);
}

void CVirtualDevice::deleteFromMap(std::pair<std::string, void*> entry)
{
    deleteFromMap(entry.first);
}

void CVirtualDevice::clearMap()
{
    const stg::LogScope scope("ZARNEK:CVirtualDevice::clearMap()");
    stg::attributes::clear(m_VdAttribValMap, CVirtualDevice_Helper(*this));
}

unsigned int CVirtualDevice::getVdObject(unsigned int globalCntrlNum, void** outObjects,
                                         unsigned int logicalDriveNum)
{
    static constexpr char LABEL[] = "ZARNEK:CVirtualDevice::getVdObject()";
    static constexpr char MESSAGE[] = "ZARNEK:CVirtualDevice::getVdObject(): ";
    const stg::LogScope scope(LABEL);

    outObjects[0] = nullptr;
    IController controller;
    controller.setGlobalControllerNumber(globalCntrlNum);
    stg::SDOProxy proxy;
    void* const controllerObject = proxy.retrieveSingleSDOObject(controller);
    void** list = nullptr;
    unsigned int count = 0;
    int status = stg::STATUS_FAILURE;
    if (controllerObject != nullptr)
        status =
            proxy.retrieveAssociatedSDOObjects(controllerObject, SDO_OBJTYPE_VIRTUAL_DISK, &list, &count);
    if (status != 0) {
        stg::lout << MESSAGE << "Failed to retrieve Associated SDOObjects" << '\n';
        return static_cast<unsigned int>(status);
    }
    stg::lout << MESSAGE << "Total Number of VDs = " << count << '\n';
    if (count == 0 || list == nullptr)
        return stg::STATUS_NO_MATCH;

    unsigned int result = stg::STATUS_NO_MATCH; // the walk's last event decides
    for (unsigned int index = 0; index < count; ++index) {
        unsigned int vilNumber = stg::NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(list[index], SSPROP_VILNUMBER_U32, &vilNumber) != 0) {
            stg::lout << MESSAGE << "SSPROP_VILNUMBER_U32 not found." << '\n';
            result = stg::STATUS_FAILURE;
            continue;
        }
        if (vilNumber != SDO_VIL_NUMBER) {
            stg::lout << MESSAGE << "SSPROP_VILNUMBER_U32 = " << vilNumber << '\n';
            continue;
        }
        if (logicalDriveNum == stg::NUMBER_UNKNOWN) {
            outObjects[index] = proxy.cloneMyself(list[index]);
            result = stg::STATUS_SUCCESS;
            if (outObjects[index] == nullptr) {
                // Bears the disk class's prefix.
                stg::lout << "ZARNEK:CPhysicalDevice::getPdObject(): "
                          << "*outSDOConfigObj is NULL (From else Part)" << '\n';
                result = stg::STATUS_FAILURE;
            }
            continue;
        }
        unsigned int foundNumber = stg::NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(list[index], SSPROP_LOGICALDRIVENUM_U32, &foundNumber) != 0 ||
            foundNumber != logicalDriveNum)
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

void CVirtualDevice::setObjType(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdObjType>(*this, value);
}

void CVirtualDevice::setControllerID(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdCntrlID>(*this, value);
}

void CVirtualDevice::setGlobalControllerNo(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdGlobalCntrlNum>(*this, value);
}

void CVirtualDevice::setVILNumber(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdVILNumber>(*this, value);
}

void CVirtualDevice::setBusProtocol(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdBusProtocol>(*this, value);
}

void CVirtualDevice::setMedia(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdMedia>(*this, value);
}

void CVirtualDevice::setVendorID(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdVendorID>(*this, value);
}

void CVirtualDevice::setVDState(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdState>(*this, value);
}

void CVirtualDevice::setVDStripeBlockSize(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdStripeBlockSize>(*this, value);
}

void CVirtualDevice::setVDSectorSize(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdSectorSize>(*this, value);
}

void CVirtualDevice::setPDCount(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdPdCount>(*this, value);
}

void CVirtualDevice::setRaidDiskSpace(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdRaidDiskSpace>(*this, value);
}

void CVirtualDevice::setDiskCachePolicy(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdDiskCachePolicy>(*this, value);
}

void CVirtualDevice::setWritePolicy(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdWritePolicy>(*this, value);
}

void CVirtualDevice::setReadPolicy(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdReadPolicy>(*this, value);
}

void CVirtualDevice::setDeviceID(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdDevID>(*this, value);
}

void CVirtualDevice::setLogicalDriveNum(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdLogicalDriveNum>(*this, value);
}

void CVirtualDevice::setAttributeMask(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdAttributeMask>(*this, value);
}

void CVirtualDevice::setMasterMethodMask(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdMasterMethodMask>(*this, value);
}

void CVirtualDevice::setCurrentMethodMask(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdCurrentMethodMask>(*this, value);
}

void CVirtualDevice::setVDStatus(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdStatus>(*this, value);
}

void CVirtualDevice::setVDRaidMode(unsigned int value)
{
    Attributes::store<&CVirtualDevice::m_VdRaidMode>(*this, value);
}

void CVirtualDevice::setVDBlockCount(unsigned short value)
{
    Attributes::store<&CVirtualDevice::m_VdBlockCount>(*this, value);
}

void CVirtualDevice::setVDName(std::string value)
{
    Attributes::store<&CVirtualDevice::m_VdName>(*this, std::move(value));
}

void CVirtualDevice::setVDSize(unsigned long long value)
{
    Attributes::store<&CVirtualDevice::m_VdSize>(*this, value);
}

void CVirtualDevice::setVDAutoRebuildOn(bool value)
{
    Attributes::store<&CVirtualDevice::m_VdAutoRebuildOn>(*this, value);
}

void CVirtualDevice::setProductName(std::string value)
{
    Attributes::store<&CVirtualDevice::m_VdProductName>(*this, std::move(value));
}

void CVirtualDevice::setPdInVdList(std::list<unsigned int> value)
{
    // In step, to the end of the shorter list.
    auto given = value.cbegin();
    for (auto member = m_PdInVdList.begin(); member != m_PdInVdList.end() && given != value.cend();)
        *member++ = *given++;
    insertIntoAttribValMap("m_PdInVdList", &m_PdInVdList);
}

void CVirtualDevice::setVDNexus(std::vector<unsigned int> value)
{
    Attributes::store<&CVirtualDevice::m_VdNexus>(*this, std::move(value));
}
