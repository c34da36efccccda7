// Memory that the plug-in asks for and does not get.
#ifndef ZARNEK_TESTS_ALLOCATIONFAULTS_H
#define ZARNEK_TESTS_ALLOCATIONFAULTS_H

#include "system/StandardRun.h"

// Of the allocations that the plug-in makes, or stand-ins for it, the nth (from 1) fails, and with `forGood`
// all behind it; none for 0. In a program with sanitizers only those by new. To tell whole call chains for
// memory that was not freed takes four times as long as to tell the last call.
class AllocationFaults : public IFaultPlan
{
  public:
    AllocationFaults(Caller caller, unsigned int nth, bool forGood, bool wholeChains)
        : m_caller(caller), m_nth(nth), m_forGood(forGood), m_wholeChains(wholeChains)
    {
    }
    void begin(Outcome& outcome) override;
    // Tells what the plug-in allocated and did not free.
    void end() override;

  private:
    Caller m_caller;
    unsigned int m_nth;
    bool m_forGood;
    bool m_wholeChains;
};

// Demands that a run under such a plan, with whole chains, lost only what may be lost.
void expectNoLoss(const Outcome& outcome);

#endif
