#include "entry/CCommandHandler.h"

#include "discovery/CMarvelSubSystemMgr.h"
#include "discovery/CSubSystemFactory.h"
#include "entry/CCommandHandler_Helper.h"
#include "support/CCriticalSection.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Singleton.h"
#include "support/Status.h"
#include "vendor/CLibraryManager.h"

#include <sdo.h>
#include <zarnek.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>
#include <memory>
#include <new>
#include <typeinfo>

CCommandHandler* CCommandHandler::m_pCommandHandlerInstance = nullptr;
std::map<unsigned int, ISubSystemManager*> CCommandHandler::m_ControllerSubSystemMap;
unsigned int CCommandHandler::m_gValGlobalCntrlNumber = 0;
unsigned int CCommandHandler::m_gQelvoGlobalCntrlNumber = 0;
unsigned int CCommandHandler::m_gQelvoTotalCntrlNumber = 0;

namespace
{

// Text by which a manager's class is recognised within its run-time type name.
constexpr char MARVELL_MANAGER[] = "CMarvelSubSystemMgr";

const char* typeNameOf(ISubSystemManager* manager)
{
    return typeid(*manager).name(); // a null pointer raises std::bad_typeid
}

bool isMarvellManager(const char* typeName)
{
    return std::strstr(typeName, MARVELL_MANAGER) != nullptr;
}

} // namespace

CCommandHandler* CCommandHandler::getUniqueInstance()
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::getUniqueInstance()");
    return stg::uniqueInstance(m_pCommandHandlerInstance, [&scope](const std::bad_alloc& failure) {
        scope.message() << "Failed to allocate Memory. " << failure.what() << '\n';
    });
}

int CCommandHandler::destroyMe()
{
    const stg::LogScope scope("CCommandHandler::destroyMe()");
    stg::destroyInstance(m_pCommandHandlerInstance);
    return stg::STATUS_SUCCESS;
}

CCommandHandler::CCommandHandler() = default;

CCommandHandler::~CCommandHandler()
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::~CCommandHandler()");

    CLibraryManager::destroyMe();
    if (CCriticalSection::isZarnekMutex) {
        scope.message() << "Destroying Mutex." << '\n';
        CCriticalSection::destroyMutex();
    }
}

unsigned int CCommandHandler::navigator(unsigned int command, void* input, void** output)
{
    stg::LogScope scope("ZARNEK:CCommandHandler:navigator()");
    const auto log = [&scope](const char* text) { scope.message() << text << '\n'; };

    short status = stg::STATUS_SUCCESS;
    switch (command) {
    case ZARNEK_CMD_INITIALIZE:
        log("Initialize");
        status = initialize();
        if (status == stg::STATUS_SUCCESS) {
            // The layer above reads the slot itself as a number.
            // NOLINTNEXTLINE(performance-no-int-to-ptr)
            *output = reinterpret_cast<void*>(static_cast<std::uintptr_t>(SDO_VIL_NUMBER));
            log("ZARNEK initialization is successful.");
        }
        break;
    case ZARNEK_CMD_START_MONITORING:
        log("Start_Monitoring.");
        status = startMonitoring();
        if (status == stg::STATUS_SUCCESS)
            log("ZARNEK Start_Monitoring is successful.");
        break;
    case ZARNEK_CMD_DISCOVER:
        log("Discover");
        status = discoverAllControllers(*static_cast<const unsigned int*>(input),
                                        static_cast<unsigned int*>(*output));
        if (status == stg::STATUS_SUCCESS)
            log("ZARNEK Discovery is successful.");
        break;
    case ZARNEK_CMD_TERMINATE:
        log("Terminate");
        log("ZARNEK Terminate is being invoked from pld_sm_zarnek_entry().");
        break;
    case ZARNEK_CMD_STOP_MONITORING:
        log("Stop_Monitoring.");
        status = destroyAllResources();
        if (status == stg::STATUS_SUCCESS)
            log("ZARNEK Stop_Monitoring is successful.");
        break;
    case ZARNEK_CMD_NO_OPERATION_26:
    case ZARNEK_CMD_NO_OPERATION_27:
    case ZARNEK_CMD_NO_OPERATION_29:
        break;
    case ZARNEK_CMD_UNSUPPORTED_24:
    case ZARNEK_CMD_UNSUPPORTED_28:
    case ZARNEK_CMD_UNSUPPORTED_30:
        log("Fallen into default case of Control Command.");
        status = ZARNEK_STATUS_UNSUPPORTED;
        break;
    default:
        status = ZARNEK_STATUS_UNSUPPORTED;
        if (command < ZARNEK_CMD_FIRST) {
            stg::lout << "ZARNEK:CCommandHandler::navigator(): command not supported - " << command << '\n';
            scope.skipExit();
        }
        break;
    }
    return static_cast<unsigned int>(static_cast<int>(status));
}

