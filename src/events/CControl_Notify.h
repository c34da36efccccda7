#ifndef ZARNEK_EVENTS_CCONTROL_NOTIFY_H
#define ZARNEK_EVENTS_CCONTROL_NOTIFY_H

#include "model/SAttribTypeProp.h"
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
    void setGlobalControllerNumber(unsigned int value);
    unsigned int getControllerID() const { return m_CntrlID; }
    void setControllerID(unsigned int value);
    unsigned int getObjType() const { return m_ObjType; }
    void setObjType(unsigned int value);
    unsigned int getDevID() const { return m_DevID; }
    void setDevID(unsigned int value);
    unsigned int getVILNumber() const { return m_VILNumber; }
    void setVILNumber(unsigned int value);
    unsigned int getAttributeMask() const { return m_AttributeMask; }
    void setAttributeMask(unsigned int value);
    unsigned int getMasterMethodMask() const { return m_MasterMethodMask; }
    void setMasterMethodMask(unsigned int value);
    unsigned int getCurrentMethodMask() const { return m_CurrentMethodMask; }
    void setCurrentMethodMask(unsigned int value);
    std::vector<unsigned int>& getNexus() { return m_Nexus; }
    void setNexus(std::vector<unsigned int> value);

    // The attributes set on this object, and the table of all attributes, shared by all alerts.
    stg::AttribValMap* getAttribValueMap() { return &m_AttribValMap; }
    static stg::AttribTypeMap& getAttribNameAndType() { return m_ControlNotifyAttribNameTypeMap; }
    static void attribNameAndTypeMapInit();
    static void setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId);
    void insertIntoAttribValMap(std::string name, void* value);
    void updateAttribValMap(std::string name, void* value);
    void deleteFromMap(std::string name);
    void deleteFromMap(std::pair<std::string, void*> entry);

  private:
    struct Attributes;

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
