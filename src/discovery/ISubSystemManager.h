#ifndef ZARNEK_DISCOVERY_ISUBSYSTEMMANAGER_H
#define ZARNEK_DISCOVERY_ISUBSYSTEMMANAGER_H

#include <list>
#include <vector>

class CPhysicalDevice;
class CVirtualDevice;
class IController;
class IEventManager;
class ILibraryInterfaceLayer;

namespace stg
{
class SDOProxy;
}

// Walks a vendor's controllers, physical disks and virtual disks, has the query layer fill model objects, and
// has them inserted into the data engine. A concrete manager supplies four operations; the walking is here.
//
// Serves two callers: command 22 on the entry thread, and rediscovery on the event thread. No lock is held;
// what a walk works on stands on its stack. A controller has two numbers: `global` is the data engine's,
// `controller` the vendor's index from 0. Results are 0 or 1 unless said otherwise.
class ISubSystemManager
{
  public:
    // The operations that a discovery command can hold.
    using twoArgsActionPtr = unsigned int (ISubSystemManager::*)(unsigned int, unsigned int);
    using threeArgsActionPtr = unsigned int (ISubSystemManager::*)(unsigned int, unsigned int, unsigned int);

    ISubSystemManager() = default;
    ISubSystemManager(const ISubSystemManager&) = delete;
    ISubSystemManager& operator=(const ISubSystemManager&) = delete;
    virtual ~ISubSystemManager();

    // Does nothing.
    virtual unsigned int discoverController(unsigned int global);
    // Insert all disks of a controller under it.
    virtual unsigned int discoverAllPDs(unsigned int global, unsigned int controller);
    // Inserts one disk, found by its slot. Always 0.
    virtual unsigned int discoverPD(unsigned int global, unsigned int controller, unsigned int device);
    virtual unsigned int discoverAllVDs(unsigned int global, unsigned int controller);
    // Inserts one virtual disk, found by its device id. Always 0.
    virtual unsigned int discoverVD(unsigned int global, unsigned int controller, unsigned int device);
    // Channels, enclosures and batteries, and the lists of devices: none here, always 0 or empty.
    virtual unsigned int discoverAllChannels(unsigned int global);
    virtual unsigned int discoverChannel(unsigned int global, unsigned int channel);
    virtual unsigned int discoverAllEnclosures(unsigned int global);
    virtual unsigned int discoverEnclosure(unsigned int global, unsigned int enclosure);
    virtual unsigned int discoverBatteryInfo(unsigned int global, void* battery);
    virtual std::list<unsigned int> getAllPhysicalDeviceIDs(unsigned int global);
    virtual std::list<CPhysicalDevice*> getAllPhysicalDevices(unsigned int global);
    virtual std::list<unsigned int> getAllVirtualDeviceIDs(unsigned int global);
    virtual std::list<CVirtualDevice*> getAllVirtualDevices(unsigned int global);
    // Counts by the query layer, 0 without one.
    virtual unsigned int getTotalNoOfControllers();
    virtual unsigned int getTotalNoOfPD(unsigned int controller);
    virtual unsigned int getTotalNoOfVD(unsigned int controller);
    // Discovers every controller under new global numbers and readies the event manager; its status.
    virtual short discover();
    // Discovers one known controller again under its numbers; neither counters nor event manager change.
    virtual unsigned int discover(unsigned int global, unsigned int controller);
    virtual unsigned int discoverController(unsigned int global, unsigned int controller) = 0;
    // Creates what the manager works with. Always 0.
    virtual unsigned int initialize() = 0;
    // Completes an object that was inserted already, and inserts it again. 0, 1 or the data engine's status.
    virtual unsigned int updateSDOProxyObj(stg::SDOProxy& proxy, unsigned int objectType) = 0;
    // Gives the proxy its controller's object as parent.
    virtual unsigned int createParentSDOProxyObj(stg::SDOProxy& proxy, unsigned int objectType,
                                                 unsigned int global) = 0;

    ILibraryInterfaceLayer* getLilPtr() const { return m_pLil; }
    IEventManager* getEventManagerPtr() const { return m_pEventManager; }
    void setMgrUniqueID(unsigned int id) { m_MgrUniqueID = id; }
    unsigned int getMgrUniqueID() const { return m_MgrUniqueID; }
    // Adds to the running sum of controllers of all discoveries.
    void updateQelvoTotalNoOfController(unsigned int count);
    // Starts the event thread.
    void startProcessingEvents();
    // Fills a controller that knows its numbers and inserts it; a failed insertion is not a failure here.
    unsigned int processDiscovery(IController& controller);
    unsigned int insertIntoRAL(stg::SDOProxy& proxy);
    // Turn model objects, of which none may be null, into objects of the data engine. The status of the last
    // one decides.
    unsigned int createSDOProxyObj(IController& controller);
    unsigned int createSDOProxyObj(std::vector<CPhysicalDevice*>& disks);
    unsigned int createSDOProxyObj(CPhysicalDevice& disk);
    unsigned int createSDOProxyObj(std::vector<CVirtualDevice*>& drives);
    unsigned int createSDOProxyObj(CVirtualDevice& drive);

    // The last identifier that a manager was created with.
    static unsigned int m_SubSystemSerialNo;

  protected:
    ILibraryInterfaceLayer* m_pLil = nullptr; // owned by the concrete manager; may be null
    IEventManager* m_pEventManager = nullptr;

  private:
    // The tail of both discover operations: disks and virtual disks of a controller that was found.
    bool discoverDisks(unsigned int global, unsigned int controller);
    unsigned int insertDisk(CPhysicalDevice& disk, const char* successPrefix);
    unsigned int insertDrive(CVirtualDevice& drive, const char* successPrefix, const char* failurePrefix);

    unsigned int m_MgrUniqueID = 0;
};

#endif
