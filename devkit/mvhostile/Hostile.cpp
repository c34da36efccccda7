#include "mvhostile/Hostile.h"

#include "common/guarded.h"
#include "mvsim/model/EventCodes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace mvhostile
{

namespace
{

using mvsim::EntryPoint;

constexpr std::uint32_t MOST_ADAPTERS = 8; // that answer
constexpr std::uint32_t MOST_FAULTS = 3;   // of one answer
constexpr std::uint32_t ONE_ADAPTER = 0x100;

std::optional<Fault> faultOf(const char* name)
{
    for (const FaultRow& row : FAULTS)
        if (std::strcmp(row.name, name) == 0)
            return row.fault;
    return std::nullopt;
}

bool isList(EntryPoint entry)
{
    return entry == EntryPoint::MV_PD_GetHDInfo_Ext || entry == EntryPoint::MV_PD_GetConfig ||
           entry == EntryPoint::MV_LD_GetInfo || entry == EntryPoint::MV_LD_GetConfig;
}

bool isOfDrives(EntryPoint list)
{
    return list == EntryPoint::MV_LD_GetInfo || list == EntryPoint::MV_LD_GetConfig;
}

} // namespace

Hostile& Hostile::instance()
{
    static Hostile library;
    return library;
}

Hostile::Hostile()
{
    const char* const seed = std::getenv("MVHOSTILE_SEED");
    const char* const fault = std::getenv("MVHOSTILE_FAULT");
    char* end = nullptr;
    const unsigned long long number = seed != nullptr ? std::strtoull(seed, &end, 10) : 1;
    if (seed != nullptr && (end == seed || *end != '\0' || number > 0xffffffff)) {
        std::fprintf(stderr, "mvhostile: MVHOSTILE_SEED is %s; it has to be a number of 32 bits\n", seed);
    } else if (!start(static_cast<std::uint32_t>(number), fault)) {
        std::fprintf(stderr, "mvhostile: MVHOSTILE_FAULT is %s; it has to be one of", fault);
        for (const FaultRow& row : FAULTS)
            std::fprintf(stderr, " %s", row.name);
        std::fputc('\n', stderr);
    }
}

bool Hostile::start(std::uint32_t seed, const char* fault)
{
    const std::optional<Fault> only = fault != nullptr ? faultOf(fault) : std::nullopt;
    if (fault != nullptr && !only)
        return false;
    static constexpr std::uint32_t CHANCES[] = {2, 5, 15, 50}; // some systems are rotten, some nearly well
    const std::lock_guard<std::mutex> lock(m_mutex);
    Dice dice(seed, 0);
    m_usable = true;
    m_seed = seed;
    m_only = only;
    m_chances = dice.pick(CHANCES);
    m_adapters = 1 + dice.below(3);
    m_answers = 0;
    m_entries = 0;
    m_sequence = 100;
    std::fill(std::begin(m_strikes), std::end(m_strikes), 0U);
    return true;
}

unsigned int Hostile::answers()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_answers;
}

unsigned int Hostile::entries()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_entries;
}

unsigned int Hostile::strikes(std::size_t fault)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return fault < FAULT_COUNT ? m_strikes[fault] : 0;
}

void Hostile::draw(Shape shape, const Layout& layout)
{
    m_drawn.reset();
    m_struck.reset();
    if (!m_usable)
        return;
    std::array<Fault, FAULT_COUNT> fitting{};
    std::uint32_t count = 0;
    for (const FaultRow& row : FAULTS)
        if ((row.shapes & shape) != 0 && (!m_only || *m_only == row.fault) &&
            (row.field == FieldKind::None || layout.has(row.field)))
            fitting[count++] = row.fault;
    for (std::uint32_t drawn = 0; count != 0 && drawn < MOST_FAULTS && m_dice.oneIn(m_chances); ++drawn) {
        const auto fault = static_cast<std::size_t>(fitting[m_dice.below(count)]);
        if (m_dice.oneIn(FAULTS[fault].rarity))
            m_drawn.set(fault);
    }
}

bool Hostile::strikes(Fault fault)
{
    const auto index = static_cast<std::size_t>(fault);
    if (m_drawn.test(index) && !m_struck.test(index)) {
        m_struck.set(index);
        ++m_strikes[index];
    }
    return m_drawn.test(index);
}

