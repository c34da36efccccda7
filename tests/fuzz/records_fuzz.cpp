// Any bytes as what the vendor library answers, in lists of any length and with calls that fail: through
// discovery and a poll into the data engine, and out of it as the host reads it.
#include "discovery/CMarvelSubSystemMgr.h"
#include "events/CMarvelAlert.h"
#include "events/CMarvelEvtObserver.h"
#include "fuzz/demand.h"
#include "morlan/morlan_inspect.h"
#include "mvlayer/CMVLibraryInterfaceLayer.h"
#include "ral/ral_inspect.h"
#include "vendor/CLibraryManager.h"
#include "vendor/CMarvellVendorLibrary.h"
#include "zarnekctl/host/SdoReader.h"
#include "zarnekctl/host/System.h"

#include <dlfcn.h>

#include <algorithm>

using namespace zarnekctl;

namespace
{

// The input; behind its end it begins again.
std::string input;
std::size_t position = 0;

template <class Record>
Record take()
{
    Record record;
    for (std::size_t i = 0; i < sizeof record; ++i)
        reinterpret_cast<char*>(&record)[i] = input.empty() ? '\0' : input[position++ % input.size()];
    return record;
}

// What the vendor library sees, and whether all its answers were in order, whatever they held.
_Adapter_Info adapter;
unsigned int disks = 0, drives = 0;
bool orderly = true;

// The value, and at times something else.
unsigned int mostly(unsigned int value)
{
    if (take<unsigned char>() % 16 != 15)
        return value;
    orderly = false;
    return take<unsigned char>();
}

template <class Record>
unsigned int answer(Record* record)
{
    *record = take<Record>();
    return mostly(0);
}

template <class Record>
unsigned int answerList(_Info_Request* request, unsigned int count)
{
    const auto filled = std::min<unsigned int>(count, request->NumRequested);
    orderly = orderly && filled == count;
    std::generate_n(reinterpret_cast<Record*>(request + 1), filled, take<Record>);
    request->NumReturned = static_cast<std::uint16_t>(mostly(filled));
    return mostly(0);
}

unsigned int answerEvents(unsigned int* count, _Event* events)
{
    const unsigned int filled = take<unsigned char>() % 8;
    std::generate_n(events, filled, take<_Event>);
    *count = mostly(filled);
    return mostly(0);
}

// Values have the sizes of their types, and texts end in their blocks.
void checkValues(const Object& object)
{
    for (const Property& property : object.properties) {
        const auto* const text = std::get_if<std::string>(&property.value);
        demand(text == nullptr || text->size() < 256, "a text is terminated");
        demand(!std::holds_alternative<Bytes>(property.value), "a value fits its type");
        if (const auto* const nested = std::get_if<Nested>(&property.value))
            checkValues(*nested->object);
    }
}

// Rediscovers nothing.
struct PassiveObserver : CMarvelEvtObserver {
    using N = unsigned int;
    short generateActionCommand(N, N, N, N, N) override { return 0; }
};

// Finds its entry points in this program.
struct Library : CMarvellVendorLibrary {
    Library() : CMarvellVendorLibrary("9", "") { CMarvellVendorLibrary::setAPIName(); }
    void* getLibHandle() override { return dlopen(nullptr, RTLD_NOW); }
};

} // namespace

#define ANSWER(symbol, arguments, result)                                                                    \
    extern "C" __attribute__((visibility("default"))) unsigned int symbol arguments                          \
    {                                                                                                        \
        return result;                                                                                       \
    }
ANSWER(MV_Adapter_GetCount, (), mostly(1))
ANSWER(MV_Adapter_GetInfo, (unsigned char, unsigned int*, _Adapter_Info* info), (*info = adapter, mostly(0)))
ANSWER(MV_Adapter_GetConfig, (unsigned char, unsigned int*, _Adapter_Config_V2* config), answer(config))
ANSWER(MV_PD_GetHDInfo_Ext, (unsigned char, _Info_Request* list), answerList<_HD_Info>(list, disks))
ANSWER(MV_PD_GetConfig, (unsigned char, _Info_Request* list), answerList<_HD_CONFIG>(list, disks))
ANSWER(MV_PD_GetHDRaidStatus, (unsigned char, _HD_RAID_Status_Request* status), answer(status))
ANSWER(MV_PD_GetFreeSpaceInfo, (unsigned char, _HD_FreeSpaceInfo_Request* space), answer(space))
ANSWER(MV_LD_GetInfo, (unsigned char, _Info_Request* list), answerList<_LD_Info>(list, drives))
ANSWER(MV_LD_GetConfig, (unsigned char, _Info_Request* list), answerList<_LD_Config>(list, drives))
ANSWER(MV_Adapter_Get_OEM_Data, (unsigned char, _Adapter_OEM_Data* data), answer(data))
ANSWER(MV_EVT_GetEvent, (unsigned char, unsigned int, unsigned int* n, _Event* all), answerEvents(n, all))

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    morlan_set_debug_sink([](void*, const char*) {}, nullptr);
    static const short registered = CLibraryManager::getUniqueInstance()->insertIntoMap(9, new Library);
    demand(registered == 0, "the library is there");
    input.assign(reinterpret_cast<const char*>(data), size);
    position = 0;
    orderly = true;
    disks = take<unsigned char>() % 16;
    drives = take<unsigned char>() % 16;
    adapter = take<_Adapter_Info>();
    adapter.MaxBufferSizeKB = std::min<std::uint16_t>(adapter.MaxBufferSizeKB, 16);
    {
        CMarvelSubSystemMgr manager;
        manager.discoverController(0, 0);
        manager.discoverAllPDs(0, 0);
        manager.discoverAllVDs(0, 0);
        demand(!orderly || ral_incomplete_count() == 0, "every object has an identity");
        manager.discoverPD(0, 0, take<unsigned char>());
        manager.discoverVD(0, 0, take<unsigned char>());
        for (const Node& node : readSystem().nodes)
            checkValues(node.object);
        std::vector<CAlert*> alerts;
        manager.getLilPtr()->getEventInfo({0, 0}, alerts);
        demand(alerts.size() <= MV_MAX_EVENTS, "an event becomes an alert");
        ral_set_notification_sink([](void*, const void* object) { checkValues(readObject(object)); },
                                  nullptr);
        for (CAlert* const alert : alerts) // past the mapping file, whose content decides which of them pass
            PassiveObserver().IEvtObserver::processAlert(alert);
        demand(ral_call_count("RalSendNotification") == alerts.size(), "an alert becomes one notification");
        manager.getLilPtr()->releaseEventInfoVector(alerts);
    }
    ral_reset();
    demand(morlan_live_sdo_objects() == 0, "no SDO object is left");
    return 0;
}
