#ifndef ZARNEK_MODEL_CMARVELVIRTUALDEVICE_H
#define ZARNEK_MODEL_CMARVELVIRTUALDEVICE_H

#include "model/CVirtualDevice.h"

// A virtual disk of a Marvell controller: turns the records of one logical drive into the attributes of
// CVirtualDevice, with the vendor's codes for level, state and cache translated into the data engine's.
class CMarvelVirtualDevice : public CVirtualDevice
{
  public:
    CMarvelVirtualDevice();
    CMarvelVirtualDevice(const CMarvelVirtualDevice& other);
    ~CMarvelVirtualDevice() override;

    // `binder` is a stg::QLVVDBinder_t or null. Null and null records leave their attributes alone; the nexus
    // is set in every case.
    CMarvelVirtualDevice& operator=(void* binder) override;
    using CVirtualDevice::operator=;
    CMarvelVirtualDevice& operator=(const CMarvelVirtualDevice& other);

    // Sets the RAID level from the vendor's code; an unknown code leaves it. Always 0.
    unsigned int mapVDRaidMode(unsigned int raidMode);
    // Decodes a drive's status; an unknown code leaves both outputs. Always 0.
    unsigned int mapVDStateAndStatus(unsigned int ldStatus, unsigned int* state, unsigned int* status);
};

#endif
