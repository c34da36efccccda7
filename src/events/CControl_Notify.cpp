#include "events/CControl_Notify.h"

#include "model/AttributeTable.h"
#include "support/LogScope.h"

#include <sdo.h>

#include <utility>

stg::AttribTypeMap CControl_Notify::m_ControlNotifyAttribNameTypeMap;
bool CControl_Notify::m_bIsAttribNameAndTypeMap = false;

struct CControl_Notify::Attributes {
    using Owner = CControl_Notify;

    static constexpr auto ROWS = stg::attributes::tableOf<Owner>(
        ZARNEK_ATTRIBUTE(m_globalControllerNumber, setGlobalControllerNumber, TAG_UNSIGNED_INTEGER,
                         SSPROP_GLOBALCONTROLLERNUM_U32),
        ZARNEK_ATTRIBUTE(m_CntrlID, setControllerID, TAG_UNSIGNED_INTEGER, SSPROP_CONTROLLERID_U32),
        ZARNEK_ATTRIBUTE(m_ObjType, setObjType, TAG_UNSIGNED_INTEGER, SSPROP_OBJTYPE_U32),
        ZARNEK_ATTRIBUTE(m_DevID, setDevID, TAG_UNSIGNED_INTEGER, SSPROP_DEVICEID_U32),
        ZARNEK_ATTRIBUTE(m_VILNumber, setVILNumber, TAG_UNSIGNED_INTEGER, SSPROP_VILNUMBER_U32),
        ZARNEK_ATTRIBUTE(m_AttributeMask, setAttributeMask, TAG_BINARY_DATA_TYPE, SSPROP_ATTRIBUTEMASK_U32),
        ZARNEK_ATTRIBUTE(m_MasterMethodMask, setMasterMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_MASTERMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(m_CurrentMethodMask, setCurrentMethodMask, TAG_BINARY_DATA_TYPE,
                         SSPROP_CURRENTMETHODMASK_U32),
        ZARNEK_ATTRIBUTE(m_Nexus, setNexus, TAG_NEXUS_TYPE, SSPROP_NEXUS_U32));
    static_assert(stg::attributes::isSound(ROWS, 9));
};

template <auto Field, class Value>
void CControl_Notify::set(Value value)
{
    stg::attributes::store<Attributes, Field>(*this, std::move(value),
                                              &CControl_Notify::insertIntoAttribValMap);
}

CControl_Notify::CControl_Notify()
{
    attribNameAndTypeMapInit();
}

CControl_Notify::CControl_Notify(const CControl_Notify& copyObj)
{
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
