#ifndef ZARNEK_MVLAYER_CMVLIBRARYINTERFACELAYER_H
#define ZARNEK_MVLAYER_CMVLIBRARYINTERFACELAYER_H

#include "mvlayer/ILibraryInterfaceLayer.h"

#include <mv.h>

#include <cstdint>

class CMarvellVendorLibrary;

// The queries over the Marvell API. Construction finds the registered library of the vendor and initialises
// its API, destruction finalises it; without a registered library every query answers 0 and calls nothing,
// save the count of a library that is handed in. The library must outlive the layer.
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
    // The text "major.minor.revision.build", cut to 19 characters; unchanged on failure and where it cannot
    // be asked.
    short getAdapterROMVersion(unsigned int id, char (*text)[20]);
    short getPhysicalDisksInfo(unsigned int id, unsigned int count, _Info_Request* list);
    short getPhysicalDiskConfig(unsigned int id, unsigned int count, _Info_Request* list);
    short getVirtualDisksInfo(unsigned int id, unsigned int count, _Info_Request* list);
    short getVirtualDiskConfig(unsigned int id, unsigned int count, _Info_Request* list);
    short getPhysicalDiskStatus(unsigned int id, unsigned short hdId, _HD_RAID_Status_Request* answer);
    short getPhysicalDiskFreeSpace(unsigned int id, unsigned short hdId, _HD_FreeSpaceInfo_Request* answer);

    // Bytes of the adapter's largest answer; 0 when it cannot be asked, and where a failed call wrote none.
    std::uint32_t getMarvellBufSize(unsigned int cntrlId);
    // Logs one line that names a vendor status.
    void mvErrorDisplay(unsigned int error);

  private:
    class DiskRequests;

    // The library's function; null without a library, or where it lacks the function.
    template <class Function>
    Function entryPoint(Function (CMarvellVendorLibrary::*accessor)() const) const;
    // The status in a call's result, which is its low byte; an error is logged.
    short statusOf(unsigned int result);
    // One framed call: what cannot be called answers 0 and leaves its arguments alone.
    template <class Function, class... Arguments>
    short call(const char* label, Function (CMarvellVendorLibrary::*accessor)() const, unsigned int id,
               Arguments... arguments);
    // The same for a call with a request, which gets its header here; null is not asked.
    template <class Function, class Request>
    short request(const char* label, Function (CMarvellVendorLibrary::*accessor)() const, unsigned int id,
                  _Info_Request header, Request* request);

    CMarvellVendorLibrary* m_pMarvellLib;
};

#endif
