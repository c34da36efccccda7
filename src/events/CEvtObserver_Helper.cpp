#include "events/CEvtObserver_Helper.h"

#include "events/IEvtObserver.h"

CEvtObserver_Helper::CEvtObserver_Helper(IEvtObserver& observer) : m_pObserverRef(observer) {}

CEvtObserver_Helper& CEvtObserver_Helper::operator=(const CEvtObserver_Helper& /*other*/)
{
    return *this;
}

short CEvtObserver_Helper::operator()(CAlert* alert)
{
    return m_pObserverRef.processAlert(alert);
}
