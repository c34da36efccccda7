#include "vendor/CLibraryLoader.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"
#include "support/TextTools.h"
#include "vendor/CLibraryManager.h"
#include "vendor/CLibraryManager_Helper.h"
#include "vendor/CMarvellVendorLibrary.h"
#include "vendor/IniAccess.h"

#include <sdo.h>

#include <memory>
#include <new>

CLibraryLoader::CLibraryLoader() = default;

CLibraryLoader::~CLibraryLoader() = default;

short CLibraryLoader::initializeLibLoader()
{
    const stg::LogScope scope("ZARNEK:CLibraryLoader:initializeLibLoader()");
    return setVendorInfo() == stg::STATUS_SUCCESS ? 0 : -1;
}

short CLibraryLoader::setVendorInfo()
{
    const stg::LogScope scope("ZARNEK:CLibraryLoader:setVendorInfo()");
    stg::readFromIniFile(m_vendorInfo);
    return stg::STATUS_SUCCESS;
}

std::vector<stg::SVendorInfo_t> CLibraryLoader::getVendorInfo()
{
    const stg::LogScope scope("ZARNEK:CLibraryLoader:setVendorInfo()"); // bears the other function's name
    return m_vendorInfo;
}

IVendorLibrary* CLibraryLoader::createLibModelObj(std::string vendorId, std::string libName)
{
    const stg::LogScope scope("ZARNEK:CLibraryLoader:createLibModelObj()");

    if (static_cast<unsigned int>(stg::toSigned32(vendorId)) != SDO_VIL_NUMBER)
        return nullptr;
    auto* const library = new (std::nothrow) CMarvellVendorLibrary(vendorId, libName);
    if (library == nullptr)
        scope.message() << "Failed to get p_VendorLibrary instance." << '\n';
    return library;
}

short CLibraryLoader::createAllLibObjs()
{
    const stg::LogScope scope("ZARNEK:CLibraryLoader:createAllLibObjs()");

    // The list shrinks while the counter grows: of n entries the last half is worked, an odd n one more.
    for (std::size_t counter = 0; counter < m_vendorInfo.size(); ++counter) {
        const stg::SVendorInfo_t vendor = m_vendorInfo.back();
        std::unique_ptr<IVendorLibrary> library(createLibModelObj(vendor.m_VendorID, vendor.m_LibName));
        if (library) {
            library->setLibHandle();
            library->setAPIName();
            stg::CLibraryManager_Helper helper;
            if (helper.checkControllerExistence(library->getVendorId(), library.get())) {
                if (CLibraryManager* const manager = CLibraryManager::getUniqueInstance())
                    manager->insertIntoMap(library->getVendorId(), library.get());
            }
            // The manager's, or, without a controller or a manager, loaded for good.
            static_cast<void>(library.release());
        }
        m_vendorInfo.pop_back();
    }
    return stg::STATUS_SUCCESS;
}

void CLibraryLoader::initializePath(std::string /*directory*/, std::string /*name*/) {}
