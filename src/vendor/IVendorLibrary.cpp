#include "vendor/IVendorLibrary.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"
#include "support/TextTools.h"

#include <morlan.h>

#include <dlfcn.h>

#include <map>
#include <mutex>
#include <new>
#include <utility>

namespace
{

// The library objects of the process, numbered from 1.
class LivingLibraries
{
  public:
    // Never destroyed, since an event thread may outlive the statics of a process that ends. Without
    // libraries it holds no memory but its place.
    static LivingLibraries& instance()
    {
        alignas(LivingLibraries) static unsigned char place[sizeof(LivingLibraries)];
        static auto* const libraries = new (place) LivingLibraries;
        return *libraries;
    }
    void insert(const IVendorLibrary* library)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_serialNumbers[library] = ++m_last;
    }
    void erase(const IVendorLibrary* library)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_serialNumbers.erase(library);
    }
    std::uint64_t serialNumberOf(const IVendorLibrary* library)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_serialNumbers.find(library);
        return found == m_serialNumbers.end() ? 0 : found->second;
    }

  private:
    std::mutex m_mutex;
    std::map<const IVendorLibrary*, std::uint64_t> m_serialNumbers;
    std::uint64_t m_last = 0;
};

} // namespace

std::uint64_t IVendorLibrary::serialNumberOf(const IVendorLibrary* library)
{
    return LivingLibraries::instance().serialNumberOf(library);
}

IVendorLibrary::IVendorLibrary(std::string vendorId, std::string libName)
    : m_libName(std::move(libName)), m_vendorId(static_cast<unsigned int>(stg::toSigned32(vendorId)))
{
    const stg::LogScope scope("ZARNEK:IVendorLibrary::IVendorLibrary()");
    LivingLibraries::instance().insert(this);
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
    LivingLibraries::instance().erase(this);
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
