#include "entry/CCommandHandler_Helper.h"

#include "discovery/CSubSystemFactory.h"
#include "discovery/ISubSystemManager.h"
#include "entry/CCommandHandler.h"
#include "support/Status.h"

namespace stg
{

CCommandHandler_Helper::CCommandHandler_Helper(CSubSystemFactory*& factory)
    : m_pHandler(CCommandHandler::getUniqueInstance()), m_pFactory(factory), m_bRemove(false),
      m_MgrUniqueID(NUMBER_UNKNOWN)
{
}

CCommandHandler_Helper::CCommandHandler_Helper(bool remove)
    : m_pHandler(CCommandHandler::getUniqueInstance()), m_pFactory(nullptr), m_bRemove(remove),
      m_MgrUniqueID(NUMBER_UNKNOWN)
{
}

CCommandHandler_Helper::CCommandHandler_Helper(unsigned int managerId)
    : m_pHandler(CCommandHandler::getUniqueInstance()), m_pFactory(nullptr), m_bRemove(false),
      m_MgrUniqueID(managerId)
{
}

CCommandHandler_Helper::CCommandHandler_Helper(const CCommandHandler_Helper& other)
    : m_pHandler(CCommandHandler::getUniqueInstance()), m_pFactory(nullptr), m_bRemove(other.m_bRemove),
      m_MgrUniqueID(other.m_MgrUniqueID)
{
}

CCommandHandler_Helper::~CCommandHandler_Helper()
{
    m_pHandler = nullptr;
    m_pFactory = nullptr;
}

void CCommandHandler_Helper::operator()(std::pair<unsigned int, IVendorLibrary*> entry)
{
    m_pHandler->insertIntoVector(m_pFactory->createSubSystemMgrObj(entry));
}

bool CCommandHandler_Helper::operator()(ISubSystemManager*& manager)
{
    if (manager == nullptr)
        return false;
    const unsigned int managerId = manager->getMgrUniqueID();
    if (m_bRemove) {
        m_pHandler->removeSubSystemMgr(manager);
        return true;
    }
    return managerId == m_MgrUniqueID;
}

} // namespace stg