short CCommandHandler::initialize()
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::initialize()");

    short result = stg::STATUS_SUCCESS;
    m_pLibManager = CLibraryManager::getUniqueInstance();
    if (m_pLibManager == nullptr) {
        scope.message()
            << "Failed to create instance of Library Manager. SubSystemManager has NOT been instantiated."
            << '\n';
        result = stg::STATUS_FAILURE;
    } else if (m_pLibManager->initializeLibrary() != stg::STATUS_SUCCESS) {
        scope.message() << "Failed to initialize Library Manager. SubSystemManager has NOT been instantiated."
                        << '\n';
        result = stg::STATUS_FAILURE;
    } else {
        try {
            const auto factory = std::make_unique<CSubSystemFactory>();
            CSubSystemFactory* borrowed = factory.get();
            stg::CCommandHandler_Helper createManager(borrowed);
            const auto* libraries = m_pLibManager->accessLibObjMultimap();
            // By reference: a copied helper has no factory.
            std::for_each(libraries->begin(), libraries->end(), std::ref(createManager));
        } catch (const std::bad_alloc& failure) {
            scope.message() << "Failed to allocate memory for CSubSystemFactory. " << failure.what() << '\n';
            result = stg::STATUS_FAILURE;
        }
    }

    forEachManager([](ISubSystemManager& manager) { manager.initialize(); });
    return result;
}

short CCommandHandler::startMonitoring()
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::startMonitoring()");
    forEachManager([](ISubSystemManager& manager) { manager.startProcessingEvents(); });
    return stg::STATUS_SUCCESS;
}

short CCommandHandler::discoverAllControllers(unsigned int globalNumber, unsigned int* total)
{
    static constexpr char MESSAGE[] = "ZARNEK:CCommandHandler::discoverAllControllers(): ";
    const stg::LogScope scope("ZARNEK:CCommandHandler: discoverAllControllers()");

    stg::lout << MESSAGE << "Global Controller Number received from VAL Layer = " << globalNumber << '\n';
    m_gValGlobalCntrlNumber = globalNumber;
    m_gQelvoGlobalCntrlNumber = globalNumber;
    forEachManager([](ISubSystemManager& manager) { manager.discover(); });
    *total = m_gQelvoTotalCntrlNumber;
    stg::lout << MESSAGE << "Total Controller Count = " << *total << '\n';
    return stg::STATUS_SUCCESS;
}

short CCommandHandler::destroyAllResources()
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::destroyAllResources()");
    deleteAllElementsFromVector();
    return stg::STATUS_SUCCESS;
}

template <class Operation>
void CCommandHandler::forEachManager(Operation operation)
{
    for (ISubSystemManager* manager : m_SubSystemMgrVector)
        if (manager != nullptr)
            operation(*manager);
}

void CCommandHandler::insertIntoVector(ISubSystemManager* manager)
{
    m_SubSystemMgrVector.push_back(manager);
}

void CCommandHandler::removeSubSystemMgr(ISubSystemManager*& manager)
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::removeSubSystemMgr()");

    const char* typeName = typeNameOf(manager);
    scope.message() << "SubSystem Manager Name => " << typeName << '\n';
    if (isMarvellManager(typeName)) {
        scope.message() << "Destroying CMarvelSubSystemMgr." << '\n';
        CMarvelSubSystemMgr::destroyMe();
    }
}

