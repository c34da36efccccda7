#ifndef ZARNEK_MODEL_ICONTROLLER_H
#define ZARNEK_MODEL_ICONTROLLER_H

#include "model/AttributeStore.h"
#include "support/Status.h"

#include <list>
#include <string>
#include <utility>
#include <vector>

// The vendor-neutral view of one RAID controller: a holder of attributes that is also an attribute bag. A
// vendor's subclass fills it. An attribute reaches the data engine only if its setter ran.
//
// Objects are short-lived, belong to one thread and own their texts and lists. But for the search in the data
// engine, no operation reports an error.
class IController
{
  public:
    IController();
    // Copies the listed attributes, set or not, and enters them in the copy's value map.
    IController(const IController& other);
    virtual ~IController();

    // Fills the object from vendor records, handed over in the vendor's binder. Here it does nothing.
    virtual IController& operator=(void* binder);
    // Sets attributes from a map of names to values that stay the caller's. Here it does nothing.
    virtual IController& operator=(stg::AttribValMap& values);
    // Names of the attributes that can be read back from the data engine.
    virtual std::list<std::string>* getCntrlSpecificAttrib() { return &m_CntrlSpecificAttrib; }

    virtual void setGlobalControllerNumber(unsigned int value)
    {
        set<&Self::m_globalControllerNumber>(value);
    }
    virtual unsigned int getGlobalControllerNumber() const { return m_globalControllerNumber; }
    virtual void setObjType(unsigned int value) { set<&Self::m_ObjType>(value); }
    virtual unsigned int getObjType() const { return m_ObjType; }
    virtual void setVendorID(unsigned int value) { set<&Self::m_VendorID>(value); }
    virtual unsigned int getVendorID() const { return m_VendorID; }
    virtual void setSubVenID(unsigned int value) { set<&Self::m_SubVenID>(value); }
    virtual unsigned int getSubVenID() const { return m_SubVenID; }
    virtual void setDevID(unsigned int value) { set<&Self::m_DevID>(value); }
    virtual unsigned int getDevID() const { return m_DevID; }
    virtual void setSubDevID(unsigned int value) { set<&Self::m_SubDevID>(value); }
    virtual unsigned int getSubDevID() const { return m_SubDevID; }
    virtual void setVILNumber(unsigned int value) { set<&Self::m_VILNumber>(value); }
    virtual unsigned int getVILNumber() const { return m_VILNumber; }
    virtual void setStatus(unsigned int value) { set<&Self::m_Status>(value); }
    virtual unsigned int getStatus() const { return m_Status; }
    virtual void setState(unsigned int value) { set<&Self::m_State>(value); }
    virtual unsigned int getState() const { return m_State; }
    virtual void setControllerNexus(std::vector<unsigned int> value)
    {
        set<&Self::m_CntrlNexus>(std::move(value));
    }
    virtual std::vector<unsigned int> getControllerNexus() const { return m_CntrlNexus; }
    virtual void setAttributeMask(unsigned int value) { set<&Self::m_AttributeMask>(value); }
    virtual unsigned int getAttributeMask() const { return m_AttributeMask; }
    virtual void setMasterMethodMask(unsigned int value) { set<&Self::m_MasterMethodMask>(value); }
    virtual unsigned int getMasterMethodMask() const { return m_MasterMethodMask; }
    virtual void setCurrentMethodMask(unsigned int value) { set<&Self::m_CurrentMethodMask>(value); }
    virtual unsigned int getCurrentMethodMask() const { return m_CurrentMethodMask; }
    virtual void setBusProtocolNumber(unsigned int value) { set<&Self::m_BusProtocolNumber>(value); }
    virtual unsigned int getBusProtocolNumber() const { return m_BusProtocolNumber; }
    virtual void setProductName(std::string value) { set<&Self::m_ProductName>(std::move(value)); }
    virtual std::string getProductName() const { return m_ProductName; }
    virtual void setSerialNum(std::string value) { set<&Self::m_SerialNum>(std::move(value)); }
    virtual std::string getSerialNum() const { return m_SerialNum; }
    virtual void setModelNum(unsigned int value) { set<&Self::m_ModelNum>(value); }
    virtual unsigned int getModelNum() const { return m_ModelNum; }
    virtual void setDriverVer(std::string value) { set<&Self::m_DriverVer>(std::move(value)); }
    virtual std::string getDriverVer() const { return m_DriverVer; }
    virtual void setPortCount(unsigned int value) { set<&Self::m_PortCount>(value); }
    virtual unsigned int getPortCount() const { return m_PortCount; }
    virtual void setPDCount(unsigned int value) { set<&Self::m_PDCount>(value); }
    virtual unsigned int getPDCount() const { return m_PDCount; }
    virtual void setVDCount(unsigned int value) { set<&Self::m_VDCount>(value); }
    virtual unsigned int getVDCount() const { return m_VDCount; }
    virtual void setNoOfBattery(unsigned int value) { set<&Self::m_NoOfBattery>(value); }
    virtual unsigned int getNoOfBattery() const { return m_NoOfBattery; }
    virtual void setControllerID(unsigned int value) { set<&Self::m_CntrID>(value); }
    virtual unsigned int getCntrlID() const { return m_CntrID; }
    virtual void setSlotID(unsigned int value) { set<&Self::m_SlotID>(value); }
    virtual unsigned int getSlotID() const { return m_SlotID; }
    virtual void setFWVersion(std::string value) { set<&Self::m_FWVer>(std::move(value)); }
    virtual std::string getFWVersion() const { return m_FWVer; }
    virtual void setCacheMemSize(unsigned int value) { set<&Self::m_CacheMemSize>(value); }
    virtual unsigned int getCacheMemSize() const { return m_CacheMemSize; }
    virtual void setRebuildRate(unsigned int value) { set<&Self::m_RebuildRate>(value); }
    virtual unsigned int getRebuildRate() const { return m_RebuildRate; }
    virtual void setBGIRate(unsigned int value) { set<&Self::m_BGIRate>(value); }
    virtual unsigned int getBGIRate() const { return m_BGIRate; }
    virtual void setCheckConsistRate(unsigned int value) { set<&Self::m_CheckConsistRate>(value); }
    virtual unsigned int getCheckConsistRate() const { return m_CheckConsistRate; }
    virtual void setPatrolReadRate(unsigned int value) { set<&Self::m_PatrolReadRate>(value); }
    virtual unsigned int getPatrolReadRate() const { return m_PatrolReadRate; }
    virtual void setAlarmState(bool value) { set<&Self::m_bAlarmState>(value); }
    virtual bool getAlarmState() const { return m_bAlarmState; }

