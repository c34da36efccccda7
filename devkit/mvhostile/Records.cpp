#include "mvhostile/Records.h"

#include <mv.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace mvhostile
{

namespace
{

using mvsim::EntryPoint;

constexpr std::uint32_t BUFFER_KB = 64;

#define MVHOSTILE_FIELD(Record, member, kind, limit)                                                         \
    Field                                                                                                    \
    {                                                                                                        \
        FieldKind::kind, offsetof(Record, member), sizeof(Record::member), limit                             \
    }

constexpr Field DISK_FIELDS[] = {
    MVHOSTILE_FIELD(_HD_Info, HD_Id, Id, 0),
    MVHOSTILE_FIELD(_HD_Info, SASAddress, Text, 0),
    MVHOSTILE_FIELD(_HD_Info, LinkFlags, Code, 8),
    MVHOSTILE_FIELD(_HD_Info, FeatureFlags, Code, 0x800),
    MVHOSTILE_FIELD(_HD_Info, ModelText, Text, 0),
    MVHOSTILE_FIELD(_HD_Info, SerialText, Text, 0),
    MVHOSTILE_FIELD(_HD_Info, RevisionText, Text, 0),
    MVHOSTILE_FIELD(_HD_Info, SizeKB, Size, 0),
    MVHOSTILE_FIELD(_HD_Info, BlockSize, Code, 0x2000),
    MVHOSTILE_FIELD(_HD_Info, MediaFlags, Code, 2),
};
constexpr Field DISK_CONFIG_FIELDS[] = {
    MVHOSTILE_FIELD(_HD_CONFIG, LinkSpeed, Code, 5),
    MVHOSTILE_FIELD(_HD_CONFIG, SlotNumber, Id, 0),
};
constexpr Field DISK_STATUS_FIELDS[] = {
    MVHOSTILE_FIELD(_HD_RAID_Status_Request, RaidStatusFlags, Code, 0x40),
};
constexpr Field FREE_SPACE_FIELDS[] = {
    {FieldKind::Size, offsetof(_HD_FreeSpaceInfo_Request, Answer) + offsetof(_HD_FreeSpaceInfo, FreeSizeKB),
     sizeof(_HD_FreeSpaceInfo::FreeSizeKB), 0},
};
constexpr Field DRIVE_FIELDS[] = {
    MVHOSTILE_FIELD(_LD_Info, LD_Id, Id, 0),          MVHOSTILE_FIELD(_LD_Info, LDStatus, Code, 16),
    MVHOSTILE_FIELD(_LD_Info, StripeSize, Code, 513), MVHOSTILE_FIELD(_LD_Info, RaidMode, Code, 0x12),
    MVHOSTILE_FIELD(_LD_Info, CacheFlags, Code, 4),   MVHOSTILE_FIELD(_LD_Info, SizeKB, Size, 0),
    MVHOSTILE_FIELD(_LD_Info, LDName, Text, 0),
};
constexpr Field DRIVE_CONFIG_FIELDS[] = {
    MVHOSTILE_FIELD(_LD_Config, LogicalDriveNumber, Id, 0),
};
constexpr Field ADAPTER_FIELDS[] = {
    MVHOSTILE_FIELD(_Adapter_Info, SlotNumber, Code, 16),
    MVHOSTILE_FIELD(_Adapter_Info, AdapterModel, Code, 0x2000),
    MVHOSTILE_FIELD(_Adapter_Info, PortCount, Code, 33),
    MVHOSTILE_FIELD(_Adapter_Info, PDCount, Code, 13),
    MVHOSTILE_FIELD(_Adapter_Info, VDCount, Code, 5),
    MVHOSTILE_FIELD(_Adapter_Info, MaxBufferSizeKB, Buffer, 0),
};
constexpr Field ADAPTER_CONFIG_FIELDS[] = {
    MVHOSTILE_FIELD(_Adapter_Config_V2, AlarmFlag, Code, 2),
    MVHOSTILE_FIELD(_Adapter_Config_V2, RebuildRate, Code, 256),
};
constexpr Field OEM_FIELDS[] = {
    MVHOSTILE_FIELD(_Adapter_OEM_Data, RomMajor, Code, 10),
    MVHOSTILE_FIELD(_Adapter_OEM_Data, RomMinor, Code, 10),
    MVHOSTILE_FIELD(_Adapter_OEM_Data, RomRevision, Code, 100),
    MVHOSTILE_FIELD(_Adapter_OEM_Data, RomBuild, Code, 10000),
};
constexpr Field EVENT_FIELDS[] = {
    MVHOSTILE_FIELD(_Event, EventClass, Code, 3),
    MVHOSTILE_FIELD(_Event, EventCode, Code, 256),
    MVHOSTILE_FIELD(_Event, EventDeviceId, Id, 0),
    MVHOSTILE_FIELD(_Event, EventSequence, Sequence, 0),
};
#undef MVHOSTILE_FIELD

template <class Record, std::size_t COUNT>
constexpr Layout layout(const Field (&fields)[COUNT], std::size_t head = 0)
{
    static_assert(sizeof(Record) <= LARGEST_RECORD);
    return {std::begin(fields), std::end(fields), head, sizeof(Record)};
}

struct EntryLayout {
    EntryPoint entry;
    Layout layout;
};
constexpr EntryLayout LAYOUTS[] = {
    {EntryPoint::MV_Adapter_GetInfo, layout<_Adapter_Info>(ADAPTER_FIELDS)},
    {EntryPoint::MV_Adapter_GetConfig, layout<_Adapter_Config_V2>(ADAPTER_CONFIG_FIELDS)},
    {EntryPoint::MV_Adapter_Get_OEM_Data, layout<_Adapter_OEM_Data>(OEM_FIELDS)},
    {EntryPoint::MV_PD_GetHDInfo_Ext, layout<_HD_Info>(DISK_FIELDS)},
    {EntryPoint::MV_PD_GetConfig, layout<_HD_CONFIG>(DISK_CONFIG_FIELDS)},
    {EntryPoint::MV_PD_GetHDRaidStatus,
     layout<_HD_RAID_Status_Request>(DISK_STATUS_FIELDS, sizeof(_Info_Request))},
    {EntryPoint::MV_PD_GetFreeSpaceInfo,
     layout<_HD_FreeSpaceInfo_Request>(FREE_SPACE_FIELDS, sizeof(_Info_Request))},
    {EntryPoint::MV_LD_GetInfo, layout<_LD_Info>(DRIVE_FIELDS)},
    {EntryPoint::MV_LD_GetConfig, layout<_LD_Config>(DRIVE_CONFIG_FIELDS)},
    {EntryPoint::MV_EVT_GetEvent, layout<_Event>(EVENT_FIELDS)},
};
constexpr Layout NO_RECORD{};

// The record's byte order is the machine's.
void write(const Field& field, std::uint64_t value, unsigned char* record)
{
    std::memcpy(record + field.offset, &value, field.size);
}

template <class Byte>
void writeBytes(const Field& field, std::size_t length, Byte byte, unsigned char* record)
{
    std::memset(record + field.offset, 0, field.size);
    std::generate_n(record + field.offset, length, [&byte] { return static_cast<unsigned char>(byte()); });
}

std::size_t longLength(std::size_t width, Dice& dice)
{
    constexpr std::size_t BLOCK = 256; // of a text in the data engine
    return width <= BLOCK ? width - 1 : BLOCK - 2 + dice.below(static_cast<std::uint32_t>(width - BLOCK + 2));
}

void spoil(const Field& field, Fault fault, Dice& dice, unsigned char* record)
{
    static constexpr std::uint64_t SIZES[] = {0,
                                              1,
                                              0xffffffff,
                                              0x100000000,
                                              (1ULL << 54) - 1, // the last that can be told in bytes
                                              1ULL << 54,
                                              1ULL << 63,
                                              0xffffffffffffffff};
    static constexpr std::uint64_t IDS[] = {0, 1, 0x7fff, 0x8000, 0xfffe, 0xffff};
    static constexpr std::uint64_t BUFFERS[] = {0, 1, 2, 63, 0x7fff, 0xffff};
    static constexpr std::uint64_t SEQUENCES[] = {0, 1, 0x7fffffff, 0x80000000, 0xfffffffe, 0xffffffff};
    static constexpr char BLANKS[] = {' ', '\t'};
    const auto letter = [&dice] { return 'A' + dice.below(26); };
    const auto any = [&dice] { return dice.below(256); };
    switch (fault) {
    case Fault::TextFull:
        return writeBytes(field, field.size, letter, record);
    case Fault::TextLong:
        return writeBytes(field, longLength(field.size, dice), letter, record);
    case Fault::TextAnyByte:
        return writeBytes(field, field.size, any, record);
    case Fault::TextBlank:
        return writeBytes(
            field, dice.below(static_cast<std::uint32_t>(field.size)), [&dice] { return dice.pick(BLANKS); },
            record);
    case Fault::SizeEdge:
        return write(field, dice.pick(SIZES), record);
    case Fault::IdEdge:
        return write(field, dice.pick(IDS), record);
    case Fault::CodeAny:
        return write(field, dice.wide(), record);
    case Fault::BufferEdge:
        return write(field, dice.pick(BUFFERS), record);
    default:
        return write(field, dice.pick(SEQUENCES), record);
    }
}

} // namespace

bool Layout::has(FieldKind kind) const
{
    return std::any_of(begin, end, [kind](const Field& field) { return field.kind == kind; });
}

const Layout& layoutOf(EntryPoint entry)
{
    const auto* const found = std::find_if(std::begin(LAYOUTS), std::end(LAYOUTS),
                                           [entry](const EntryLayout& row) { return row.entry == entry; });
    return found == std::end(LAYOUTS) ? NO_RECORD : found->layout;
}

void fill(const Layout& layout, Dice dice, std::uint32_t index, unsigned char* record)
{
    std::memset(record, 0, layout.size);
    for (const Field* field = layout.begin; field != layout.end; ++field) {
        switch (field->kind) {
        case FieldKind::Text:
            writeBytes(
                *field, 1 + dice.below(7), [&dice] { return 'A' + dice.below(26); }, record);
            break;
        case FieldKind::Size:
            write(*field, dice.wide() >> 30, record);
            break;
        case FieldKind::Code:
            write(*field, dice.below(field->limit), record);
            break;
        case FieldKind::Buffer:
            write(*field, BUFFER_KB, record);
            break;
        default:
            write(*field, index, record);
            break;
        }
    }
}

void spoil(const Layout& layout, Fault fault, Dice& dice, unsigned char* record)
{
    if (fault == Fault::RecordZero)
        std::memset(record, 0, layout.size);
    if (fault == Fault::RecordAnyByte)
        std::generate_n(record, layout.size, [&dice] { return static_cast<unsigned char>(dice.next()); });
    const FieldKind kind = FAULTS[static_cast<std::size_t>(fault)].field;
    for (const Field* field = layout.begin; field != layout.end; ++field)
        if (kind != FieldKind::None && field->kind == kind)
            spoil(*field, fault, dice, record);
}

} // namespace mvhostile
