#include "events/CMarvelAlert.h"

#include "mvlayer/Binders.h"
#include "support/CLogger.h"
#include "support/LogScope.h"

#include <sdo.h>

CMarvelAlert::CMarvelAlert() = default;

CMarvelAlert::CMarvelAlert(const CMarvelAlert& other) : CAlert()
{
    copyAttributes(other);
    m_EventSeqNum = other.m_EventSeqNum;
}

CMarvelAlert::~CMarvelAlert() = default;

CMarvelAlert& CMarvelAlert::operator=(void* binder)
{
    static constexpr char LABEL[] = "ZARNEK:CMarvelAlert::operator =()";
    const stg::LogScope scope(LABEL);

    if (binder == nullptr)
        return *this;
    const auto& records = *static_cast<const stg::QLVEventBinder_t*>(binder);
    CControl_Notify& notify = getControlNotify();
    notify.setAttributeMask(0);
    notify.setMasterMethodMask(0);
    notify.setCurrentMethodMask(0);
    notify.setVILNumber(SDO_VIL_NUMBER);
    setNotifyType(SDO_NOTIFYTYPE_ALERT);
    if (records.infoHelper != nullptr) {
        notify.setGlobalControllerNumber(records.infoHelper->globalCntrlNum);
        notify.setControllerID(records.infoHelper->cntrlId);
    }
    if (records.event != nullptr) {
        const _Event& event = *records.event;
        setEventSeqNum(event.EventSequence);
        setAlertNumber(event.EventCode);
        notify.setDevID(event.EventDeviceId);
        switch (event.EventClass) {
        case MV_EVENT_VIRTUAL_DISK:
            notify.setObjType(SDO_OBJTYPE_VIRTUAL_DISK);
            break;
        case MV_EVENT_CONTROLLER:
            notify.setObjType(SDO_OBJTYPE_CONTROLLER);
            break;
        case MV_EVENT_PHYSICAL_DISK:
            notify.setObjType(SDO_OBJTYPE_PHYSICAL_DISK);
            break;
        default:
            stg::lout << LABEL << " default Event class" << '\n';
            break;
        }
    }
    return *this;
}

CMarvelAlert& CMarvelAlert::operator=(const CMarvelAlert& other)
{
    copyAttributes(other);
    m_EventSeqNum = other.m_EventSeqNum;
    return *this;
}

void CMarvelAlert::setEventSeqNum(unsigned int number)
{
    m_EventSeqNum = number;
    m_bHasEventSeqNum = true;
}
