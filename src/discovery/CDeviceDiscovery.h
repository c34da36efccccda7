#ifndef ZARNEK_DISCOVERY_CDEVICEDISCOVERY_H
#define ZARNEK_DISCOVERY_CDEVICEDISCOVERY_H

#include "discovery/ICommand.h"
#include "discovery/ISubSystemManager.h"
#include "support/Status.h"

// What the commands for physical and virtual disks share: they discover one device of a controller again or
// all of them, by the kind of action they are built with.
class CDeviceDiscovery : public ICommand
{
  public:
    CDeviceDiscovery(ISubSystemManager* manager, ISubSystemManager::threeArgsActionPtr action);
    CDeviceDiscovery(ISubSystemManager* manager, ISubSystemManager::twoArgsActionPtr action);
    // Nulls the manager, which stays as it is, and both actions.
    ~CDeviceDiscovery() override;

    // A two-argument action leaves the third unused.
    void setArguments(unsigned int first, unsigned int second, unsigned int third);
    // Runs the action that is set; its result is dropped. Always 0.
    unsigned int execute() override;

  private:
    ISubSystemManager* m_pSubSystemMgr;
    unsigned int m_Arg1 = stg::NUMBER_UNKNOWN;
    unsigned int m_Arg2 = stg::NUMBER_UNKNOWN;
    unsigned int m_Arg3 = stg::NUMBER_UNKNOWN;
    ISubSystemManager::threeArgsActionPtr m_ThreeArgsAction = nullptr;
    ISubSystemManager::twoArgsActionPtr m_TwoArgsAction = nullptr;
};

#endif
