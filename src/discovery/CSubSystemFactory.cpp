#include "discovery/CSubSystemFactory.h"

#include "discovery/CMarvelSubSystemMgr.h"
#include "support/LogScope.h"

#include <sdo.h>

ISubSystemManager* CSubSystemFactory::createSubSystemMgrObj(std::pair<unsigned int, IVendorLibrary*>& entry)
{
    const stg::LogScope scope("ZARNEK:CSubSystemFactory::createSubSystemMgrObj()");
    if (entry.first != SDO_VIL_NUMBER)
        return nullptr;
    CMarvelSubSystemMgr* const manager = CMarvelSubSystemMgr::getUniqueInstance();
    ++ISubSystemManager::m_SubSystemSerialNo;
    if (manager != nullptr)
        manager->setMgrUniqueID(ISubSystemManager::m_SubSystemSerialNo);
    return manager;
}
