#ifndef ZARNEK_EVENTS_IEVENTMANAGER_H
#define ZARNEK_EVENTS_IEVENTMANAGER_H

#include "events/Thread.h"
#include "mvlayer/SCntrlID.h"

#include <list>
#include <map>
#include <vector>

class ICommand;
class IEvtObserver;
class IEvtSubject;
class ILibraryInterfaceLayer;

// The frame of the event machinery: collects the controllers that discovery found, builds one subject, one
// observer and one thread for all of them, starts the thread, and takes everything down in a fixed order.
//
// List, map and vector are touched by the entry thread only; a subject works on its own copy of the list.
// Owns the subjects through its thread entries; observers and the query layer are borrowed. Statuses are 0
// for success, 1 for a failure of the system's own, others come from the support library.
class IEventManager
{
  public:
    IEventManager();
    // A manager is never really copied: the copy is empty, and assignment does nothing.
    IEventManager(const IEventManager& other);
    IEventManager& operator=(const IEventManager& other);

    virtual ~IEventManager();
    // Starts every thread; one that does not start is passed over.
    virtual void processAllEvent();
    // Builds subject, observer and thread, once for all controllers of the list; starts nothing.
    virtual short instantiate();
    // What a vendor's manager does before subjects are built. Here nothing.
    virtual void doEvtMgrSpecificOperation();
    // A new subject over the present list of controllers.
    virtual short createEventSubject(IEvtSubject*& subject) = 0;
    // The observer, registered with the subject; `callback` is where its commands go.
    virtual short createEventObserver(IEvtSubject* subject, short (*callback)(ICommand&)) = 0;
    virtual void setLilObjPtr() = 0;

    ILibraryInterfaceLayer* getLilObjPtr() const { return m_pLilObj; }
    IEvtObserver* getObserverPtr() const { return m_pObserver; }
    std::vector<Thread>& getThreadVector() { return m_ThreadVector; }
    std::map<unsigned int, IEvtObserver*>& accessMap() { return m_ObserverMap; }
    // A subject that is there keeps its first observer.
    void insertIntoMap(unsigned int subjectId, IEvtObserver* observer);
    // A controller stands in the list once, by its global number.
    void insertIntoCntrlList(stg::SCntrlID_t id);
    // Stores a thread for the subject. 1 when either is null.
    short createEventThread(IEvtSubject* subject, void (*callback)(void*));
    // The subject with this number, null if no thread has it.
    IEvtSubject* fetchSubjectFromThread(unsigned int subjectId);
    // Refuses with 1 while a subject with this number could still notify the observer, which is not touched.
    short removeObserverFromMap(unsigned int subjectId);
    // Deletes the thread's subject and its entry in the map; the thread must have been stopped.
    short deleteSubjectFromThread(Thread& thread);
    void stopAllThread();
    // Stops all threads, then stops each once more and deletes its subject. The entries stay.
    void destroyAllThread();

    static short processEvent(Thread& thread);
    // Sets the stop flag of all subjects, then stops this thread.
    static short stopThread(Thread& thread);
    // Entry function of an event thread; the argument is its IEvtSubject.
    static void thread_call_back(void* argument);
    // Executes a command. Always 0.
    static short takeAction(ICommand& command);

  protected:
    ILibraryInterfaceLayer* m_pLilObj = nullptr;
    IEvtObserver* m_pObserver = nullptr;
    std::list<stg::SCntrlID_t> m_CntrlIdList;
    std::vector<Thread> m_ThreadVector;
    std::map<unsigned int, IEvtObserver*> m_ObserverMap;
};

#endif
