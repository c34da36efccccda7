#include "vendor/IVendorLibrary.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"
#include "support/TextTools.h"

#include <morlan.h>

#include <dlfcn.h>

#include <mutex>
#include <set>
#include <utility>

namespace
{

// The library objects of the process.
class LivingLibraries
{
  public:
    void insert(const IVendorLibrary* library)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_libraries.insert(library);
    }
    void erase(const IVendorLibrary* library)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_libraries.erase(library);
    }
    bool contains(const IVendorLibrary* library)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_libraries.count(library) != 0;
    }

  private:
    std::mutex m_mutex;
    std::set<const IVendorLibrary*> m_libraries;
};

LivingLibraries livingLibraries;

} // namespace

bool IVendorLibrary::isAlive(const IVendorLibrary* library)
{
    return livingLibraries.contains(library);
}

IVendorLibrary::IVendorLibrary(std::string vendorId, std::string libName)
    : m_libName(std::move(libName)), m_vendorId(static_cast<unsigned int>(stg::toSigned32(vendorId)))
{
    const stg::LogScope scope("ZARNEK:IVendorLibrary::IVendorLibrary()");
    livingLibraries.insert(this);
}

void* IVendorLibrary::loadLibrary(std::string name)
{
    static constexpr char LABEL[] = "ZARNEK:IVendorLibrary::loadLibrary()";
    const stg::LogScope scope(LABEL);

    const std::string path = name + ".so";
    stg::lout << LABEL << ": "
              << "loadLibrary => " << path << '\n';
    // Opened twice on purpose: the support library keeps its own count, the direct handle is the one in use.
    SMLibLoad(path.c_str());
    return dlopen(path.c_str(), RTLD_LAZY);
}

IVendorLibrary::~IVendorLibrary()
{
    livingLibraries.erase(this);
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