void CCommandHandler::deleteAllElementsFromVector()
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::deleteAllElementsFromVector()",
                              " ZARNEK:CCommandHandler::deleteAllElementsFromVector()");
    if (m_SubSystemMgrVector.empty())
        return;

    // A manager that stands in the list more than once, after a repeated initialise, dies at its first place;
    // its other places must not be followed then.
    const auto first = m_SubSystemMgrVector.begin();
    for (auto place = m_SubSystemMgrVector.end(); place-- != first;)
        if (std::find(first, place, *place) != place)
            *place = nullptr;
    std::for_each(first, m_SubSystemMgrVector.end(), stg::CCommandHandler_Helper(true));
    m_SubSystemMgrVector.clear();
}

void CCommandHandler::deleteFromVector(unsigned int managerId)
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::deleteFromVector()");
    const auto found = std::find_if(m_SubSystemMgrVector.begin(), m_SubSystemMgrVector.end(),
                                    stg::CCommandHandler_Helper(managerId));
    if (found == m_SubSystemMgrVector.end() || *found == nullptr)
        return;
    ISubSystemManager* const manager = *found;
    const bool dies = isMarvellManager(typeNameOf(manager));
    removeSubSystemMgr(*found);
    if (dies) // none of its places may be followed any more
        m_SubSystemMgrVector.erase(
            std::remove(m_SubSystemMgrVector.begin(), m_SubSystemMgrVector.end(), manager),
            m_SubSystemMgrVector.end());
    else
        m_SubSystemMgrVector.erase(found);
}

void CCommandHandler::deleteFromVector(ISubSystemManager* manager)
{
    if (manager != nullptr)
        deleteFromVector(manager->getMgrUniqueID());
}

void CCommandHandler::insertIntoMap(unsigned int cntrlId, ISubSystemManager* manager)
{
    m_ControllerSubSystemMap.emplace(cntrlId, manager);
}

void CCommandHandler::insertIntoMap(std::pair<unsigned int, ISubSystemManager*> pair)
{
    m_ControllerSubSystemMap.insert(pair);
}

void CCommandHandler::deleteAllElementsFromMap()
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::deleteAllElementsFromMap()");
    // A deletion erases all elements of its manager, so each step looks for the next that is left.
    for (auto element = m_ControllerSubSystemMap.begin(); element != m_ControllerSubSystemMap.end();) {
        const unsigned int cntrlId = element->first;
        deleteFromMap(*element);
        element = m_ControllerSubSystemMap.upper_bound(cntrlId);
    }
    m_ControllerSubSystemMap.clear();
}

void CCommandHandler::deleteFromMap(std::pair<unsigned int, ISubSystemManager*> pair)
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::deleteFromMap()");
    if (pair.second != nullptr)
        eraseFromMap(pair.first);
}

void CCommandHandler::deleteFromMap(unsigned int cntrlId)
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::deleteFromMap( UNSIGNED_INTEGER cntrlId )");
    eraseFromMap(cntrlId);
}

void CCommandHandler::eraseFromMap(unsigned int cntrlId)
{
    const auto found = m_ControllerSubSystemMap.find(cntrlId);
    if (found == m_ControllerSubSystemMap.end())
        return;
    ISubSystemManager* const manager = found->second;
    m_ControllerSubSystemMap.erase(found);
    if (manager == nullptr)
        return;
    const bool dies = isMarvellManager(typeNameOf(manager));
    deleteSubSystemMgrFromMap(manager);
    // A manager stands under the number of each of its controllers; none of them may be followed any more.
    for (auto element = m_ControllerSubSystemMap.begin(); dies && element != m_ControllerSubSystemMap.end();)
        element = element->second == manager ? m_ControllerSubSystemMap.erase(element) : std::next(element);
}

void CCommandHandler::deleteSubSystemMgrFromMap(ISubSystemManager* manager)
{
    const stg::LogScope scope("ZARNEK:CCommandHandler::deleteSubSystemMgrFromMap()");
    if (isMarvellManager(typeNameOf(manager)))
        CMarvelSubSystemMgr::destroyMe();
}
