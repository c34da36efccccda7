#ifndef ZARNEK_EVENTS_CEVTOBSERVER_HELPER_H
#define ZARNEK_EVENTS_CEVTOBSERVER_HELPER_H

class CAlert;
class IEvtObserver;

// Has its observer process each alert of a batch.
class CEvtObserver_Helper
{
  public:
    explicit CEvtObserver_Helper(IEvtObserver& observer);
    CEvtObserver_Helper(const CEvtObserver_Helper& other) = default;
    // Does nothing.
    CEvtObserver_Helper& operator=(const CEvtObserver_Helper& other);
    ~CEvtObserver_Helper() = default;

    short operator()(CAlert* alert);

  private:
    IEvtObserver& m_pObserverRef;
};

#endif
