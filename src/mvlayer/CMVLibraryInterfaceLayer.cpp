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

constexpr unsigned int LOW_BYTE = 0xFF;

// The library takes an adapter index as a byte.
unsigned char adapterIndex(unsigned int id)
{
    return static_cast<unsigned char>(id & LOW_BYTE);
}

} // namespace

CMVLibraryInterfaceLayer::CMVLibraryInterfaceLayer(unsigned int vendorId, void* handle)
    : ILibraryInterfaceLayer(vendorId, handle), m_pMarvellLib(nullptr)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:CLibraryInterfaceLayer()");
    if (CLibraryManager* const manager = CLibraryManager::getUniqueInstance())
        m_pMarvellLib = dynamic_cast<CMarvellVendorLibrary*>(manager->getVendorLibInstance(vendorId));
    m_librarySerial = IVendorLibrary::serialNumberOf(m_pMarvellLib);
    CMVLibraryInterfaceLayer::libInit();
}

CMVLibraryInterfaceLayer::~CMVLibraryInterfaceLayer()
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:~CLibraryInterfaceLayer()");
    CMVLibraryInterfaceLayer::libExit();
}

CMarvellVendorLibrary* CMVLibraryInterfaceLayer::library() const
{
    const bool lives =
        m_librarySerial != 0 && IVendorLibrary::serialNumberOf(m_pMarvellLib) == m_librarySerial;
    return lives ? m_pMarvellLib : nullptr;
}

short CMVLibraryInterfaceLayer::statusOf(unsigned int result)
{
    const unsigned int status = result & LOW_BYTE;
    if (status != MV_ERR_NONE)
        mvErrorDisplay(status);
    return static_cast<short>(status);
}

template <class Function>
short CMVLibraryInterfaceLayer::callList(Function function, unsigned int id, unsigned int count,
                                         _Info_Request* request)
{
    if (request == nullptr || function == nullptr)
        return stg::STATUS_SUCCESS;
    *request = {};
    request->RequestType = MV_REQUEST_LIST;
    request->NumRequested = static_cast<std::uint16_t>(count - 1);
    return statusOf(function(adapterIndex(id), request));
}

template <class Function, class Request>
short CMVLibraryInterfaceLayer::callOneDevice(Function function, unsigned int id, unsigned short hdId,
                                              Request* request)
{
    if (request == nullptr || function == nullptr)
        return stg::STATUS_SUCCESS;
    request->Header = {};
    request->Header.RequestType = MV_REQUEST_ONE_DEVICE;
    request->Header.StartIndexOrId = hdId;
    request->Header.NumRequested = 1;
    return statusOf(function(adapterIndex(id), request));
}

void CMVLibraryInterfaceLayer::libInit()
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:libInit()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary != nullptr && vendorLibrary->getMVInitAPI() != nullptr)
        vendorLibrary->getMVInitAPI()();
}

void CMVLibraryInterfaceLayer::libExit()
{
    const stg::LogScope scope("ZARNEK:CMVLibraryInterfaceLayer:libExit()",
                              "ZARNEK:CLibraryInterfaceLayer:libExit()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary != nullptr && vendorLibrary->getMVFinalizeAPI() != nullptr) {
        stg::lout << "ZARNEK:CMVLibraryInterfaceLayer:libExit() calling  mvAPIFinal" << '\n';
        vendorLibrary->getMVFinalizeAPI()();
    }
}

unsigned int CMVLibraryInterfaceLayer::getControllerCount()
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getControllerCount()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr || vendorLibrary->getMVAdpCountAPI() == nullptr)
        return 0;
    return vendorLibrary->getMVAdpCountAPI()() & LOW_BYTE;
}

unsigned int CMVLibraryInterfaceLayer::getControllerCount(IVendorLibrary* vendorLibrary)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getControllerCount()");
    const auto* const marvell = dynamic_cast<CMarvellVendorLibrary*>(vendorLibrary);
    if (marvell == nullptr)
        return 0;
    if (marvell->getMVInitAPI() != nullptr)
        marvell->getMVInitAPI()();
    return marvell->getMVAdpCountAPI() != nullptr ? marvell->getMVAdpCountAPI()() & LOW_BYTE : 0;
}

short CMVLibraryInterfaceLayer::getAdapterInfo(unsigned int id, unsigned int count, _Adapter_Info* info)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getAdapterInfo()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr || vendorLibrary->getMVAdpGetInfoAPI() == nullptr)
        return stg::STATUS_SUCCESS;
    return statusOf(vendorLibrary->getMVAdpGetInfoAPI()(adapterIndex(id), &count, info));
}

