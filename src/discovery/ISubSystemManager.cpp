#include "discovery/ISubSystemManager.h"

#include "entry/CCommandHandler.h"
#include "events/IEventManager.h"
#include "model/CMarvelPhysicalDevice.h"
#include "model/CMarvelVirtualDevice.h"
#include "model/IController.h"
#include "mvlayer/ILibraryInterfaceLayer.h"
#include "sdo/SDOProxy.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"

#include <sdo.h>

#include <memory>
#include <new>

unsigned int ISubSystemManager::m_SubSystemSerialNo = 0;

namespace
{

constexpr char PARENT_FOUND[] = "createParentSDOProxyObj successful";

// The devices that a query fills. An allocation that fails leaves the list shorter.
template <class Device, class Base>
class DeviceList
{
  public:
    // The delegation makes the list complete first: when a device throws, the destructor frees the others.
    explicit DeviceList(unsigned int count) : DeviceList()
    {
        for (unsigned int index = 0; index < count; ++index) {
            std::unique_ptr<Base> device(new (std::nothrow) Device);
            if (!device)
                continue;
            m_devices.push_back(nullptr);
            m_devices.back() = device.release();
        }
    }
    DeviceList(const DeviceList&) = delete;
    DeviceList& operator=(const DeviceList&) = delete;
    ~DeviceList()
    {
        for (Base* device : m_devices)
            delete device;
    }

    std::vector<Base*>& pointers() { return m_devices; }

  private:
    DeviceList() = default;

    std::vector<Base*> m_devices;
};

} // namespace

ISubSystemManager::~ISubSystemManager() = default;

unsigned int ISubSystemManager::discoverController(unsigned int /*global*/)
{
    return 0;
}
unsigned int ISubSystemManager::discoverAllChannels(unsigned int /*global*/)
{
    return 0;
}
unsigned int ISubSystemManager::discoverChannel(unsigned int /*global*/, unsigned int /*channel*/)
{
    return 0;
}
unsigned int ISubSystemManager::discoverAllEnclosures(unsigned int /*global*/)
{
    return 0;
}
unsigned int ISubSystemManager::discoverEnclosure(unsigned int /*global*/, unsigned int /*enclosure*/)
{
    return 0;
}
unsigned int ISubSystemManager::discoverBatteryInfo(unsigned int /*global*/, void* /*battery*/)
{
    return 0;
}
std::list<unsigned int> ISubSystemManager::getAllPhysicalDeviceIDs(unsigned int /*global*/)
{
    return {};
}
std::list<CPhysicalDevice*> ISubSystemManager::getAllPhysicalDevices(unsigned int /*global*/)
{
    return {};
}
std::list<unsigned int> ISubSystemManager::getAllVirtualDeviceIDs(unsigned int /*global*/)
{
    return {};
}
std::list<CVirtualDevice*> ISubSystemManager::getAllVirtualDevices(unsigned int /*global*/)
{
    return {};
}

unsigned int ISubSystemManager::getTotalNoOfControllers()
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::getTotalNoOfControllers()");
    return m_pLil != nullptr ? m_pLil->getControllerCount() : 0;
}

unsigned int ISubSystemManager::getTotalNoOfPD(unsigned int controller)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager:getTotalNoOfPD()");
    const unsigned int count = m_pLil != nullptr ? m_pLil->getPDCount(controller) : 0;
    stg::lout << "ZARNEK:ISubSystemManager:getTotalNoOfPD(): pdCount = " << count << '\n';
    return count;
}

unsigned int ISubSystemManager::getTotalNoOfVD(unsigned int controller)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager:getTotalNoOfVD()");
    const unsigned int count = m_pLil != nullptr ? m_pLil->getVDCount(controller) : 0;
    stg::lout << "ZARNEK:ISubSystemManager:getTotalNoOfVD(): vdCount = " << count << '\n';
    return count;
}

void ISubSystemManager::updateQelvoTotalNoOfController(unsigned int count)
{
    CCommandHandler::m_gQelvoTotalCntrlNumber += count;
}

void ISubSystemManager::startProcessingEvents()
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::startProcessingEvents()");
    if (m_pEventManager != nullptr)
        m_pEventManager->processAllEvent();
}