template <class Act>
unsigned int Hostile::answer(EntryPoint entry, std::optional<unsigned int> adapter, Shape shape, Act act)
{
    std::string said;
    unsigned int result = MV_ERR_NONE;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_dice = Dice(m_seed, ++m_answers);
        draw(shape, layoutOf(entry));
        if (adapter && *adapter >= MOST_ADAPTERS)
            result = MV_ERR_INVALID_ADAPTER_ID;
        else if (strikes(Fault::Refused))
            result = anyFailure();
        else
            result = act();
        if (mvsim::isSuccess(result) && strikes(Fault::RefusedWhenWritten))
            result = anyFailure();
        if (strikes(Fault::RubbishAboveStatus))
            result |= m_dice.next() << 8;
        devkit::guarded([&] {
            if (callSink.isSet())
                said = line(entry, adapter, result);
        });
    }
    if (!said.empty())
        callSink.call(said.c_str());
    return result;
}

std::string Hostile::line(EntryPoint entry, std::optional<unsigned int> adapter, unsigned int result) const
{
    std::string text = std::to_string(m_answers) + ' ' + nameOf(entry) + '(' +
                       (adapter ? std::to_string(*adapter) : "") + ") = " + std::to_string(result);
    const char* between = ": ";
    for (const FaultRow& row : FAULTS) {
        if (m_struck.test(static_cast<std::size_t>(row.fault))) {
            text += between + std::string(row.name);
            between = ", ";
        }
    }
    return text;
}

unsigned int Hostile::status(EntryPoint entry)
{
    return answer(entry, std::nullopt, STATUS, [] { return MV_ERR_NONE; });
}

unsigned int Hostile::status(EntryPoint entry, unsigned int adapter)
{
    return answer(entry, adapter, STATUS, [] { return MV_ERR_NONE; });
}

unsigned int Hostile::adapterCount()
{
    static constexpr std::uint32_t COUNTS[] = {0, MOST_ADAPTERS, 0xff, 0x100, 0xffffffff};
    return answer(EntryPoint::MV_Adapter_GetCount, std::nullopt, COUNT, [this] {
        if (!m_usable)
            return 0U;
        return strikes(Fault::AdapterCount) ? m_dice.pick(COUNTS) : m_adapters;
    });
}

// One record, as it is now: an honest one, and what the faults make of it.
void Hostile::writeRecord(EntryPoint entry, unsigned int adapter, std::uint32_t index, unsigned char* target,
                          bool half)
{
    const Layout& layout = layoutOf(entry);
    std::array<unsigned char, LARGEST_RECORD> record;
    const std::uint64_t device = (static_cast<std::uint64_t>(entry) * MOST_ADAPTERS + adapter) << 32 | index;
    fill(layout, Dice(m_seed, ~device), index, record.data());
    copySpoilt(layout, record.data(), target, half);
}

void Hostile::copySpoilt(const Layout& layout, unsigned char* record, unsigned char* target, bool half)
{
    for (auto fault = static_cast<std::size_t>(Fault::RecordAnyByte); fault < FAULT_COUNT; ++fault)
        // Of several records some stay well.
        if (m_drawn.test(fault) && (!m_struck.test(fault) || m_dice.oneIn(2)) &&
            strikes(static_cast<Fault>(fault)))
            spoil(layout, static_cast<Fault>(fault), m_dice, record);
    const std::size_t size = layout.size - layout.head;
    std::memcpy(target, record + layout.head, half ? size / 2 : size);
}

unsigned int Hostile::record(EntryPoint entry, unsigned int adapter, void* record, unsigned int* word)
{
    return answer(entry, adapter, RECORD, [=] {
        if (record == nullptr)
            return MV_ERR_FAIL;
        writeRecord(entry, adapter, 0, static_cast<unsigned char*>(record));
        if (word != nullptr && strikes(Fault::WordWritten))
            *word = m_dice.next();
        return MV_ERR_NONE;
    });
}

unsigned int Hostile::devices(EntryPoint entry, unsigned int adapter, _Info_Request* request)
{
    return answer(entry, adapter, isList(entry) ? LIST : DEVICE, [=] {
        if (request == nullptr)
            return MV_ERR_FAIL;
        if (isList(entry))
            return list(entry, adapter, *request);
        if (request->RequestType != MV_REQUEST_ONE_DEVICE)
            return MV_ERR_REQ_OUT_OF_RANGE;
        writeRecord(entry, adapter, request->StartIndexOrId,
                    reinterpret_cast<unsigned char*>(request) + sizeof *request);
        overwriteHeader(*request);
        request->NumReturned = 1;
        return MV_ERR_NONE;
    });
}

