#ifndef ZARNEK_DISCOVERY_CCONTROLLERDISCOVERY_H
#define ZARNEK_DISCOVERY_CCONTROLLERDISCOVERY_H

#include "discovery/ICommand.h"
#include "discovery/ISubSystemManager.h"
#include "support/Status.h"

// Discovers a controller again.
class CControllerDiscovery : public ICommand
{
  public:
    CControllerDiscovery(ISubSystemManager* manager, ISubSystemManager::twoArgsActionPtr action);
    ~CControllerDiscovery() override;

    void setArguments(unsigned int first, unsigned int second);
    // The action's result.
    unsigned int execute() override;

  private:
    ISubSystemManager* m_pSubSystemMgr;
    unsigned int m_Arg1 = stg::NUMBER_UNKNOWN;
    unsigned int m_Arg2 = stg::NUMBER_UNKNOWN;
    ISubSystemManager::twoArgsActionPtr m_TwoArgsAction;
};

#endif
