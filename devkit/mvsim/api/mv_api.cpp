// The seventeen entry points: each hands its call to the simulator, keeps exceptions from crossing the C
// border, and reports one line.
#include "common/guarded.h"
#include "mvsim/api/Library.h"

#include <optional>
#include <string>

#define MVSIM_DECLARE(symbol, arguments) extern "C" DEVKIT_EXPORT unsigned int symbol arguments;
MV_API_LIST(MVSIM_DECLARE)
#undef MVSIM_DECLARE

namespace
{

using mvsim::EntryPoint;
using mvsim::isSuccess;
using mvsim::Library;
using mvsim::Simulator;

// Runs `run(simulator)` and reports the call: `arguments` is their text, `remark(result)` what is to be said
// of the answer.
template <class Run, class Arguments, class Remark>
unsigned int call(EntryPoint entry, Run run, Arguments arguments, Remark remark) noexcept
{
    Library& library = Library::instance();
    const unsigned int result = devkit::guarded<unsigned int>(MV_ERR_FAIL, [&] {
        const std::optional<int> planned = library.faults.enter(nameOf(entry));
        return planned ? static_cast<unsigned int>(*planned) : run(library.simulator);
    });
    devkit::guarded([&] {
        if (library.callSink.isSet()) {
            const std::string line = std::string(nameOf(entry)) + "(" + arguments() +
                                     ") = " + std::to_string(result) + remark(result);
            library.callSink.call(line.c_str());
        }
    });
    return result;
}

std::string noArguments()
{
    return {};
}

std::string noRemark(unsigned int)
{
    return {};
}

// A call that only concerns an adapter.
template <class Run>
unsigned int adapterCall(EntryPoint entry, unsigned char adapter, Run run) noexcept
{
    return call(
        entry, run, [adapter] { return std::to_string(adapter); }, noRemark);
}

std::string describe(unsigned char adapter, const _Info_Request* request)
{
    std::string text = std::to_string(adapter);
    if (request == nullptr)
        return text + ", null";
    const std::string start = std::to_string(request->StartIndexOrId);
    switch (request->RequestType) {
    case MV_REQUEST_LIST:
        return text + ", list from " + start + ", " + std::to_string(request->NumRequested);
    case MV_REQUEST_ONE_DEVICE:
        return text + ", device " + start;
    default:
        return text + ", request type " + std::to_string(request->RequestType);
    }
}

std::string counted(unsigned int count, const char* one, const char* many)
{
    return ", " + std::to_string(count) + " " + (count == 1 ? one : many);
}

unsigned int vendorCall(EntryPoint entry) noexcept
{
    return call(
        entry, [entry](Simulator& simulator) { return simulator.vendorCall(entry); }, noArguments, noRemark);
}

// A call that tells of devices: its record begins with an _Info_Request.
template <class Request>
unsigned int deviceCall(EntryPoint entry, unsigned char adapter, Request* request) noexcept
{
    auto* const header = reinterpret_cast<_Info_Request*>(request);
    return call(
        entry, [=](Simulator& simulator) { return simulator.devices(entry, adapter, header); },
        [=] { return describe(adapter, header); },
        [=](unsigned int result) {
            return isSuccess(result) && header != nullptr ? counted(header->NumReturned, "entry", "entries")
                                                          : std::string();
        });
}

unsigned int unsupportedCall(EntryPoint entry, unsigned char adapter) noexcept
{
    return adapterCall(entry, adapter,
                       [=](Simulator& simulator) { return simulator.unsupported(entry, adapter); });
}

} // namespace

unsigned int MV_API_Initialize()
{
    return vendorCall(EntryPoint::MV_API_Initialize);
}

unsigned int MV_API_Finalize()
{
    return vendorCall(EntryPoint::MV_API_Finalize);
}

unsigned int MV_API_Version()
{
    return vendorCall(EntryPoint::MV_API_Version);
}

unsigned int MV_Adapter_GetCount()
{
    return call(
        EntryPoint::MV_Adapter_GetCount, [](Simulator& simulator) { return simulator.adapterCount(); },
        noArguments, noRemark);
}

// The count word's use is unknown; it is left as it came.
unsigned int MV_Adapter_GetInfo(unsigned char adapter, unsigned int*, _Adapter_Info* info)
{
    return adapterCall(EntryPoint::MV_Adapter_GetInfo, adapter,
                       [=](Simulator& simulator) { return simulator.adapterInfo(adapter, info); });
}

unsigned int MV_Adapter_GetConfig(unsigned char adapter, unsigned int*, _Adapter_Config_V2* config)
{
    return adapterCall(EntryPoint::MV_Adapter_GetConfig, adapter,
                       [=](Simulator& simulator) { return simulator.adapterConfig(adapter, config); });
}

#define MVSIM_DEVICE_CALL(symbol, Request)                                                                   \
    unsigned int symbol(unsigned char adapter, Request* request)                                             \
    {                                                                                                        \
        return deviceCall(EntryPoint::symbol, adapter, request);                                             \
    }
MVSIM_DEVICE_CALL(MV_PD_GetHDInfo_Ext, _Info_Request)
MVSIM_DEVICE_CALL(MV_PD_GetConfig, _Info_Request)
MVSIM_DEVICE_CALL(MV_PD_GetHDRaidStatus, _HD_RAID_Status_Request)
MVSIM_DEVICE_CALL(MV_PD_GetFreeSpaceInfo, _HD_FreeSpaceInfo_Request)
MVSIM_DEVICE_CALL(MV_LD_GetInfo, _Info_Request)
MVSIM_DEVICE_CALL(MV_LD_GetConfig, _Info_Request)
#undef MVSIM_DEVICE_CALL

unsigned int MV_PD_GET_SMART_INFO(unsigned char adapter, void*)
{
    return unsupportedCall(EntryPoint::MV_PD_GET_SMART_INFO, adapter);
}

unsigned int MV_PassThrough_ATA(unsigned char adapter, void*)
{
    return unsupportedCall(EntryPoint::MV_PassThrough_ATA, adapter);
}

unsigned int MV_Adapter_Get_OEM_Data(unsigned char adapter, _Adapter_OEM_Data* data)
{
    return adapterCall(EntryPoint::MV_Adapter_Get_OEM_Data, adapter,
                       [=](Simulator& simulator) { return simulator.oemData(adapter, data); });
}

unsigned int MV_EVT_GetEvent(unsigned char adapter, unsigned int maximum, unsigned int* count, _Event* events)
{
    return call(
        EntryPoint::MV_EVT_GetEvent,
        [=](Simulator& simulator) {
            std::vector<_Event> delivered;
            const unsigned int result = simulator.events(adapter, maximum, count, events, delivered);
            for (const _Event& event : delivered) {
                const mvsim_event seen{adapter, event.EventClass, event.EventCode, event.EventDeviceId,
                                       event.EventSequence};
                devkit::guarded([&seen] { Library::instance().eventSink.call(&seen); });
            }
            return result;
        },
        [=] { return std::to_string(adapter) + ", at most " + std::to_string(maximum); },
        [=](unsigned int result) {
            return isSuccess(result) ? counted(*count, "event", "events") : std::string();
        });
}

unsigned int MV_EVT_FlushEvent(unsigned char adapter)
{
    return adapterCall(EntryPoint::MV_EVT_FlushEvent, adapter,
                       [=](Simulator& simulator) { return simulator.flushEvents(adapter); });
}
