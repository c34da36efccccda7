#include "model/IController.h"

#include "model/AttributeHelper.h"
#include "model/AttributeTable.h"
#include "model/EngineSearch.h"
#include "sdo/SDOProxy.h"
#include "support/LogScope.h"

#include <sdo.h>

#include <utility>

stg::AttribTypeMap IController::m_CntrlAttribNameTypeMap;
bool IController::m_bIsAttribNameAndTypeMap = false;

struct IController::Attributes {
    using Owner = IController;

    // In the order in which assignment from a map calls the setters.
    static constexpr auto ROWS = stg::attributes::tableOf<Owner>(
        ZARNEK_ATTRIBUTE(m_globalControllerNumber, setGlobalControllerNumber, TAG_UNSIGNED_INTEGER,
                         SSPROP_GLOBALCONTROLLERNUM_U32),
        ZARNEK_ATTRIBUTE(m_ObjType, setObjType, TAG_UNSIGNED_INTEGER, SSPROP_OBJTYPE_U32),
        ZARNEK_ATTRIBUTE(m_VendorID, setVendorID, TAG_UNSIGNED_INTEGER, SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(m_VILNumber, setVILNumber, TAG_UNSIGNED_INTEGER, SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(m_CntrlNexus, setControllerNexus, TAG_NEXUS_TYPE, SSPROP_NEXUS_U32),
        ZARNEK_ATTRIBUTE(m_AttributeMask, setAttributeMask, TAG_BINARY_DATA_TYPE, SSPROP_ATTRIBUTEMASK_U32),
        ZARNEK_ATTRIBUTE(m_MasterMethodMask, setMasterMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_MASTERMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(m_CurrentMethodMask, setCurrentMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_CURRENTMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(m_BusProtocolNumber, setBusProtocolNumber, TAG_UNSIGNED_INTEGER,
                         SSPROP_BUSPROTOCOL_U32),
        ZARNEK_ATTRIBUTE(m_ProductName, setProductName, TAG_STDSTR, SSPROP_NAME_ASTRING),
        ZARNEK_ATTRIBUTE(m_PortCount, setPortCount, TAG_UNSIGNED_INTEGER, SSPROP_PORTCOUNT_U32),
        ZARNEK_ATTRIBUTE(m_PDCount, setPDCount, TAG_UNSIGNED_INTEGER, SSPROP_PDCOUNT_U32),
        ZARNEK_ATTRIBUTE(m_VDCount, setVDCount, TAG_UNSIGNED_INTEGER, SSPROP_VDCOUNT_U32),
        ZARNEK_UNLISTED_ATTRIBUTE(m_NoOfBattery, setNoOfBattery),
        ZARNEK_ATTRIBUTE(m_CntrID, setControllerID, TAG_UNSIGNED_INTEGER, SSPROP_CONTROLLERID_U32),
        ZARNEK_ATTRIBUTE(m_SlotID, setSlotID, TAG_UNSIGNED_INTEGER, SSPROP_SLOTID_U32),
        ZARNEK_ATTRIBUTE(m_FWVer, setFWVersion, TAG_STDSTR, SSPROP_FWVERSION_ASTRING),
        ZARNEK_ATTRIBUTE(m_CacheMemSize, setCacheMemSize, TAG_UNSIGNED_INTEGER, SSPROP_CACHEMEMSIZE_U32),
        ZARNEK_ATTRIBUTE(m_RebuildRate, setRebuildRate, TAG_UNSIGNED_INTEGER, SSPROP_REBUILDRATE_U32),
        ZARNEK_ATTRIBUTE(m_BGIRate, setBGIRate, TAG_UNSIGNED_INTEGER, SSPROP_BGIRATE_U32),
        ZARNEK_ATTRIBUTE(m_CheckConsistRate, setCheckConsistRate, TAG_UNSIGNED_INTEGER,
                         SSPROP_CHECKCONSISTRATE_U32),
        ZARNEK_ATTRIBUTE(m_PatrolReadRate, setPatrolReadRate, TAG_UNSIGNED_INTEGER,
                         SSPROP_PATROLREADRATE_U32),
        ZARNEK_ATTRIBUTE(m_bAlarmState, setAlarmState, TAG_BOOL_TYPE, SSPROP_ALARMSTATE_BOOL),
        ZARNEK_ATTRIBUTE(m_SerialNum, setSerialNum, TAG_STDSTR, SSPROP_SERIALNUM_ASTRING),
        ZARNEK_ATTRIBUTE(m_ModelNum, setModelNum, TAG_UNSIGNED_INTEGER, SSPROP_MODELNUM_U32),
        ZARNEK_ATTRIBUTE(m_DriverVer, setDriverVer, TAG_STDSTR, SSPROP_DRIVERVER_ASTRING),
        ZARNEK_UNLISTED_ATTRIBUTE(m_SubVenID, setSubVenID),
        ZARNEK_ATTRIBUTE(m_DevID, setDevID, TAG_UNSIGNED_INTEGER, SSPROP_DEVICEID_U32),
        ZARNEK_UNLISTED_ATTRIBUTE(m_SubDevID, setSubDevID),
        ZARNEK_ATTRIBUTE(m_Status, setStatus, TAG_UNSIGNED_INTEGER, SSPROP_STATUS_U32),
        ZARNEK_ATTRIBUTE(m_State, setState, TAG_UNSIGNED_INTEGER, SSPROP_STATE_U32));
    static_assert(stg::attributes::isSound(ROWS, 28));

    // The names that can be read back from the data engine.
    static constexpr stg::attributes::Move MOVES[] = {{"m_CntrlNexus", "m_bAlarmState"}};
    static constexpr auto READABLE = stg::attributes::namesOf(ROWS, MOVES);
};

template <auto Field, class Value>
void IController::set(Value value)
{
    stg::attributes::store<Attributes, Field>(*this, std::move(value), &IController::insertIntoAttribValMap);
}

IController::IController()
{
    attribNameAndTypeMapInit();
}

IController::IController(const IController& other)
{
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

void IController::appendReadableNames(std::list<std::string>& names)
{
    names.insert(names.end(), Attributes::READABLE.begin(), Attributes::READABLE.end());
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

void IController::updateAttribValMap(std::string name, void* value)
{
    const stg::LogScope scope("ZARNEK:IController::updateAttribValMap()");
    stg::attributes::update(m_CntrlAttribValMap, std::move(name), value);
}

void IController::deleteFromMap(std::string name)
{
    const stg::LogScope scope("ZARNEK:IController::deleteFromMap()");
    stg::attributes::remove(m_CntrlAttribValMap, name);
}

void IController::clearMap()
{
    const stg::LogScope scope("ZARNEK:IController::clearMap()");
    stg::attributes::clear(m_CntrlAttribValMap, CController_Helper(*this));
}

unsigned int IController::getControllerObject(void* inSDOObj, unsigned int globalCntrlNum,
                                              void** outSDOConfigObj)
{
    static constexpr stg::EngineSearch CONTROLLERS = {
        "ZARNEK:IController::getControllerObject()",
        SDO_OBJTYPE_CONTROLLER,
        "Total Number of Controllers = ",
        SSPROP_GLOBALCONTROLLERNUM_U32,
        "SSPROP_VILNUMBER_U32 is ",
        nullptr, // never asked for all
        true,    // tellsOwnLayer
        false,   // unreadableIsFailure
        false,   // failsByStatusOneOnly
    };
    const stg::LogScope scope(CONTROLLERS.label);
    stg::SDOProxy proxy;
    if (inSDOObj == nullptr) {
        *outSDOConfigObj = nullptr;
        return CONTROLLERS.takeOne(proxy, nullptr, globalCntrlNum, outSDOConfigObj);
    }
    unsigned int number = stg::NUMBER_UNKNOWN;
    if (proxy.retrieveSpecificProperty(inSDOObj, SSPROP_GLOBALCONTROLLERNUM_U32, &number) != 0) {
        scope.message() << "Controller Object is available, but failed to retrieve GlobalControllerNumber."
                        << '\n';
        return stg::STATUS_FAILURE;
    }
    scope.message() << "Controller Object is available. Controller ID is " << number << '\n';
    return stg::STATUS_SUCCESS;
}
