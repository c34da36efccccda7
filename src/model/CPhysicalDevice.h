#ifndef ZARNEK_MODEL_CPHYSICALDEVICE_H
#define ZARNEK_MODEL_CPHYSICALDEVICE_H

#include "model/AttributeStore.h"
#include "support/Status.h"

#include <list>
#include <string>
#include <utility>
#include <vector>

// The vendor-neutral view of one physical disk: a holder of attributes that is also an attribute bag. A
// vendor's subclass fills it from records. An attribute reaches the data engine only if its setter ran.
//
// Objects are short-lived, belong to one thread and own their texts and lists. But for the search in the data
// engine, no operation reports an error.
class CPhysicalDevice
{
  public:
    CPhysicalDevice();
    // Copies the listed attributes, set or not, and enters them in the copy's value map.
    CPhysicalDevice(const CPhysicalDevice& other);
    virtual ~CPhysicalDevice();

    // Fills the object from vendor records, handed over in the vendor's binder. Here it does nothing.
    virtual CPhysicalDevice& operator=(void* binder);
    // Sets attributes, through their setters, from a map of names to values that stay the caller's. Names
    // that the class does not have are ignored.
    virtual CPhysicalDevice& operator=(stg::AttribValMap& values);
    // Names of the attributes that can be read back from the data engine.
    virtual std::list<std::string>* getPdSpecificAttrib() { return &m_PdSpecificAttrib; }

