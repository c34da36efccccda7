#ifndef ZARNEK_DISCOVERY_CPDDISCOVERY_H
#define ZARNEK_DISCOVERY_CPDDISCOVERY_H

#include "discovery/CDeviceDiscovery.h"

// Discovers one physical disk or all of a controller again. The one command that frames what it does.
class CPDDiscovery : public CDeviceDiscovery
{
  public:
    CPDDiscovery(ISubSystemManager* manager, ISubSystemManager::threeArgsActionPtr action);
    CPDDiscovery(ISubSystemManager* manager, ISubSystemManager::twoArgsActionPtr action);
    ~CPDDiscovery() override;

    void setArguments(unsigned int first, unsigned int second, unsigned int third);
    unsigned int execute() override;
};

#endif
