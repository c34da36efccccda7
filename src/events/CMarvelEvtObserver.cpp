#include "events/CMarvelEvtObserver.h"

#include "discovery/CControllerDiscovery.h"
#include "discovery/CMarvelSubSystemMgr.h"
#include "discovery/CPDDiscovery.h"
#include "discovery/CVDDiscovery.h"
#include "events/AlertNumber.h"
#include "events/CAlert.h"
#include "events/CMarvelEventManager.h"
#include "events/IEvtSubject.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Singleton.h"
#include "support/Status.h"
#include "vendor/IniAccess.h"

#include <sdo.h>

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
        return "PhysicalDevice";
    case SDO_OBJTYPE_VIRTUAL_DISK:
        return "VirtualDevice";
    case SDO_OBJTYPE_CONTROLLER:
        return "Adapter";
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
    static constexpr char LABEL[] = "ZARNEK:CMarvelEvtObserver::processAlert()";
    const stg::LogScope scope(LABEL);

    const unsigned int code = alert->getAlertNumber(); // still the vendor's
    const char* const section = sectionOf(alert->getControlNotify().getObjType());
    unsigned int mapped = stg::NUMBER_UNKNOWN;
    if (section != nullptr)
        mapped =
            static_cast<unsigned int>(stg::readFromIniFileAgainstKey(stg::ALERT_MAPPING_FILE, section, code));
    else
        stg::lout << LABEL << ": "
                  << "Object Type is not matching. Not able to process alert." << '\n';
    if (mapped < stg::FIRST_ALERT_NUMBER || mapped == stg::NUMBER_UNKNOWN) {
        stg::lout << LABEL << ": "
                  << "Couldn't map Marvel Event Code: " << code << " with VRAX Alert Code in "
                  << stg::ALERT_MAPPING_FILE << " File." << '\n';
        return stg::STATUS_FAILURE;
    }
    if (!alert->m_bHasEventSeqNum) {
        stg::lout << LABEL << ": "
                  << "Event Sequence Number is missing. Not able to process this alert." << '\n';
        return stg::STATUS_FAILURE;
    }
    const unsigned int sequence = alert->getEventSeqNum();
    if (sequence <= CMarvelEventManager::m_PrevEventSeqNum || sequence == stg::NUMBER_UNKNOWN) {
        stg::lout << LABEL << ": "
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
    static constexpr char LABEL[] = "ZARNEK:CMarvelEvtObserver::createNexus()";
    const stg::LogScope scope(LABEL);

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
        stg::lout << LABEL << ": "
                  << "Object Type didn't match. Not able to create Nexus for the Object Type: " << objType
                  << '\n';
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
    static constexpr char LABEL[] = "ZARNEK:IEvtObserver::generateActionCommand()"; // names the base class
    const stg::LogScope scope(LABEL);
    stg::lout << LABEL << ": "
              << "Checking if any action is required for VRAX Alert Number: " << alert << '\n';

    const auto discoverDisks = [&] {
        CPDDiscovery command(CMarvelSubSystemMgr::getUniqueInstance(), &ISubSystemManager::discoverAllPDs);
        command.setArguments(globalNum, cntrlId, stg::NUMBER_UNKNOWN);
        dispatchCommand(command);
    };
    const auto discoverOneDisk = [&] {
        CPDDiscovery command(CMarvelSubSystemMgr::getUniqueInstance(), &ISubSystemManager::discoverPD);
        command.setArguments(globalNum, cntrlId, devId);
        dispatchCommand(command);
    };
    const auto discoverDrives = [&] {
        CVDDiscovery command(CMarvelSubSystemMgr::getUniqueInstance(), &ISubSystemManager::discoverAllVDs);
        command.setArguments(globalNum, cntrlId, stg::NUMBER_UNKNOWN);
        dispatchCommand(command);
    };
    const auto discoverController = [&] {
        CControllerDiscovery command(
            CMarvelSubSystemMgr::getUniqueInstance(),
            static_cast<ISubSystemManager::twoArgsActionPtr>(&ISubSystemManager::discover));
        command.setArguments(globalNum, cntrlId);
        dispatchCommand(command);
    };

    switch (stg::actionOf(alert)) {
    case stg::AlertAction::OneDiskAndDrives:
        discoverOneDisk();
        discoverDrives();
        break;
    case stg::AlertAction::DisksAndDrives:
        discoverDisks();
        discoverDrives();
        break;
    case stg::AlertAction::Controller:
        discoverController();
        break;
    case stg::AlertAction::None:
        stg::lout << LABEL << ": "
                  << "Not required to take any action for VRAX Alert Number: " << alert << '\n';
        break;
    }
    return stg::STATUS_FAILURE;
}

short CMarvelEvtObserver::dispatchCommand(ICommand& command)
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtObserver::dispatchCommand()");
    return m_pfnTakeAction(command);
}
