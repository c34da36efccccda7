// How a run of the plug-in ended. Plain data: it comes from another process.
#ifndef ZARNEK_TESTS_OUTCOME_H
#define ZARNEK_TESTS_OUTCOME_H

#include "system/CallChain.h"

#include <array>
#include <cstdint>

enum class RunEnd {
    Died,       // by a signal, a sanitizer's finding or the time limit
    Terminated, // std::terminate, by an exception that nobody catches
    Finished
};

enum class Thrown { Nothing, BadAlloc, Other };

struct Answer {
    unsigned int command;
    unsigned int status; // where nothing was thrown
    Thrown thrown;
    CallChain struck;     // what failed last before it was thrown
    std::uintptr_t value; // what it wrote to the slot, or 22 to the variable that the slot points to; else 0
};

struct Outcome {
    static constexpr unsigned int KEPT = 48, LOST = 8;

    RunEnd end;
    bool onEventThread; // of a Terminated run, as the next
    Thrown uncaught;
    unsigned int answerCount;
    std::array<Answer, 5> answers; // the last one may be of a command that is still under way

    unsigned int places; // where the plan could strike
    unsigned int strikes;
    std::array<CallChain, KEPT> struck; // where it did, the last ones: strike n stands at n modulo KEPT
    unsigned int losses;                // pieces of memory that the plug-in kept beyond its unload
    std::array<CallChain, LOST> lost;   // where they were allocated, as far as there is room
    std::array<char, 1000> faults;      // what the stand-ins and the next run had to complain about, in lines
};

#endif
