#ifndef ZARNEK_EVENTS_CMARVELEVTOBSERVER_H
#define ZARNEK_EVENTS_CMARVELEVTOBSERVER_H

#include "events/IEvtObserver.h"

// The observer of Marvell alerts, a singleton: maps the vendor's event code by the mapping file, which it
// reads afresh for every alert, drops what an earlier run reported, and knows which alerts make which objects
// stale.
class CMarvelEvtObserver : public IEvtObserver
{
  public:
    // The singleton, built on first use under the lock; null when the allocation failed.
    static CMarvelEvtObserver* getUniqueInstance();
    // Deletes the singleton if there is one. Always 0.
    static short destroyMe();

    CMarvelEvtObserver();
    CMarvelEvtObserver(const CMarvelEvtObserver& other);
    // Copies where commands go.
    CMarvelEvtObserver& operator=(const CMarvelEvtObserver& other);
    ~CMarvelEvtObserver() override;

    // Registers without a member pointer: the subject calls this observer directly.
    void getAssociatedWith(IEvtSubject* subject, short (*callback)(ICommand&)) override;
    // Each alert of a disk sets the property of "m_DevID" in the shared table to that of its kind, where it
    // stays for the controllers' alerts that follow.
    void createNexus(unsigned int objType, stg::AttribTypeMap& attribTypes,
                     std::vector<unsigned int>& nexus) override;
    // Runs the discovery by the alert number alone. Always 1.
    short generateActionCommand(unsigned int alert, unsigned int objType, unsigned int globalNum,
                                unsigned int cntrlId, unsigned int devId) override;
    short dispatchCommand(ICommand& command) override;
    // Always 1, whether the alert was sent or not.
    short processAlert(CAlert* alert) override;

    // Sequence number of the last alert taken for processing, also when it is lower than the one before.
    // Written on the event thread, read on the entry thread after the threads have stopped; never reset.
    static unsigned int m_CurEventSeqNum;

  private:
    static CMarvelEvtObserver* m_pMarvelEvtObserverInstance;
};

#endif
