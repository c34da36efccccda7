#ifndef ZARNEK_EVENTS_THREAD_H
#define ZARNEK_EVENTS_THREAD_H

// A thread of the support library: an entry function, its argument and, once started, a handle. A plain value
// that is copied freely; neither copies nor destruction start, stop or free anything. The argument is
// borrowed. Statuses are 0 for success.
class Thread
{
  public:
    Thread(void (*function)(void*), void* argument);
    Thread(const Thread& other);
    Thread& operator=(const Thread& other);
    // Nulls the function and the argument of this object, nothing else.
    ~Thread();

    void setFuncAddr(void (*function)(void*)) { m_pFuncAddr = function; }
    void (*getFuncAddr() const)(void*) { return m_pFuncAddr; }
    void setFuncArg(void* argument) { m_pFuncArg = argument; }
    void* getFuncArg() const { return m_pFuncArg; }
    void* getRunningThreadPtr() const { return m_pRunningThread; }

    // Runs the function on a new thread; 1 on failure. A thread started before is forgotten, not stopped.
    short startThread();
    // Returns when the thread has ended. 1 without a thread, else the support library's status. The handle
    // stays, so stopping again is allowed.
    short stopThread();
    short terminateThread();

  private:
    void (*m_pFuncAddr)(void*);
    void* m_pFuncArg;
    void* m_pRunningThread = nullptr;
};

#endif
