#include "model/IController.h"

#include "model/AttributeTable.h"
#include "model/CController_Helper.h"
#include "sdo/SDOProxy.h"
#include "support/CLogger.h"
#include "support/LogScope.h"

#include <sdo.h>

#include <utility>

stg::AttribTypeMap IController::m_CntrlAttribNameTypeMap;
bool IController::m_bIsAttribNameAndTypeMap = false;

struct IController::Attributes {
    // In the order in which assignment from a map calls the setters.
    static constexpr std::array ROWS = {
        ZARNEK_ATTRIBUTE(IController, m_globalControllerNumber, setGlobalControllerNumber,
                         TAG_UNSIGNED_INTEGER, SSPROP_GLOBALCONTROLLERNUM_U32),
        ZARNEK_ATTRIBUTE(IController, m_ObjType, setObjType, TAG_UNSIGNED_INTEGER, SSPROP_OBJTYPE_U32),
        ZARNEK_ATTRIBUTE(IController, m_VendorID, setVendorID, TAG_UNSIGNED_INTEGER, SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(IController, m_VILNumber, setVILNumber, TAG_UNSIGNED_INTEGER, SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(IController, m_CntrlNexus, setControllerNexus, TAG_NEXUS_TYPE, SSPROP_NEXUS_U32),
        ZARNEK_ATTRIBUTE(IController, m_AttributeMask, setAttributeMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_ATTRIBUTEMASK_U32),
        ZARNEK_ATTRIBUTE(IController, m_MasterMethodMask, setMasterMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_MASTERMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(IController, m_CurrentMethodMask, setCurrentMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_CURRENTMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(IController, m_BusProtocolNumber, setBusProtocolNumber, TAG_UNSIGNED_INTEGER,
                         SSPROP_BUSPROTOCOL_U32),
        ZARNEK_ATTRIBUTE(IController, m_ProductName, setProductName, TAG_STDSTR, SSPROP_NAME_ASTRING),
        ZARNEK_ATTRIBUTE(IController, m_PortCount, setPortCount, TAG_UNSIGNED_INTEGER, SSPROP_PORTCOUNT_U32),
        ZARNEK_ATTRIBUTE(IController, m_PDCount, setPDCount, TAG_UNSIGNED_INTEGER, SSPROP_PDCOUNT_U32),
        ZARNEK_ATTRIBUTE(IController, m_VDCount, setVDCount, TAG_UNSIGNED_INTEGER, SSPROP_VDCOUNT_U32),
        ZARNEK_UNLISTED_ATTRIBUTE(IController, m_NoOfBattery, setNoOfBattery),
        ZARNEK_ATTRIBUTE(IController, m_CntrID, setControllerID, TAG_UNSIGNED_INTEGER,
                         SSPROP_CONTROLLERID_U32),
        ZARNEK_ATTRIBUTE(IController, m_SlotID, setSlotID, TAG_UNSIGNED_INTEGER, SSPROP_SLOTID_U32),
        ZARNEK_ATTRIBUTE(IController, m_FWVer, setFWVersion, TAG_STDSTR, SSPROP_FWVERSION_ASTRING),
        ZARNEK_ATTRIBUTE(IController, m_CacheMemSize, setCacheMemSize, TAG_UNSIGNED_INTEGER,
                         SSPROP_CACHEMEMSIZE_U32),
        ZARNEK_ATTRIBUTE(IController, m_RebuildRate, setRebuildRate, TAG_UNSIGNED_INTEGER,
                         SSPROP_REBUILDRATE_U32),
        ZARNEK_ATTRIBUTE(IController, m_BGIRate, setBGIRate, TAG_UNSIGNED_INTEGER, SSPROP_BGIRATE_U32),
        ZARNEK_ATTRIBUTE(IController, m_CheckConsistRate, setCheckConsistRate, TAG_UNSIGNED_INTEGER,
                         SSPROP_CHECKCONSISTRATE_U32),
        ZARNEK_ATTRIBUTE(IController, m_PatrolReadRate, setPatrolReadRate, TAG_UNSIGNED_INTEGER,
                         SSPROP_PATROLREADRATE_U32),
        ZARNEK_ATTRIBUTE(IController, m_bAlarmState, setAlarmState, TAG_BOOL_TYPE, SSPROP_ALARMSTATE_BOOL),
        ZARNEK_ATTRIBUTE(IController, m_SerialNum, setSerialNum, TAG_STDSTR, SSPROP_SERIALNUM_ASTRING),
        ZARNEK_ATTRIBUTE(IController, m_ModelNum, setModelNum, TAG_UNSIGNED_INTEGER, SSPROP_MODELNUM_U32),
        ZARNEK_ATTRIBUTE(IController, m_DriverVer, setDriverVer, TAG_STDSTR, SSPROP_DRIVERVER_ASTRING),
        ZARNEK_UNLISTED_ATTRIBUTE(IController, m_SubVenID, setSubVenID),
        ZARNEK_ATTRIBUTE(IController, m_DevID, setDevID, TAG_UNSIGNED_INTEGER, SSPROP_DEVICEID_U32),
        ZARNEK_UNLISTED_ATTRIBUTE(IController, m_SubDevID, setSubDevID),
        ZARNEK_ATTRIBUTE(IController, m_Status, setStatus, TAG_UNSIGNED_INTEGER, SSPROP_STATUS_U32),
        ZARNEK_ATTRIBUTE(IController, m_State, setState, TAG_UNSIGNED_INTEGER, SSPROP_STATE_U32),
    };

    template <auto Field, class Value>
    static void store(IController& object, Value value)
    {
        stg::attributes::store<Attributes, Field>(object, std::move(value),
                                                  &IController::insertIntoAttribValMap);
    }
};

IController::IController()
{
    attribNameAndTypeMapInit();
}

IController::IController(const IController& other)
{
    static_assert(stg::attributes::isSound(Attributes::ROWS, 28));
    copyAttributes(other);
    attribNameAndTypeMapInit();
}

IController::~IController()
{
    const stg::LogScope scope("ZARNEK:IController::~IController()");
}

IController& IController::operator=(void* /*binder*/)
{
    return *this;
}

IController& IController::operator=(stg::AttribValMap& /*values*/)
{
    return *this;
}

void IController::assignAttributes(const stg::AttribValMap& values)
{
    stg::attributes::assign(Attributes::ROWS, *this, values);
}

IController& IController::operator=(const IController& other)
{
    copyAttributes(other);
    return *this;
}

void IController::copyAttributes(const IController& other)
{
    const stg::LogScope scope("ZARNEK:IController::copyAttributes()");
    stg::attributes::copy(Attributes::ROWS, *this, m_CntrlAttribValMap, other);
}

void IController::attribNameAndTypeMapInit()
{
    if (m_bIsAttribNameAndTypeMap)
        return;
    stg::attributes::fillTable(Attributes::ROWS);
    m_bIsAttribNameAndTypeMap = true;
}

void IController::setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
{
    stg::attributes::setKeyValPair(m_CntrlAttribNameTypeMap, std::move(name), std::move(typeTag), propertyId);
}

void IController::insertIntoAttribValMap(std::string name, void* value)
{
    stg::attributes::insert(m_CntrlAttribValMap, std::move(name), value);
}

void IController::updateAttribValMap(std::string name, void* value)
{
    const stg::LogScope scope("ZARNEK:IController::updateAttribValMap()");
    stg::attributes::update(m_CntrlAttribValMap, std::move(name), value);
}

void* IController::retrieveValFromMap(std::string name)
{
    return stg::attributes::retrieve(m_CntrlAttribValMap, name);
}

void IController::deleteFromMap(std::string name)
{
    const stg::LogScope scope("ZARNEK:IController::deleteFromMap()");
    stg::attributes::remove(m_CntrlAttribValMap, name);
}

void IController::deleteFromMap(std::pair<std::string, void*> entry)
{
    deleteFromMap(entry.first);
}

void IController::clearMap()
{
    const stg::LogScope scope("ZARNEK:IController::clearMap()");
    stg::attributes::clear(m_CntrlAttribValMap, CController_Helper(*this));
}

unsigned int IController::getControllerObject(void* inSDOObj, unsigned int globalCntrlNum,
                                              void** outSDOConfigObj)
{
    static constexpr char LABEL[] = "ZARNEK:IController::getControllerObject()";
    static constexpr char MESSAGE[] = "ZARNEK:IController::getControllerObject(): ";
    const stg::LogScope scope(LABEL);

    stg::SDOProxy proxy;
    unsigned int number = stg::NUMBER_UNKNOWN;
    if (inSDOObj != nullptr) {
        if (proxy.retrieveSpecificProperty(inSDOObj, SSPROP_GLOBALCONTROLLERNUM_U32, &number) != 0) {
            stg::lout << MESSAGE
                      << "Controller Object is available, but failed to retrieve GlobalControllerNumber."
                      << '\n';
            return stg::STATUS_FAILURE;
        }
        stg::lout << MESSAGE << "Controller Object is available. Controller ID is " << number << '\n';
        return stg::STATUS_SUCCESS;
    }

    *outSDOConfigObj = nullptr;
    void** list = nullptr;
    unsigned int count = 0;
    const int status = proxy.retrieveAssociatedSDOObjects(nullptr, SDO_OBJTYPE_CONTROLLER, &list, &count);
    if (status != 0) {
        stg::lout << MESSAGE << "Failed to retrieve Associated SDOObjects" << '\n';
        return static_cast<unsigned int>(status);
    }
    stg::lout << MESSAGE << "Total Number of Controllers = " << count << '\n';

    unsigned int result = stg::STATUS_NO_MATCH;
    if (count == 0 || list == nullptr)
        return result;
    for (unsigned int index = 0; index < count; ++index) {
        unsigned int vilNumber = stg::NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(list[index], SSPROP_VILNUMBER_U32, &vilNumber) != 0) {
            stg::lout << MESSAGE << "SSPROP_VILNUMBER_U32 not found." << '\n';
            continue;
        }
        stg::lout << MESSAGE << "SSPROP_VILNUMBER_U32 is " << vilNumber << '\n';
        if (vilNumber != SDO_VIL_NUMBER) {
            stg::lout << MESSAGE << "SSPROP_VILNUMBER_U32 is " << vilNumber << '\n';
            continue;
        }
        number = stg::NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(list[index], SSPROP_GLOBALCONTROLLERNUM_U32, &number) != 0 ||
            number != globalCntrlNum)
            continue;
        *outSDOConfigObj = proxy.cloneMyself(list[index]);
        result = stg::STATUS_SUCCESS;
        if (*outSDOConfigObj == nullptr) {
            stg::lout << MESSAGE << "*outSDOConfigObj is NULL." << '\n';
            result = stg::STATUS_FAILURE;
        }
        break;
    }
    proxy.deleteAssociatedSDOObjects(list, count);
    return result;
}

void IController::setGlobalControllerNumber(unsigned int value)
{
    Attributes::store<&IController::m_globalControllerNumber>(*this, value);
}

void IController::setObjType(unsigned int value)
{
    Attributes::store<&IController::m_ObjType>(*this, value);
}

void IController::setVendorID(unsigned int value)
{
    Attributes::store<&IController::m_VendorID>(*this, value);
}

void IController::setSubVenID(unsigned int value)
{
    Attributes::store<&IController::m_SubVenID>(*this, value);
}

void IController::setDevID(unsigned int value)
{
    Attributes::store<&IController::m_DevID>(*this, value);
}

void IController::setSubDevID(unsigned int value)
{
    Attributes::store<&IController::m_SubDevID>(*this, value);
}

void IController::setVILNumber(unsigned int value)
{
    Attributes::store<&IController::m_VILNumber>(*this, value);
}

void IController::setStatus(unsigned int value)
{
    Attributes::store<&IController::m_Status>(*this, value);
}

void IController::setState(unsigned int value)
{
    Attributes::store<&IController::m_State>(*this, value);
}

void IController::setControllerNexus(std::vector<unsigned int> value)
{
    Attributes::store<&IController::m_CntrlNexus>(*this, std::move(value));
}

void IController::setAttributeMask(unsigned int value)
{
    Attributes::store<&IController::m_AttributeMask>(*this, value);
}

void IController::setMasterMethodMask(unsigned int value)
{
    Attributes::store<&IController::m_MasterMethodMask>(*this, value);
}

void IController::setCurrentMethodMask(unsigned int value)
{
    Attributes::store<&IController::m_CurrentMethodMask>(*this, value);
}

void IController::setBusProtocolNumber(unsigned int value)
{
    Attributes::store<&IController::m_BusProtocolNumber>(*this, value);
}

void IController::setProductName(std::string value)
{
    Attributes::store<&IController::m_ProductName>(*this, std::move(value));
}

void IController::setSerialNum(std::string value)
{
    Attributes::store<&IController::m_SerialNum>(*this, std::move(value));
}

void IController::setModelNum(unsigned int value)
{
    Attributes::store<&IController::m_ModelNum>(*this, value);
}

void IController::setDriverVer(std::string value)
{
    Attributes::store<&IController::m_DriverVer>(*this, std::move(value));
}

void IController::setPortCount(unsigned int value)
{
    Attributes::store<&IController::m_PortCount>(*this, value);
}

void IController::setPDCount(unsigned int value)
{
    Attributes::store<&IController::m_PDCount>(*this, value);
}

void IController::setVDCount(unsigned int value)
{
    Attributes::store<&IController::m_VDCount>(*this, value);
}

void IController::setNoOfBattery(unsigned int value)
{
    Attributes::store<&IController::m_NoOfBattery>(*this, value);
}

void IController::setControllerID(unsigned int value)
{
    Attributes::store<&IController::m_CntrID>(*this, value);
}

void IController::setSlotID(unsigned int value)
{
    Attributes::store<&IController::m_SlotID>(*this, value);
}

void IController::setFWVersion(std::string value)
{
    Attributes::store<&IController::m_FWVer>(*this, std::move(value));
}

void IController::setCacheMemSize(unsigned int value)
{
    Attributes::store<&IController::m_CacheMemSize>(*this, value);
}

void IController::setRebuildRate(unsigned int value)
{
    Attributes::store<&IController::m_RebuildRate>(*this, value);
}

void IController::setBGIRate(unsigned int value)
{
    Attributes::store<&IController::m_BGIRate>(*this, value);
}

void IController::setCheckConsistRate(unsigned int value)
{
    Attributes::store<&IController::m_CheckConsistRate>(*this, value);
}

void IController::setPatrolReadRate(unsigned int value)
{
    Attributes::store<&IController::m_PatrolReadRate>(*this, value);
}

void IController::setAlarmState(bool value)
{
    Attributes::store<&IController::m_bAlarmState>(*this, value);
}
