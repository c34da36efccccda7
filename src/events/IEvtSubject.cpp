#include "events/IEvtSubject.h"

#include "events/IEvtObserver.h"
#include "mvlayer/ILibraryInterfaceLayer.h"
#include "support/LogScope.h"

unsigned int IEvtSubject::m_EvtSubjectSerialNo = 0;
bool IEvtSubject::m_bNeedToStopMonitoring = false;

IEvtSubject::IEvtSubject(const IEvtSubject& other)
    : m_pObserver(other.m_pObserver), m_SubjectID(other.m_SubjectID), m_pLilLayer(other.m_pLilLayer),
      m_pfnNotify(other.m_pfnNotify)
{
}

IEvtSubject& IEvtSubject::operator=(const IEvtSubject& other)
{
    m_pObserver = other.m_pObserver;
    m_SubjectID = other.m_SubjectID;
    m_pLilLayer = other.m_pLilLayer;
    m_pfnNotify = other.m_pfnNotify;
    return *this;
}

IEvtSubject::~IEvtSubject()
{
    const stg::LogScope scope("ZARNEK:IEvtSubject::~IEvtSubject()");
    m_pfnNotify = nullptr;
    m_pObserver = nullptr;
    if (!m_AlertVector.empty() && m_pLilLayer != nullptr)
        m_pLilLayer->releaseEventInfoVector(m_AlertVector);
    m_pLilLayer = nullptr;
}

void IEvtSubject::notifyObserver()
{
    const stg::LogScope scope("ZARNEK:IEvtSubject::notifyObserver()");
    if (m_pfnNotify != nullptr)
        (m_pObserver->*m_pfnNotify)(m_AlertVector);
}

void IEvtSubject::registerMe(IEvtObserver* observer, NotifyFunction notify)
{
    const stg::LogScope scope("ZARNEK:IEvtSubject::registerMe()");
    m_pObserver = observer;
    m_pfnNotify = notify;
}
