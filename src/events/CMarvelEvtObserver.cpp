#include "events/CMarvelEvtObserver.h"

#include "discovery/CControllerDiscovery.h"
#include "discovery/CMarvelSubSystemMgr.h"
#include "discovery/CPDDiscovery.h"
#include "discovery/CVDDiscovery.h"
#include "events/AlertAction.h"
#include "events/CAlert.h"
#include "events/CMarvelEventManager.h"
#include "events/IEvtSubject.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Singleton.h"
#include "support/Status.h"
#include "vendor/IniAccess.h"

#include <sdo.h>
#include <zarnek_ini.h>

#include <new>

CMarvelEvtObserver* CMarvelEvtObserver::m_pMarvelEvtObserverInstance = nullptr;
unsigned int CMarvelEvtObserver::m_CurEventSeqNum = 0;

namespace
{

// The section of the mapping file for alerts of an object type; null for a type that has none.
const char* sectionOf(unsigned int objType)
{
    switch (objType) {
    case SDO_OBJTYPE_PHYSICAL_DISK:
        return INI_PHYSICAL_DISK_SECTION;
    case SDO_OBJTYPE_VIRTUAL_DISK:
        return INI_VIRTUAL_DISK_SECTION;
    case SDO_OBJTYPE_CONTROLLER:
        return INI_ADAPTER_SECTION;
    default:
        return nullptr;
    }
}

} // namespace

CMarvelEvtObserver* CMarvelEvtObserver::getUniqueInstance()
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtObserver::getUniqueInstance()");
    return stg::uniqueInstance(m_pMarvelEvtObserverInstance,
                               [](const std::bad_alloc&) {} /* no line says so */);
}

short CMarvelEvtObserver::destroyMe()
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtObserver::destroyMe()");
    stg::destroyInstance(m_pMarvelEvtObserverInstance);
    return stg::STATUS_SUCCESS;
}

CMarvelEvtObserver::CMarvelEvtObserver() = default;

CMarvelEvtObserver::CMarvelEvtObserver(const CMarvelEvtObserver& other) = default;

CMarvelEvtObserver& CMarvelEvtObserver::operator=(const CMarvelEvtObserver& other)
{
    m_pfnTakeAction = other.m_pfnTakeAction;
    return *this;
}

CMarvelEvtObserver::~CMarvelEvtObserver() = default;

void CMarvelEvtObserver::getAssociatedWith(IEvtSubject* subject, short (*callback)(ICommand&))
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtObserver::getAssociatedWith()");
    subject->registerMe(getUniqueInstance(), nullptr);
    m_pfnTakeAction = callback;
}

short CMarvelEvtObserver::processAlert(CAlert* alert)
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtObserver::processAlert()");

    const unsigned int code = alert->getAlertNumber(); // still the vendor's
    const char* const section = sectionOf(alert->getControlNotify().getObjType());
    unsigned int mapped = stg::NUMBER_UNKNOWN;
    if (section != nullptr)
        mapped =
            static_cast<unsigned int>(stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, section, code));
    else
        scope.message() << "Object Type is not matching. Not able to process alert." << '\n';
    if (mapped < INI_FIRST_ALERT_NUMBER || mapped == stg::NUMBER_UNKNOWN) {
        scope.message() << "Couldn't map Marvel Event Code: " << code << " with VRAX Alert Code in "
                        << INI_ALERT_MAPPING_FILE << " File." << '\n';
        return stg::STATUS_FAILURE;
    }
    if (!alert->m_bHasEventSeqNum) {
        scope.message() << "Event Sequence Number is missing. Not able to process this alert." << '\n';
        return stg::STATUS_FAILURE;
    }
    const unsigned int sequence = alert->getEventSeqNum();
    if (sequence <= CMarvelEventManager::m_PrevEventSeqNum || sequence == stg::NUMBER_UNKNOWN) {
        scope.message()
            << "Alert Sequence Number: " << sequence
            << " is not greater than the Sequence Number mentioned in MarvelAlertMapping.ini File. "
            << "Not processing this Alert." << '\n';
        return stg::STATUS_FAILURE;
    }

    m_CurEventSeqNum = sequence;
    alert->setAlertNumber(mapped);
    const short result = IEvtObserver::processAlert(alert);
    alert->m_bHasEventSeqNum = false;
    m_CurEventSeqNum = sequence;
    return result;
}

