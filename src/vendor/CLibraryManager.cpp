#include "vendor/CLibraryManager.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Singleton.h"
#include "support/Status.h"
#include "vendor/CLibraryLoader.h"
#include "vendor/IVendorLibrary.h"

#include <algorithm>
#include <new>

CLibraryManager* CLibraryManager::m_pLibManager = nullptr;

CLibraryManager* CLibraryManager::getUniqueInstance()
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:getUniqueInstance()",
                              "ZARNEK:CLibraryManager: getUniqueInstance()");
    return stg::uniqueInstance(m_pLibManager, [](const std::bad_alloc& failure) {
        stg::message("ZARNEK:CLibraryManager::getUniqueInstance()")
            << "Failed to allocate Memory. " << failure.what() << '\n';
    });
}

short CLibraryManager::destroyMe()
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:destroyMe()");
    stg::destroyInstance(m_pLibManager);
    return stg::STATUS_SUCCESS;
}

CLibraryManager::CLibraryManager() = default;

CLibraryManager::~CLibraryManager()
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:~CLibraryManager()");
    removeAllElementsFromMap();
}

short CLibraryManager::initializeLibrary()
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:initializeLibrary()");
    CLibraryLoader loader;
    if (loader.initializeLibLoader() != stg::STATUS_SUCCESS)
        return -1;
    return loader.createAllLibObjs() == stg::STATUS_SUCCESS ? 0 : -1;
}

short CLibraryManager::insertIntoMap(unsigned int vendorId, IVendorLibrary* library)
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:insertIntoMap()");
    m_libMap.emplace(vendorId, library);
    return stg::STATUS_SUCCESS;
}

short CLibraryManager::cloneLibraryMultiMap(LibraryMultimap& /*map*/)
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:cloneLibraryMultiMap()");
    return stg::STATUS_SUCCESS;
}

IVendorLibrary* CLibraryManager::getVendorLibInstance(unsigned int vendorId)
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:getVendorLibInstance()");

    // find may return any of several equal keys, lower_bound returns the first.
    const auto found = m_libMap.lower_bound(vendorId);
    if (found == m_libMap.end() || found->first != vendorId)
        return nullptr;
    if (found->second == nullptr)
        scope.message() << "Dynamic Cast Failed." << '\n';
    return found->second;
}

void* CLibraryManager::getLibHandleforVendorID(unsigned int vendorId)
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:getLibHandleforVendorID()");
    const auto found = m_libMap.lower_bound(vendorId);
    if (found == m_libMap.end() || found->first != vendorId || found->second == nullptr)
        return nullptr;
    return found->second->getLibHandle();
}

short CLibraryManager::removeElementFromMap(LibraryPair& pair)
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:removeElementFromMap()");
    m_libMap.erase(pair.first);
    return stg::STATUS_SUCCESS;
}

short CLibraryManager::updateLibraryMultiMap(LibraryPair& pair)
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:updateLibraryMultiMap()");
    const auto found = m_libMap.lower_bound(pair.first);
    if (found != m_libMap.end() && found->first == pair.first && found->second != pair.second)
        delete found->second;
    m_libMap.erase(pair.first);
    m_libMap.insert(pair);
    return stg::STATUS_SUCCESS;
}

short CLibraryManager::removeAllElementsFromMap()
{
    const stg::LogScope scope("ZARNEK:CLibraryManager:removeAllElementsFromMap()");
    LibraryMultimap libraries;
    libraries.swap(m_libMap); // nobody finds a library that is going
    for (auto entry = libraries.begin(); entry != libraries.end(); ++entry) {
        IVendorLibrary* const library = entry->second;
        // One that was inserted twice is deleted once, at its last place.
        if (std::none_of(std::next(entry), libraries.end(),
                         [library](const auto& later) { return later.second == library; }))
            delete library;
    }
    return stg::STATUS_SUCCESS;
}