    IController& operator=(const IController& other);
    void copyAttributes(const IController& other);

    // Finds the controller's object in the data engine. With `inSDOObj` given, only tells whether that object
    // bears a global controller number. Otherwise *outSDOConfigObj becomes a clone that the caller frees, or
    // null. 0; 256 when there is no such controller; 1 or the data engine's status on failure.
    unsigned int getControllerObject(void* inSDOObj, unsigned int globalCntrlNum, void** outSDOConfigObj);

    // The attributes set on this object, and the class's table of all attributes.
    stg::AttribValMap* getAttribValueMap() { return &m_CntrlAttribValMap; }
    static stg::AttribTypeMap& getAttribNameAndType() { return m_CntrlAttribNameTypeMap; }
    // Fills the class's table once; a name that is there keeps its row.
    static void attribNameAndTypeMapInit();
    static void setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
    {
        stg::attributes::setKeyValPair(m_CntrlAttribNameTypeMap, std::move(name), std::move(typeTag),
                                       propertyId);
    }
    // Entries of the value map. Insertion keeps an entry that is there, an update replaces its pointer. A
    // removal keeps the field's value, and an entry whose pointer is null.
    void insertIntoAttribValMap(std::string name, void* value)
    {
        stg::attributes::insert(m_CntrlAttribValMap, std::move(name), value);
    }
    void updateAttribValMap(std::string name, void* value);
    void* retrieveValFromMap(std::string name)
    {
        return stg::attributes::retrieve(m_CntrlAttribValMap, name);
    }
    void deleteFromMap(std::string name);
    void deleteFromMap(std::pair<std::string, void*> entry) { deleteFromMap(entry.first); }
    void clearMap();

