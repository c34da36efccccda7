#ifndef ZARNEK_DISCOVERY_CSUBSYSTEMFACTORY_H
#define ZARNEK_DISCOVERY_CSUBSYSTEMFACTORY_H

#include <utility>

class ISubSystemManager;
class IVendorLibrary;

// Turns an entry of the library manager into the vendor's manager.
class CSubSystemFactory
{
  public:
    // The singleton of that vendor with a new identifier; null for a vendor that the system does not
    // know, and without memory.
    ISubSystemManager* createSubSystemMgrObj(std::pair<unsigned int, IVendorLibrary*>& entry);
};

#endif
