#include "events/CEventManager_Helper.h"

#include "events/IEventManager.h"
#include "events/IEvtSubject.h"
#include "events/Thread.h"
#include "support/CLogger.h"
#include "support/Status.h"

CEventManager_Helper::CEventManager_Helper(unsigned int id)
    : m_SubjectID(id), m_bDeleteSubject(false), m_pEvtMgr(nullptr)
{
}

CEventManager_Helper::CEventManager_Helper(IEventManager* manager, bool deleteSubject)
    : m_SubjectID(stg::NUMBER_UNKNOWN), m_bDeleteSubject(deleteSubject), m_pEvtMgr(manager)
{
}

bool CEventManager_Helper::operator()(stg::SCntrlID_t id)
{
    return m_SubjectID != stg::NUMBER_UNKNOWN && m_SubjectID == id.m_GlobalCntrlNum;
}

bool CEventManager_Helper::operator()(Thread& threadObj)
{
    if (!m_bDeleteSubject) {
        const auto* const subject = static_cast<IEvtSubject*>(threadObj.getFuncArg());
        return m_SubjectID != stg::NUMBER_UNKNOWN && subject != nullptr &&
               subject->getSubjectID() == m_SubjectID;
    }
    threadObj.stopThread();
    if (m_pEvtMgr == nullptr) {
        stg::message("ZARNEK:CEventManager_Helper::operator () ( Thread& threadObj )")
            << "Event Manager Pointer is missing. "
            << "Not able to delete Event Subject from Thread Object." << '\n';
        return false;
    }
    return m_pEvtMgr->deleteSubjectFromThread(threadObj) != stg::STATUS_SUCCESS;
}
