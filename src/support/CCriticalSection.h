#ifndef ZARNEK_SUPPORT_CCRITICALSECTION_H
#define ZARNEK_SUPPORT_CCRITICALSECTION_H

// A scoped lock over one process-wide mutex of the support library. It guards the first construction of the
// singletons and nothing else; it does not nest. The first one makes the mutex, which stays until
// destroyMutex.
class CCriticalSection
{
  public:
    CCriticalSection();
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;
    ~CCriticalSection();

    // 0, or 1 when the support library gave no mutex; the next CCriticalSection then tries again.
    static short createMutex();
    // Destroys the mutex if there ever was one. The handle stays as it is, only the flag goes.
    static void destroyMutex();
    static short mutexLock();
    static short mutexUnlock();

    // True while the mutex exists.
    static bool isZarnekMutex;

  private:
    static void* m_pZarnekMutex;
};

#endif
