#include "events/CAlert.h"

#include "model/AttributeTable.h"
#include "sdo/SDOProxy.h"
#include "support/LogScope.h"

#include <sdo.h>

#include <utility>

stg::AttribTypeMap CAlert::m_AlertAttribNameTypeMap;
bool CAlert::m_bIsAttribNameAndTypeMap = false;

namespace
{

constexpr char CONTROL_NOTIFY[] = "m_ControlNotify";

} // namespace

struct CAlert::Attributes {
    using Owner = CAlert;

    static constexpr auto ROWS = stg::attributes::tableOf<Owner>(
        ZARNEK_ATTRIBUTE(m_AlertNumber, setAlertNumber, TAG_UNSIGNED_INTEGER, SSPROP_ALERTNUMBER_U32),
        ZARNEK_ATTRIBUTE(m_NotifyType, setNotifyType, TAG_UNSIGNED_INTEGER, SSPROP_NOTIFYTYPE_U32),
        ZARNEK_ATTRIBUTE(m_ReplacementStr01, setReplacementStr01, TAG_STDSTR,
                         SSPROP_REPLACEMENTSTR01_ASTRING),
        ZARNEK_ATTRIBUTE(m_ReplacementStr02, setReplacementStr02, TAG_STDSTR,
                         SSPROP_REPLACEMENTSTR02_ASTRING),
        ZARNEK_ATTRIBUTE(m_ReplacementStr03, setReplacementStr03, TAG_STDSTR,
                         SSPROP_REPLACEMENTSTR03_ASTRING),
        ZARNEK_ATTRIBUTE(m_ReplacementStr04, setReplacementStr04, TAG_STDSTR,
                         SSPROP_REPLACEMENTSTR04_ASTRING),
        ZARNEK_ATTRIBUTE(m_ReplacementStr05, setReplacementStr05, TAG_STDSTR,
                         SSPROP_REPLACEMENTSTR05_ASTRING),
        ZARNEK_ATTRIBUTE(m_ReplacementStr06, setReplacementStr06, TAG_STDSTR,
                         SSPROP_REPLACEMENTSTR06_ASTRING));
    static_assert(stg::attributes::isSound(ROWS, 8));
};

template <auto Field, class Value>
void CAlert::set(Value value)
{
    stg::attributes::store<Attributes, Field>(*this, std::move(value), &CAlert::insertIntoAttribValMap);
}

CAlert::CAlert()
{
    attribNameAndTypeMapInit();
}

CAlert::CAlert(const CAlert& copyObj) : m_bHasEventSeqNum(copyObj.m_bHasEventSeqNum)
{
    const stg::LogScope scope("ZARNEK:CAlert:CAlert( const CAlert& copyObj )");
    copyAttributes(copyObj);
    attribNameAndTypeMapInit();
}

CAlert::~CAlert() = default;

CAlert& CAlert::operator=(const CAlert& other)
{
    copyAttributes(other);
    m_bHasEventSeqNum = other.m_bHasEventSeqNum;
    return *this;
}

void CAlert::copyAttributes(const CAlert& other)
{
    const stg::LogScope scope("ZARNEK:CAlert::copyAttributes()");
    stg::attributes::copy(Attributes::ROWS, *this, m_AttribValMap, other);
    m_ControlNotify.copyAttributes(other.m_ControlNotify);
}

void CAlert::attribNameAndTypeMapInit()
{
    if (m_bIsAttribNameAndTypeMap)
        return;
    stg::attributes::fillTable(Attributes::ROWS);
    // Not a field that is reached through the map: its entry, when it comes, is a nested SDO object.
    setKeyValPair(CONTROL_NOTIFY, stg::TAG_CONTROL_NOTIFY_TYPE, SSPROP_CONTROLNOTIFY_SDO);
    m_bIsAttribNameAndTypeMap = true;
}

void CAlert::updateAttribValMap(std::string name, void* value)
{
    const stg::LogScope scope("ZARNEK:CAlert:updateAttribValMap()", "ZARNEK:CAlert::updateAttribValMap()");
    stg::attributes::update(m_AttribValMap, std::move(name), value);
}

void CAlert::deleteFromMap(std::string name)
{
    const stg::LogScope scope("ZARNEK:CAlert:deleteFromMap()", "ZARNEK:CAlert::deleteFromMap()");
    stg::attributes::remove(m_AttribValMap, name);
}

CAlert& CAlert::operator=(void* /*binder*/)
{
    return *this;
}

unsigned int CAlert::getEventSeqNum()
{
    return stg::NUMBER_UNKNOWN;
}

void CAlert::updateControlNotify(stg::SDOProxy& proxy)
{
    const stg::LogScope scope("ZARNEK:CAlert::updateControlNotify()");
    insertIntoAttribValMap(CONTROL_NOTIFY, proxy.cloneMyself(proxy.getChildSDOConfigPtr()));
}
