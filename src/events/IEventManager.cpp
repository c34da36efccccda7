#include "events/IEventManager.h"

#include "discovery/ICommand.h"
#include "events/CEventManager_Helper.h"
#include "events/IEvtSubject.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"

#include <algorithm>

IEventManager::IEventManager() = default;

IEventManager::IEventManager(const IEventManager& /*other*/) {}

IEventManager& IEventManager::operator=(const IEventManager& /*other*/)
{
    return *this;
}

IEventManager::~IEventManager()
{
    const stg::LogScope scope("ZARNEK:IEventManager::~IEventManager()");
}

void IEventManager::processAllEvent()
{
    const stg::LogScope scope("ZARNEK:IEventManager::processAllEvent()");
    if (m_ThreadVector.empty()) {
        scope.message() << "There is no Thread instance available in the Vector. "
                        << "Not able to proceed further." << '\n';
        return;
    }
    std::for_each(m_ThreadVector.begin(), m_ThreadVector.end(), processEvent);
}

short IEventManager::instantiate()
{
    const stg::LogScope scope("ZARNEK:IEventManager::instantiate()");

    setLilObjPtr();
    doEvtMgrSpecificOperation();
    IEvtSubject* subject = nullptr;
    short status = createEventSubject(subject);
    if (status != stg::STATUS_SUCCESS || subject == nullptr) {
        scope.message() << "Failed to create Event Subject. "
                        << "Not proceeding further to create Event Observer and Thread." << '\n';
        return status;
    }
    status = createEventObserver(subject, takeAction);
    if (status != stg::STATUS_SUCCESS) {
        scope.message() << "Failed to create Event Observer. "
                        << "Not proceeding further to create Event Thread." << '\n';
        return status;
    }
    status = createEventThread(subject, thread_call_back);
    const unsigned int subjectId = subject->getSubjectID();
    if (status != stg::STATUS_SUCCESS)
        scope.message() << "Failed to create Event Thread for Subject ID: " << subjectId << '\n';
    insertIntoMap(subjectId, m_pObserver);
    return status;
}

void IEventManager::doEvtMgrSpecificOperation() {}

void IEventManager::insertIntoMap(unsigned int subjectId, IEvtObserver* observer)
{
    const stg::LogScope scope("ZARNEK:IEventManager::insertIntoMap()");
    m_ObserverMap.emplace(subjectId, observer);
}

void IEventManager::insertIntoCntrlList(stg::SCntrlID_t id)
{
    const stg::LogScope scope("ZARNEK:IEventManager::insertIntoCntrlList()");
    if (std::none_of(m_CntrlIdList.begin(), m_CntrlIdList.end(), CEventManager_Helper(id.m_GlobalCntrlNum)))
        m_CntrlIdList.push_back(id);
}

short IEventManager::createEventThread(IEvtSubject* subject, void (*callback)(void*))
{
    const stg::LogScope scope("ZARNEK:IEventManager::createEventThread()");
    const Thread thread(callback, subject);
    if (thread.getFuncAddr() == nullptr || thread.getFuncArg() == nullptr)
        return stg::STATUS_FAILURE;
    m_ThreadVector.push_back(thread);
    return stg::STATUS_SUCCESS;
}

IEvtSubject* IEventManager::fetchSubjectFromThread(unsigned int subjectId)
{
    const stg::LogScope scope("ZARNEK:IEventManager::fetchSubjectFromThread()");
    const auto found =
        std::find_if(m_ThreadVector.begin(), m_ThreadVector.end(), CEventManager_Helper(subjectId));
    return found == m_ThreadVector.end() ? nullptr : static_cast<IEvtSubject*>(found->getFuncArg());
}

short IEventManager::removeObserverFromMap(unsigned int subjectId)
{
    const stg::LogScope scope("ZARNEK:IEventManager::removeObserverFromMap()");
    if (fetchSubjectFromThread(subjectId) != nullptr) {
        scope.message() << "Cannot delete Observer entry from Map, "
                        << "because, its corresponding Subject has not yet been deleted from the List."
                        << '\n';
        return stg::STATUS_FAILURE;
    }
    if (m_ObserverMap.erase(subjectId) == 0)
        return stg::STATUS_FAILURE;
    scope.message() << "Event Subject ID: " << subjectId << " has been deleted from Map." << '\n';
    return stg::STATUS_SUCCESS;
}

short IEventManager::deleteSubjectFromThread(Thread& thread)
{
    const stg::LogScope scope("ZARNEK:IEventManager::deleteSubjectFromThread()");
    auto* const subject = static_cast<IEvtSubject*>(thread.getFuncArg());
    if (subject == nullptr)
        return stg::STATUS_FAILURE;
    const unsigned int subjectId = subject->getSubjectID();
    delete subject;
    // Ahead of the map, which keeps an observer while a thread has its subject.
    thread.setFuncArg(nullptr);
    removeObserverFromMap(subjectId);
    return stg::STATUS_SUCCESS;
}

void IEventManager::stopAllThread()
{
    const stg::LogScope scope("ZARNEK:IEventManager::stopAllThread()");
    std::for_each(m_ThreadVector.begin(), m_ThreadVector.end(), stopThread);
}

void IEventManager::destroyAllThread()
{
    const stg::LogScope scope("ZARNEK:IEventManager::destroyAllThread()");
    if (m_ThreadVector.empty())
        return;
    stopAllThread();
    std::for_each(m_ThreadVector.begin(), m_ThreadVector.end(), CEventManager_Helper(this, true));
}

short IEventManager::processEvent(Thread& thread)
{
    const stg::LogScope scope("ZARNEK:IEventManager::processEvent()");
    return thread.startThread();
}

short IEventManager::stopThread(Thread& thread)
{
    const stg::LogScope scope("ZARNEK:IEventManager::stopThread()");
    IEvtSubject::m_bNeedToStopMonitoring = true;
    scope.message() << "Value of m_bNeedToStopMonitoring is set to true to exit the thread gracefully."
                    << '\n';
    const short status = thread.stopThread();
    const auto* const subject = static_cast<IEvtSubject*>(thread.getFuncArg());
    if (subject != nullptr && status == stg::STATUS_SUCCESS && subject->getSubjectID() != stg::NUMBER_UNKNOWN)
        scope.message() << "Thread related to Event Subject ID: " << subject->getSubjectID()
                        << " has been stopped successfully." << '\n';
    return status;
}

void IEventManager::thread_call_back(void* argument)
{
    auto* const subject = static_cast<IEvtSubject*>(argument);
    if (subject == nullptr)
        return; // the subject of a stopped thread: nothing happens
    const stg::LogScope scope("ZARNEK:IEventManager::thread_call_back()");
    scope.message() << "Thread related to Event Subject ID: " << subject->getSubjectID()
                    << " is going to be started." << '\n';
    subject->process();
}

short IEventManager::takeAction(ICommand& command)
{
    const stg::LogScope scope("ZARNEK:IEventManager::takeAction()");
    command.execute();
    return stg::STATUS_SUCCESS;
}
