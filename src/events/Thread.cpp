#include "events/Thread.h"

#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"

#include <morlan.h>

Thread::Thread(void (*function)(void*), void* argument) : m_pFuncAddr(function), m_pFuncArg(argument)
{
    const stg::LogScope scope("ZARNEK:Thread::Thread() Constructor");
}

Thread::Thread(const Thread& other)
    : m_pFuncAddr(other.m_pFuncAddr), m_pFuncArg(other.m_pFuncArg), m_pRunningThread(other.m_pRunningThread)
{
    const stg::LogScope scope("ZARNEK: Thread Copy Constructor ");
}

Thread& Thread::operator=(const Thread& other)
{
    const stg::LogScope scope("ZARNEK:Thread::operator = ()");
    if (this != &other) {
        m_pFuncAddr = other.m_pFuncAddr;
        m_pFuncArg = other.m_pFuncArg;
        m_pRunningThread = other.m_pRunningThread;
    }
    return *this;
}

Thread::~Thread()
{
    const stg::LogScope scope("ZARNEK:Thread::~Thread() Destructor");
    m_pFuncAddr = nullptr;
    m_pFuncArg = nullptr;
}

short Thread::startThread()
{
    const stg::LogScope scope("ZARNEK:Thread::startThread()");
    m_pRunningThread = SMThreadStart(m_pFuncAddr, m_pFuncArg);
    if (m_pRunningThread == nullptr)
        return stg::STATUS_FAILURE;
    scope.message() << "Event Thread got created successfully." << '\n';
    return stg::STATUS_SUCCESS;
}

short Thread::stopThread()
{
    const stg::LogScope scope("ZARNEK:Thread::stopThread()");
    if (m_pRunningThread == nullptr)
        return stg::STATUS_FAILURE;
    const auto status = static_cast<short>(SMThreadStop(m_pRunningThread));
    if (status == stg::STATUS_SUCCESS)
        scope.message() << "Thread has been stopped successfully." << '\n';
    else
        scope.message() << "Error code (During stopping the Thread) = " << status << '\n';
    return status;
}

short Thread::terminateThread()
{
    const stg::LogScope scope("ZARNEK:Thread::terminateThread()");
    const short status = stopThread();
    scope.message() << "Return Code = " << status << '\n';
    return status;
}