  protected:
    // Appends the names of all attributes, in the order in which they are read back.
    static void appendReadableNames(std::list<std::string>& names);
    // Sets attributes from a map, for the vendor's operator=.
    void assignAttributes(const stg::AttribValMap& values);

  private:
    struct Attributes;
    using Self = IController;

    // Stores the value and enters the field in the value map under the name that its row has. Compiled in the
    // source, where the rows are, for all setters there are.
    template <auto Field, class Value>
    [[gnu::used]] void set(Value value);

    unsigned int m_globalControllerNumber =
        stg::NUMBER_UNKNOWN;                       // the data engine's number of this controller
    unsigned int m_ObjType = stg::NUMBER_UNKNOWN;  // SDO_OBJTYPE_CONTROLLER
    unsigned int m_VendorID = stg::NUMBER_UNKNOWN; // travels under the property of m_VILNumber
    unsigned int m_SubVenID = stg::NUMBER_UNKNOWN;
    unsigned int m_DevID = stg::NUMBER_UNKNOWN;
    unsigned int m_SubDevID = stg::NUMBER_UNKNOWN;
    unsigned int m_VILNumber = stg::NUMBER_UNKNOWN; // SDO_VIL_NUMBER for ours
    unsigned int m_Status = stg::NUMBER_UNKNOWN;
    unsigned int m_State = stg::NUMBER_UNKNOWN;
    unsigned int m_AttributeMask = 0; // the three masks are numbers, tagged as binary data
    unsigned int m_MasterMethodMask = 0;
    unsigned int m_CurrentMethodMask = 0;
    unsigned int m_BusProtocolNumber = stg::NUMBER_UNKNOWN;
    std::string m_ProductName;
    std::string m_SerialNum;
    unsigned int m_ModelNum = stg::NUMBER_UNKNOWN; // a number, unlike a disk's model
    unsigned int m_PortCount = stg::NUMBER_UNKNOWN;
    unsigned int m_PDCount = stg::NUMBER_UNKNOWN;
    unsigned int m_VDCount = stg::NUMBER_UNKNOWN;
    unsigned int m_NoOfBattery = stg::NUMBER_UNKNOWN;
    unsigned int m_CntrID = stg::NUMBER_UNKNOWN; // adapter index of the vendor's library
    unsigned int m_SlotID = stg::NUMBER_UNKNOWN;
    std::string m_FWVer; // firmware, as text
    std::string m_DriverVer;
    unsigned int m_CacheMemSize = stg::NUMBER_UNKNOWN;
    unsigned int m_RebuildRate = stg::NUMBER_UNKNOWN; // percent
    unsigned int m_BGIRate = stg::NUMBER_UNKNOWN;
    unsigned int m_CheckConsistRate = stg::NUMBER_UNKNOWN;
    unsigned int m_PatrolReadRate = stg::NUMBER_UNKNOWN;
    bool m_bAlarmState = false;
    std::vector<unsigned int> m_CntrlNexus; // property ids that name this object
    stg::AttribValMap m_CntrlAttribValMap;
    std::list<std::string> m_CntrlSpecificAttrib;

    static stg::AttribTypeMap m_CntrlAttribNameTypeMap;
    static bool m_bIsAttribNameAndTypeMap;
};

#endif