bool ISubSystemManager::discoverDisks(unsigned int global, unsigned int controller)
{
    stg::lout << "ZARNEK:ISubSystemManager::discover() discoverController Successful" << '\n';
    // The two lines below come on failure only, whatever their words say.
    const bool disksFailed = discoverAllPDs(global, controller) != 0;
    if (disksFailed)
        stg::lout << "ZARNEK:ISubSystemManager::discover() discoverAllPDs Successful" << '\n';
    const bool drivesFailed = discoverAllVDs(global, controller) != 0;
    if (drivesFailed)
        stg::lout << "ZARNEK:ISubSystemManager::discover() discoverAllVDs Successful" << '\n';
    return !disksFailed && !drivesFailed;
}

short ISubSystemManager::discover()
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::discover()");

    const unsigned int count = getTotalNoOfControllers();
    updateQelvoTotalNoOfController(count);
    stg::lout << "ZARNEK:ISubSystemManager: discover  cntrlCount: " << count << '\n';
    for (unsigned int index = 0; index < count; ++index) {
        // A controller that fails below uses up its number all the same.
        const unsigned int global = CCommandHandler::m_gQelvoGlobalCntrlNumber++;
        if (discoverController(global, index) == 0) {
            discoverDisks(global, index);
            if (m_pEventManager != nullptr)
                m_pEventManager->insertIntoCntrlList({global, index});
        }
        CCommandHandler::insertIntoMap(global, this);
    }

    // Without an event manager, after a failed allocation, there is nobody to instantiate.
    const short status =
        m_pEventManager != nullptr ? m_pEventManager->instantiate() : static_cast<short>(stg::STATUS_FAILURE);
    if (status != stg::STATUS_SUCCESS)
        scope.message() << "Failed to instantiate objects in Event Manager."
                        << " Not able to process events." << '\n';
    else
        scope.message() << "Event Manager got initialized properly." << '\n';
    return status;
}

unsigned int ISubSystemManager::discover(unsigned int global, unsigned int controller)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::discover()");
    unsigned int result = stg::STATUS_FAILURE;
    if (discoverController(global, controller) == 0 && discoverDisks(global, controller))
        result = stg::STATUS_SUCCESS;
    CCommandHandler::insertIntoMap(global, this);
    return result;
}

unsigned int ISubSystemManager::processDiscovery(IController& controller)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager: processDiscovery()");
    if (m_pLil == nullptr || m_pLil->getControllerInfo(controller) != stg::STATUS_SUCCESS)
        return stg::STATUS_FAILURE;
    createSDOProxyObj(controller);
    return stg::STATUS_SUCCESS;
}

unsigned int ISubSystemManager::discoverAllPDs(unsigned int global, unsigned int controller)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::discoverAllPDs()");
    const unsigned int count = getTotalNoOfPD(controller);
    stg::lout << "ZARNEK:ISubSystemManager: discoverAllPDs:pdCount=" << count << '\n';
    DeviceList<CMarvelPhysicalDevice, CPhysicalDevice> disks(count);
    if (m_pLil == nullptr ||
        m_pLil->getAllPDInfo(global, controller, disks.pointers()) != stg::STATUS_SUCCESS)
        return stg::STATUS_FAILURE;
    createSDOProxyObj(disks.pointers());
    return stg::STATUS_SUCCESS;
}

unsigned int ISubSystemManager::discoverAllVDs(unsigned int global, unsigned int controller)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::discoverAllVDs()");
    const unsigned int count = getTotalNoOfVD(controller);
    stg::lout << "ZARNEK:ISubSystemManager: discoverAllVDs:vdCount=" << count << '\n';
    DeviceList<CMarvelVirtualDevice, CVirtualDevice> drives(count);
    if (m_pLil == nullptr ||
        m_pLil->getAllVDInfo(global, controller, drives.pointers()) != stg::STATUS_SUCCESS)
        return stg::STATUS_FAILURE;
    createSDOProxyObj(drives.pointers());
    return stg::STATUS_SUCCESS;
}

unsigned int ISubSystemManager::discoverPD(unsigned int global, unsigned int controller, unsigned int device)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::discoverPD()");
    // The plain class takes nothing from vendor records: what goes into the data engine are these three.
    CPhysicalDevice disk;
    disk.setCntrID(controller);
    disk.setGlobalCntrlNum(global);
    disk.setSlotNum(device);
    if (m_pLil != nullptr && m_pLil->getPDInfo(disk) == stg::STATUS_SUCCESS)
        createSDOProxyObj(disk);
    return stg::STATUS_SUCCESS;
}