    virtual void setObjType(unsigned int value) { set<&Self::m_pdObjType>(value); }
    virtual unsigned int getObjType() const { return m_pdObjType; }
    virtual void setGlobalCntrlNum(unsigned int value) { set<&Self::m_pdGlobalCntrlNum>(value); }
    virtual unsigned int getGlobalCntrlNum() const { return m_pdGlobalCntrlNum; }
    virtual void setDevID(unsigned int value) { set<&Self::m_pdDevID>(value); }
    virtual unsigned int getDevID() const { return m_pdDevID; }
    virtual void setStatus(unsigned int value) { set<&Self::m_pdStatus>(value); }
    virtual unsigned int getStatus() const { return m_pdStatus; }
    virtual void setState(unsigned int value) { set<&Self::m_pdState>(value); }
    virtual unsigned int getState() const { return m_pdState; }
    virtual void setSlotNum(unsigned int value) { set<&Self::m_pdSlotNum>(value); }
    virtual unsigned int getSlotNum() const { return m_pdSlotNum; }
    virtual void setPowerStatus(unsigned int value) { set<&Self::m_pdPowerStatus>(value); }
    virtual unsigned int getPowerStatus() const { return m_pdPowerStatus; }
    virtual void setBusProtocol(unsigned int value) { set<&Self::m_pdBusProtocol>(value); }
    virtual unsigned int getBusProtocol() const { return m_pdBusProtocol; }
    virtual void setMedia(unsigned int value) { set<&Self::m_pdMedia>(value); }
    virtual unsigned int getMedia() const { return m_pdMedia; }
    virtual void setRRWE(unsigned int value) { set<&Self::m_pdRRWE>(value); }
    virtual unsigned int getRRWE() const { return m_pdRRWE; }
    virtual void setFailurePredicted(unsigned int value) { set<&Self::m_pdFailurePredicted>(value); }
    virtual unsigned int getFailurePredicted() const { return m_pdFailurePredicted; }
    virtual void setEncryptionCap(unsigned int value) { set<&Self::m_pdEncryptionCap>(value); }
    virtual unsigned int getEncryptionCap() const { return m_pdEncryptionCap; }
    virtual void setCapacity(unsigned long long value) { set<&Self::m_pdCapacity>(value); }
    virtual unsigned long long getCapacity() const { return m_pdCapacity; }
    virtual void setUsedRaidDiskSpace(unsigned long long value) { set<&Self::m_pdUsedRaidDiskSpace>(value); }
    virtual unsigned long long getUsedRaidDiskSpace() const { return m_pdUsedRaidDiskSpace; }
    virtual void setFreeRaidDiskSpace(unsigned long long value) { set<&Self::m_pdFreeRaidDiskSpace>(value); }
    virtual unsigned long long getFreeRaidDiskSpace() const { return m_pdFreeRaidDiskSpace; }
    virtual void setHotspare(unsigned int value) { set<&Self::m_pdHotspare>(value); }
    virtual unsigned int getHotspare() const { return m_pdHotspare; }
    virtual void setVendorID(std::string value) { set<&Self::m_pdVendorID>(std::move(value)); }
    virtual std::string getVendorID() const { return m_pdVendorID; }
    virtual void setProductID(std::string value) { set<&Self::m_pdProductID>(std::move(value)); }
    virtual std::string getProductID() const { return m_pdProductID; }
    virtual void setSectorSize(unsigned int value) { set<&Self::m_pdSectorSize>(value); }
    virtual unsigned int getSectorSize() const { return m_pdSectorSize; }
    virtual void setDevWriteCache(unsigned int value) { set<&Self::m_pdDevWriteCache>(value); }
    virtual unsigned int getDevWriteCache() const { return m_pdDevWriteCache; }
    virtual void setDiskCachePolicy(unsigned int value) { set<&Self::m_pdDiskCachePolicy>(value); }
    virtual unsigned int getDiskCachePolicy() const { return m_pdDiskCachePolicy; }
    virtual void setVILNumber(unsigned int value) { set<&Self::m_pdVILNumber>(value); }
    virtual unsigned int getVILNumber() const { return m_pdVILNumber; }
    virtual void setCntrID(unsigned int value) { set<&Self::m_pdCntrID>(value); }
    virtual unsigned int getCntrID() const { return m_pdCntrID; }
    virtual void setProductName(std::string value) { set<&Self::m_pdProductName>(std::move(value)); }
    virtual std::string getProductName() const { return m_pdProductName; }
    virtual void setRevision(std::string value) { set<&Self::m_pdRevision>(std::move(value)); }
    virtual std::string getRevision() const { return m_pdRevision; }
    virtual void setDriverVer(std::string value) { set<&Self::m_pdDriverVer>(std::move(value)); }
    virtual std::string getDriverVer() const { return m_pdDriverVer; }
    virtual void setModelNum(std::string value) { set<&Self::m_pdModelNum>(std::move(value)); }
    virtual std::string getModelNum() const { return m_pdModelNum; }
    virtual void setSerialNum(std::string value) { set<&Self::m_pdSerialNum>(std::move(value)); }
    virtual std::string getSerialNum() const { return m_pdSerialNum; }
    virtual void setSASAddress(std::string value) { set<&Self::m_pdSASAddress>(std::move(value)); }
    virtual std::string getSASAddress() const { return m_pdSASAddress; }
    virtual void setPdNexus(std::vector<unsigned int> value) { set<&Self::m_pdNexus>(std::move(value)); }
    virtual std::vector<unsigned int> getPdNexus() const { return m_pdNexus; }
    virtual void setAttributeMask(unsigned int value) { set<&Self::m_pdAttributeMask>(value); }
    virtual unsigned int getAttributeMask() const { return m_pdAttributeMask; }
    virtual void setMasterMethodMask(unsigned int value) { set<&Self::m_pdMasterMethodMask>(value); }
    virtual unsigned int getMasterMethodMask() const { return m_pdMasterMethodMask; }
    virtual void setCurrentMethodMask(unsigned int value) { set<&Self::m_pdCurrentMethodMask>(value); }
    virtual unsigned int getCurrentMethodMask() const { return m_pdCurrentMethodMask; }
    virtual unsigned int getCapableSpeed() const { return m_pdCapableSpeed; }
    virtual void setCapableSpeed(unsigned int value) { set<&Self::m_pdCapableSpeed>(value); }
    virtual unsigned int getNegotiatedSpeed() const { return m_pdNegotiatedSpeed; }
    virtual void setNegotiatedSpeed(unsigned int value) { set<&Self::m_pdNegotiatedSpeed>(value); }
    virtual unsigned int getWriteCacheSupport() const { return m_pdWriteCacheSupport; }
    virtual void setWriteCacheSupport(unsigned int value) { set<&Self::m_pdWriteCacheSupport>(value); }
    virtual unsigned int getDiskGroupNum() const { return m_pdDiskGroupNum; }
    virtual void setDiskGroupNum(unsigned int value) { set<&Self::m_pdDiskGroupNum>(value); }

    CPhysicalDevice& operator=(const CPhysicalDevice& other);
    void copyAttributes(const CPhysicalDevice& other);

    // Finds disks of a controller in the data engine by their device id; NUMBER_UNKNOWN asks for all. One
    // match goes to outObjects[0]; all go to outObjects[i] by their place among the controller's disks, where
    // disks of other or unknown layers leave gaps, so the caller provides room for all of them. The clones
    // are the caller's. 0; 256 when nothing matched; 1 on other failures. For all, the last disk's outcome
    // decides.
    unsigned int getPdObject(unsigned int globalCntrlNum, void** outObjects, unsigned int deviceId);
    // Appends the names to the list that getPdSpecificAttrib gives. Nobody calls it, the list stays empty.
    void loadPdSpecificAttrib();

