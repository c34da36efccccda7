// Construction, the calls of the vendor library and its error words. The queries built on them stand in
// CMVLibraryInterfaceLayerQueries.cpp.
#include "mvlayer/CMVLibraryInterfaceLayer.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"
#include "vendor/CLibraryManager.h"
#include "vendor/CMarvellVendorLibrary.h"

#include <cstdio>
#include <cstring>

namespace
{

// An adapter index travels in a byte, and of a result only the low byte counts.
unsigned char lowByte(unsigned int value)
{
    return static_cast<unsigned char>(value);
}

// Asks for entries from the first on; `count` is one more than their number.
_Info_Request listHeader(unsigned int count)
{
    _Info_Request header{};
    header.RequestType = MV_REQUEST_LIST;
    header.NumRequested = static_cast<std::uint16_t>(count - 1);
    return header;
}

_Info_Request oneDeviceHeader(unsigned short hdId)
{
    _Info_Request header{};
    header.RequestType = MV_REQUEST_ONE_DEVICE;
    header.StartIndexOrId = hdId;
    header.NumRequested = 1;
    return header;
}

} // namespace

CMVLibraryInterfaceLayer::CMVLibraryInterfaceLayer(unsigned int vendorId, void* handle)
    : ILibraryInterfaceLayer(vendorId, handle), m_pMarvellLib(nullptr)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:CLibraryInterfaceLayer()");
    if (CLibraryManager* const manager = CLibraryManager::getUniqueInstance())
        m_pMarvellLib = dynamic_cast<CMarvellVendorLibrary*>(manager->getVendorLibInstance(vendorId));
    CMVLibraryInterfaceLayer::libInit();
}

CMVLibraryInterfaceLayer::~CMVLibraryInterfaceLayer()
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:~CLibraryInterfaceLayer()");
    CMVLibraryInterfaceLayer::libExit();
}

template <class Function>
Function CMVLibraryInterfaceLayer::entryPoint(Function (CMarvellVendorLibrary::*accessor)() const) const
{
    return m_pMarvellLib != nullptr ? (m_pMarvellLib->*accessor)() : nullptr;
}

short CMVLibraryInterfaceLayer::statusOf(unsigned int result)
{
    const unsigned int status = lowByte(result);
    if (status != MV_ERR_NONE)
        mvErrorDisplay(status);
    return static_cast<short>(status);
}

template <class Function, class... Arguments>
short CMVLibraryInterfaceLayer::call(const char* label, Function (CMarvellVendorLibrary::*accessor)() const,
                                     unsigned int id, Arguments... arguments)
{
    const stg::LogScope scope(label);
    const Function function = entryPoint(accessor);
    return function != nullptr ? statusOf(function(lowByte(id), arguments...)) : stg::STATUS_SUCCESS;
}

template <class Function, class Request>
short CMVLibraryInterfaceLayer::request(const char* label,
                                        Function (CMarvellVendorLibrary::*accessor)() const, unsigned int id,
                                        _Info_Request header, Request* request)
{
    const stg::LogScope scope(label);
    const Function function = entryPoint(accessor);
    if (request == nullptr || function == nullptr)
        return stg::STATUS_SUCCESS;
    std::memcpy(request, &header, sizeof header); // every request begins with it
    return statusOf(function(lowByte(id), request));
}

void CMVLibraryInterfaceLayer::libInit()
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:libInit()");
    if (const auto initialize = entryPoint(&CMarvellVendorLibrary::getMVInitAPI))
        initialize();
}

void CMVLibraryInterfaceLayer::libExit()
{
    const stg::LogScope scope("ZARNEK:CMVLibraryInterfaceLayer:libExit()",
                              "ZARNEK:CLibraryInterfaceLayer:libExit()");
    if (const auto finalize = entryPoint(&CMarvellVendorLibrary::getMVFinalizeAPI)) {
        stg::lout << "ZARNEK:CMVLibraryInterfaceLayer:libExit() calling  mvAPIFinal" << '\n';
        finalize();
    }
}

unsigned int CMVLibraryInterfaceLayer::getControllerCount()
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getControllerCount()");
    const auto count = entryPoint(&CMarvellVendorLibrary::getMVAdpCountAPI);
    return count != nullptr ? lowByte(count()) : 0U;
}

unsigned int CMVLibraryInterfaceLayer::getControllerCount(IVendorLibrary* vendorLibrary)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getControllerCount()");
    const auto* const marvell = dynamic_cast<CMarvellVendorLibrary*>(vendorLibrary);
    if (marvell == nullptr)
        return 0;
    if (marvell->getMVInitAPI() != nullptr)
        marvell->getMVInitAPI()();
    return marvell->getMVAdpCountAPI() != nullptr ? lowByte(marvell->getMVAdpCountAPI()()) : 0U;
}

short CMVLibraryInterfaceLayer::getAdapterInfo(unsigned int id, unsigned int count, _Adapter_Info* info)
{
    return call("ZARNEK:CLibraryInterfaceLayer:getAdapterInfo()", &CMarvellVendorLibrary::getMVAdpGetInfoAPI,
                id, &count, info);
}

short CMVLibraryInterfaceLayer::getAdapterConfig(unsigned int id, unsigned int count,
                                                 _Adapter_Config_V2* config)
{
    return call("ZARNEK:CLibraryInterfaceLayer:getAdapterConfig()",
                &CMarvellVendorLibrary::getMVAdpGetConfigAPI, id, &count, config);
}

