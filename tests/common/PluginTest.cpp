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

#include <array>
#include <cstdint>
#include <cstring>

namespace
{

bool endsWith(const std::string& line, const std::string& end)
{
    return line.size() >= end.size() && line.compare(line.size() - end.size(), end.size(), end) == 0;
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
    morlan_reset();
    ral_reset();
    mvsim_reset();
    resetStatics();
    morlan_set_install_path(m_folder.path().c_str());
    morlan_set_private_ini(m_folder.path("private.ini").c_str());
    writePrivateIni("[VendorID]\nMarvell=9\n[VendorLibName]\nLinux_9=libmvsim\n");
    writeMapping("[EventSequenceNumber]\nSequenceNumber=0\n");
    morlan_set_debug_sink(Source::sink, &m_debugSource);
    morlan_set_call_sink(Source::sink, &m_supportSource);
    ral_set_call_sink(Source::sink, &m_ralSource);
    mvsim_set_call_sink(Source::sink, &m_vendorSource);
}

PluginTest::~PluginTest()
{
    releaseSnapshot();
    CMarvelSubSystemMgr::destroyMe();
    CMarvelEventManager::destroyMe();
    CMarvelEvtObserver::destroyMe();
    CCommandHandler::destroyMe();
    CLibraryManager::destroyMe();
    CCriticalSection::destroyMutex();
    EXPECT_EQ(ral_live_lists(), 0U);
    ral_reset();
    mvsim_reset();
    EXPECT_EQ(morlan_live_sdo_objects(), 0U);
    EXPECT_EQ(morlan_live_strings(), 0U);
    EXPECT_EQ(morlan_running_threads(), 0U);
    morlan_reset();
}

void PluginTest::writeMapping(const std::string& content) const
{
    m_folder.write("MarvelAlertMapping.ini", content);
}

std::string PluginTest::readMapping() const
{
    return m_folder.read("MarvelAlertMapping.ini");
}

void PluginTest::writePrivateIni(const std::string& content) const
{
    m_folder.write("private.ini", content);
}

void PluginTest::loadAdapter(const std::string& members, const std::string& top) const
{
    loadScenario(R"({"format": 1, "name": "test", "adapters": [{"slot": 0, "maxBufferKB": 64)" +
                 (members.empty() ? "" : ", " + members) + "}]" + (top.empty() ? "" : ", " + top) + "}");
}

void PluginTest::loadScenario(const std::string& text) const
{
    m_folder.write("scenario.json", text);
    std::array<char, 1000> message{};
    ASSERT_EQ(mvsim_load_scenario(m_folder.path("scenario.json").c_str(), message.data(), message.size()), 0)
        << message.data();
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

Lines PluginTest::withPrefix(const std::string& prefix, bool frames) const
{
    Lines found;
    for (const std::string& line : trace()) {
        if (line.compare(0, prefix.size(), prefix) == 0 &&
            (frames || (!endsWith(line, " ENTRY ") && !endsWith(line, " EXIT "))))
            found.push_back(line.substr(prefix.size()));
    }
    return found;
}

void PluginTest::releaseSnapshot()
{
    ral_snapshot_destroy(static_cast<ral_snapshot*>(m_snapshot));
    m_snapshot = nullptr;
}

const void* PluginTest::engineObject(unsigned int type, unsigned int id, unsigned int value)
{
    releaseSnapshot();
    auto* const snapshot = ral_snapshot_create();
    m_snapshot = snapshot;
    for (unsigned int index = 0; index < ral_snapshot_count(snapshot); ++index) {
        const void* const object = ral_snapshot_object(snapshot, index);
        if (property(object, SSPROP_OBJTYPE_U32) == "8:" + std::to_string(type) &&
            property(object, id) == "8:" + std::to_string(value))
            return object;
    }
    return nullptr;
}

unsigned int PluginTest::engineObjectCount()
{
    releaseSnapshot();
    m_snapshot = ral_snapshot_create();
    return ral_snapshot_count(static_cast<ral_snapshot*>(m_snapshot));
}

std::string PluginTest::property(const void* object, unsigned int id)
{
    unsigned short foundId = 0;
    unsigned char type = 0;
    const void* value = nullptr;
    unsigned int size = 0;
    for (unsigned int index = 0; morlan_sdo_property_at(object, index, &foundId, &type, &value, &size) == 0;
         ++index) {
        if (foundId != id)
            continue;
        std::string text = std::to_string(type) + ":";
        if (type == SDO_TYPE_ASTRING)
            return text + static_cast<const char*>(value) + "/" + std::to_string(size);
        if (type == SDO_TYPE_SDOCONFIG)
            return text;
        if (type == SDO_TYPE_NEXUS_U32) {
            for (unsigned int element = 0; element < size / 4; ++element) {
                std::uint32_t number = 0;
                std::memcpy(&number, static_cast<const unsigned char*>(value) + element * 4, 4);
                text += (element == 0 ? "" : ",") + std::to_string(number);
            }
            return text;
        }
        std::uint64_t number = 0;
        std::memcpy(&number, value, size);
        return text + std::to_string(number);
    }
    return "none";
}

std::vector<unsigned int> PluginTest::propertyIds(const void* object)
{
    std::vector<unsigned int> ids;
    unsigned short id = 0;
    unsigned char type = 0;
    const void* value = nullptr;
    unsigned int size = 0;
    for (unsigned int index = 0; morlan_sdo_property_at(object, index, &id, &type, &value, &size) == 0;
         ++index)
        ids.push_back(id);
    return ids;
}
