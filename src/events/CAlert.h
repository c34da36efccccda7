#ifndef ZARNEK_EVENTS_CALERT_H
#define ZARNEK_EVENTS_CALERT_H

#include "events/CControl_Notify.h"
#include "model/AttributeStore.h"
#include "support/Status.h"

#include <string>
#include <utility>

namespace stg
{
class SDOProxy;
}

// The record of one alert, an attribute bag like the model's classes. It lives for one poll on the event
// thread: a query creates it, the observer changes and sends it, the query layer deletes it.
//
// What is special is the entry "m_ControlNotify" of the value map: it points at an SDO object, not at a
// field, and passes from there into the alert's own SDO object. The alert does not free it.
class CAlert
{
  public:
    CAlert();
    CAlert(const CAlert& copyObj);
    virtual ~CAlert();

    // Fills the alert from a vendor's event, handed over in a binder. Here it does nothing.
    virtual CAlert& operator=(void* binder);
    // The event's sequence number; NUMBER_UNKNOWN here.
    virtual unsigned int getEventSeqNum();

    // Also copies m_bHasEventSeqNum.
    CAlert& operator=(const CAlert& other);
    // Copies the attributes and those of the control notification; "m_ControlNotify" gets no entry.
    void copyAttributes(const CAlert& other);

    // The vendor's event code until the observer maps it, the data engine's number from then on.
    unsigned int getAlertNumber() const { return m_AlertNumber; }
    void setAlertNumber(unsigned int value) { set<&Self::m_AlertNumber>(value); }
    unsigned int getNotifyType() const { return m_NotifyType; }
    void setNotifyType(unsigned int value) { set<&Self::m_NotifyType>(value); }
    std::string getReplacementStr01() const { return m_ReplacementStr01; }
    void setReplacementStr01(std::string value) { set<&Self::m_ReplacementStr01>(std::move(value)); }
    std::string getReplacementStr02() const { return m_ReplacementStr02; }
    void setReplacementStr02(std::string value) { set<&Self::m_ReplacementStr02>(std::move(value)); }
    std::string getReplacementStr03() const { return m_ReplacementStr03; }
    void setReplacementStr03(std::string value) { set<&Self::m_ReplacementStr03>(std::move(value)); }
    std::string getReplacementStr04() const { return m_ReplacementStr04; }
    void setReplacementStr04(std::string value) { set<&Self::m_ReplacementStr04>(std::move(value)); }
    std::string getReplacementStr05() const { return m_ReplacementStr05; }
    void setReplacementStr05(std::string value) { set<&Self::m_ReplacementStr05>(std::move(value)); }
    std::string getReplacementStr06() const { return m_ReplacementStr06; }
    void setReplacementStr06(std::string value) { set<&Self::m_ReplacementStr06>(std::move(value)); }
    CControl_Notify& getControlNotify() { return m_ControlNotify; }
    // Enters a clone of the proxy's object as "m_ControlNotify". An entry that is there stays, and the new
    // clone is lost.
    void updateControlNotify(stg::SDOProxy& proxy);

    stg::AttribValMap* getAttribValueMap() { return &m_AttribValMap; }
    static stg::AttribTypeMap& getAttribNameAndType() { return m_AlertAttribNameTypeMap; }
    static void attribNameAndTypeMapInit();
    static void setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
    {
        stg::attributes::setKeyValPair(m_AlertAttribNameTypeMap, std::move(name), std::move(typeTag),
                                       propertyId);
    }
    void insertIntoAttribValMap(std::string name, void* value)
    {
        stg::attributes::insert(m_AttribValMap, std::move(name), value);
    }
    void updateAttribValMap(std::string name, void* value);
    void deleteFromMap(std::string name);
    void deleteFromMap(std::pair<std::string, void*> entry) { deleteFromMap(entry.first); }

    // The alert carries a sequence number that has not been processed yet.
    bool m_bHasEventSeqNum = false;

  private:
    struct Attributes;
    using Self = CAlert;

    // Stores the value and enters the field in the value map under the name that its row has. Compiled in the
    // source, where the rows are, for all setters there are.
    template <auto Field, class Value>
    [[gnu::used]] void set(Value value);

    unsigned int m_AlertNumber = stg::NUMBER_UNKNOWN;
    unsigned int m_NotifyType = stg::NUMBER_UNKNOWN;
    std::string m_ReplacementStr01;
    std::string m_ReplacementStr02;
    std::string m_ReplacementStr03;
    std::string m_ReplacementStr04;
    std::string m_ReplacementStr05;
    std::string m_ReplacementStr06;
    CControl_Notify m_ControlNotify;
    stg::AttribValMap m_AttribValMap;

    static stg::AttribTypeMap m_AlertAttribNameTypeMap;
    static bool m_bIsAttribNameAndTypeMap;
};

#endif
