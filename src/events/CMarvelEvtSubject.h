#ifndef ZARNEK_EVENTS_CMARVELEVTSUBJECT_H
#define ZARNEK_EVENTS_CMARVELEVTSUBJECT_H

#include "events/IEvtSubject.h"

// The polling loop over all Marvell controllers: at most 50 events of each in turn, then fifty seconds of
// sleep.
class CMarvelEvtSubject : public IEvtSubject
{
  public:
    // Seconds between two polls.
    static constexpr unsigned int POLL_PERIOD = 50;

    // Takes neither a number nor a query layer.
    CMarvelEvtSubject();
    // Takes the next subject number, and the query layer of the event manager.
    explicit CMarvelEvtSubject(std::list<stg::SCntrlID_t> list);
    CMarvelEvtSubject(const CMarvelEvtSubject& other);
    CMarvelEvtSubject& operator=(const CMarvelEvtSubject& other);
    ~CMarvelEvtSubject() override;

    // Calls the observer directly: it registers without a member pointer.
    void notifyObserver() override;
    // Polls until the stop request, which it looks at after each pass and each sleep; the first pass always
    // runs. Touches nothing of the subject once the request is seen.
    short process() override;

  private:
    void poll();
};

#endif