unsigned int ISubSystemManager::discoverVD(unsigned int global, unsigned int controller, unsigned int device)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::discoverVD()");
    CVirtualDevice drive;
    drive.setControllerID(controller);
    drive.setGlobalControllerNo(global);
    drive.setDeviceID(device);
    if (m_pLil != nullptr && m_pLil->getVDInfo(drive) == stg::STATUS_SUCCESS)
        createSDOProxyObj(drive);
    return stg::STATUS_SUCCESS;
}

unsigned int ISubSystemManager::insertIntoRAL(stg::SDOProxy& proxy)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager: insertIntoRAL()");
    if (proxy.insertIntoDataEngine() == 0)
        return stg::STATUS_SUCCESS;
    stg::lout << "ZARNEK:ISubSystemManager: insertIntoRAL() Failed" << '\n';
    return stg::STATUS_FAILURE;
}

unsigned int ISubSystemManager::createSDOProxyObj(IController& controller)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager: createSDOProxyObj()");
    stg::SDOProxy proxy;
    return proxy.createSDOObject(controller) == stg::STATUS_SUCCESS ? insertIntoRAL(proxy)
                                                                    : stg::STATUS_FAILURE;
}

unsigned int ISubSystemManager::insertDisk(CPhysicalDevice& disk, const char* successPrefix)
{
    stg::SDOProxy proxy;
    auto status = static_cast<unsigned int>(proxy.createSDOObject(disk));
    if (status == stg::STATUS_SUCCESS) {
        status = createParentSDOProxyObj(proxy, SDO_OBJTYPE_PHYSICAL_DISK, disk.getGlobalCntrlNum());
        if (status == stg::STATUS_SUCCESS)
            stg::lout << successPrefix << PARENT_FOUND << '\n';
    }
    // A disk whose controller could not be fetched goes in without a parent.
    if (insertIntoRAL(proxy) != stg::STATUS_SUCCESS)
        status = stg::STATUS_FAILURE;
    return status;
}

unsigned int ISubSystemManager::createSDOProxyObj(std::vector<CPhysicalDevice*>& disks)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager: createSDOProxyObj()");
    unsigned int result = stg::STATUS_SUCCESS;
    for (CPhysicalDevice* disk : disks)
        result = insertDisk(*disk, "ZARNEK:ISubSystemManager: createSDOProxyObj() PD:");
    return result;
}

unsigned int ISubSystemManager::createSDOProxyObj(CPhysicalDevice& disk)
{
    stg::LogScope scope("ZARNEK:ISubSystemManager::createSDOProxyObj() CPhysicalDevice&");
    scope.skipExit();
    return insertDisk(disk, "ZARNEK:ISubSystemManager: createSDOProxyObj() CPhysicalDevice&");
}

unsigned int ISubSystemManager::insertDrive(CVirtualDevice& drive, const char* successPrefix,
                                            const char* failurePrefix)
{
    stg::SDOProxy proxy;
    if (proxy.createSDOObject(drive) == stg::STATUS_SUCCESS &&
        createParentSDOProxyObj(proxy, SDO_OBJTYPE_VIRTUAL_DISK, drive.getGlobalControllerNo()) ==
            stg::STATUS_SUCCESS)
        stg::lout << successPrefix << PARENT_FOUND << '\n';
    insertIntoRAL(proxy);
    const unsigned int status = updateSDOProxyObj(proxy, SDO_OBJTYPE_VIRTUAL_DISK);
    if (status == stg::STATUS_FAILURE)
        stg::lout << failurePrefix << "Failed to update SDOProxy Object." << '\n';
    return status;
}

unsigned int ISubSystemManager::createSDOProxyObj(std::vector<CVirtualDevice*>& drives)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager: createSDOProxyObj() VD",
                              "ZARNEK:ISubSystemManager: createSDOProxyObj()");
    unsigned int result = stg::STATUS_SUCCESS;
    for (CVirtualDevice* drive : drives)
        result = insertDrive(*drive, "ZARNEK:ISubSystemManager: createSDOProxyObj() VD:",
                             "ZARNEK:ISubSystemManager:createSDOProxyObj( std::vector<CVirtualDevice*>& ): ");
    return result;
}

unsigned int ISubSystemManager::createSDOProxyObj(CVirtualDevice& drive)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::createSDOProxyObj() createSDOProxyObj&");
    return insertDrive(drive, "ZARNEK:ISubSystemManager: createSDOProxyObj() createSDOProxyObj&",
                       "ZARNEK:ISubSystemManager:createSDOProxyObj( CVirtualDevice& ): ");
}
