#ifndef ZARNEK_ENTRY_CCOMMANDHANDLER_H
#define ZARNEK_ENTRY_CCOMMANDHANDLER_H

#include <map>
#include <utility>
#include <vector>

class CLibraryManager;
class ISubSystemManager;

// The singleton behind the exported function: dispatches the control commands, carries them out over the list
// of subsystem managers, and holds the controller counters of the process.
//
// All operations run on the thread that called the exported function, with one exception: insertIntoMap is
// also reached from the event thread, for keys that exist by then. Managers are borrowed, never owned: they
// are singletons of their own class. The map is filled by discovery and emptied by nobody, so after a stop it
// holds stale pointers and must not be read.
class CCommandHandler
{
  public:
    // The singleton, built on first use; null when the allocation failed.
    static CCommandHandler* getUniqueInstance();
    // Deletes the singleton if there is one. Always 0.
    static int destroyMe();

    CCommandHandler();
    CCommandHandler(const CCommandHandler&) = delete;
    CCommandHandler& operator=(const CCommandHandler&) = delete;
    // Unloads the vendor libraries and destroys the mutex. Does not touch the managers.
    virtual ~CCommandHandler();

    // Runs one control command; arguments and result as of the exported function.
    unsigned int navigator(unsigned int command, void* input, void** output);

    // Command 20: loads the vendor libraries and makes a manager for each. 0 or 1.
    short initialize();
    // Command 21. Always 0.
    short startMonitoring();
    // Command 22: discovers with every manager, numbering controllers from `globalNumber`, and writes the
    // running sum of controllers of all discoveries to *total. Always 0.
    short discoverAllControllers(unsigned int globalNumber, unsigned int* total);
    // Command 25: destroys the managers and empties the list. Always 0.
    short destroyAllResources();

    // Appends; neither null nor a duplicate is refused.
    void insertIntoVector(ISubSystemManager* manager);
    // Destroys the manager that its run-time class names; a null pointer raises std::bad_typeid.
    void removeSubSystemMgr(ISubSystemManager*& manager);
    // Destroys every manager once, in list order, and empties the list.
    void deleteAllElementsFromVector();
    // Destroy the first manager with that identifier and take it from the list; null does nothing.
    void deleteFromVector(unsigned int managerId);
    void deleteFromVector(ISubSystemManager* manager);

    // Insert under the global controller number; a number that is there keeps its manager.
    static void insertIntoMap(unsigned int cntrlId, ISubSystemManager* manager);
    static void insertIntoMap(std::pair<unsigned int, ISubSystemManager*> pair);
    // The same removals for the map. Nothing in the command flow calls them.
    static void deleteAllElementsFromMap();
    static void deleteFromMap(std::pair<unsigned int, ISubSystemManager*> pair);
    static void deleteFromMap(unsigned int cntrlId);
    static void deleteSubSystemMgrFromMap(ISubSystemManager* manager);

    std::vector<ISubSystemManager*>& accessVector() { return m_SubSystemMgrVector; }
    static std::map<unsigned int, ISubSystemManager*>& accessMap() { return m_ControllerSubSystemMap; }
    CLibraryManager* getLibMgr() const { return m_pLibManager; }

    // The last number received with command 22; read by nobody.
    static unsigned int m_gValGlobalCntrlNumber;
    // The next global controller number to give out.
    static unsigned int m_gQelvoGlobalCntrlNumber;
    // Controllers counted by all discoveries since load; never reset.
    static unsigned int m_gQelvoTotalCntrlNumber;

  private:
    // Calls an operation on each manager, from first to last; a failed allocation leaves nulls in the list.
    template <class Operation>
    void forEachManager(Operation operation);
    static void eraseFromMap(unsigned int cntrlId);

    CLibraryManager* m_pLibManager = nullptr;
    std::vector<ISubSystemManager*> m_SubSystemMgrVector;

    static CCommandHandler* m_pCommandHandlerInstance;
    static std::map<unsigned int, ISubSystemManager*> m_ControllerSubSystemMap;
};

#endif
