#ifndef ZARNEK_EVENTS_CMARVELALERT_H
#define ZARNEK_EVENTS_CMARVELALERT_H

#include "events/CAlert.h"

// An alert made of a Marvell event: adds the event's sequence number.
class CMarvelAlert : public CAlert
{
  public:
    CMarvelAlert();
    // Copies the attributes and the sequence number, but not m_bHasEventSeqNum.
    CMarvelAlert(const CMarvelAlert& other);
    ~CMarvelAlert() override;

    // `binder` is a stg::QLVEventBinder_t; null changes nothing. An event of an unknown class gets no object
    // type.
    CMarvelAlert& operator=(void* binder) override;
    unsigned int getEventSeqNum() override { return m_EventSeqNum; }

    // Copies what the copy constructor copies.
    CMarvelAlert& operator=(const CMarvelAlert& other);
    // Also marks the alert as carrying a number.
    void setEventSeqNum(unsigned int number);

  private:
    unsigned int m_EventSeqNum = stg::NUMBER_UNKNOWN;
};

#endif
