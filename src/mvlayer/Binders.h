// The carriers in which the query layer hands vendor records to the operator=(void*) of a model object. The
// binders hold pointers only and own nothing; what they point at lives in the query function, for that one
// call. Any pointer may be null: the reader then skips what that record would give.
#ifndef ZARNEK_MVLAYER_BINDERS_H
#define ZARNEK_MVLAYER_BINDERS_H

#include <mv.h>

#include <cstdint>

namespace stg
{

// What a model object needs beside the vendor's records. A query fills the fields that its target reads.
struct SInfoHelper_t {
    std::uint32_t globalCntrlNum = 0;
    std::uint32_t cntrlId = 0;
    std::uint32_t hdRaidStatus = 0; // physical disks
    std::uint32_t eventCount = 0;   // events; read by nobody
    char romVersion[20] = {};       // controllers; terminated
};

struct QLVCntrlBinder_t {
    QLVCntrlBinder_t() = default;
    QLVCntrlBinder_t(_Adapter_Info* info, _Adapter_Config_V2* config, SInfoHelper_t* helper)
        : adapterInfo(info), adapterConfig(config), infoHelper(helper)
    {
    }

    _Adapter_Info* adapterInfo = nullptr;
    _Adapter_Config_V2* adapterConfig = nullptr;
    SInfoHelper_t* infoHelper = nullptr;
};

struct QLVPDBinder_t {
    QLVPDBinder_t() = default;
    // The last two in the reverse of the field order.
    QLVPDBinder_t(_HD_Info* info, _HD_CONFIG* config, SInfoHelper_t* helper, _HD_FreeSpaceInfo* freeSpace)
        : hdInfo(info), hdConfig(config), hdFreeSpace(freeSpace), infoHelper(helper)
    {
    }

    _HD_Info* hdInfo = nullptr;
    _HD_CONFIG* hdConfig = nullptr;
    _HD_FreeSpaceInfo* hdFreeSpace = nullptr;
    SInfoHelper_t* infoHelper = nullptr;
};

struct QLVVDBinder_t {
    QLVVDBinder_t() = default;
    QLVVDBinder_t(_LD_Info* info, _LD_Config* config, SInfoHelper_t* helper)
        : ldInfo(info), ldConfig(config), infoHelper(helper)
    {
    }

    _LD_Info* ldInfo = nullptr;
    _LD_Config* ldConfig = nullptr;
    SInfoHelper_t* infoHelper = nullptr;
};

struct QLVEventBinder_t {
    QLVEventBinder_t() = default;
    QLVEventBinder_t(_Event* record, SInfoHelper_t* helper) : event(record), infoHelper(helper) {}

    _Event* event = nullptr;
    SInfoHelper_t* infoHelper = nullptr;
};

} // namespace stg

#endif
