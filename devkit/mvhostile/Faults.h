// What can be wrong with an answer: a name, the calls whose answers it strikes, and what it does to them.
#ifndef ZARNEK_DEVKIT_MVHOSTILE_FAULTS_H
#define ZARNEK_DEVKIT_MVHOSTILE_FAULTS_H

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace mvhostile
{

// Calls by the shape of their answers.
enum Shape : unsigned int {
    STATUS = 1,  // nothing but a status
    COUNT = 2,   // the number of adapters, in place of a status
    RECORD = 4,  // one record of an adapter
    LIST = 8,    // entries behind a header
    DEVICE = 16, // one device behind a header
    EVENTS = 32,
    FILLED = RECORD | LIST | DEVICE | EVENTS
};

// Fields of records by what goes wrong with them.
enum class FieldKind : std::uint8_t {
    None,
    Text,
    Size,     // 64 bits
    Id,       // of a device
    Code,     // one of a few values, or a set of flags
    Buffer,   // an answer's largest size
    Sequence, // an event's number
};

enum class Fault : std::size_t {
    Refused,
    RefusedWhenWritten,
    RubbishAboveStatus,
    AdapterCount,
    CountAboveRoom,
    CountOfAllBits,
    CountBelowEntries,
    EntriesUnwritten,
    EntryCut,
    EntriesShifted,
    EntryRepeated,
    ListChanged,
    HeaderOverwritten,
    FiftyEvents,
    EventsAboveFifty,
    EventsUnwritten,
    WordWritten,
    RecordAnyByte,
    RecordZero,
    TextFull,
    TextLong,
    TextAnyByte,
    TextBlank,
    SizeEdge,
    IdEdge,
    CodeAny,
    BufferEdge,
    SequenceEdge,
};

struct FaultRow {
    Fault fault;
    const char* name;
    unsigned int shapes; // set of Shape
    FieldKind field;     // a record without such a field is not struck
    const char* effect;
    std::uint32_t rarity = 1; // it is used one in so many times that it is drawn
};

constexpr FaultRow FAULTS[] = {
    {Fault::Refused, "refused", STATUS | FILLED, FieldKind::None,
     "fails with any status; nothing is written"},
    {Fault::RefusedWhenWritten, "refused-when-written", FILLED, FieldKind::None,
     "fails with any status, and the answer is written"},
    {Fault::RubbishAboveStatus, "rubbish-above-status", STATUS | COUNT | FILLED, FieldKind::None,
     "any bits above the low byte of the result"},
    {Fault::AdapterCount, "adapter-count", COUNT, FieldKind::None,
     "another number of adapters, up to 2^32-1"},
    {Fault::CountAboveRoom, "count-above-room", LIST, FieldKind::None,
     "tells of up to 64 entries more than there is room for"},
    {Fault::CountOfAllBits, "count-of-all-bits", LIST, FieldKind::None, "tells of 65535 entries",
     40}, // it takes long
    {Fault::CountBelowEntries, "count-below-entries", LIST, FieldKind::None,
     "tells of fewer entries than it wrote"},
    {Fault::EntriesUnwritten, "entries-unwritten", LIST, FieldKind::None, "tells of entries and writes none"},
    {Fault::EntryCut, "entry-cut", LIST, FieldKind::None, "writes half of the last entry"},
    {Fault::EntriesShifted, "entries-shifted", LIST, FieldKind::None, "begins with the second entry"},
    {Fault::EntryRepeated, "entry-repeated", LIST, FieldKind::None, "all entries are the first one"},
    {Fault::ListChanged, "list-changed", LIST, FieldKind::None, "one device more, or less, than last time"},
    {Fault::HeaderOverwritten, "header-overwritten", LIST | DEVICE, FieldKind::None,
     "any bytes in the request, but for NumReturned"},
    {Fault::FiftyEvents, "fifty-events", EVENTS, FieldKind::None, "as many events as were asked for"},
    {Fault::EventsAboveFifty, "events-above-fifty", EVENTS, FieldKind::None,
     "tells of more events than were asked for, up to 2^32-1"},
    {Fault::EventsUnwritten, "events-unwritten", EVENTS, FieldKind::None, "tells of events and writes none"},
    {Fault::WordWritten, "word-written", RECORD, FieldKind::None,
     "any bits in the word whose use is unknown"},
    {Fault::RecordAnyByte, "record-any-byte", FILLED, FieldKind::None, "any bytes in a whole record"},
    {Fault::RecordZero, "record-zero", FILLED, FieldKind::None, "nothing but zeros in a record"},
    {Fault::TextFull, "text-full", FILLED, FieldKind::Text,
     "texts that fill their width, without a terminator"},
    {Fault::TextLong, "text-long", FILLED, FieldKind::Text,
     "texts with as many characters as can be, wide ones with 254 and more"},
    {Fault::TextAnyByte, "text-any-byte", FILLED, FieldKind::Text, "any bytes in texts"},
    {Fault::TextBlank, "text-blank", FILLED, FieldKind::Text, "texts of blanks"},
    {Fault::SizeEdge, "size-edge", FILLED, FieldKind::Size, "sizes of 0, and around 2^32, 2^54 and 2^64"},
    {Fault::IdEdge, "id-edge", FILLED, FieldKind::Id, "ids and slots of 0, 1, 2^15 and 2^16-1"},
    {Fault::CodeAny, "code-any", FILLED, FieldKind::Code, "any codes and flags"},
    {Fault::BufferEdge, "buffer-edge", RECORD, FieldKind::Buffer,
     "a largest answer of nothing, of very little or of 64 MB"},
    {Fault::SequenceEdge, "sequence-edge", EVENTS, FieldKind::Sequence,
     "sequence numbers of 0, 1, and around 2^31 and 2^32"},
};
constexpr std::size_t FAULT_COUNT = std::size(FAULTS);

constexpr bool standInOrder()
{
    for (std::size_t index = 0; index < FAULT_COUNT; ++index)
        if (FAULTS[index].fault != static_cast<Fault>(index))
            return false;
    return true;
}
static_assert(standInOrder() && FAULT_COUNT == static_cast<std::size_t>(Fault::SequenceEdge) + 1);

} // namespace mvhostile

#endif
