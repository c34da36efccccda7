#include "model/CPhysicalDevice_Helper.h"

#include "model/CPhysicalDevice.h"

CPhysicalDevice_Helper& CPhysicalDevice_Helper::operator=(const CPhysicalDevice_Helper& other)
{
    *m_pOwner = *other.m_pOwner;
    return *this;
}

void CPhysicalDevice_Helper::operator()(std::pair<std::string, void*> entry)
{
    m_pOwner->deleteFromMap(entry.first);
}
