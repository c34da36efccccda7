#include "mvsim/live/LiveSource.h"

#include "common/files.h"
#include "mvsim/live/ArrayJudge.h"
#include "mvsim/live/ArrayProbe.h"
#include "mvsim/live/DiskProbe.h"
#include "mvsim/live/MachineChanges.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <utility>

namespace mvsim
{

namespace
{

constexpr std::uint16_t ADAPTER_MODEL = 1;   // the machine itself
constexpr std::uint16_t MAX_BUFFER_KB = 128; // room for 255 of every device
constexpr std::size_t MOST_PORTS = 0xff;

} // namespace

std::uint16_t NumberBook::numberOf(const std::string& identity, std::uint16_t wanted)
{
    const auto known = m_numbers.find(identity);
    if (known != m_numbers.end())
        return known->second;
    const auto taken = [this](std::uint16_t number) {
        return std::any_of(m_numbers.begin(), m_numbers.end(),
                           [number](const auto& entry) { return entry.second == number; });
    };
    std::uint16_t number = wanted;
    for (std::uint16_t lowest = 0; taken(number) && lowest < 0xffff; ++lowest)
        number = lowest;
    m_numbers.emplace(identity, number);
    return number;
}

LiveSource::LiveSource(const std::string& sysfsRoot, std::string stateFile)
    : m_root(sysfsRoot), m_stateFile(std::move(stateFile))
{
    if (!m_root.below("block").exists())
        throw std::runtime_error(sysfsRoot + ": /block: expected a folder, found none");
}

SeenMachine LiveSource::look()
{
    SeenMachine machine = judgeArrays(probeDisks(m_root), probeArrays(m_root));
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
    adapter.info.MaxBufferSizeKB = MAX_BUFFER_KB;
    adapter.info.PortCount =
        static_cast<std::uint8_t>(std::min(m_root.below("class/scsi_host").entries().size(), MOST_PORTS));
    adapter.oem.RomMajor = 1;
    for (const SeenDisk& disk : machine.disks)
        adapter.disks.push_back(disk.device);
    for (const SeenArray& array : machine.arrays)
        adapter.virtualDisks.push_back(array.device);
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
    for (const PendingEvent& event : changesBetween(m_seen, now))
        adapter.pending.push_back(event);
    adapter.model = adapterOf(now);
    m_seen = std::move(now);
}

std::uint32_t LiveSource::startSequence() const
{
    std::string text;
    std::uint32_t number = 0;
    if (m_stateFile.empty() || devkit::readFile(m_stateFile, text) != devkit::FileRead::Done)
        return 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    const bool whole = result.ec == std::errc() && (result.ptr == end || *result.ptr == '\n');
    return whole ? number : 0;
}

void LiveSource::keepSequence(std::uint32_t last)
{
    if (!m_stateFile.empty()) {
        // The events are more important than their numbers: they go out although these may come again.
        devkit::replaceFile(m_stateFile, std::to_string(last) + "\n");
    }
}

} // namespace mvsim