    // The attributes set on this object, and the class's table of all attributes.
    stg::AttribValMap* getPdAttribValueMap() { return &m_PdAttribValMap; }
    static stg::AttribTypeMap& getPdAttribNameAndType() { return m_PdAttribNameTypeMap; }
    // Fills the class's table once; a name that is there keeps its row.
    static void attribNameAndTypeMapInit();
    static void setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
    {
        stg::attributes::setKeyValPair(m_PdAttribNameTypeMap, std::move(name), std::move(typeTag),
                                       propertyId);
    }
    // Entries of the value map. Insertion keeps an entry that is there, an update replaces its pointer. A
    // removal keeps the field's value, and an entry whose pointer is null.
    void insertIntoPdAttribValMap(std::string name, void* value)
    {
        stg::attributes::insert(m_PdAttribValMap, std::move(name), value);
    }
    void updatePdAttribValMap(std::string name, void* value);
    void* retrieveValFromMap(std::string name) { return stg::attributes::retrieve(m_PdAttribValMap, name); }
    void deleteFromMap(std::string name);
    void deleteFromMap(std::pair<std::string, void*> entry) { deleteFromMap(entry.first); }
    void clearMap();

  private:
    struct Attributes;
    using Self = CPhysicalDevice;

    // Stores the value and enters the field in the value map under the name that its row has. Compiled in the
    // source, where the rows are, for all setters there are.
    template <auto Field, class Value>
    [[gnu::used]] void set(Value value);

    stg::AttribValMap m_PdAttribValMap;
    std::list<std::string> m_PdSpecificAttrib;
    unsigned int m_pdObjType = stg::NUMBER_UNKNOWN;        // SDO_OBJTYPE_PHYSICAL_DISK
    unsigned int m_pdGlobalCntrlNum = stg::NUMBER_UNKNOWN; // of the controller above
    unsigned int m_pdDevID = stg::NUMBER_UNKNOWN;          // the vendor's id; searches go by it
    unsigned int m_pdSlotNum = stg::NUMBER_UNKNOWN;        // the identity goes by it
    unsigned int m_pdStatus = stg::NUMBER_UNKNOWN;
    unsigned int m_pdState = stg::NUMBER_UNKNOWN;
    unsigned int m_pdPowerStatus = stg::NUMBER_UNKNOWN;
    unsigned int m_pdBusProtocol = stg::NUMBER_UNKNOWN;
    unsigned int m_pdMedia = stg::NUMBER_UNKNOWN;
    unsigned int m_pdRRWE = stg::NUMBER_UNKNOWN;
    unsigned int m_pdFailurePredicted = stg::NUMBER_UNKNOWN; // no table row, as m_pdEncryptionCap
    std::string m_pdRevision;                                // firmware, as text
    std::string m_pdDriverVer;
    std::string m_pdModelNum;
    unsigned int m_pdEncryptionCap = stg::NUMBER_UNKNOWN;
    unsigned long long m_pdCapacity = stg::NUMBER_UNKNOWN; // bytes, as the two below
    unsigned long long m_pdUsedRaidDiskSpace = stg::NUMBER_UNKNOWN;
    unsigned long long m_pdFreeRaidDiskSpace = stg::NUMBER_UNKNOWN;
    unsigned int m_pdHotspare = stg::NUMBER_UNKNOWN;
    std::string m_pdVendorID;
    std::string m_pdProductID;
    std::string m_pdSerialNum;
    unsigned int m_pdSectorSize = stg::NUMBER_UNKNOWN; // bytes
    unsigned int m_pdDevWriteCache = stg::NUMBER_UNKNOWN;
    unsigned int m_pdDiskCachePolicy = stg::NUMBER_UNKNOWN;
    std::string m_pdSASAddress;
    unsigned int m_pdAttributeMask = 0;
    unsigned int m_pdMasterMethodMask = 0;
    unsigned int m_pdCurrentMethodMask = 0;
    std::vector<unsigned int> m_pdNexus;              // property ids that name this object
    unsigned int m_pdVILNumber = stg::NUMBER_UNKNOWN; // SDO_VIL_NUMBER for ours
    unsigned int m_pdCntrID = stg::NUMBER_UNKNOWN;    // adapter index of the vendor's library
    std::string m_pdProductName;
    unsigned int m_pdCapableSpeed = stg::NUMBER_UNKNOWN; // 1024 for each Gbit/s, as the next
    unsigned int m_pdNegotiatedSpeed = stg::NUMBER_UNKNOWN;
    unsigned int m_pdWriteCacheSupport =
        stg::NUMBER_UNKNOWN; // travels under the id 0, which names no property
    unsigned int m_pdDiskGroupNum = stg::NUMBER_UNKNOWN;

    static stg::AttribTypeMap m_PdAttribNameTypeMap;
    static bool m_bPdIsAttribNameAndTypeMap;
};

#endif
