#include "events/CMarvelEventManager.h"

#include "discovery/CMarvelSubSystemMgr.h"
#include "events/CMarvelEvtObserver.h"
#include "events/CMarvelEvtSubject.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Singleton.h"
#include "support/Status.h"
#include "vendor/IniAccess.h"

#include <zarnek_ini.h>

#include <new>

CMarvelEventManager* CMarvelEventManager::m_pMarvelEvtMgrInstance = nullptr;
unsigned int CMarvelEventManager::m_PrevEventSeqNum = 0;

namespace
{

// Writes the number of the last alert if it grew.
void keepSequenceNumber(const stg::LogScope& scope)
{
    const unsigned int number = CMarvelEvtObserver::m_CurEventSeqNum;
    if (number <= CMarvelEventManager::m_PrevEventSeqNum)
        return;
    const int status =
        stg::writeToIniFileAgainstKey(INI_ALERT_MAPPING_FILE, INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY, number);
    if (static_cast<short>(status) == stg::STATUS_SUCCESS && number != stg::NUMBER_UNKNOWN)
        scope.message() << INI_ALERT_MAPPING_FILE
                        << " File has been modified with the new Event Sequence Number: " << number << '\n';
}

} // namespace

CMarvelEventManager* CMarvelEventManager::getUniqueInstance()
{
    const stg::LogScope scope("ZARNEK:CMarvelEventManager::getUniqueInstance()");
    return stg::uniqueInstance(m_pMarvelEvtMgrInstance, [](const std::bad_alloc& failure) {
        stg::message("ZARNEK:CCommandHandler::getUniqueInstance()") /* names the command handler */
            << "Failed to allocate Memory. " << failure.what() << '\n';
    });
}

short CMarvelEventManager::destroyMe()
{
    const stg::LogScope scope("ZARNEK:CMarvelEventManager::destroyMe()");
    stg::destroyInstance(m_pMarvelEvtMgrInstance);
    return stg::STATUS_SUCCESS;
}

CMarvelEventManager::CMarvelEventManager()
{
    const stg::LogScope scope("ZARNEK:CMarvelEventManager::CMarvelEventManager()");
}

CMarvelEventManager::CMarvelEventManager(const CMarvelEventManager& /*other*/) : IEventManager() {}

CMarvelEventManager& CMarvelEventManager::operator=(const CMarvelEventManager& /*other*/)
{
    return *this;
}

CMarvelEventManager::~CMarvelEventManager()
{
    const stg::LogScope scope("ZARNEK:CMarvelEventManager::~CMarvelEventManager()");

    destroyAllThread();
    m_pLilObj = nullptr;
    try {
        keepSequenceNumber(scope);
    } catch (const std::bad_alloc&) { // it stays as it was, which is no reason to end the host
    }
    CMarvelEvtObserver::destroyMe();
}

void CMarvelEventManager::setLilObjPtr()
{
    const stg::LogScope scope("ZARNEK:CMarvelEventManager::setLilObjPtr()");
    if (const CMarvelSubSystemMgr* const manager = CMarvelSubSystemMgr::getUniqueInstance())
        m_pLilObj = manager->getLilPtr();
}

void CMarvelEventManager::doEvtMgrSpecificOperation()
{
    const stg::LogScope scope("ZARNEK:CMarvelEventManager::doEvtMgrSpecificOperation()");
    m_PrevEventSeqNum = static_cast<unsigned int>(
        stg::readFromIniFileAgainstKey(INI_ALERT_MAPPING_FILE, INI_SEQUENCE_SECTION, INI_SEQUENCE_KEY));
    stg::message("ZARNEK:CMarvelEventManager::CMarvelEventManager()") // names the constructor
        << "Previous Marvel Event Sequence Number: " << m_PrevEventSeqNum << '\n';
}

short CMarvelEventManager::createEventSubject(IEvtSubject*& subject)
{
    const stg::LogScope scope("ZARNEK:CMarvelEventManager::createEventSubject()");

    subject = new (std::nothrow) CMarvelEvtSubject(m_CntrlIdList);
    if (subject == nullptr) {
        scope.message() << "Failed to instantiate Event Subject." << '\n';
        return stg::STATUS_FAILURE;
    }
    scope.message() << "Event Subject has been instantiated successfully. "
                    << "Event Subject ID: " << subject->getSubjectID() << '\n';
    return stg::STATUS_SUCCESS;
}

short CMarvelEventManager::createEventObserver(IEvtSubject* subject, short (*callback)(ICommand&))
{
    const stg::LogScope scope("ZARNEK:CMarvelEventManager::createEventObserver()");
    m_pObserver = CMarvelEvtObserver::getUniqueInstance();
    if (m_pObserver == nullptr)
        return stg::STATUS_FAILURE;
    m_pObserver->getAssociatedWith(subject, callback);
    return stg::STATUS_SUCCESS;
}
