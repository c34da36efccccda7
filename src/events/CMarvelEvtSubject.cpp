#include "events/CMarvelEvtSubject.h"

#include "events/CMarvelEventManager.h"
#include "events/IEvtObserver.h"
#include "mvlayer/ILibraryInterfaceLayer.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"

#include <unistd.h>

#include <utility>

CMarvelEvtSubject::CMarvelEvtSubject()
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtSubject::CMarvelEvtSubject()");
}

CMarvelEvtSubject::CMarvelEvtSubject(std::list<stg::SCntrlID_t> list)
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtSubject::CMarvelEvtSubject()");
    m_SubjectID = ++m_EvtSubjectSerialNo;
    m_CntrlIdList = std::move(list);
    if (const CMarvelEventManager* const manager = CMarvelEventManager::getUniqueInstance())
        m_pLilLayer = manager->getLilObjPtr();
}

CMarvelEvtSubject::CMarvelEvtSubject(const CMarvelEvtSubject& other) : IEvtSubject(other)
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtSubject::CMarvelEvtSubject() copy constructor");
}

CMarvelEvtSubject& CMarvelEvtSubject::operator=(const CMarvelEvtSubject& other) = default;

CMarvelEvtSubject::~CMarvelEvtSubject()
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtSubject::~CMarvelEvtSubject()");
}

void CMarvelEvtSubject::notifyObserver()
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtSubject::notifyObserver()");
    m_pObserver->updateMyself(m_AlertVector);
}

void CMarvelEvtSubject::poll()
{
    if (m_pLilLayer == nullptr)
        return;
    for (const stg::SCntrlID_t& id : m_CntrlIdList) {
        const short status = m_pLilLayer->getEventInfo(id, m_AlertVector);
        stg::lout << "ZARNEK:CMarvelEvtSubject: getEventInfo():return code=" << status
                  << "alert size = " << static_cast<unsigned int>(m_AlertVector.size()) << '\n';
        if (status == stg::STATUS_SUCCESS && !m_AlertVector.empty())
            notifyObserver();
        m_pLilLayer->releaseEventInfoVector(m_AlertVector);
    }
}

short CMarvelEvtSubject::process()
{
    const stg::LogScope scope("ZARNEK:CMarvelEvtSubject::process()");
    for (;;) {
        poll();
        if (m_bNeedToStopMonitoring)
            break;
        sleep(POLL_PERIOD); // a stop wakes it early
        if (m_bNeedToStopMonitoring)
            break;
    }
    return stg::STATUS_SUCCESS;
}
