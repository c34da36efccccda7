#ifndef ZARNEK_MVLAYER_ILIBRARYINTERFACELAYER_H
#define ZARNEK_MVLAYER_ILIBRARYINTERFACELAYER_H

#include "mvlayer/SCntrlID.h"

#include <vector>

class CAlert;
class CPhysicalDevice;
class CVirtualDevice;
class IController;
class IVendorLibrary;

// The vendor-neutral queries with which discovery and event code talk to a vendor library. A layer does not
// change after construction and holds no lock during a call: it is called from the entry thread and the event
// thread alike, and both go straight into the vendor library. Controllers are named by the vendor's adapter
// index.
//
// Statuses are 0 for success, -1 for a failure of the layer's own, or the vendor's error number. A missing
// library or entry point reads as success with an empty answer.
class ILibraryInterfaceLayer
{
  public:
    // `vendorLibHandle` is borrowed.
    ILibraryInterfaceLayer(unsigned int vendorId, void* vendorLibHandle);
    ILibraryInterfaceLayer(const ILibraryInterfaceLayer&) = delete;
    ILibraryInterfaceLayer& operator=(const ILibraryInterfaceLayer&) = delete;

    virtual ~ILibraryInterfaceLayer();
    // Open and close the vendor's API.
    virtual void libInit() = 0;
    virtual void libExit() = 0;
    virtual unsigned int getControllerCount() = 0;
    // The same for a library that is not registered yet; initialises its API and leaves it so.
    virtual unsigned int getControllerCount(IVendorLibrary* library) = 0;
    // Fills a controller that knows its numbers. The status of the firmware version's query.
    virtual short getControllerInfo(IController& controller) = 0;
    virtual unsigned int getPDCount(unsigned int cntrlId) = 0;
    virtual unsigned int getVDCount(unsigned int cntrlId) = 0;
    // Fill the objects of the vector, as many as the count queries gave; null elements are allowed. Objects
    // stay as they are when the answers do not fit together.
    virtual short getAllPDInfo(unsigned int globalCntrlNum, unsigned int cntrlId,
                               std::vector<CPhysicalDevice*>& disks) = 0;
    virtual short getAllVDInfo(unsigned int globalCntrlNum, unsigned int cntrlId,
                               std::vector<CVirtualDevice*>& drives) = 0;
    // Fill one disk, found by its slot number, or one drive, found by its device id.
    virtual short getPDInfo(CPhysicalDevice& disk) = 0;
    virtual short getVDInfo(CVirtualDevice& drive) = 0;
    // Appends one new alert per pending event, at most 50. They go back through releaseEventInfoVector.
    virtual short getEventInfo(stg::SCntrlID_t id, std::vector<CAlert*>& alerts) = 0;
    // Makes the library drop its pending events.
    virtual short flushEvents(unsigned int cntrlId) = 0;
    // Deletes the alerts and empties the vector. The base does nothing. Always 0.
    virtual short releaseEventInfoVector(std::vector<CAlert*>& alerts);

  protected:
    unsigned int m_vendorId;
    void* m_vendorLibHandle;
};

#endif
