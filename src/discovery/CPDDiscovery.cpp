#include "discovery/CPDDiscovery.h"

#include "support/LogScope.h"

CPDDiscovery::CPDDiscovery(ISubSystemManager* manager, ISubSystemManager::threeArgsActionPtr action)
    : m_pSubSystemMgr(manager), m_ThreeArgsAction(action), m_TwoArgsAction(nullptr)
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::CPDDiscovery() with threeArgsActionPtr.",
                              "ZARNEK:CPDDiscovery::CPDDiscovery()");
}

CPDDiscovery::CPDDiscovery(ISubSystemManager* manager, ISubSystemManager::twoArgsActionPtr action)
    : m_pSubSystemMgr(manager), m_ThreeArgsAction(nullptr), m_TwoArgsAction(action)
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::CPDDiscovery() with twoArgsActionPtr.",
                              "ZARNEK:CPDDiscovery::CPDDiscovery()");
}

CPDDiscovery::~CPDDiscovery()
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::~CPDDiscovery()");
    m_pSubSystemMgr = nullptr;
    m_ThreeArgsAction = nullptr;
    m_TwoArgsAction = nullptr;
}

void CPDDiscovery::setArguments(unsigned int first, unsigned int second, unsigned int third)
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::setArguments()");
    m_Arg1 = first;
    m_Arg2 = second;
    m_Arg3 = third;
}

unsigned int CPDDiscovery::execute()
{
    const stg::LogScope scope("ZARNEK:CPDDiscovery::execute()");
    if (m_pSubSystemMgr != nullptr && m_ThreeArgsAction != nullptr)
        (m_pSubSystemMgr->*m_ThreeArgsAction)(m_Arg1, m_Arg2, m_Arg3);
    if (m_pSubSystemMgr != nullptr && m_TwoArgsAction != nullptr)
        (m_pSubSystemMgr->*m_TwoArgsAction)(m_Arg1, m_Arg2);
    return 0;
}
