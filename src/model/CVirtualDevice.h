#ifndef ZARNEK_MODEL_CVIRTUALDEVICE_H
#define ZARNEK_MODEL_CVIRTUALDEVICE_H

#include "model/AttributeStore.h"
#include "support/Status.h"

#include <list>
#include <string>
#include <utility>
#include <vector>

// The vendor-neutral view of one virtual disk: a holder of attributes that is also an attribute bag. A
// vendor's subclass fills it from records. An attribute reaches the data engine only if its setter ran.
//
// Objects are short-lived, belong to one thread and own their texts and lists. But for the search in the data
// engine, no operation reports an error.
class CVirtualDevice
{
  public:
    CVirtualDevice();
    // Copies the listed attributes, set or not, and enters them in the copy's value map.
    CVirtualDevice(const CVirtualDevice& other);
    virtual ~CVirtualDevice();

    // Fills the object from vendor records, handed over in the vendor's binder. Here it does nothing.
    virtual CVirtualDevice& operator=(void* binder);

    virtual void setObjType(unsigned int value) { set<&Self::m_VdObjType>(value); }
    virtual unsigned int getObjType() const { return m_VdObjType; }
    virtual void setControllerID(unsigned int value) { set<&Self::m_VdCntrlID>(value); }
    virtual unsigned int getControllerID() const { return m_VdCntrlID; }
    virtual void setGlobalControllerNo(unsigned int value) { set<&Self::m_VdGlobalCntrlNum>(value); }
    virtual unsigned int getGlobalControllerNo() const { return m_VdGlobalCntrlNum; }
    virtual void setVILNumber(unsigned int value) { set<&Self::m_VdVILNumber>(value); }
    virtual unsigned int getVILNumber() const { return m_VdVILNumber; }
    virtual void setBusProtocol(unsigned int value) { set<&Self::m_VdBusProtocol>(value); }
    virtual unsigned int getBusProtocol() const { return m_VdBusProtocol; }
    virtual void setMedia(unsigned int value) { set<&Self::m_VdMedia>(value); }
    virtual unsigned int getMedia() const { return m_VdMedia; }
    virtual void setVendorID(unsigned int value) { set<&Self::m_VdVendorID>(value); }
    virtual unsigned int getVendorID() const { return m_VdVendorID; }
    virtual void setVDState(unsigned int value) { set<&Self::m_VdState>(value); }
    virtual unsigned int getVDState() const { return m_VdState; }
    virtual void setVDStripeBlockSize(unsigned int value) { set<&Self::m_VdStripeBlockSize>(value); }
    virtual unsigned int getVDStripeBlockSize() const { return m_VdStripeBlockSize; }
    virtual void setVDSectorSize(unsigned int value) { set<&Self::m_VdSectorSize>(value); }
    virtual unsigned int getVDSectorSize() const { return m_VdSectorSize; }
    virtual void setPDCount(unsigned int value) { set<&Self::m_VdPdCount>(value); }
    virtual unsigned int getPDCount() const { return m_VdPdCount; }
    virtual void setRaidDiskSpace(unsigned int value) { set<&Self::m_VdRaidDiskSpace>(value); }
    virtual unsigned int getRaidDiskSpace() const { return m_VdRaidDiskSpace; }
    virtual void setDiskCachePolicy(unsigned int value) { set<&Self::m_VdDiskCachePolicy>(value); }
    virtual unsigned int getDiskCachePolicy() const { return m_VdDiskCachePolicy; }
    virtual void setWritePolicy(unsigned int value) { set<&Self::m_VdWritePolicy>(value); }
    virtual unsigned int getWritePolicy() const { return m_VdWritePolicy; }
    virtual void setReadPolicy(unsigned int value) { set<&Self::m_VdReadPolicy>(value); }
    virtual unsigned int getReadPolicy() const { return m_VdReadPolicy; }
    virtual void setDeviceID(unsigned int value) { set<&Self::m_VdDevID>(value); }
    virtual unsigned int getDeviceID() const { return m_VdDevID; }
    virtual void setLogicalDriveNum(unsigned int value) { set<&Self::m_VdLogicalDriveNum>(value); }
    virtual unsigned int getLogicalDriveNum() const { return m_VdLogicalDriveNum; }
    virtual void setAttributeMask(unsigned int value) { set<&Self::m_VdAttributeMask>(value); }
    virtual unsigned int getAttributeMask() const { return m_VdAttributeMask; }
    virtual void setMasterMethodMask(unsigned int value) { set<&Self::m_VdMasterMethodMask>(value); }
    virtual unsigned int getMasterMethodMask() const { return m_VdMasterMethodMask; }
    virtual void setCurrentMethodMask(unsigned int value) { set<&Self::m_VdCurrentMethodMask>(value); }
    virtual unsigned int getCurrentMethodMask() const { return m_VdCurrentMethodMask; }
    virtual void setVDStatus(unsigned int value) { set<&Self::m_VdStatus>(value); }
    virtual unsigned int getVDStatus() const { return m_VdStatus; }
    virtual void setVDRaidMode(unsigned int value) { set<&Self::m_VdRaidMode>(value); }
    virtual unsigned int getVDRaidMode() const { return m_VdRaidMode; }
    virtual void setVDBlockCount(unsigned short value) { set<&Self::m_VdBlockCount>(value); }
    virtual unsigned short getVDBlockCount() const { return m_VdBlockCount; }
    virtual void setVDName(std::string value) { set<&Self::m_VdName>(std::move(value)); }
    virtual std::string getVDName() const { return m_VdName; }
    virtual void setVDSize(unsigned long long value) { set<&Self::m_VdSize>(value); }
    virtual unsigned long long getVDSize() const { return m_VdSize; }
    virtual void setVDAutoRebuildOn(bool value) { set<&Self::m_VdAutoRebuildOn>(value); }
    virtual bool getVDAutoRebuildOn() const { return m_VdAutoRebuildOn; }
    virtual void setProductName(std::string value) { set<&Self::m_VdProductName>(std::move(value)); }
    virtual std::string getProductName() const { return m_VdProductName; }
    // Overwrites the member list's elements in step with the given ones; its length never changes.
    virtual void setPdInVdList(std::list<unsigned int> value);
    virtual std::list<unsigned int> getPdInVdList() const { return m_PdInVdList; }
    virtual void setVDNexus(std::vector<unsigned int> value) { set<&Self::m_VdNexus>(std::move(value)); }
    virtual std::vector<unsigned int> getVDNexus() const { return m_VdNexus; }

