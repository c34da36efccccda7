#ifndef ZARNEK_MVLAYER_CMVLIBRARYINTERFACELAYER_H
#define ZARNEK_MVLAYER_CMVLIBRARYINTERFACELAYER_H

#include "mvlayer/ILibraryInterfaceLayer.h"

#include <mv.h>

#include <cstdint>

class CMarvellVendorLibrary;

// The queries over the Marvell API. Construction finds the registered library of the vendor and initialises
// its API, destruction finalises it; without a registered library every query answers 0 and calls nothing,
// save the count of a library that is handed in. Should the library be unloaded between two calls, the layer
// counts as one without a library from then on.
class CMVLibraryInterfaceLayer : public ILibraryInterfaceLayer
{
  public:
    CMVLibraryInterfaceLayer(unsigned int vendorId, void* handle);
    ~CMVLibraryInterfaceLayer() override;

    void libInit() override;
    void libExit() override;
    unsigned int getControllerCount() override;
    unsigned int getControllerCount(IVendorLibrary* library) override;
    short getControllerInfo(IController& controller) override;
    unsigned int getPDCount(unsigned int cntrlId) override;
    unsigned int getVDCount(unsigned int cntrlId) override;
    short getAllPDInfo(unsigned int globalCntrlNum, unsigned int cntrlId,
                       std::vector<CPhysicalDevice*>& disks) override;
    short getAllVDInfo(unsigned int globalCntrlNum, unsigned int cntrlId,
                       std::vector<CVirtualDevice*>& drives) override;
    short getPDInfo(CPhysicalDevice& disk) override;
    short getVDInfo(CVirtualDevice& drive) override;
    short getEventInfo(stg::SCntrlID_t id, std::vector<CAlert*>& alerts) override;
    short flushEvents(unsigned int cntrlId) override;
    short releaseEventInfoVector(std::vector<CAlert*>& alerts) override;

    // One call of the vendor library each, with the vendor's status as result. The record is the caller's;
    // those of list and one-device calls may be null, and get their header here. `count` of a list is one
    // more than the number of entries asked for.
    short getAdapterInfo(unsigned int id, unsigned int count, _Adapter_Info* info);
    short getAdapterConfig(unsigned int id, unsigned int count, _Adapter_Config_V2* config);
    // The text "major.minor.revision.build", cut to 19 characters; unchanged on failure.
    short getAdapterROMVersion(unsigned int id, char (*text)[20]);
    short getPhysicalDisksInfo(unsigned int id, unsigned int count, _Info_Request* request);
    short getPhysicalDiskConfig(unsigned int id, unsigned int count, _Info_Request* request);
    short getVirtualDisksInfo(unsigned int id, unsigned int count, _Info_Request* request);
    short getVirtualDiskConfig(unsigned int id, unsigned int count, _Info_Request* request);
    short getPhysicalDiskStatus(unsigned int id, unsigned short hdId, _HD_RAID_Status_Request* request);
    short getPhysicalDiskFreeSpace(unsigned int id, unsigned short hdId, _HD_FreeSpaceInfo_Request* request);

    // Bytes of the adapter's largest answer; 0 when it cannot be told.
    std::uint32_t getMarvellBufSize(unsigned int cntrlId);
    // Logs one line that names a vendor status.
    void mvErrorDisplay(unsigned int error);

  private:
    class DiskRequests;

    // The library while it lives, else null. Fetched once per operation.
    CMarvellVendorLibrary* library() const;
    // The status in a call's result, which is its low byte; an error is logged.
    short statusOf(unsigned int result);
    template <class Function>
    short callList(Function function, unsigned int id, unsigned int count, _Info_Request* request);
    template <class Function, class Request>
    short callOneDevice(Function function, unsigned int id, unsigned short hdId, Request* request);

    CMarvellVendorLibrary* m_pMarvellLib;
    std::uint64_t m_librarySerial = 0;
};

#endif
