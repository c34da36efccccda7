#ifndef ZARNEK_EVENTS_CEVENTMANAGER_HELPER_H
#define ZARNEK_EVENTS_CEVENTMANAGER_HELPER_H

#include "mvlayer/SCntrlID.h"

class IEventManager;
class Thread;

// Walks the event manager's containers: a predicate that looks for a number, or the action that stops a
// thread and deletes its subject. Copied by value.
class CEventManager_Helper
{
  public:
    // Looks for a global controller number or a subject number; NUMBER_UNKNOWN finds nothing.
    explicit CEventManager_Helper(unsigned int id);
    CEventManager_Helper(IEventManager* manager, bool deleteSubject);

    bool operator()(stg::SCntrlID_t id);
    // As a predicate whether the thread has the subject; as the action whether the deletion failed.
    bool operator()(Thread& threadObj);

  private:
    unsigned int m_SubjectID;
    bool m_bDeleteSubject;
    IEventManager* m_pEvtMgr;
};

#endif