void CMarvelEvtObserver::createNexus(unsigned int objType, stg::AttribTypeMap& attribTypes,
                                     std::vector<unsigned int>& nexus)
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtObserver::createNexus()");

    unsigned int deviceProperty = SSPROP_NONE;
    switch (objType) {
    case SDO_OBJTYPE_CONTROLLER:
        nexus.push_back(SSPROP_GLOBALCONTROLLERNUM_U32);
        return;
    case SDO_OBJTYPE_PHYSICAL_DISK:
        deviceProperty = SSPROP_SLOTNUM_U32;
        break;
    case SDO_OBJTYPE_VIRTUAL_DISK:
        deviceProperty = SSPROP_LOGICALDRIVENUM_U32;
        break;
    default:
        scope.message() << "Object Type didn't match. Not able to create Nexus for the Object Type: "
                        << objType << '\n';
        return;
    }
    const auto deviceRow = attribTypes.find("m_DevID");
    if (deviceRow != attribTypes.end())
        deviceRow->second.m_PropertyID = deviceProperty; // for every alert from now on
    else
        deviceProperty = SSPROP_DEVICEID_U32;
    nexus.push_back(SSPROP_GLOBALCONTROLLERNUM_U32);
    nexus.push_back(deviceProperty);
}

short CMarvelEvtObserver::generateActionCommand(unsigned int alert, unsigned int /*objType*/,
                                                unsigned int globalNum, unsigned int cntrlId,
                                                unsigned int devId)
{
    const stg::LogScope scope("ZARNEK:IEvtObserver::generateActionCommand()"); // names the base class
    scope.message() << "Checking if any action is required for VRAX Alert Number: " << alert << '\n';

    const stg::AlertAction* const action = stg::actionOf(alert);
    if (action == nullptr) {
        scope.message() << "Not required to take any action for VRAX Alert Number: " << alert << '\n';
        return stg::STATUS_FAILURE;
    }
    const auto dispatch = [&](auto&& command, auto... device) {
        command.setArguments(globalNum, cntrlId, device...);
        dispatchCommand(command);
    };
    for (const stg::AlertStep step : action->steps) {
        switch (step) {
        case stg::AlertStep::OneDisk:
            dispatch(CPDDiscovery(CMarvelSubSystemMgr::getUniqueInstance(), &ISubSystemManager::discoverPD),
                     devId);
            break;
        case stg::AlertStep::AllDisks:
            dispatch(
                CPDDiscovery(CMarvelSubSystemMgr::getUniqueInstance(), &ISubSystemManager::discoverAllPDs),
                stg::NUMBER_UNKNOWN);
            break;
        case stg::AlertStep::AllDrives:
            dispatch(
                CVDDiscovery(CMarvelSubSystemMgr::getUniqueInstance(), &ISubSystemManager::discoverAllVDs),
                stg::NUMBER_UNKNOWN);
            break;
        case stg::AlertStep::Controller:
            dispatch(CControllerDiscovery(
                CMarvelSubSystemMgr::getUniqueInstance(),
                static_cast<ISubSystemManager::twoArgsActionPtr>(&ISubSystemManager::discover)));
            break;
        case stg::AlertStep::None:
            break;
        }
    }
    return stg::STATUS_FAILURE;
}

short CMarvelEvtObserver::dispatchCommand(ICommand& command)
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtObserver::dispatchCommand()");
    return m_pfnTakeAction(command);
}
