#include "events/IEvtObserver.h"

#include "events/CAlert.h"
#include "events/CEvtObserver_Helper.h"
#include "events/IEvtSubject.h"
#include "sdo/SDOProxy.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"

#include <sdo.h>

#include <algorithm>

IEvtObserver::IEvtObserver(const IEvtObserver& /*other*/) {}

IEvtObserver& IEvtObserver::operator=(const IEvtObserver& /*other*/)
{
    return *this;
}

IEvtObserver::~IEvtObserver()
{
    const stg::LogScope scope("ZARNEK:IEvtObserver::~IEvtObserver()");
    m_pfnTakeAction = nullptr;
}

void IEvtObserver::updateMyself(std::vector<CAlert*>& alerts)
{
    const stg::LogScope scope("ZARNEK:IEvtObserver::updateMyself()");
    std::for_each(alerts.begin(), alerts.end(), CEvtObserver_Helper(*this));
}

void IEvtObserver::getAssociatedWith(IEvtSubject* subject, short (*callback)(ICommand&))
{
    const stg::LogScope scope("ZARNEK:IEvtObserver::getAssociatedWith()");
    subject->registerMe(this, &IEvtObserver::updateMyself);
    m_pfnTakeAction = callback;
}

short IEvtObserver::processAlert(CAlert* alert)
{
    const stg::LogScope scope("ZARNEK:IEvtObserver::processAlert()");
    scope.message() << "Going to process Alert Number: " << alert->getAlertNumber() << '\n';
    CControl_Notify& notify = alert->getControlNotify();
    std::vector<unsigned int> nexus;
    createNexus(notify.getObjType(), CControl_Notify::getAttribNameAndType(), nexus);
    notify.setNexus(nexus);
    return createSDOProxyObj(alert);
}

short IEvtObserver::sendAlert(stg::SDOProxy& proxy)
{
    const stg::LogScope scope("ZARNEK:IEvtObserver::sendAlert()");
    return static_cast<short>(proxy.sendAlertNotification());
}

short IEvtObserver::createSDOProxyObj(CAlert* alert)
{
    const stg::LogScope scope("ZERNEK:IEvtObserver::createSDOProxyObj()");
    CControl_Notify& notify = alert->getControlNotify();
    stg::SDOProxy notifyProxy;
    if (notifyProxy.createSDOObject(notify) != stg::STATUS_SUCCESS)
        return stg::STATUS_FAILURE;
    alert->updateControlNotify(notifyProxy);
    stg::SDOProxy alertProxy;
    if (alertProxy.createSDOObject(*alert) != stg::STATUS_SUCCESS)
        return stg::STATUS_FAILURE;
    sendAlert(alertProxy);
    // After the alert, whether it went out or not: the data engine gets it ahead of the refreshed objects.
    const unsigned int objType = notify.getObjType();
    generateActionCommand(alert->getAlertNumber(), objType, notify.getGlobalControllerNumber(),
                          notify.getControllerID(),
                          objType == SDO_OBJTYPE_CONTROLLER ? stg::NUMBER_UNKNOWN : notify.getDevID());
    return stg::STATUS_FAILURE;
}
