#ifndef ZARNEK_DISCOVERY_CCONTROLLERDISCOVERY_H
#define ZARNEK_DISCOVERY_CCONTROLLERDISCOVERY_H

#include "discovery/ICommand.h"
#include "discovery/ISubSystemManager.h"

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
    unsigned int m_Arg1 = 0;
    unsigned int m_Arg2 = 0;
    ISubSystemManager::twoArgsActionPtr m_TwoArgsAction;
};

#endif
