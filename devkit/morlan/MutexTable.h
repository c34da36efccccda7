// The mutexes that the library has given out. Handles are looked up, so that a null, foreign or destroyed one
// is an error and no harm. Safe from several threads.
#ifndef ZARNEK_DEVKIT_MORLAN_MUTEXTABLE_H
#define ZARNEK_DEVKIT_MORLAN_MUTEXTABLE_H

#include <map>
#include <memory>
#include <mutex>

namespace morlan
{

class MutexTable
{
  public:
    void* create();
    // The three calls below are false for an unknown handle.
    // Waits at most so many milliseconds, without limit for a negative number; false when they ran out. The
    // thread that holds the mutex may lock it again, and has to unlock it as often.
    bool lock(void* mutex, int milliseconds);
    // False unless the calling thread holds the mutex.
    bool unlock(void* mutex);
    // False, and the mutex stays, while a thread holds it.
    bool destroy(void* mutex);
    unsigned int live() const;

  private:
    struct Mutex;
    std::shared_ptr<Mutex> find(void* mutex) const;

    mutable std::mutex m_mutex;
    std::map<void*, std::shared_ptr<Mutex>> m_live;
};

} // namespace morlan

#endif
