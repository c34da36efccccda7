#include "mvsim/api/Simulator.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace mvsim
{

namespace
{

constexpr std::size_t MAX_COUNT = 0xff;

// One entry of a list answer, where it lies in the model.
struct ListEntry {
    std::uint16_t id;
    const void* record;
};

struct List {
    std::size_t stride;
    std::vector<ListEntry> entries;
};

std::uint16_t idOf(const Disk& disk)
{
    return disk.info.HD_Id;
}

std::uint16_t idOf(const VirtualDisk& drive)
{
    return drive.info.LD_Id;
}

template <class Device, class Record>
List listOf(const std::vector<Device>& devices, Record Device::*record)
{
    List list{sizeof(Record), {}};
    for (const Device& device : devices)
        if (device.present)
            list.entries.push_back({idOf(device), &(device.*record)});
    return list;
}

List listFor(EntryPoint entry, const Adapter& adapter)
{
    switch (entry) {
    case EntryPoint::MV_PD_GetHDInfo_Ext:
        return listOf(adapter.disks, &Disk::info);
    case EntryPoint::MV_PD_GetConfig:
        return listOf(adapter.disks, &Disk::config);
    case EntryPoint::MV_LD_GetInfo:
        return listOf(adapter.virtualDisks, &VirtualDisk::info);
    default:
        return listOf(adapter.virtualDisks, &VirtualDisk::config);
    }
}

// Keeps of a list what the request asks for; false when it asks for what does not exist.
bool select(const _Info_Request& request, std::vector<ListEntry>& entries)
{
    if (request.RequestType == MV_REQUEST_ONE_DEVICE) {
        const std::uint16_t id = request.StartIndexOrId;
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [id](const ListEntry& entry) { return entry.id == id; });
        if (found == entries.end())
            return false;
        entries = {*found};
    } else if (request.RequestType == MV_REQUEST_LIST) {
        const std::size_t skipped = std::min<std::size_t>(request.StartIndexOrId, entries.size());
        entries.erase(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(skipped));
    } else {
        return false;
    }
    entries.resize(std::min<std::size_t>(request.NumRequested, entries.size()), ListEntry{});
    return true;
}

// How many of `available` entries are filled in.
std::size_t filledEntries(const AnswerLength& length, std::size_t available)
{
    available = std::min<std::size_t>(available, length.entries.value_or(~0U));
    return std::min<std::size_t>(available, length.count.value_or(~0U));
}

template <class Device>
std::uint8_t countPresent(const std::vector<Device>& devices)
{
    const auto count =
        std::count_if(devices.begin(), devices.end(), [](const Device& device) { return device.present; });
    return static_cast<std::uint8_t>(std::min(static_cast<std::size_t>(count), MAX_COUNT));
}

} // namespace

Simulator::Simulator(SourceMaker fallback) : m_fallback(std::move(fallback)) {}

void Simulator::choose(std::unique_ptr<ISource> source)
{
    m_chosen = true;
    m_adapters = source ? source->adapters() : std::vector<PlayedAdapter>{};
    m_vendorRules = source ? source->vendorRules() : CallRules{};
    m_lastSequence = source ? source->startSequence() : 0;
    m_source = std::move(source);
}

void Simulator::ensureSource()
{
    if (!m_chosen) {
        m_chosen = true; // also when the fallback throws: it is asked once
        choose(m_fallback());
    }
}

void Simulator::play(std::unique_ptr<ISource> source)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    choose(std::move(source));
}

void Simulator::setSequenceBase(std::uint32_t sequence)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_sequenceBase = sequence;
}

unsigned int Simulator::polls()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ensureSource();
    return m_adapters.empty() ? 0 : m_adapters.front().polls;
}

unsigned int Simulator::lastPoll()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ensureSource();
    return m_source ? m_source->lastPoll() : 0;
}

template <class Fill>
unsigned int Simulator::answer(EntryPoint entry, unsigned int adapter, Fill fill)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ensureSource();
    if (adapter >= m_adapters.size())
        return MV_ERR_INVALID_ADAPTER_ID;
    PlayedAdapter& played = m_adapters[adapter];
    const Verdict verdict = played.rules.judge(entry);
    if (!verdict.fills)
        return verdict.result;
    const unsigned int status = fill(played);
    return verdict.result != 0 ? verdict.result : status;
}

unsigned int Simulator::vendorCall(EntryPoint entry)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ensureSource();
    return m_vendorRules.judge(entry).result;
}

unsigned int Simulator::adapterCount()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ensureSource();
    const auto real = static_cast<unsigned int>(m_adapters.size());
    return m_vendorRules.answer(EntryPoint::MV_Adapter_GetCount).count.value_or(real);
}

unsigned int Simulator::adapterInfo(unsigned int adapter, _Adapter_Info* info)
{
    return answer(EntryPoint::MV_Adapter_GetInfo, adapter, [info](const PlayedAdapter& played) {
        if (info == nullptr)
            return MV_ERR_FAIL;
        _Adapter_Info record = played.model.info;
        if (played.model.countsDisks)
            record.PDCount = countPresent(played.model.disks);
        if (played.model.countsVirtualDisks)
            record.VDCount = countPresent(played.model.virtualDisks);
        *info = record;
        return MV_ERR_NONE;
    });
}

unsigned int Simulator::adapterConfig(unsigned int adapter, _Adapter_Config_V2* config)
{
    return answer(EntryPoint::MV_Adapter_GetConfig, adapter, [config](const PlayedAdapter& played) {
        if (config == nullptr)
            return MV_ERR_FAIL;
        *config = played.model.config;
        return MV_ERR_NONE;
    });
}