short CMVLibraryInterfaceLayer::getAdapterROMVersion(unsigned int id, char (*text)[20])
{
    const stg::LogScope scope("ZARNEK:CMVLibraryInterfaceLayer:getAdapterROMVersion()");
    const auto function = entryPoint(&CMarvellVendorLibrary::GetMVAdpGetOEMDataAPI);
    if (function == nullptr)
        return stg::STATUS_SUCCESS;
    _Adapter_OEM_Data data{};
    data.OemRecordSize = sizeof data;
    const short status = statusOf(function(lowByte(id), &data));
    if (status == stg::STATUS_SUCCESS) {
        char full[32] = {};
        std::snprintf(full, sizeof full, "%d.%d.%d.%04d", data.RomMajor, data.RomMinor, data.RomRevision,
                      data.RomBuild);
        full[sizeof *text - 1] = '\0';
        std::memcpy(*text, full, sizeof *text);
        stg::lout << "ZARNEK:CMVLibraryInterfaceLayer:getAdapterROMVersion:ROM Version=" << *text << '\n';
    }
    return status;
}

short CMVLibraryInterfaceLayer::getPhysicalDisksInfo(unsigned int id, unsigned int count, _Info_Request* list)
{
    return request("ZARNEK:CLibraryInterfaceLayer:getPhysicalDisksInfo()",
                   &CMarvellVendorLibrary::getMVPDGetHDInfoAPI, id, listHeader(count), list);
}

short CMVLibraryInterfaceLayer::getPhysicalDiskConfig(unsigned int id, unsigned int count,
                                                      _Info_Request* list)
{
    return request("ZARNEK:CLibraryInterfaceLayer:getPhysicalDiskConfig()",
                   &CMarvellVendorLibrary::getMVPDGetConfigAPI, id, listHeader(count), list);
}

short CMVLibraryInterfaceLayer::getVirtualDisksInfo(unsigned int id, unsigned int count, _Info_Request* list)
{
    return request("ZARNEK:CLibraryInterfaceLayer:getVirtualDisksInfo()",
                   &CMarvellVendorLibrary::getMVLDGetInfoAPI, id, listHeader(count), list);
}

short CMVLibraryInterfaceLayer::getVirtualDiskConfig(unsigned int id, unsigned int count, _Info_Request* list)
{
    return request("ZARNEK:CLibraryInterfaceLayer:getVirtualDiskConfig()",
                   &CMarvellVendorLibrary::getMVLDGetConfigAPI, id, listHeader(count), list);
}

short CMVLibraryInterfaceLayer::getPhysicalDiskStatus(unsigned int id, unsigned short hdId,
                                                      _HD_RAID_Status_Request* answer)
{
    return request("ZARNEK:CLibraryInterfaceLayer:getPhysicalDiskStatus()",
                   &CMarvellVendorLibrary::getMVPDGetHDRaidStatusAPI, id, oneDeviceHeader(hdId), answer);
}

short CMVLibraryInterfaceLayer::getPhysicalDiskFreeSpace(unsigned int id, unsigned short hdId,
                                                         _HD_FreeSpaceInfo_Request* answer)
{
    return request("ZARNEK:CLibraryInterfaceLayer:getPhysicalDiskFreeSpace()",
                   &CMarvellVendorLibrary::getMVPDGetFreeSpaceInfoAPI, id, oneDeviceHeader(hdId), answer);
}

std::uint32_t CMVLibraryInterfaceLayer::getMarvellBufSize(unsigned int cntrlId)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getMarvellBufSize()");
    const auto function = entryPoint(&CMarvellVendorLibrary::getMVAdpGetInfoAPI);
    if (function == nullptr)
        return 0;
    // Its status is not looked at: a failed call counts with what it wrote, which is 0 if it wrote nothing.
    _Adapter_Info info{};
    unsigned int count = 0;
    function(lowByte(cntrlId), &count, &info);
    return static_cast<std::uint32_t>(info.MaxBufferSizeKB) << 10;
}

short CMVLibraryInterfaceLayer::flushEvents(unsigned int cntrlId)
{
    return call("ZARNEK:CLibraryInterfaceLayer:flushEvents()", &CMarvellVendorLibrary::GetMVEVTFlushEventAPI,
                cntrlId);
}

void CMVLibraryInterfaceLayer::mvErrorDisplay(unsigned int error)
{
    struct ErrorName {
        unsigned int number;
        const char* name;
    };
    static constexpr ErrorName NAMES[] = {
        {MV_ERR_FAIL, "ERR_FAIL "},
        {MV_ERR_REQ_OUT_OF_RANGE, "ERR_REQ_OUT_OF_RANGE "},
        {MV_ERR_INVALID_ADAPTER_ID, "ERR_INVALID_ADAPTER_ID "},
        {MV_ERR_RESCANING, "ERR_RESCANING "},
    };
    static constexpr char FAILED[] = "ZARNEK:CLibraryInterfaceLayer: mvErrorDisplay() FAILED: ";

    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:mvErrorDisplay()");
    for (const ErrorName& known : NAMES) {
        if (known.number == error) {
            stg::lout << FAILED << known.name << '\n';
            return;
        }
    }
    // The "%d" is part of the text; the number stands behind it.
    stg::lout << FAILED << "UNKOWN ERROR :%d " << error << '\n';
}
