#ifndef ZARNEK_EVENTS_CCONTROL_NOTIFY_H
#define ZARNEK_EVENTS_CCONTROL_NOTIFY_H

#include "model/AttributeStore.h"
#include "support/Status.h"

#include <string>
#include <utility>
#include <vector>

// Names the object that an alert concerns; embedded in every alert, and an attribute bag like the model's
// classes. The row of "m_DevID" in the shared table changes after start: each alert of a physical or virtual
// disk gives it the property by which a disk of that kind is named, and nothing puts it back.
class CControl_Notify
{
  public:
    CControl_Notify();
    CControl_Notify(const CControl_Notify& copyObj);
    ~CControl_Notify();
    CControl_Notify& operator=(const CControl_Notify& other);
    void copyAttributes(const CControl_Notify& other);

    unsigned int getGlobalControllerNumber() const { return m_globalControllerNumber; }
    void setGlobalControllerNumber(unsigned int value) { set<&Self::m_globalControllerNumber>(value); }
    unsigned int getControllerID() const { return m_CntrlID; }
    void setControllerID(unsigned int value) { set<&Self::m_CntrlID>(value); }
    unsigned int getObjType() const { return m_ObjType; }
    void setObjType(unsigned int value) { set<&Self::m_ObjType>(value); }
    unsigned int getDevID() const { return m_DevID; }
    void setDevID(unsigned int value) { set<&Self::m_DevID>(value); }
    unsigned int getVILNumber() const { return m_VILNumber; }
    void setVILNumber(unsigned int value) { set<&Self::m_VILNumber>(value); }
    unsigned int getAttributeMask() const { return m_AttributeMask; }
    void setAttributeMask(unsigned int value) { set<&Self::m_AttributeMask>(value); }
    unsigned int getMasterMethodMask() const { return m_MasterMethodMask; }
    void setMasterMethodMask(unsigned int value) { set<&Self::m_MasterMethodMask>(value); }
    unsigned int getCurrentMethodMask() const { return m_CurrentMethodMask; }
    void setCurrentMethodMask(unsigned int value) { set<&Self::m_CurrentMethodMask>(value); }
    std::vector<unsigned int>& getNexus() { return m_Nexus; }
    void setNexus(std::vector<unsigned int> value) { set<&Self::m_Nexus>(std::move(value)); }

    // The attributes set on this object, and the table of all attributes, shared by all alerts.
    stg::AttribValMap* getAttribValueMap() { return &m_AttribValMap; }
    static stg::AttribTypeMap& getAttribNameAndType() { return m_ControlNotifyAttribNameTypeMap; }
    static void attribNameAndTypeMapInit();
    static void setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
    {
        stg::attributes::setKeyValPair(m_ControlNotifyAttribNameTypeMap, std::move(name), std::move(typeTag),
                                       propertyId);
    }
    void insertIntoAttribValMap(std::string name, void* value)
    {
        stg::attributes::insert(m_AttribValMap, std::move(name), value);
    }
    void updateAttribValMap(std::string name, void* value);
    void deleteFromMap(std::string name);
    void deleteFromMap(std::pair<std::string, void*> entry) { deleteFromMap(entry.first); }

  private:
    struct Attributes;
    using Self = CControl_Notify;

    // Stores the value and enters the field in the value map under the name that its row has. Compiled in the
    // source, where the rows are, for all setters there are.
    template <auto Field, class Value>
    [[gnu::used]] void set(Value value);

    unsigned int m_globalControllerNumber = stg::NUMBER_UNKNOWN;
    unsigned int m_CntrlID = stg::NUMBER_UNKNOWN;   // the vendor's adapter index
    unsigned int m_ObjType = stg::NUMBER_UNKNOWN;   // kind of the object concerned
    unsigned int m_DevID = stg::NUMBER_UNKNOWN;     // the vendor's device id
    unsigned int m_VILNumber = stg::NUMBER_UNKNOWN; // vendor layer number
    unsigned int m_AttributeMask = 0;
    unsigned int m_MasterMethodMask = 0;
    unsigned int m_CurrentMethodMask = 0;
    std::vector<unsigned int> m_Nexus; // property ids that identify the object
    stg::AttribValMap m_AttribValMap;

    static stg::AttribTypeMap m_ControlNotifyAttribNameTypeMap;
    static bool m_bIsAttribNameAndTypeMap;
};

#endif
