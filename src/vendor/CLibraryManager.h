#ifndef ZARNEK_VENDOR_CLIBRARYMANAGER_H
#define ZARNEK_VENDOR_CLIBRARYMANAGER_H

#include <map>
#include <utility>

class IVendorLibrary;

// Owns the vendor libraries that see a controller, by vendor id. A singleton of the entry thread; its
// creation is guarded, nothing else is.
class CLibraryManager
{
  public:
    using LibraryMultimap = std::multimap<unsigned int, IVendorLibrary*>;
    using LibraryPair = std::pair<unsigned int, IVendorLibrary*>;

    // The singleton, built on first use; null when the allocation failed.
    static CLibraryManager* getUniqueInstance();
    // Deletes the singleton, and with it all libraries. Always 0.
    static short destroyMe();

    CLibraryManager();
    CLibraryManager(const CLibraryManager&) = delete;
    CLibraryManager& operator=(const CLibraryManager&) = delete;
    virtual ~CLibraryManager();

    // Loads the configured libraries and keeps those that see a controller. 0 or -1; finding none is 0.
    short initializeLibrary();
    // Takes the library over. Equal ids stand behind those present. Always 0.
    short insertIntoMap(unsigned int vendorId, IVendorLibrary* library);
    LibraryMultimap* accessLibObjMultimap() { return &m_libMap; }
    // Does nothing. Always 0.
    short cloneLibraryMultiMap(LibraryMultimap& map);
    // The first library with this id; null if there is none.
    IVendorLibrary* getVendorLibInstance(unsigned int vendorId);
    // Its handle; null if there is none.
    void* getLibHandleforVendorID(unsigned int vendorId);
    // Erases all entries with the pair's id; their objects are not deleted. Always 0.
    short removeElementFromMap(LibraryPair& pair);
    // Deletes the object of the first entry with the pair's id, unless it is the pair's own, erases all with
    // that id, inserts the pair.
    short updateLibraryMultiMap(LibraryPair& pair);
    // Empties the map and deletes every library that was in it. Always 0.
    short removeAllElementsFromMap();

  private:
    LibraryMultimap m_libMap;

    static CLibraryManager* m_pLibManager;
};

#endif