short CMVLibraryInterfaceLayer::getAdapterConfig(unsigned int id, unsigned int count,
                                                 _Adapter_Config_V2* config)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getAdapterConfig()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr || vendorLibrary->getMVAdpGetConfigAPI() == nullptr)
        return stg::STATUS_SUCCESS;
    return statusOf(vendorLibrary->getMVAdpGetConfigAPI()(adapterIndex(id), &count, config));
}

short CMVLibraryInterfaceLayer::getAdapterROMVersion(unsigned int id, char (*text)[20])
{
    const stg::LogScope scope("ZARNEK:CMVLibraryInterfaceLayer:getAdapterROMVersion()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr || vendorLibrary->GetMVAdpGetOEMDataAPI() == nullptr)
        return stg::STATUS_SUCCESS;
    _Adapter_OEM_Data data{};
    data.OemRecordSize = sizeof data;
    data.OemSelector = 0;
    const short status = statusOf(vendorLibrary->GetMVAdpGetOEMDataAPI()(adapterIndex(id), &data));
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

short CMVLibraryInterfaceLayer::getPhysicalDisksInfo(unsigned int id, unsigned int count,
                                                     _Info_Request* request)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getPhysicalDisksInfo()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr)
        return stg::STATUS_SUCCESS;
    return callList(vendorLibrary->getMVPDGetHDInfoAPI(), id, count, request);
}

short CMVLibraryInterfaceLayer::getPhysicalDiskConfig(unsigned int id, unsigned int count,
                                                      _Info_Request* request)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getPhysicalDiskConfig()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr)
        return stg::STATUS_SUCCESS;
    return callList(vendorLibrary->getMVPDGetConfigAPI(), id, count, request);
}

short CMVLibraryInterfaceLayer::getVirtualDisksInfo(unsigned int id, unsigned int count,
                                                    _Info_Request* request)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getVirtualDisksInfo()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr)
        return stg::STATUS_SUCCESS;
    return callList(vendorLibrary->getMVLDGetInfoAPI(), id, count, request);
}

short CMVLibraryInterfaceLayer::getVirtualDiskConfig(unsigned int id, unsigned int count,
                                                     _Info_Request* request)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getVirtualDiskConfig()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr)
        return stg::STATUS_SUCCESS;
    return callList(vendorLibrary->getMVLDGetConfigAPI(), id, count, request);
}

short CMVLibraryInterfaceLayer::getPhysicalDiskStatus(unsigned int id, unsigned short hdId,
                                                      _HD_RAID_Status_Request* request)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getPhysicalDiskStatus()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr)
        return stg::STATUS_SUCCESS;
    return callOneDevice(vendorLibrary->getMVPDGetHDRaidStatusAPI(), id, hdId, request);
}

short CMVLibraryInterfaceLayer::getPhysicalDiskFreeSpace(unsigned int id, unsigned short hdId,
                                                         _HD_FreeSpaceInfo_Request* request)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getPhysicalDiskFreeSpace()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr)
        return stg::STATUS_SUCCESS;
    return callOneDevice(vendorLibrary->getMVPDGetFreeSpaceInfoAPI(), id, hdId, request);
}

std::uint32_t CMVLibraryInterfaceLayer::getMarvellBufSize(unsigned int cntrlId)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:getMarvellBufSize()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr || vendorLibrary->getMVAdpGetInfoAPI() == nullptr)
        return 0;
    _Adapter_Info info{}; // a failed call reads as an answer size of 0: its status is not looked at
    unsigned int count = 0;
    vendorLibrary->getMVAdpGetInfoAPI()(adapterIndex(cntrlId), &count, &info);
    return static_cast<std::uint32_t>(info.MaxBufferSizeKB) << 10;
}

short CMVLibraryInterfaceLayer::flushEvents(unsigned int cntrlId)
{
    const stg::LogScope scope("ZARNEK:CLibraryInterfaceLayer:flushEvents()");
    const CMarvellVendorLibrary* const vendorLibrary = library();
    if (vendorLibrary == nullptr || vendorLibrary->GetMVEVTFlushEventAPI() == nullptr)
        return stg::STATUS_SUCCESS;
    return statusOf(vendorLibrary->GetMVEVTFlushEventAPI()(adapterIndex(cntrlId)));
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