unsigned int Simulator::oemData(unsigned int adapter, _Adapter_OEM_Data* data)
{
    return answer(EntryPoint::MV_Adapter_Get_OEM_Data, adapter, [data](const PlayedAdapter& played) {
        // The caller tells in the record which record it means and how much room it has.
        if (data == nullptr || data->OemSelector != 0)
            return MV_ERR_FAIL;
        if (data->OemRecordSize < sizeof(_Adapter_OEM_Data))
            return MV_ERR_REQ_OUT_OF_RANGE;
        _Adapter_OEM_Data record = played.model.oem;
        record.OemRecordSize = data->OemRecordSize;
        record.OemSelector = data->OemSelector;
        *data = record;
        return MV_ERR_NONE;
    });
}

unsigned int Simulator::list(EntryPoint entry, unsigned int adapter, _Info_Request* request)
{
    return answer(entry, adapter, [entry, request](const PlayedAdapter& played) {
        if (request == nullptr)
            return MV_ERR_FAIL;
        List list = listFor(entry, played.model);
        if (!select(*request, list.entries))
            return MV_ERR_REQ_OUT_OF_RANGE;
        const AnswerLength length = played.rules.answer(entry);
        const std::size_t filled = filledEntries(length, list.entries.size());
        auto* target = reinterpret_cast<unsigned char*>(request) + sizeof(_Info_Request);
        for (std::size_t i = 0; i < filled; ++i)
            std::memcpy(target + i * list.stride, list.entries[i].record, list.stride);
        request->NumReturned =
            static_cast<std::uint16_t>(length.count.value_or(static_cast<unsigned int>(filled)));
        return MV_ERR_NONE;
    });
}

template <class Request, class Answer>
unsigned int Simulator::oneDisk(EntryPoint entry, unsigned int adapter, Request* request, Answer answerOf)
{
    return answer(entry, adapter, [&](const PlayedAdapter& played) {
        if (request == nullptr)
            return MV_ERR_FAIL;
        // There is room for one answer, so a list of disks cannot be asked for.
        List list = listOf(played.model.disks, answerOf);
        if (request->Header.RequestType != MV_REQUEST_ONE_DEVICE || !select(request->Header, list.entries))
            return MV_ERR_REQ_OUT_OF_RANGE;
        const AnswerLength length = played.rules.answer(entry);
        const std::size_t filled = filledEntries(length, list.entries.size());
        if (filled != 0) {
            const _Info_Request header = request->Header;
            std::memcpy(request, list.entries.front().record, sizeof(Request));
            request->Header = header;
        }
        request->Header.NumReturned =
            static_cast<std::uint16_t>(length.count.value_or(static_cast<unsigned int>(filled)));
        return MV_ERR_NONE;
    });
}

unsigned int Simulator::raidStatus(unsigned int adapter, _HD_RAID_Status_Request* request)
{
    return oneDisk(EntryPoint::MV_PD_GetHDRaidStatus, adapter, request, &Disk::raidStatus);
}

unsigned int Simulator::freeSpace(unsigned int adapter, _HD_FreeSpaceInfo_Request* request)
{
    return oneDisk(EntryPoint::MV_PD_GetFreeSpaceInfo, adapter, request, &Disk::freeSpace);
}

unsigned int Simulator::events(unsigned int adapter, unsigned int maximum, unsigned int* count,
                               _Event* events, std::vector<_Event>& delivered)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ensureSource();
    if (adapter >= m_adapters.size())
        return MV_ERR_INVALID_ADAPTER_ID;
    if (count == nullptr || events == nullptr)
        return MV_ERR_FAIL;
    PlayedAdapter& played = m_adapters[adapter];
    ++played.polls;
    played.rules.dropEnded(played.polls);
    m_source->beginPoll(adapter, played);

    const Verdict verdict = played.rules.judge(EntryPoint::MV_EVT_GetEvent);
    if (!verdict.fills)
        return verdict.result; // what is pending waits
    const AnswerLength length = played.rules.answer(EntryPoint::MV_EVT_GetEvent);
    const std::size_t room = std::min(maximum, MV_MAX_EVENTS);
    const std::size_t filled = filledEntries(length, std::min(room, played.pending.size()));
    const auto end = played.pending.begin() + static_cast<std::ptrdiff_t>(filled);
    std::vector<_Event> batch;
    std::vector<bool> numbered;
    for (auto event = played.pending.begin(); event != end; ++event) {
        batch.push_back(event->record);
        numbered.push_back(event->numbered);
    }
    numberEvents(batch, numbered);
    played.pending.erase(played.pending.begin(), end);
    std::copy(batch.begin(), batch.end(), events);
    *count = length.count.value_or(static_cast<unsigned int>(filled));
    delivered = std::move(batch);
    return verdict.result;
}

void Simulator::numberEvents(std::vector<_Event>& events, const std::vector<bool>& numbered)
{
    const std::uint32_t before = m_lastSequence;
    for (std::size_t i = 0; i < events.size(); ++i) {
        if (!numbered[i]) {
            m_lastSequence = std::max(m_lastSequence, m_sequenceBase) + 1;
            events[i].EventSequence = m_lastSequence;
        }
    }
    if (m_lastSequence != before)
        m_source->keepSequence(m_lastSequence);
}

unsigned int Simulator::flushEvents(unsigned int adapter)
{
    return answer(EntryPoint::MV_EVT_FlushEvent, adapter, [](PlayedAdapter& played) {
        played.pending.clear();
        return MV_ERR_NONE;
    });
}

unsigned int Simulator::unsupported(EntryPoint entry, unsigned int adapter)
{
    return answer(entry, adapter, [](const PlayedAdapter&) { return MV_ERR_FAIL; });
}

} // namespace mvsim
