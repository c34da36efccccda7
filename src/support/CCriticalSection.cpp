#include "support/CCriticalSection.h"

#include "support/CLogger.h"
#include "support/Status.h"

#include <morlan.h>

bool CCriticalSection::isZarnekMutex = false;
void* CCriticalSection::m_pZarnekMutex = nullptr;

CCriticalSection::CCriticalSection()
{
    if (!isZarnekMutex)
        createMutex();
    mutexLock();
}

CCriticalSection::~CCriticalSection()
{
    mutexUnlock();
}

short CCriticalSection::createMutex()
{
    m_pZarnekMutex = SMMutexCreate(0);
    if (m_pZarnekMutex == nullptr)
        return stg::STATUS_FAILURE;
    isZarnekMutex = true;
    stg::message("ZARNEK:CCriticalSection::createMutex()")
        << "ZARNEK Mutex got created successfully." << '\n';
    return stg::STATUS_SUCCESS;
}

void CCriticalSection::destroyMutex()
{
    if (m_pZarnekMutex != nullptr)
        SMMutexDestroy(m_pZarnekMutex);
    isZarnekMutex = false;
}

short CCriticalSection::mutexLock()
{
    return static_cast<short>(SMMutexLock(m_pZarnekMutex, -1));
}

short CCriticalSection::mutexUnlock()
{
    return static_cast<short>(SMMutexUnLock(m_pZarnekMutex));
}
