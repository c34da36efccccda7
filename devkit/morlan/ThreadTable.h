// The threads that the library has started. Their handles stay valid after their end. Safe from several
// threads.
#ifndef ZARNEK_DEVKIT_MORLAN_THREADTABLE_H
#define ZARNEK_DEVKIT_MORLAN_THREADTABLE_H

#include "morlan/WakeSignal.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>

namespace morlan
{

class ThreadTable
{
  public:
    ThreadTable();
    // May not come while a thread runs.
    ~ThreadTable();

    // Makes a thread that runs function(argument) once it is released. Null when the system gives none. An
    // exception that leaves the function ends the process.
    void* create(void (*function)(void*), void* argument);
    // Lets a created thread begin, as soon as threads are no longer held.
    void release(void* thread);
    // Ends a thread that sleeps in the C library, or waits for a thread to end by itself. Returns when it has
    // ended, true; at once if it had. False for an unknown handle and for the calling thread itself. A held
    // thread is let run.
    bool stop(void* thread);
    // While held, released threads do not begin.
    void hold(bool held);

    // Threads that have not ended, held ones included.
    unsigned int running() const;
    // Waits until no thread runs; false when that took longer.
    bool waitUntilNoneRuns(std::chrono::milliseconds limit);
    // The thread's place in the order of creation, from 1; 0 for an unknown handle.
    unsigned int number(void* thread) const;

  private:
    struct Thread;
    class EndMark;

    void run(Thread& thread, void (*function)(void*), void* argument);
    Thread* find(void* thread) const; // needs the lock
    void join(std::unique_lock<std::mutex>& lock, Thread& thread);
    bool noneRuns() const; // needs the lock

    mutable std::mutex m_mutex;
    std::condition_variable m_changed; // anything below
    std::map<void*, std::unique_ptr<Thread>> m_threads;
    WakeSignal m_wake;
    bool m_held = false;
};

} // namespace morlan

#endif
