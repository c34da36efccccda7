#ifndef ZARNEK_VENDOR_CMARVELLVENDORLIBRARY_H
#define ZARNEK_VENDOR_CMARVELLVENDORLIBRARY_H

#include "vendor/IVendorLibrary.h"

#include <mv.h>

// The Marvell RAID API library: the base's handle and the table of its seventeen entry points, bound by name.
// An accessor returns null for an entry point that the library lacks, and its caller must test for that.
class CMarvellVendorLibrary : public IVendorLibrary
{
  public:
    CMarvellVendorLibrary(std::string vendorId, std::string libName);
    ~CMarvellVendorLibrary() override;

    short setAPIName() override;

    MV_API_Initialize_t getMVInitAPI() const { return m_gMV_API_INITIALIZE; }
    MV_API_Finalize_t getMVFinalizeAPI() const { return m_gMV_API_FINALIZE; }
    MV_API_Version_t getMVVersionAPI() const { return m_gMV_API_VERSION; }
    MV_Adapter_GetCount_t getMVAdpCountAPI() const { return m_gMV_ADAPTER_GETCOUNT; }
    MV_Adapter_GetInfo_t getMVAdpGetInfoAPI() const { return m_gMV_ADAPTER_GETINFO; }
    MV_Adapter_GetConfig_t getMVAdpGetConfigAPI() const { return m_gMV_ADAPTER_GETCONFIG; }
    MV_PD_GetHDInfo_Ext_t getMVPDGetHDInfoAPI() const { return m_gMV_PD_GETHDINFO_EXT; }
    MV_PD_GetConfig_t getMVPDGetConfigAPI() const { return m_gMV_PD_GETCONFIG; }
    MV_PD_GET_SMART_INFO_t getMVPDGetSmartInfoAPI() const { return m_gMV_PD_GET_SMART_INFO; }
    MV_PD_GetHDRaidStatus_t getMVPDGetHDRaidStatusAPI() const { return m_gMV_PD_GET_HD_RAID_STATUS; }
    MV_PD_GetFreeSpaceInfo_t getMVPDGetFreeSpaceInfoAPI() const { return m_gMV_PD_GET_FREE_SPACE_INFO; }
    MV_LD_GetInfo_t getMVLDGetInfoAPI() const { return m_gMV_LD_GET_INFO; }
    MV_LD_GetConfig_t getMVLDGetConfigAPI() const { return m_gMV_LD_GET_CONFIG; }
    MV_PassThrough_ATA_t GetMVPassThroughATAAPI() const { return m_gMV_PASSTHROUGH_ATA; }
    MV_Adapter_Get_OEM_Data_t GetMVAdpGetOEMDataAPI() const { return m_gMV_ADAPTER_GET_OEM_DATA; }
    MV_EVT_GetEvent_t GetMVEVTGetEventAPI() const { return m_gMV_EVT_GETEVENT; }
    MV_EVT_FlushEvent_t GetMVEVTFlushEventAPI() const { return m_gMV_EVT_FLUSHEVENT; }

  private:
    struct EntryPoint;
    static const EntryPoint ENTRY_POINTS[];

    // Binds every entry point in the order of the table. Always 0: a missing symbol stops nothing.
    short setMarvellAPI();

    MV_API_Initialize_t m_gMV_API_INITIALIZE = nullptr;
    MV_API_Finalize_t m_gMV_API_FINALIZE = nullptr;
    MV_API_Version_t m_gMV_API_VERSION = nullptr;
    MV_Adapter_GetCount_t m_gMV_ADAPTER_GETCOUNT = nullptr;
    MV_Adapter_GetInfo_t m_gMV_ADAPTER_GETINFO = nullptr;
    MV_Adapter_GetConfig_t m_gMV_ADAPTER_GETCONFIG = nullptr;
    MV_PD_GetHDInfo_Ext_t m_gMV_PD_GETHDINFO_EXT = nullptr;
    MV_PD_GetConfig_t m_gMV_PD_GETCONFIG = nullptr;
    MV_PD_GET_SMART_INFO_t m_gMV_PD_GET_SMART_INFO = nullptr;
    MV_PD_GetHDRaidStatus_t m_gMV_PD_GET_HD_RAID_STATUS = nullptr;
    MV_PD_GetFreeSpaceInfo_t m_gMV_PD_GET_FREE_SPACE_INFO = nullptr;
    MV_LD_GetInfo_t m_gMV_LD_GET_INFO = nullptr;
    MV_LD_GetConfig_t m_gMV_LD_GET_CONFIG = nullptr;
    MV_PassThrough_ATA_t m_gMV_PASSTHROUGH_ATA = nullptr;
    MV_Adapter_Get_OEM_Data_t m_gMV_ADAPTER_GET_OEM_DATA = nullptr;
    MV_EVT_GetEvent_t m_gMV_EVT_GETEVENT = nullptr;
    MV_EVT_FlushEvent_t m_gMV_EVT_FLUSHEVENT = nullptr;
};

#endif