    // Sets attributes, through their setters, from a map of names to values that stay the caller's. Names
    // that the class does not have are ignored.
    virtual CVirtualDevice& operator=(stg::AttribValMap& values);

    CVirtualDevice& operator=(const CVirtualDevice& other);
    void copyAttributes(const CVirtualDevice& other);

    // Finds virtual disks of a controller in the data engine by their logical drive number; NUMBER_UNKNOWN
    // asks for all. Results as of CPhysicalDevice::getPdObject, but any status but 0 of the data engine's
    // listing is a failure and is returned, and an object whose layer cannot be read makes the result 1 until
    // a later one is taken.
    unsigned int getVdObject(unsigned int globalCntrlNum, void** outObjects, unsigned int logicalDriveNum);

    // The attributes set on this object, and the class's table of all attributes.
    stg::AttribValMap* getAttribValueMap() { return &m_VdAttribValMap; }
    static stg::AttribTypeMap& getAttribNameAndType() { return m_VdAttribNameTypeMap; }
    // Fills the class's table once; a name that is there keeps its row.
    static void attribNameAndTypeMapInit();
    static void setKeyValPair(std::string name, std::string typeTag, unsigned int propertyId)
    {
        stg::attributes::setKeyValPair(m_VdAttribNameTypeMap, std::move(name), std::move(typeTag),
                                       propertyId);
    }
    // Entries of the value map. Insertion keeps an entry that is there, an update replaces its pointer. A
    // removal keeps the field's value, and an entry whose pointer is null.
    void insertIntoAttribValMap(std::string name, void* value)
    {
        stg::attributes::insert(m_VdAttribValMap, std::move(name), value);
    }
    void updateAttribValMap(std::string name, void* value);
    void* retrieveValFromMap(std::string name) { return stg::attributes::retrieve(m_VdAttribValMap, name); }
    void deleteFromMap(std::string name);
    void deleteFromMap(std::pair<std::string, void*> entry) { deleteFromMap(entry.first); }
    void clearMap();

  private:
    struct Attributes;
    using Self = CVirtualDevice;

    // Stores the value and enters the field in the value map under the name that its row has. Compiled in the
    // source, where the rows are, for all setters there are.
    template <auto Field, class Value>
    [[gnu::used]] void set(Value value);

    unsigned int m_VdObjType = stg::NUMBER_UNKNOWN;        // SDO_OBJTYPE_VIRTUAL_DISK
    unsigned int m_VdCntrlID = stg::NUMBER_UNKNOWN;        // adapter index of the vendor's library
    unsigned int m_VdGlobalCntrlNum = stg::NUMBER_UNKNOWN; // of the controller above
    unsigned int m_VdVILNumber = stg::NUMBER_UNKNOWN;      // SDO_VIL_NUMBER for ours
    unsigned int m_VdBusProtocol = stg::NUMBER_UNKNOWN;
    unsigned int m_VdMedia = stg::NUMBER_UNKNOWN;
    unsigned int m_VdVendorID = stg::NUMBER_UNKNOWN; // travels under the property of m_VdVILNumber
    unsigned int m_VdState = stg::NUMBER_UNKNOWN;
    unsigned int m_VdStripeBlockSize = stg::NUMBER_UNKNOWN;
    unsigned int m_VdSectorSize = stg::NUMBER_UNKNOWN;
    unsigned int m_VdPdCount =
        stg::NUMBER_UNKNOWN; // travels under the id 0, which names no property, as some below
    unsigned int m_VdRaidDiskSpace = stg::NUMBER_UNKNOWN;
    unsigned int m_VdDiskCachePolicy = stg::NUMBER_UNKNOWN;
    unsigned int m_VdWritePolicy = stg::NUMBER_UNKNOWN;
    unsigned int m_VdReadPolicy = stg::NUMBER_UNKNOWN;
    unsigned int m_VdDevID = stg::NUMBER_UNKNOWN;           // the vendor's id of the logical drive
    unsigned int m_VdLogicalDriveNum = stg::NUMBER_UNKNOWN; // the identity goes by it
    unsigned int m_VdAttributeMask = 0;
    unsigned int m_VdMasterMethodMask = 0;
    unsigned int m_VdCurrentMethodMask = 0;
    unsigned int m_VdStatus = stg::NUMBER_UNKNOWN;
    unsigned int m_VdRaidMode = stg::NUMBER_UNKNOWN; // a single bit for each level
    unsigned short m_VdBlockCount = 0xFFFF;
    std::string m_VdName;
    unsigned long long m_VdSize = stg::NUMBER_UNKNOWN; // bytes
    bool m_VdAutoRebuildOn = false;
    std::string m_VdProductName;
    std::list<unsigned int> m_PdInVdList; // never reaches the data engine
    std::vector<unsigned int> m_VdNexus;  // property ids that name this object
    stg::AttribValMap m_VdAttribValMap;

    static stg::AttribTypeMap m_VdAttribNameTypeMap;
    static bool m_bIsVdAttribNameAndTypeMap;
};

#endif
