#include "discovery/CControllerDiscovery.h"

CControllerDiscovery::CControllerDiscovery(ISubSystemManager* manager,
                                           ISubSystemManager::twoArgsActionPtr action)
    : m_pSubSystemMgr(manager), m_TwoArgsAction(action)
{
}

CControllerDiscovery::~CControllerDiscovery() = default;

void CControllerDiscovery::setArguments(unsigned int first, unsigned int second)
{
    m_Arg1 = first;
    m_Arg2 = second;
}

unsigned int CControllerDiscovery::execute()
{
    return (m_pSubSystemMgr->*m_TwoArgsAction)(m_Arg1, m_Arg2);
}
