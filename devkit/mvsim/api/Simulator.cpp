#include "mvsim/api/Simulator.h"

#include "mvsim/api/DeviceAnswer.h"

#include <algorithm>
#include <utility>

namespace mvsim
{

namespace
{

constexpr std::size_t MAX_COUNT = 0xff;

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

unsigned int Simulator::devices(EntryPoint entry, unsigned int adapter, _Info_Request* request)
{
    return answer(entry, adapter, [entry, request](const PlayedAdapter& played) {
        return request == nullptr ? MV_ERR_FAIL
                                  : answerRequest(entry, played.model, played.rules.answer(entry), *request);
    });
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
    beginPoll(adapter, played);
    const Verdict verdict = played.rules.judge(EntryPoint::MV_EVT_GetEvent);
    if (!verdict.fills)
        return verdict.result; // what is pending waits
    const AnswerLength length = played.rules.answer(EntryPoint::MV_EVT_GetEvent);
    const std::size_t room = std::min(maximum, MV_MAX_EVENTS);
    const std::size_t filled = length.filled(std::min(room, played.pending.size()));
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

void Simulator::beginPoll(unsigned int adapter, PlayedAdapter& played)
{
    ++played.polls;
    try {
        m_source->beginPoll(adapter, played);
    } catch (...) { // then what was to happen does at the next one
        --played.polls;
        throw;
    }
    played.rules.dropEnded(played.polls);
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
