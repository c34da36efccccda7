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
    static constexpr char LABEL[] = "ZARNEK:Thread::startThread()";
    const stg::LogScope scope(LABEL);
    m_pRunningThread = SMThreadStart(m_pFuncAddr, m_pFuncArg);
    if (m_pRunningThread == nullptr)
        return stg::STATUS_FAILURE;
    stg::lout << LABEL << ": "
              << "Event Thread got created successfully." << '\n';
    return stg::STATUS_SUCCESS;
}

short Thread::stopThread()
{
    static constexpr char LABEL[] = "ZARNEK:Thread::stopThread()";
    const stg::LogScope scope(LABEL);
    if (m_pRunningThread == nullptr)
        return stg::STATUS_FAILURE;
    const auto status = static_cast<short>(SMThreadStop(m_pRunningThread));
    if (status == stg::STATUS_SUCCESS)
        stg::lout << LABEL << ": "
                  << "Thread has been stopped successfully." << '\n';
    else
        stg::lout << LABEL << ": "
                  << "Error code (During stopping the Thread) = " << status << '\n';
    return status;
}

short Thread::terminateThread()
{
    static constexpr char LABEL[] = "ZARNEK:Thread::terminateThread()";
    const stg::LogScope scope(LABEL);
    const short status = stopThread();
    stg::lout << LABEL << ": "
              << "Return Code = " << status << '\n';
    return status;
}
