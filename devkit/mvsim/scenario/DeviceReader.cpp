#include "mvsim/scenario/DeviceReader.h"

#include "common/words.h"
#include "mvsim/model/EventCodes.h"
#include "mvsim/scenario/RecordCodes.h"

#include <algorithm>
#include <cstring>

namespace mvsim
{

namespace
{

constexpr Word EVENT_CLASS_WORDS[] = {{"controller", MV_EVENT_CONTROLLER},
                                      {"virtualDisk", MV_EVENT_VIRTUAL_DISK},
                                      {"physicalDisk", MV_EVENT_PHYSICAL_DISK}};

template <std::size_t N>
void readText(StrictObject& object, const char* key, char (&field)[N])
{
    if (const auto text = object.bytes(key, N))
        putText(field, *text);
}

// Bytes that a raw patch has overwritten, from and up to an offset.
struct Patch {
    std::size_t first;
    std::size_t last;
    bool covers(std::size_t offset) const { return first <= offset && offset < last; }
};

std::size_t offsetOf(const std::string& key, const std::string& place)
{
    const bool hex = devkit::startsWith(key, "0x");
    const std::string digits = hex ? key.substr(2) : key;
    const std::string allowed = hex ? "0123456789abcdefABCDEF" : "0123456789";
    if (digits.empty() || digits.size() > 4 || digits.find_first_not_of(allowed) != std::string::npos)
        throw FormatError(place, "an offset such as \"36\" or \"0x24\" as the key", describe(Json(key)));
    return std::stoul(digits, nullptr, hex ? 16 : 10);
}

// Overwrites bytes of a record, none of them ahead of `start`, as {"0x24": "ff00"} demands.
template <class Record>
std::vector<Patch> patchRecord(const Json& patches, const std::string& place, Record& record,
                               std::size_t start = 0)
{
    if (!patches.is_object())
        throw FormatError(place, "an object of offsets and bytes", describe(patches));
    std::vector<Patch> done;
    for (const auto& patch : patches.items()) {
        const std::string here = placeBelow(place, patch.key());
        const std::size_t offset = offsetOf(patch.key(), here);
        if (!patch.value().is_string())
            throw FormatError(here, "hexadecimal digit pairs", describe(patch.value()));
        const std::string bytes = hexBytes(patch.value().template get<std::string>(), here, patch.value());
        if (offset < start || offset + bytes.size() > sizeof(Record)) {
            throw FormatError(
                here, "bytes within " + std::to_string(start) + " to " + std::to_string(sizeof(Record) - 1),
                std::to_string(offset) + " to " +
                    std::to_string(offset + std::max<std::size_t>(bytes.size(), 1) - 1));
        }
        std::memcpy(reinterpret_cast<unsigned char*>(&record) + offset, bytes.data(), bytes.size());
        done.push_back({offset, offset + bytes.size()});
    }
    return done;
}

template <class Record>
std::vector<Patch> patchMember(StrictObject& records, const char* key, Record& record, std::size_t start = 0)
{
    const Json* patches = records.find(key);
    return patches != nullptr ? patchRecord(*patches, records.place(key), record, start)
                              : std::vector<Patch>{};
}

bool anyCovers(const std::vector<Patch>& patches, std::size_t offset)
{
    return std::any_of(patches.begin(), patches.end(), [offset](const Patch& p) { return p.covers(offset); });
}

} // namespace

void patchRecords(StrictObject& object, Disk& disk)
{
    if (const Json* raw = object.find("raw")) {
        StrictObject records(*raw, object.place("raw"));
        patchMember(records, "info", disk.info);
        patchMember(records, "config", disk.config);
        patchMember(records, "raidStatus", disk.raidStatus, sizeof(_Info_Request));
        patchMember(records, "freeSpace", disk.freeSpace, sizeof(_Info_Request));
        records.finish();
    }
}

void readDisk(StrictObject& object, Disk& disk)
{
    if (const auto value = object.number<std::uint16_t>("slot"))
        disk.config.SlotNumber = *value;
    readText(object, "model", disk.info.ModelText);
    readText(object, "serial", disk.info.SerialText);
    readText(object, "revision", disk.info.RevisionText);
    readText(object, "sasAddress", disk.info.SASAddress);
    if (const auto value = object.numberOrFlags<std::uint8_t>("linkFlags", LINK_WORDS))
        disk.info.LinkFlags = *value;
    if (const auto value = object.numberOrFlags<std::uint32_t>("featureFlags", FEATURE_WORDS))
        disk.info.FeatureFlags = *value;
    if (const auto value = object.kilobytes("size"))
        disk.info.SizeKB = *value;
    if (const auto value = object.number<std::uint32_t>("blockSize"))
        disk.info.BlockSize = *value;
    if (const auto value = object.numberOrWord<std::uint8_t>("media", MEDIA_WORDS))
        disk.info.MediaFlags = *value;
    if (const auto value = object.numberOrWord<std::uint8_t>("linkSpeed", SPEED_WORDS))
        disk.config.LinkSpeed = *value;
    if (const auto value = object.numberOrFlags<std::uint8_t>("raidStatus", DISK_STATE_WORDS))
        disk.raidStatus.RaidStatusFlags = *value;
    if (const auto value = object.kilobytes("free"))
        disk.freeSpace.Answer.FreeSizeKB = *value;
    patchRecords(object, disk);
}

void patchRecords(StrictObject& object, VirtualDisk& drive)
{
    if (const Json* raw = object.find("raw")) {
        StrictObject records(*raw, object.place("raw"));
        patchMember(records, "info", drive.info);
        patchMember(records, "config", drive.config);
        records.finish();
    }
}

void readVirtualDisk(StrictObject& object, VirtualDisk& drive)
{
    if (const auto value = object.number<std::uint16_t>("logicalDrive"))
        drive.config.LogicalDriveNumber = *value;
    readText(object, "name", drive.info.LDName);
    if (const auto value = object.numberOrWord<std::uint8_t>("raid", RAID_WORDS))
        drive.info.RaidMode = *value;
    if (const auto value = object.numberOrWord<std::uint8_t>("status", DRIVE_STATUS_WORDS))
        drive.info.LDStatus = *value;
    if (const auto value = object.number<std::uint16_t>("stripeKB"))
        drive.info.StripeSize = *value;
    if (const auto value = object.numberOrWord<std::uint8_t>("cacheFlags", CACHE_WORDS))
        drive.info.CacheFlags = *value;
    if (const auto value = object.kilobytes("size"))
        drive.info.SizeKB = *value;
    patchRecords(object, drive);
}

void readAdapter(StrictObject& object, Adapter& adapter)
{
    if (const auto value = object.number<std::uint32_t>("slot"))
        adapter.info.SlotNumber = *value;
    if (const auto value = object.number<std::uint16_t>("model"))
        adapter.info.AdapterModel = *value;
    if (const auto value = object.number<std::uint8_t>("ports"))
        adapter.info.PortCount = *value;
    if (const auto value = object.number<std::uint8_t>("pdCount")) {
        adapter.info.PDCount = *value;
        adapter.countsDisks = false;
    }
    if (const auto value = object.number<std::uint8_t>("vdCount")) {
        adapter.info.VDCount = *value;
        adapter.countsVirtualDisks = false;
    }
    if (const auto value = object.number<std::uint16_t>("maxBufferKB"))
        adapter.info.MaxBufferSizeKB = *value;
    if (const Json* rom = object.find("rom")) {
        std::uint16_t numbers[4] = {};
        if (!rom->is_array() || rom->size() != std::size(numbers)) {
            throw FormatError(object.place("rom"), "a list of 4: major, minor, revision, build",
                              describe(*rom));
        }
        for (std::size_t i = 0; i < rom->size(); ++i) {
            const Json& number = (*rom)[i];
            if (!number.is_number_unsigned() || number.get<std::uint64_t>() > 0xffff) {
                throw FormatError(placeBelow(object.place("rom"), i), "a whole number from 0 to 65535",
                                  describe(number));
            }
            numbers[i] = number.get<std::uint16_t>();
        }
        adapter.oem.RomMajor = numbers[0];
        adapter.oem.RomMinor = numbers[1];
        adapter.oem.RomRevision = numbers[2];
        adapter.oem.RomBuild = numbers[3];
    }
    if (const Json* alarm = object.find("alarm"); alarm != nullptr && alarm->is_boolean())
        adapter.config.AlarmFlag = alarm->get<bool>() ? 1 : 0;
    else if (const auto value = object.number<std::uint8_t>("alarm"))
        adapter.config.AlarmFlag = *value;
    if (const auto value = object.number<std::uint8_t>("rebuildRate"))
        adapter.config.RebuildRate = *value;
    if (const Json* raw = object.find("raw")) {
        StrictObject records(*raw, object.place("raw"));
        const auto done = patchMember(records, "info", adapter.info);
        adapter.countsDisks &= !anyCovers(done, offsetof(_Adapter_Info, PDCount));
        adapter.countsVirtualDisks &= !anyCovers(done, offsetof(_Adapter_Info, VDCount));
        patchMember(records, "config", adapter.config);
        patchMember(records, "oem", adapter.oem);
        records.finish();
    }
}

PendingEvent readEvent(StrictObject& object)
{
    PendingEvent event;
    const Json* code = object.find("code");
    if (code != nullptr && code->is_string()) {
        // A code's name tells its class, too.
        const auto& name = code->get_ref<const std::string&>();
        const auto* known = std::find_if(std::begin(EVENT_CODES), std::end(EVENT_CODES),
                                         [&name](const EventCode& row) { return name == row.name; });
        if (known == std::end(EVENT_CODES))
            throw FormatError(object.place("code"), "a number or the name of an event code", describe(*code));
        event.record.EventClass = known->eventClass;
        event.record.EventCode = known->code;
        if (const auto value = object.numberOrWord<std::uint16_t>("class", EVENT_CLASS_WORDS))
            event.record.EventClass = *value;
    } else {
        event.record.EventCode = object.needed("code", object.number<std::uint16_t>("code"));
        event.record.EventClass =
            object.needed("class", object.numberOrWord<std::uint16_t>("class", EVENT_CLASS_WORDS));
    }
    event.record.EventDeviceId = object.number<std::uint16_t>("device").value_or(0);
    if (const auto value = object.number<std::uint32_t>("sequence")) {
        event.record.EventSequence = *value;
        event.numbered = true;
    }
    if (const Json* raw = object.find("raw")) {
        const auto done = patchRecord(*raw, object.place("raw"), event.record);
        event.numbered |= anyCovers(done, offsetof(_Event, EventSequence));
    }
    return event;
}

} // namespace mvsim
