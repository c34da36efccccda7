// Runs in processes of their own.
#ifndef ZARNEK_TESTS_FORKEDRUN_H
#define ZARNEK_TESTS_FORKEDRUN_H

#include "system/Outcome.h"

#include <functional>

// How far apart the places are at which a sweep strikes: once, and for good. A program with sanitizers is
// slow.
#ifdef ZARNEK_SANITIZED
constexpr unsigned int DENSE = 41, SPARSE = 97;
#else
constexpr unsigned int DENSE = 1, SPARSE = 17;
#endif

class ForkedRun
{
  public:
    ForkedRun();
    ForkedRun(const ForkedRun&) = delete;
    ForkedRun& operator=(const ForkedRun&) = delete;
    ~ForkedRun();

    // Calls `body` in a copy of this process, and gives back what it made of the outcome until it ended, at
    // the latest after 30 seconds.
    Outcome operator()(const std::function<void(Outcome&)>& body);

  private:
    Outcome* const m_shared;
};

#endif
