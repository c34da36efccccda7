#ifndef ZARNEK_EVENTS_CMARVELEVENTMANAGER_H
#define ZARNEK_EVENTS_CMARVELEVENTMANAGER_H

#include "events/IEventManager.h"

// The Marvell side of the event frame, a singleton: supplies subject, observer and query layer, and keeps the
// event sequence number over restarts in the alert mapping file. The number is read at each instantiate and
// written by the destructor, after the threads have stopped, if it grew. Runs on the entry thread.
class CMarvelEventManager : public IEventManager
{
  public:
    // The singleton, built on first use under the lock; null when the allocation failed.
    static CMarvelEventManager* getUniqueInstance();
    // Deletes the singleton if there is one. Always 0.
    static short destroyMe();

    CMarvelEventManager();
    // Empty, as every copy of a manager.
    CMarvelEventManager(const CMarvelEventManager& other);
    CMarvelEventManager& operator=(const CMarvelEventManager& other);
    // Stops the threads, deletes the subjects, saves the number, destroys the observer.
    ~CMarvelEventManager() override;

    // Reads the number; NUMBER_UNKNOWN when there is none, and then no alert passes.
    void doEvtMgrSpecificOperation() override;
    short createEventSubject(IEvtSubject*& subject) override;
    short createEventObserver(IEvtSubject* subject, short (*callback)(ICommand&)) override;
    void setLilObjPtr() override;

    // The number read from the file. It does not move during a run: an alert at or below it counts as
    // reported by an earlier one.
    static unsigned int m_PrevEventSeqNum;

  private:
    static CMarvelEventManager* m_pMarvelEvtMgrInstance;
};

#endif
