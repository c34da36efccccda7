#include "discovery/CMarvelSubSystemMgr.h"

#include "events/CMarvelEventManager.h"
#include "model/CMarvellController.h"
#include "mvlayer/CMVLibraryInterfaceLayer.h"
#include "sdo/SDOProxy.h"
#include "sdo/SDOTypeCode.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Singleton.h"
#include "support/Status.h"
#include "vendor/CLibraryManager.h"

#include <sdo.h>

#include <new>

CMarvelSubSystemMgr* CMarvelSubSystemMgr::m_pMarvelSubSystemMgrInstance = nullptr;

CMarvelSubSystemMgr* CMarvelSubSystemMgr::getUniqueInstance()
{
    const stg::LogScope scope("ZARNEK:CMarvelSubSystemMgr::getUniqueInstance()");
    return stg::uniqueInstance(m_pMarvelSubSystemMgrInstance,
                               [](const std::bad_alloc&) {} /* no line says so */);
}

short CMarvelSubSystemMgr::destroyMe()
{
    const stg::LogScope scope("ZARNEK:CMarvelSubSystemMgr::destroyMe()");
    stg::destroyInstance(m_pMarvelSubSystemMgrInstance);
    return stg::STATUS_SUCCESS;
}

CMarvelSubSystemMgr::CMarvelSubSystemMgr()
{
    const stg::LogScope scope("ZARNEK:CMarvelSubSystemMgr::CMarvelSubSystemMgr()");
    void* handle = nullptr;
    if (CLibraryManager* const manager = CLibraryManager::getUniqueInstance())
        handle = manager->getLibHandleforVendorID(SDO_VIL_NUMBER);
    m_pLil = new (std::nothrow) CMVLibraryInterfaceLayer(SDO_VIL_NUMBER, handle);
    if (m_pLil == nullptr)
        stg::message("ZARNEK:CMarvelSubSystemMgr()") << "Failed to create LIL obj " << '\n';
}

CMarvelSubSystemMgr::~CMarvelSubSystemMgr()
{
    const stg::LogScope scope("ZARNEK:CMarvelSubSystemMgr::~CMarvelSubSystemMgr()");
    if (m_pEventManager != nullptr) {
        // The event thread uses the query layer, so it goes first.
        scope.message() << "Going to destroy Marvel Event Manager." << '\n';
        CMarvelEventManager::destroyMe();
    }
    delete m_pLil;
    m_pLil = nullptr;
}

unsigned int CMarvelSubSystemMgr::initialize()
{
    const stg::LogScope scope("ZARNEK:CMarvelSubSystemMgr::initialize()");
    m_pEventManager = CMarvelEventManager::getUniqueInstance();
    if (m_pEventManager != nullptr)
        stg::message("ZARNEK:CMarvelSubSystemMgr::CMarvelSubSystemMgr()") // the constructor's prefix
            << "Marvel Event Manager got created successfully." << '\n';
    return stg::STATUS_SUCCESS;
}

unsigned int CMarvelSubSystemMgr::discoverController(unsigned int global, unsigned int controller)
{
    const stg::LogScope scope("ZARNEK:ISubSystemManager::discoverController()"); // bears the base's name
    CMarvellController object;
    object.setControllerID(controller);
    object.setGlobalControllerNumber(global);
    return processDiscovery(object) == stg::STATUS_FAILURE ? stg::STATUS_FAILURE : stg::STATUS_SUCCESS;
}

unsigned int CMarvelSubSystemMgr::createParentSDOProxyObj(stg::SDOProxy& proxy, unsigned int objectType,
                                                          unsigned int global)
{
    const stg::LogScope scope("ZARNEK:CMarvelSubSystemMgr::createParentSDOProxyObj()");
    if (objectType != SDO_OBJTYPE_PHYSICAL_DISK && objectType != SDO_OBJTYPE_VIRTUAL_DISK)
        return stg::STATUS_FAILURE;
    IController controller;
    controller.setGlobalControllerNumber(global);
    stg::SDOProxy fetched;
    proxy.cloneParentSDOConfig(fetched.retrieveSingleSDOObject(controller));
    return proxy.getParentSDOConfigPtr() != nullptr ? stg::STATUS_SUCCESS : stg::STATUS_FAILURE;
}

unsigned int CMarvelSubSystemMgr::updateSDOProxyObj(stg::SDOProxy& proxy, unsigned int objectType)
{
    const stg::LogScope scope("ZARNEK:CMarvelSubSystemMgr::updateSDOProxyObj()");
    const auto log = [&scope](const char* text) { scope.message() << text << '\n'; };

    if (objectType != SDO_OBJTYPE_VIRTUAL_DISK)
        return stg::STATUS_SUCCESS;
    void* const parent = proxy.getParentSDOConfigPtr();
    // To every disk of the controller, member or not.
    if (proxy.createLinkBetween(parent, SDO_OBJTYPE_PHYSICAL_DISK, stg::RELATION_CHILD,
                                stg::NUMBER_UNKNOWN) == stg::STATUS_FAILURE)
        log("Failed to create link with PD.");

    void** list = nullptr;
    unsigned int count = stg::NUMBER_UNKNOWN;
    const int status = proxy.retrieveAssociatedSDOObjects(parent, SDO_OBJTYPE_PHYSICAL_DISK, &list, &count);
    if (status != 0 || count == 0 || list == nullptr) {
        log("Failed to retrieve associated Objects.");
        return static_cast<unsigned int>(status);
    }

    void* const firstDisk = proxy.cloneMyself(list[0]);
    for (const unsigned int property : {SSPROP_BUSPROTOCOL_U32, SSPROP_MEDIA_U32}) {
        // The clone is tested for the first property only; reading the second from null fails with a line.
        if (firstDisk == nullptr && property == SSPROP_BUSPROTOCOL_U32)
            continue;
        unsigned int value = stg::NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(firstDisk, property, &value) == stg::STATUS_SUCCESS &&
            proxy.addSpecificProperty(property, stg::SDO_CODE_U32, &value) == stg::STATUS_FAILURE)
            scope.message() << "Failed to add property -> " << property << '\n';
    }
    proxy.deleteClonedSDOObj(firstDisk);
    proxy.deleteAssociatedSDOObjects(list, count);
    const unsigned int result = insertIntoRAL(proxy);
    if (result == stg::STATUS_FAILURE)
        log("Failed to insert object into RAL.");
    return result;
}

short CMarvelSubSystemMgr::exit()
{
    return stg::STATUS_SUCCESS;
}
