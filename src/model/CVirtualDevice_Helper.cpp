#include "model/CVirtualDevice_Helper.h"

#include "model/CVirtualDevice.h"

CVirtualDevice_Helper& CVirtualDevice_Helper::operator=(const CVirtualDevice_Helper& other)
{
    *m_pOwner = *other.m_pOwner;
    return *this;
}

void CVirtualDevice_Helper::operator()(std::pair<std::string, void*> entry)
{
    m_pOwner->deleteFromMap(entry.first);
}
