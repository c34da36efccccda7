#include "common/PluginTest.h"

#include "discovery/CMarvelSubSystemMgr.h"
#include "entry/CCommandHandler.h"
#include "events/CControl_Notify.h"
#include "events/CMarvelEventManager.h"
#include "events/CMarvelEvtObserver.h"
#include "events/IEvtSubject.h"
#include "support/CCriticalSection.h"
#include "vendor/CLibraryManager.h"

#include "morlan/morlan_inspect.h"
#include "mvsim/api/mvsim_control.h"
#include "ral/ral_inspect.h"

#include <sdo.h>

#include <algorithm>

namespace
{

bool isFrame(const std::string& line)
{
    const auto endsWith = [&line](const std::string& end) {
        return line.size() >= end.size() && line.compare(line.size() - end.size(), end.size(), end) == 0;
    };
    return endsWith(" ENTRY ") || endsWith(" EXIT ");
}

void resetStatics()
{
    CCommandHandler::m_gValGlobalCntrlNumber = 0;
    CCommandHandler::m_gQelvoGlobalCntrlNumber = 0;
    CCommandHandler::m_gQelvoTotalCntrlNumber = 0;
    CCommandHandler::accessMap().clear();
    CMarvelEventManager::m_PrevEventSeqNum = 0;
    CMarvelEvtObserver::m_CurEventSeqNum = 0;
    IEvtSubject::m_bNeedToStopMonitoring = false;
    IEvtSubject::m_EvtSubjectSerialNo = 0;
    ISubSystemManager::m_SubSystemSerialNo = 0;
    const auto device = CControl_Notify::getAttribNameAndType().find("m_DevID");
    if (device != CControl_Notify::getAttribNameAndType().end())
        device->second.m_PropertyID = SSPROP_DEVICEID_U32;
}

} // namespace

void PluginTest::Source::sink(void* source, const char* text)
{
    const auto* const self = static_cast<Source*>(source);
    LineLog::sink(&self->test->m_trace, (self->prefix + std::string(text)).c_str());
}

PluginTest::PluginTest()
{
    resetStatics();
    morlan_set_debug_sink(Source::sink, &m_debugSource);
    morlan_set_call_sink(Source::sink, &m_supportSource);
    ral_set_call_sink(Source::sink, &m_ralSource);
    mvsim_set_call_sink(Source::sink, &m_vendorSource);
}

PluginTest::~PluginTest()
{
    CMarvelSubSystemMgr::destroyMe();
    CMarvelEventManager::destroyMe();
    CMarvelEvtObserver::destroyMe();
    CCommandHandler::destroyMe();
    CLibraryManager::destroyMe();
    CCriticalSection::destroyMutex();
    EXPECT_EQ(ral_live_lists(), 0U);
    ral_reset();
    EXPECT_EQ(morlan_live_sdo_objects(), 0U);
    EXPECT_EQ(morlan_live_strings(), 0U);
    EXPECT_EQ(morlan_running_threads(), 0U);
    morlan_reset(); // the sinks go ahead of the log that they write into
}

Lines PluginTest::trace() const
{
    const Lines all = m_trace.lines();
    return {all.begin() + static_cast<std::ptrdiff_t>(m_cleared), all.end()};
}

void PluginTest::clear()
{
    m_cleared = m_trace.lines().size();
}

Lines PluginTest::messages() const
{
    Lines lines = log();
    lines.erase(std::remove_if(lines.begin(), lines.end(), isFrame), lines.end());
    return lines;
}

Lines PluginTest::withPrefix(const std::string& prefix) const
{
    Lines found;
    for (const std::string& line : trace())
        if (line.compare(0, prefix.size(), prefix) == 0)
            found.push_back(line.substr(prefix.size()));
    return found;
}
