#include "mvsim/api/DeviceAnswer.h"

#include <algorithm>
#include <cstring>

namespace mvsim
{

namespace
{

// The records that a request asks about, where they lie in the model.
struct List {
    std::size_t stride;
    bool forOne; // the caller's record has room for one answer
    std::vector<const unsigned char*> records;
};

// `skipped` bytes at the head of each record are the request's own header.
template <class Device, class Record>
List listOf(const _Info_Request& request, const std::vector<Device>& devices, Record Device::*record,
            std::size_t skipped = 0)
{
    List list{sizeof(Record) - skipped, skipped != 0, {}};
    const bool all = request.RequestType != MV_REQUEST_ONE_DEVICE;
    for (const Device& device : devices)
        if (device.present && (all || idOf(device) == request.StartIndexOrId))
            list.records.push_back(reinterpret_cast<const unsigned char*>(&(device.*record)) + skipped);
    return list;
}

List listFor(EntryPoint entry, const Adapter& adapter, const _Info_Request& request)
{
    switch (entry) {
    case EntryPoint::MV_PD_GetHDInfo_Ext:
        return listOf(request, adapter.disks, &Disk::info);
    case EntryPoint::MV_PD_GetConfig:
        return listOf(request, adapter.disks, &Disk::config);
    case EntryPoint::MV_PD_GetHDRaidStatus:
        return listOf(request, adapter.disks, &Disk::raidStatus, sizeof(_Info_Request));
    case EntryPoint::MV_PD_GetFreeSpaceInfo:
        return listOf(request, adapter.disks, &Disk::freeSpace, sizeof(_Info_Request));
    case EntryPoint::MV_LD_GetInfo:
        return listOf(request, adapter.virtualDisks, &VirtualDisk::info);
    default:
        return listOf(request, adapter.virtualDisks, &VirtualDisk::config);
    }
}

// Keeps of a list what the request has room for; false when it asks for what does not exist.
bool select(const _Info_Request& request, List& list)
{
    auto& records = list.records;
    if (request.RequestType == MV_REQUEST_ONE_DEVICE) {
        if (records.empty())
            return false;
    } else if (request.RequestType == MV_REQUEST_LIST && !list.forOne) {
        const std::size_t skipped = std::min<std::size_t>(request.StartIndexOrId, records.size());
        records.erase(records.begin(), records.begin() + static_cast<std::ptrdiff_t>(skipped));
    } else {
        return false;
    }
    records.resize(std::min<std::size_t>(request.NumRequested, records.size()));
    return true;
}

} // namespace

unsigned int answerRequest(EntryPoint entry, const Adapter& adapter, const AnswerLength& length,
                           _Info_Request& request)
{
    List list = listFor(entry, adapter, request);
    if (!select(request, list))
        return MV_ERR_REQ_OUT_OF_RANGE;
    const std::size_t filled = length.filled(list.records.size());
    auto* target = reinterpret_cast<unsigned char*>(&request) + sizeof(_Info_Request);
    for (std::size_t i = 0; i < filled; ++i)
        std::memcpy(target + i * list.stride, list.records[i], list.stride);
    request.NumReturned =
        static_cast<std::uint16_t>(length.count.value_or(static_cast<unsigned int>(filled)));
    return MV_ERR_NONE;
}

} // namespace mvsim
