#include "discovery/CDeviceDiscovery.h"

CDeviceDiscovery::CDeviceDiscovery(ISubSystemManager* manager, ISubSystemManager::threeArgsActionPtr action)
    : m_pSubSystemMgr(manager), m_ThreeArgsAction(action)
{
}

CDeviceDiscovery::CDeviceDiscovery(ISubSystemManager* manager, ISubSystemManager::twoArgsActionPtr action)
    : m_pSubSystemMgr(manager), m_TwoArgsAction(action)
{
}

CDeviceDiscovery::~CDeviceDiscovery()
{
    m_pSubSystemMgr = nullptr;
    m_ThreeArgsAction = nullptr;
    m_TwoArgsAction = nullptr;
}

void CDeviceDiscovery::setArguments(unsigned int first, unsigned int second, unsigned int third)
{
    m_Arg1 = first;
    m_Arg2 = second;
    m_Arg3 = third;
}

unsigned int CDeviceDiscovery::execute()
{
    if (m_pSubSystemMgr != nullptr && m_ThreeArgsAction != nullptr)
        (m_pSubSystemMgr->*m_ThreeArgsAction)(m_Arg1, m_Arg2, m_Arg3);
    if (m_pSubSystemMgr != nullptr && m_TwoArgsAction != nullptr)
        (m_pSubSystemMgr->*m_TwoArgsAction)(m_Arg1, m_Arg2);
    return 0;
}
