// The C borders: the seventeen entry points and the control interface.
#include "mvhostile/Hostile.h"

#define MVHOSTILE_DECLARE(symbol, arguments) extern "C" DEVKIT_EXPORT unsigned int symbol arguments;
MV_API_LIST(MVHOSTILE_DECLARE)
#undef MVHOSTILE_DECLARE

using mvhostile::FAULT_COUNT;
using mvhostile::FAULTS;
using mvhostile::Hostile;
using mvsim::EntryPoint;

#define MVHOSTILE_LIBRARY_CALL(symbol)                                                                       \
    unsigned int symbol()                                                                                    \
    {                                                                                                        \
        return Hostile::instance().status(EntryPoint::symbol);                                               \
    }
MVHOSTILE_LIBRARY_CALL(MV_API_Initialize)
MVHOSTILE_LIBRARY_CALL(MV_API_Finalize)
MVHOSTILE_LIBRARY_CALL(MV_API_Version)
#undef MVHOSTILE_LIBRARY_CALL

unsigned int MV_Adapter_GetCount()
{
    return Hostile::instance().adapterCount();
}

unsigned int MV_Adapter_GetInfo(unsigned char adapter, unsigned int* count, _Adapter_Info* info)
{
    return Hostile::instance().record(EntryPoint::MV_Adapter_GetInfo, adapter, info, count);
}

unsigned int MV_Adapter_GetConfig(unsigned char adapter, unsigned int* count, _Adapter_Config_V2* config)
{
    return Hostile::instance().record(EntryPoint::MV_Adapter_GetConfig, adapter, config, count);
}

unsigned int MV_Adapter_Get_OEM_Data(unsigned char adapter, _Adapter_OEM_Data* data)
{
    const bool hasRoom = data != nullptr && data->OemRecordSize >= sizeof *data;
    return Hostile::instance().record(EntryPoint::MV_Adapter_Get_OEM_Data, adapter, hasRoom ? data : nullptr,
                                      nullptr);
}

#define MVHOSTILE_DEVICE_CALL(symbol, Request)                                                               \
    unsigned int symbol(unsigned char adapter, Request* request)                                             \
    {                                                                                                        \
        return Hostile::instance().devices(EntryPoint::symbol, adapter,                                      \
                                           reinterpret_cast<_Info_Request*>(request));                       \
    }
MVHOSTILE_DEVICE_CALL(MV_PD_GetHDInfo_Ext, _Info_Request)
MVHOSTILE_DEVICE_CALL(MV_PD_GetConfig, _Info_Request)
MVHOSTILE_DEVICE_CALL(MV_PD_GetHDRaidStatus, _HD_RAID_Status_Request)
MVHOSTILE_DEVICE_CALL(MV_PD_GetFreeSpaceInfo, _HD_FreeSpaceInfo_Request)
MVHOSTILE_DEVICE_CALL(MV_LD_GetInfo, _Info_Request)
MVHOSTILE_DEVICE_CALL(MV_LD_GetConfig, _Info_Request)
#undef MVHOSTILE_DEVICE_CALL

unsigned int MV_PD_GET_SMART_INFO(unsigned char adapter, void*)
{
    return Hostile::instance().status(EntryPoint::MV_PD_GET_SMART_INFO, adapter);
}

unsigned int MV_PassThrough_ATA(unsigned char adapter, void*)
{
    return Hostile::instance().status(EntryPoint::MV_PassThrough_ATA, adapter);
}

unsigned int MV_EVT_GetEvent(unsigned char adapter, unsigned int maximum, unsigned int* count, _Event* events)
{
    return Hostile::instance().events(adapter, maximum, count, events);
}

unsigned int MV_EVT_FlushEvent(unsigned char adapter)
{
    return Hostile::instance().status(EntryPoint::MV_EVT_FlushEvent, adapter);
}

int mvhostile_start(unsigned int seed, const char* fault)
{
    return Hostile::instance().start(seed, fault) ? 0 : 1;
}

unsigned int mvhostile_answers(void)
{
    return Hostile::instance().answers();
}

unsigned int mvhostile_entries(void)
{
    return Hostile::instance().entries();
}

const char* mvhostile_fault_name(unsigned int index)
{
    return index < FAULT_COUNT ? FAULTS[index].name : nullptr;
}

const char* mvhostile_fault_effect(unsigned int index)
{
    return index < FAULT_COUNT ? FAULTS[index].effect : nullptr;
}

unsigned int mvhostile_strikes(unsigned int index)
{
    return Hostile::instance().strikes(index);
}

void mvhostile_set_call_sink(devkit_text_sink sink, void* context)
{
    Hostile::instance().callSink.set(sink, context);
}
