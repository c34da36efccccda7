#include "model/CController_Helper.h"

#include "model/IController.h"

CController_Helper& CController_Helper::operator=(const CController_Helper& other)
{
    *m_pOwner = *other.m_pOwner;
    return *this;
}

void CController_Helper::operator()(std::pair<std::string, void*> entry)
{
    m_pOwner->deleteFromMap(entry.first);
}
