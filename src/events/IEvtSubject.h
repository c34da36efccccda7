#ifndef ZARNEK_EVENTS_IEVTSUBJECT_H
#define ZARNEK_EVENTS_IEVTSUBJECT_H

#include "mvlayer/SCntrlID.h"
#include "support/Status.h"

#include <list>
#include <vector>

class CAlert;
class IEvtObserver;
class ILibraryInterfaceLayer;

// A source of alerts: holds the controllers to poll, the observer to tell, and the batch of the current poll.
// While its thread runs, the subject belongs to that thread; whoever deletes it must have stopped the thread.
// Observer and query layer are borrowed.
class IEvtSubject
{
  public:
    using NotifyFunction = void (IEvtObserver::*)(std::vector<CAlert*>&);

    IEvtSubject() = default;
    // Alerts that are left go back to the query layer.
    virtual ~IEvtSubject();
    // Hands the batch to the observer by the member pointer it registered; null does nothing.
    virtual void notifyObserver();
    // The body of the event thread. Always 0.
    virtual short process() = 0;

    unsigned int getSubjectID() const { return m_SubjectID; }
    void setSubjectID(unsigned int id) { m_SubjectID = id; }
    ILibraryInterfaceLayer* getLilLayerPtr() const { return m_pLilLayer; }
    void registerMe(IEvtObserver* observer, NotifyFunction notify);
    std::list<stg::SCntrlID_t>& getCntrlIdList() { return m_CntrlIdList; }
    void setCntrlIdList(std::list<stg::SCntrlID_t> list) { m_CntrlIdList.swap(list); }

    // The last subject number given out; never reset.
    static unsigned int m_EvtSubjectSerialNo;
    // The stop request for all subjects: set by the entry thread, read by the event thread, never cleared.
    // Nothing orders the two, as the flag is plain; the event thread sees it at the latest after its sleep,
    // from which the support library's stop wakes it.
    static bool m_bNeedToStopMonitoring;

  protected:
    // Copy neither the list nor the batch.
    IEvtSubject(const IEvtSubject& other);
    IEvtSubject& operator=(const IEvtSubject& other);

    IEvtObserver* m_pObserver = nullptr;
    unsigned int m_SubjectID = stg::NUMBER_UNKNOWN;
    ILibraryInterfaceLayer* m_pLilLayer = nullptr;
    NotifyFunction m_pfnNotify = nullptr;
    std::list<stg::SCntrlID_t> m_CntrlIdList;
    std::vector<CAlert*> m_AlertVector;
};

#endif
