#ifndef ZARNEK_DISCOVERY_CPDDISCOVERY_H
#define ZARNEK_DISCOVERY_CPDDISCOVERY_H

#include "discovery/ICommand.h"
#include "discovery/ISubSystemManager.h"
#include "support/Status.h"

// Discovers one physical disk or all of a controller again, by the kind of action it is built with.
class CPDDiscovery : public ICommand
{
  public:
    CPDDiscovery(ISubSystemManager* manager, ISubSystemManager::threeArgsActionPtr action);
    CPDDiscovery(ISubSystemManager* manager, ISubSystemManager::twoArgsActionPtr action);
    ~CPDDiscovery() override;

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