// Lists of one kind of device are of the same length, whichever call is asked.
std::uint32_t Hostile::deviceCount(EntryPoint list, unsigned int adapter)
{
    const bool drives = isOfDrives(list);
    std::uint32_t count = Dice(m_seed, ONE_ADAPTER + adapter * 2 + (drives ? 1 : 0)).below(drives ? 5 : 13);
    if (strikes(Fault::ListChanged))
        count += count == 0 || m_dice.oneIn(2) ? 1 : 0xffffffff;
    return count;
}

unsigned int Hostile::list(EntryPoint entry, unsigned int adapter, _Info_Request& request)
{
    if (request.RequestType != MV_REQUEST_LIST)
        return MV_ERR_REQ_OUT_OF_RANGE;
    const std::uint32_t room = request.NumRequested;
    const std::uint32_t present = deviceCount(entry, adapter);
    const std::uint32_t first = std::min<std::uint32_t>(request.StartIndexOrId, present);
    const std::uint32_t filled = std::min(present - first, room);
    const std::size_t stride = layoutOf(entry).size;
    auto* target = reinterpret_cast<unsigned char*>(&request) + sizeof request;
    for (std::uint32_t i = 0; i < filled; ++i) {
        if (strikes(Fault::EntriesUnwritten))
            break;
        std::uint32_t index = first + i;
        if (strikes(Fault::EntriesShifted))
            index = (index + 1) % present;
        if (strikes(Fault::EntryRepeated))
            index = first;
        writeRecord(entry, adapter, index, target + i * stride, i + 1 == filled && strikes(Fault::EntryCut));
    }

    std::uint32_t returned = filled;
    if (filled != 0 && strikes(Fault::CountBelowEntries))
        returned = m_dice.below(filled);
    if (strikes(Fault::CountAboveRoom))
        returned = std::min<std::uint32_t>(room + 1 + m_dice.below(64), 0xffff);
    if (strikes(Fault::CountOfAllBits))
        returned = 0xffff;
    overwriteHeader(request);
    request.NumReturned = static_cast<std::uint16_t>(returned);
    m_entries += returned;
    return MV_ERR_NONE;
}

void Hostile::overwriteHeader(_Info_Request& request)
{
    if (!strikes(Fault::HeaderOverwritten))
        return;
    std::array<std::uint64_t, sizeof request / sizeof(std::uint64_t)> bytes{};
    std::generate(bytes.begin(), bytes.end(), [this] { return m_dice.wide(); });
    std::memcpy(&request, bytes.data(), sizeof request);
}

unsigned int Hostile::events(unsigned int adapter, unsigned int maximum, unsigned int* count, _Event* events)
{
    static constexpr std::uint32_t EXCESS[] = {1, 950, 0x7fffffce, 0xffffffcd};
    return answer(EntryPoint::MV_EVT_GetEvent, adapter, EVENTS, [=] {
        if (count == nullptr || events == nullptr)
            return MV_ERR_FAIL;
        const std::uint32_t told = strikes(Fault::FiftyEvents) ? maximum : std::min(m_dice.below(3), maximum);
        const Layout& layout = layoutOf(EntryPoint::MV_EVT_GetEvent);
        for (std::uint32_t i = 0; i < told && !strikes(Fault::EventsUnwritten); ++i) {
            _Event event;
            auto* const bytes = reinterpret_cast<unsigned char*>(&event);
            const mvsim::EventCode& code = mvsim::EVENT_CODES[m_dice.below(std::size(mvsim::EVENT_CODES))];
            fill(layout, m_dice, m_dice.below(4), bytes);
            event.EventClass = code.eventClass;
            event.EventCode = code.code;
            event.EventSequence = ++m_sequence;
            copySpoilt(layout, bytes, reinterpret_cast<unsigned char*>(events + i), false);
        }
        *count = strikes(Fault::EventsAboveFifty) ? maximum + m_dice.pick(EXCESS) : told;
        return MV_ERR_NONE;
    });
}

} // namespace mvhostile
