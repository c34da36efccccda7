#include "mvsim/live/LiveSource.h"

#include "mvsim/live/ArrayJudge.h"
#include "mvsim/live/ArrayProbe.h"
#include "mvsim/live/DiskProbe.h"
#include "mvsim/live/MachineChanges.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace mvsim
{

namespace
{

constexpr std::uint16_t ADAPTER_MODEL = 1; // the machine itself
constexpr std::size_t MOST_PORTS = 0xff;

// Callers count the entries that the largest answer holds in 16 bits. In multiples of this size what is left
// of the counts of the two short records, 65534 disks and no fewer than 21844 logical drives, is enough for
// all.
constexpr std::size_t BUFFER_STEP_KB = 512;
constexpr std::size_t MOST_DEVICES = 20000; // of either kind

// The size of the largest answer, in units of 1024 bytes, with room for one entry more than there are.
std::uint16_t bufferFor(const Adapter& adapter)
{
    const std::size_t needed =
        sizeof(_Info_Request) + std::max((adapter.disks.size() + 1) * sizeof(_HD_Info),
                                         (adapter.virtualDisks.size() + 1) * sizeof(_LD_Info));
    return static_cast<std::uint16_t>((needed / (BUFFER_STEP_KB * 1024) + 1) * BUFFER_STEP_KB);
}

// To as many as the adapter's answers hold.
template <class Seen>
void cut(std::vector<Seen>& devices, const char* noun)
{
    if (devices.size() <= MOST_DEVICES)
        return;
    std::fprintf(stderr, "mvsim: the machine has %zu %s, of which the first %zu are shown\n", devices.size(),
                 noun, MOST_DEVICES);
    devices.resize(MOST_DEVICES);
}

} // namespace

LiveSource::LiveSource(const std::string& sysfsRoot, const std::string& stateFile) : m_root(sysfsRoot)
{
    if (!stateFile.empty())
        m_stateFile.emplace(stateFile);
    if (!m_root.below("block").exists())
        throw std::runtime_error(sysfsRoot + ": /block: expected a folder, found none");
}

SeenMachine LiveSource::look()
{
    SeenMachine machine = judgeArrays(probeDisks(m_root), probeArrays(m_root));
    cut(machine.disks, "disks");
    cut(machine.arrays, "arrays");
    m_twins.tellApart(machine.disks);
    for (SeenDisk& disk : machine.disks) {
        const std::uint16_t number = m_diskNumbers.numberOf(disk.identity);
        setNumbers(disk.device, number, number);
    }
    for (SeenArray& array : machine.arrays) {
        const std::uint16_t number = m_arrayNumbers.numberOf(array.name, array.minor.value_or(0));
        setNumbers(array.device, number, number);
    }
    return machine;
}

Adapter LiveSource::adapterOf(const SeenMachine& machine) const
{
    Adapter adapter;
    adapter.info.AdapterModel = ADAPTER_MODEL;
    adapter.info.PortCount =
        static_cast<std::uint8_t>(std::min(m_root.below("class/scsi_host").entries().size(), MOST_PORTS));
    adapter.oem.RomMajor = 1;
    for (const SeenDisk& disk : machine.disks)
        adapter.disks.push_back(disk.device);
    for (const SeenArray& array : machine.arrays)
        adapter.virtualDisks.push_back(array.device);
    adapter.info.MaxBufferSizeKB = bufferFor(adapter);
    return adapter;
}

std::vector<PlayedAdapter> LiveSource::adapters()
{
    m_seen = look();
    PlayedAdapter played;
    played.model = adapterOf(m_seen);
    return {played};
}

void LiveSource::beginPoll(unsigned int, PlayedAdapter& adapter)
{
    SeenMachine now = look();
    const std::vector<PendingEvent> events = changesBetween(m_seen, now);
    Adapter model = adapterOf(now);
    adapter.pending.insert(adapter.pending.end(), events.begin(), events.end());
    adapter.model = std::move(model);
    m_seen = std::move(now);
}

std::uint32_t LiveSource::startSequence() const
{
    std::string text;
    std::uint32_t number = 0;
    if (!m_stateFile || m_stateFile->read(text) != devkit::FileRead::Done)
        return 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    const bool whole = result.ec == std::errc() && (result.ptr == end || *result.ptr == '\n');
    return whole ? number : 0;
}

void LiveSource::keepSequence(std::uint32_t last)
{
    if (m_stateFile) {
        // The events are more important than their numbers: they go out although these may come again.
        m_stateFile->replace(std::to_string(last) + "\n");
    }
}

} // namespace mvsim
