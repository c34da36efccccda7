#ifndef ZARNEK_MODEL_CMARVELPHYSICALDEVICE_H
#define ZARNEK_MODEL_CMARVELPHYSICALDEVICE_H

#include "model/CPhysicalDevice.h"

// A disk behind a Marvell controller: turns the records of one disk into the attributes of CPhysicalDevice.
class CMarvelPhysicalDevice : public CPhysicalDevice
{
  public:
    CMarvelPhysicalDevice();
    CMarvelPhysicalDevice(const CMarvelPhysicalDevice& other);
    ~CMarvelPhysicalDevice() override;

    // `binder` is a stg::QLVPDBinder_t or null. Null and null records leave their attributes alone; the nexus
    // is set in every case.
    CMarvelPhysicalDevice& operator=(void* binder) override;
    using CPhysicalDevice::operator=;
    CMarvelPhysicalDevice& operator=(const CMarvelPhysicalDevice& other);

    // Decodes the RAID status flags of a disk. *state stays as it is for a disk that is being checked. Always
    // 0.
    unsigned int mapPDStateAndStatus(unsigned int flags, unsigned int* state, unsigned int* status);
};

#endif
