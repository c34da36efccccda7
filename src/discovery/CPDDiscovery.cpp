#include "discovery/CPDDiscovery.h"

#include "support/LogScope.h"

CPDDiscovery::CPDDiscovery(ISubSystemManager* manager, ISubSystemManager::threeArgsActionPtr action)
    : CDeviceDiscovery(manager, action)
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::CPDDiscovery() with threeArgsActionPtr.",
                              "ZARNEK:CPDDiscovery::CPDDiscovery()");
}

CPDDiscovery::CPDDiscovery(ISubSystemManager* manager, ISubSystemManager::twoArgsActionPtr action)
    : CDeviceDiscovery(manager, action)
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::CPDDiscovery() with twoArgsActionPtr.",
                              "ZARNEK:CPDDiscovery::CPDDiscovery()");
}

CPDDiscovery::~CPDDiscovery()
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::~CPDDiscovery()");
}

void CPDDiscovery::setArguments(unsigned int first, unsigned int second, unsigned int third)
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::setArguments()");
    CDeviceDiscovery::setArguments(first, second, third);
}

unsigned int CPDDiscovery::execute()
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::execute()");
    return CDeviceDiscovery::execute();
}
