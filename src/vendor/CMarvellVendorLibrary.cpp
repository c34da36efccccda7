#include "vendor/CMarvellVendorLibrary.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"

#include <dlfcn.h>

#include <iterator>
#include <string_view>
#include <type_traits>
#include <utility>

namespace
{

// Which pointer decides whether a row's message is logged. Most rows look at the first entry point and not at
// their own: a library that lacks only one of those says nothing, one that lacks the first says it for all.
enum class Tests { Own, Initialize };

constexpr std::string_view SYMBOLS[] = {
#define MV_SYMBOL_NAME(symbol, arguments) #symbol,
    MV_API_LIST(MV_SYMBOL_NAME)
#undef MV_SYMBOL_NAME
};

} // namespace

struct CMarvellVendorLibrary::EntryPoint {
    const char* symbol;
    // Stores the address and says whether there is one.
    bool (*bind)(CMarvellVendorLibrary& library, void* address);
    Tests tests;
    const char* nameInMessage;

    template <auto Field>
    static bool store(CMarvellVendorLibrary& library, void* address)
    {
        library.*Field = reinterpret_cast<std::decay_t<decltype(library.*Field)>>(address);
        return address != nullptr;
    }
};

// clang-format off
#define ENTRY_POINT(symbol, field, tests, nameInMessage)                                                     \
    {#symbol, &EntryPoint::store<&CMarvellVendorLibrary::field>, Tests::tests, #nameInMessage}
// clang-format on
constexpr CMarvellVendorLibrary::EntryPoint CMarvellVendorLibrary::ENTRY_POINTS[] = {
    ENTRY_POINT(MV_API_Initialize, m_gMV_API_INITIALIZE, Own, m_gMV_API_INITIALIZE),
    ENTRY_POINT(MV_API_Finalize, m_gMV_API_FINALIZE, Initialize, m_gMV_API_FINALIZE),
    ENTRY_POINT(MV_API_Version, m_gMV_API_VERSION, Initialize, m_gMV_API_VERSION),
    ENTRY_POINT(MV_Adapter_GetCount, m_gMV_ADAPTER_GETCOUNT, Initialize, m_gMV_ADAPTER_GETCOUNT),
    ENTRY_POINT(MV_Adapter_GetInfo, m_gMV_ADAPTER_GETINFO, Initialize, m_gMV_ADAPTER_GETINFO),
    ENTRY_POINT(MV_Adapter_GetConfig, m_gMV_ADAPTER_GETCONFIG, Initialize, m_gMV_ADAPTER_GETINFO),
    ENTRY_POINT(MV_PD_GetHDInfo_Ext, m_gMV_PD_GETHDINFO_EXT, Initialize, m_gMV_PD_GETHDINFO_EXT),
    ENTRY_POINT(MV_PD_GetConfig, m_gMV_PD_GETCONFIG, Initialize, m_gMV_PD_GETCONFIG),
    ENTRY_POINT(MV_PD_GET_SMART_INFO, m_gMV_PD_GET_SMART_INFO, Initialize, m_gMV_PD_GET_SMART_INFO),
    ENTRY_POINT(MV_PD_GetHDRaidStatus, m_gMV_PD_GET_HD_RAID_STATUS, Own, m_gMV_PD_GET_HD_RAID_STATUS),
    ENTRY_POINT(MV_PD_GetFreeSpaceInfo, m_gMV_PD_GET_FREE_SPACE_INFO, Own, m_gMV_PD_GET_FREE_SPACE_INFO),
    ENTRY_POINT(MV_LD_GetInfo, m_gMV_LD_GET_INFO, Own, m_gMV_LD_GET_INFO),
    ENTRY_POINT(MV_LD_GetConfig, m_gMV_LD_GET_CONFIG, Own, m_gMV_LD_GET_CONFIG),
    ENTRY_POINT(MV_PassThrough_ATA, m_gMV_PASSTHROUGH_ATA, Initialize, m_gMV_PASSTHROUGH_ATA),
    ENTRY_POINT(MV_Adapter_Get_OEM_Data, m_gMV_ADAPTER_GET_OEM_DATA, Own, m_gMV_ADAPTER_GET_OEM_DATA),
    ENTRY_POINT(MV_EVT_GetEvent, m_gMV_EVT_GETEVENT, Initialize, m_gMV_EVT_GETEVENT),
    ENTRY_POINT(MV_EVT_FlushEvent, m_gMV_EVT_FLUSHEVENT, Initialize, m_gMV_EVT_FLUSHEVENT),
};
#undef ENTRY_POINT

CMarvellVendorLibrary::CMarvellVendorLibrary(std::string vendorId, std::string libName)
    : IVendorLibrary(std::move(vendorId), std::move(libName))
{
    static_assert(
        [] {
            if (std::size(ENTRY_POINTS) != std::size(SYMBOLS))
                return false;
            for (std::size_t row = 0; row < std::size(SYMBOLS); ++row)
                if (ENTRY_POINTS[row].symbol != SYMBOLS[row])
                    return false;
            return true;
        }(),
        "the table binds the library's entry points in the order of its interface");
    const stg::LogScope scope("ZARNEK:CMarvellVendorLibrary::CMarvellVendorLibrary()");
}

CMarvellVendorLibrary::~CMarvellVendorLibrary() = default;

short CMarvellVendorLibrary::setAPIName()
{
    const stg::LogScope scope("ZARNEK:CMarvellVendorLibrary::setAPIName()");
    if (getLibHandle() == nullptr)
        return stg::STATUS_SUCCESS;
    return setMarvellAPI() == stg::STATUS_SUCCESS ? 0 : -1;
}

short CMarvellVendorLibrary::setMarvellAPI()
{
    const stg::LogScope scope("ZARNEK:CMarvellVendorLibrary::setMarvellAPI()");
    void* const handle = getLibHandle();
    for (const EntryPoint& entry : ENTRY_POINTS) {
        const bool bound = entry.bind(*this, dlsym(handle, entry.symbol));
        const bool tested = entry.tests == Tests::Own ? bound : m_gMV_API_INITIALIZE != nullptr;
        if (!tested)
            stg::message("ZARNEK:CMarvellLibrary::setMarvellAPI()")
                << "Failed to Retrieve Handle to " << entry.nameInMessage << "." << '\n';
    }
    return stg::STATUS_SUCCESS;
}
