#ifndef ZARNEK_DISCOVERY_CVDDISCOVERY_H
#define ZARNEK_DISCOVERY_CVDDISCOVERY_H

#include "discovery/ICommand.h"
#include "discovery/ISubSystemManager.h"
#include "support/Status.h"

// Discovers one virtual disk or all of a controller again, by the kind of action it is built with.
class CVDDiscovery : public ICommand
{
  public:
    CVDDiscovery(ISubSystemManager* manager, ISubSystemManager::threeArgsActionPtr action);
    CVDDiscovery(ISubSystemManager* manager, ISubSystemManager::twoArgsActionPtr action);
    ~CVDDiscovery() override;

    // A two-argument action leaves the third unused.
    void setArguments(unsigned int first, unsigned int second, unsigned int third);
    // Runs the action that is set; its result is dropped. Always 0.
    unsigned int execute() override;

  private:
    ISubSystemManager* m_pSubSystemMgr;
    unsigned int m_Arg1 = stg::NUMBER_UNKNOWN;
    unsigned int m_Arg2 = stg::NUMBER_UNKNOWN;
    unsigned int m_Arg3 = stg::NUMBER_UNKNOWN;
    ISubSystemManager::threeArgsActionPtr m_ThreeArgsAction;
    ISubSystemManager::twoArgsActionPtr m_TwoArgsAction;
};

#endif
