#include "events/CControl_Notify.h"

#include "model/AttributeTable.h"
#include "support/LogScope.h"

#include <sdo.h>

#include <utility>

stg::AttribTypeMap CControl_Notify::m_ControlNotifyAttribNameTypeMap;
bool CControl_Notify::m_bIsAttribNameAndTypeMap = false;

struct CControl_Notify::Attributes {
    static constexpr std::array ROWS = {
        ZARNEK_ATTRIBUTE(CControl_Notify, m_globalControllerNumber, setGlobalControllerNumber,
                         TAG_UNSIGNED_INTEGER, SSPROP_GLOBALCONTROLLERNUM_U32),
        ZARNEK_ATTRIBUTE(CControl_Notify, m_CntrlID, setControllerID, TAG_UNSIGNED_INTEGER,
                         SSPROP_CONTROLLERID_U32),
        ZARNEK_ATTRIBUTE(CControl_Notify, m_ObjType, setObjType, TAG_UNSIGNED_INTEGER, SSPROP_OBJTYPE_U32),
        ZARNEK_ATTRIBUTE(CControl_Notify, m_DevID, setDevID, TAG_UNSIGNED_INTEGER, SSPROP_DEVICEID_U32),
        ZARNEK_ATTRIBUTE(CControl_Notify, m_VILNumber, setVILNumber, TAG_UNSIGNED_INTEGER,
                         SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(CControl_Notify, m_AttributeMask, setAttributeMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_ATTRIBUTEMASK_U32),
        ZARNEK_ATTRIBUTE(CControl_Notify, m_MasterMethodMask, setMasterMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_MASTERMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(CControl_Notify, m_CurrentMethodMask, setCurrentMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_CURRENTMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(CControl_Notify, m_Nexus, setNexus, TAG_NEXUS_TYPE, SSPROP_NEXUS_U32),
    };

    template <auto Field, class Value>
    static void store(CControl_Notify& object, Value value)
    {
        stg::attributes::store<Attributes, Field>(object, std::move(value),
                                                  &CControl_Notify::insertIntoAttribValMap);
    }
};

CControl_Notify::CControl_Notify()
{
    attribNameAndTypeMapInit();
}

CControl_Notify::CControl_Notify(const CControl_Notify& copyObj)
{
    static_assert(stg::attributes::isSound(Attributes::ROWS, 9));
    const stg::LogScope scope("ZARNEK:CControl_Notify:CControl_Notify( const CControl_Notify& copyObj )");
    copyAttributes(copyObj);
    attribNameAndTypeMapInit();
}

CControl_Notify::~CControl_Notify() = default;

CControl_Notify& CControl_Notify::operator=(const CControl_Notify& other)
{
    copyAttributes(other);
    return *this;
}

void CControl_Notify::copyAttributes(const CControl_Notify& other)
{
    const stg::LogScope scope("ZARNEK:CControl_Notify::copyAttributes()");
    stg::attributes::copy(Attributes::ROWS, *this, m_AttribValMap, other);
}

void CControl_Notify::attribNameAndTypeMapInit()
{
    if (m_bIsAttribNameAndTypeMap)
        return;
    stg::attributes::fillTable(Attributes::ROWS);
    m_bIsAttribNameAndTypeMap = true;
}

void CControl_Notify::setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
{
    stg::attributes::setKeyValPair(m_ControlNotifyAttribNameTypeMap, std::move(name), std::move(typeTag),
                                   propertyId);
}

void CControl_Notify::insertIntoAttribValMap(std::string name, void* value)
{
    stg::attributes::insert(m_AttribValMap, std::move(name), value);
}

void CControl_Notify::updateAttribValMap(std::string name, void* value)
{
    const stg::LogScope scope("ZARNEK:CControl_Notify:updateAttribValMap()",
                              "ZARNEK:CControl_Notify::updateAttribValMap()");
    stg::attributes::update(m_AttribValMap, std::move(name), value);
}

void CControl_Notify::deleteFromMap(std::string name)
{
    const stg::LogScope scope("ZARNEK:CControl_Notify:deleteFromMap()",
                              "ZARNEK:CControl_Notify::deleteFromMap()");
    stg::attributes::remove(m_AttribValMap, name);
}

void CControl_Notify::deleteFromMap(std::pair<std::string, void*> entry)
{
    deleteFromMap(entry.first);
}

void CControl_Notify::setGlobalControllerNumber(unsigned int value)
{
    Attributes::store<&CControl_Notify::m_globalControllerNumber>(*this, value);
}

void CControl_Notify::setControllerID(unsigned int value)
{
    Attributes::store<&CControl_Notify::m_CntrlID>(*this, value);
}

void CControl_Notify::setObjType(unsigned int value)
{
    Attributes::store<&CControl_Notify::m_ObjType>(*this, value);
}

void CControl_Notify::setDevID(unsigned int value)
{
    Attributes::store<&CControl_Notify::m_DevID>(*this, value);
}

void CControl_Notify::setVILNumber(unsigned int value)
{
    Attributes::store<&CControl_Notify::m_VILNumber>(*this, value);
}

void CControl_Notify::setAttributeMask(unsigned int value)
{
    Attributes::store<&CControl_Notify::m_AttributeMask>(*this, value);
}

void CControl_Notify::setMasterMethodMask(unsigned int value)
{
    Attributes::store<&CControl_Notify::m_MasterMethodMask>(*this, value);
}

void CControl_Notify::setCurrentMethodMask(unsigned int value)
{
    Attributes::store<&CControl_Notify::m_CurrentMethodMask>(*this, value);
}

void CControl_Notify::setNexus(std::vector<unsigned int> value)
{
    Attributes::store<&CControl_Notify::m_Nexus>(*this, std::move(value));
}
