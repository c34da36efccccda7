#include "vendor/IVendorLibrary.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"
#include "support/TextTools.h"

#include <morlan.h>
#include <zarnek_ini.h>

#include <dlfcn.h>

#include <utility>

IVendorLibrary::IVendorLibrary(std::string vendorId, std::string libName)
    : m_libName(std::move(libName)), m_vendorId(static_cast<unsigned int>(stg::toSigned32(vendorId)))
{
    const stg::LogScope scope("ZARNEK:IVendorLibrary::IVendorLibrary()");
}

void* IVendorLibrary::loadLibrary(std::string name)
{
    const stg::LogScope scope("ZARNEK:IVendorLibrary::loadLibrary()");

    const std::string path = name + INI_LIBRARY_SUFFIX;
    scope.message() << "loadLibrary => " << path << '\n';
    // Opened twice on purpose: once by way of the support library, which may do more than open it, and once
    // directly for the handle that is used.
    SMLibLoad(path.c_str());
    return dlopen(path.c_str(), RTLD_LAZY);
}

IVendorLibrary::~IVendorLibrary()
{
    IVendorLibrary::unloadLibHandle(m_libHandle);
}

short IVendorLibrary::setLibHandle()
{
    const stg::LogScope scope("ZARNEK:IVendorLibrary::setLibHandle()");
    if (!m_libName.empty())
        m_libHandle = loadLibrary(m_libName);
    return stg::STATUS_SUCCESS;
}

short IVendorLibrary::unloadLibHandle(void* handle)
{
    const stg::LogScope scope("ZARNEK:IVendorLibrary::unloadLibHandle()");
    if (handle != nullptr)
        SMLibUnLoad(handle);
    return stg::STATUS_SUCCESS;
}

void* IVendorLibrary::getLibHandle()
{
    return m_libHandle;
}

unsigned int IVendorLibrary::getVendorId()
{
    return m_vendorId;
}
