#ifndef ZARNEK_DISCOVERY_CVDDISCOVERY_H
#define ZARNEK_DISCOVERY_CVDDISCOVERY_H

#include "discovery/CDeviceDiscovery.h"

// Discovers one virtual disk or all of a controller again. Writes no lines.
class CVDDiscovery : public CDeviceDiscovery
{
  public:
    using CDeviceDiscovery::CDeviceDiscovery;
};

#endif
