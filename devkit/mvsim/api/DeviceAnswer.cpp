#include "mvsim/api/DeviceAnswer.h"

#include <algorithm>
#include <cstring>

namespace mvsim
{

namespace
{

// One record of an answer, where it lies in the model.
struct Entry {
    std::uint16_t id;
    const unsigned char* record;
};

struct List {
    std::size_t stride;
    bool forOne; // the caller's record has room for one answer
    std::vector<Entry> entries;
};

// `skipped` bytes at the head of each record are the request's own header.
template <class Device, class Record>
List listOf(const std::vector<Device>& devices, Record Device::*record, std::size_t skipped = 0)
{
    List list{sizeof(Record) - skipped, skipped != 0, {}};
    for (const Device& device : devices)
        if (device.present)
            list.entries.push_back(
                {idOf(device), reinterpret_cast<const unsigned char*>(&(device.*record)) + skipped});
    return list;
}

List listFor(EntryPoint entry, const Adapter& adapter)
{
    switch (entry) {
    case EntryPoint::MV_PD_GetHDInfo_Ext:
        return listOf(adapter.disks, &Disk::info);
    case EntryPoint::MV_PD_GetConfig:
        return listOf(adapter.disks, &Disk::config);
    case EntryPoint::MV_PD_GetHDRaidStatus:
        return listOf(adapter.disks, &Disk::raidStatus, sizeof(_Info_Request));
    case EntryPoint::MV_PD_GetFreeSpaceInfo:
        return listOf(adapter.disks, &Disk::freeSpace, sizeof(_Info_Request));
    case EntryPoint::MV_LD_GetInfo:
        return listOf(adapter.virtualDisks, &VirtualDisk::info);
    default:
        return listOf(adapter.virtualDisks, &VirtualDisk::config);
    }
}

// Keeps of a list what the request asks for; false when it asks for what does not exist.
bool select(const _Info_Request& request, List& list)
{
    std::vector<Entry>& entries = list.entries;
    if (request.RequestType == MV_REQUEST_ONE_DEVICE) {
        const std::uint16_t id = request.StartIndexOrId;
        const auto found =
            std::find_if(entries.begin(), entries.end(), [id](const Entry& entry) { return entry.id == id; });
        if (found == entries.end())
            return false;
        entries = {*found};
    } else if (request.RequestType == MV_REQUEST_LIST && !list.forOne) {
        const std::size_t skipped = std::min<std::size_t>(request.StartIndexOrId, entries.size());
        entries.erase(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(skipped));
    } else {
        return false;
    }
    entries.resize(std::min<std::size_t>(request.NumRequested, entries.size()), Entry{});
    return true;
}

} // namespace

unsigned int answerRequest(EntryPoint entry, const Adapter& adapter, const AnswerLength& length,
                           _Info_Request& request)
{
    List list = listFor(entry, adapter);
    if (!select(request, list))
        return MV_ERR_REQ_OUT_OF_RANGE;
    const std::size_t filled = length.filled(list.entries.size());
    auto* target = reinterpret_cast<unsigned char*>(&request) + sizeof(_Info_Request);
    for (std::size_t i = 0; i < filled; ++i)
        std::memcpy(target + i * list.stride, list.entries[i].record, list.stride);
    request.NumReturned =
        static_cast<std::uint16_t>(length.count.value_or(static_cast<unsigned int>(filled)));
    return MV_ERR_NONE;
}

} // namespace mvsim
