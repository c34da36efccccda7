#include "zarnekctl/print/PropertyTable.h"

#include "common/Utf8.h"
#include "common/text.h"
#include "zarnekctl/print/CodeWords.h"
#include "zarnekctl/print/Units.h"
#include <sdo.h>

#include <algorithm>
#include <charconv>
#include <iterator>

namespace zarnekctl
{

namespace
{

constexpr PropertyRow ROWS[] = {
    {SSPROP_OBJTYPE_U32, "object_type", "object type", Form::Code},
    {SSPROP_ATTRIBUTEMASK_U32, "attribute_mask", "attribute mask", Form::Mask},
    {SSPROP_MASTERMETHODMASK_U32, "master_method_mask", "master method mask", Form::Mask},
    {SSPROP_CURRENTMETHODMASK_U32, "current_method_mask", "current method mask", Form::Mask},
    {SSPROP_STATE_U32, "state", "state", Form::Code},
    {SSPROP_STATUS_U32, "status", "status", Form::Code},
    {SSPROP_CONTROLLERID_U32, "controller_index", "controller index", Form::Number},
    {SSPROP_VILNUMBER_U32, "vendor_layer", "vendor layer", Form::Number},
    {SSPROP_NAME_ASTRING, "name", "name", Form::Text},
    {SSPROP_FWVERSION_ASTRING, "firmware_version", "firmware", Form::Text},
    {SSPROP_SIZE_U64, "size", "size", Form::Size},
    {SSPROP_CACHEMEMSIZE_U32, "cache_memory_size", "cache memory size", Form::Number},
    {SSPROP_REBUILDRATE_U32, "rebuild_rate", "rebuild rate", Form::Percent},
    {SSPROP_GLOBALCONTROLLERNUM_U32, "controller_number", "controller number", Form::Number},
    {SSPROP_SLOTID_U32, "controller_slot", "controller slot", Form::Number},
    {SSPROP_PRODUCTID_ASTRING, "product_id", "product", Form::Text},
    {SSPROP_USEDRAIDDISKSPACE_U64, "used_raid_space", "used for RAID", Form::Size},
    {SSPROP_DISKGROUPNUM_U32, "disk_group", "disk group", Form::Number},
    {SSPROP_FREERAIDDISKSPACE_U64, "free_raid_space", "free for RAID", Form::Size},
    {SSPROP_VENDOR_ASTRING, "vendor", "vendor", Form::Text},
    {SSPROP_REVISION_ASTRING, "revision", "revision", Form::Text},
    {SSPROP_READPOLICY_U32, "read_policy", "read policy", Form::Number},
    {SSPROP_WRITEPOLICY_U32, "write_policy", "write policy", Form::Code},
    {SSPROP_PDDISKCACHEPOLICY_U32, "disk_cache_policy", "disk cache policy", Form::Number},
    {SSPROP_LOGICALDRIVENUM_U32, "logical_drive", "logical drive", Form::Number},
    {SSPROP_RAIDMODE_U32, "raid_level", "RAID level", Form::Code},
    {SSPROP_STRIPEBLOCKSIZE_U32, "stripe_size", "stripe", Form::Stripe},
    {SSPROP_SERIALNUM_ASTRING, "serial_number", "serial number", Form::Text},
    {SSPROP_DEVWRITECACHE_U32, "write_cache", "write cache", Form::Number},
    {SSPROP_VDCOUNT_U32, "virtual_disk_count", "virtual disks", Form::Number},
    {SSPROP_HOTSPARE_U32, "hot_spare", "hot spare", Form::Number},
    {SSPROP_CONTROLNOTIFY_SDO, "concerned_object", "concerned object", Form::Nested},
    {SSPROP_NOTIFYTYPE_U32, "notification_type", "notification type", Form::Number},
    {SSPROP_ALERTNUMBER_U32, "alert_number", "alert number", Form::Number},
    {SSPROP_NEXUS_U32, "nexus", "nexus", Form::Nexus},
    {SSPROP_DRIVERVER_ASTRING, "driver_version", "driver", Form::Text},
    {SSPROP_NEGOTIATEDSPEED_U32, "negotiated_speed", "speed", Form::Speed},
    {SSPROP_CAPABLESPEED_U32, "capable_speed", "highest speed", Form::Speed},
    {SSPROP_BUSPROTOCOL_U32, "bus_protocol", "bus", Form::Code},
    {SSPROP_MODELNUM_U32, "model_number", "model number", Form::Number},
    {SSPROP_REPLACEMENTSTR01_ASTRING, "replacement_text_1", "replacement text 1", Form::Text},
    {SSPROP_REPLACEMENTSTR02_ASTRING, "replacement_text_2", "replacement text 2", Form::Text},
    {SSPROP_REPLACEMENTSTR03_ASTRING, "replacement_text_3", "replacement text 3", Form::Text},
    {SSPROP_REPLACEMENTSTR04_ASTRING, "replacement_text_4", "replacement text 4", Form::Text},
    {SSPROP_REPLACEMENTSTR05_ASTRING, "replacement_text_5", "replacement text 5", Form::Text},
    {SSPROP_REPLACEMENTSTR06_ASTRING, "replacement_text_6", "replacement text 6", Form::Text},
    {SSPROP_PATROLREADRATE_U32, "patrol_read_rate", "patrol read rate", Form::Percent},
    {SSPROP_BGIRATE_U32, "background_initialisation_rate", "background initialisation rate", Form::Percent},
    {SSPROP_CHECKCONSISTRATE_U32, "consistency_check_rate", "consistency check rate", Form::Percent},
    {SSPROP_ALARMSTATE_BOOL, "alarm", "alarm", Form::Flag},
    {SSPROP_SASADDRESS_ASTRING, "sas_address", "SAS address", Form::Text},
    {SSPROP_DEVICEID_U32, "device_id", "device id", Form::Number},
    {SSPROP_SLOTNUM_U32, "slot", "slot", Form::Number},
    {SSPROP_VDPRODUCTNAME_ASTRING, "product_name", "product name", Form::Text},
    {SSPROP_VDDISKCACHEPOLICY_U32, "virtual_disk_cache_policy", "disk cache", Form::Code},
    {SSPROP_MEDIA_U32, "media", "media", Form::Code},
    {SSPROP_PDCOUNT_U32, "physical_disk_count", "disks", Form::Number},
    {SSPROP_POWERSTATUS_U32, "power_status", "power status", Form::Number},
    {SSPROP_MODEL_ASTRING, "model", "model", Form::Text},
    {SSPROP_RRWE_U32, "rrwe", "RRWE", Form::Number},
    {SSPROP_SECTORSIZE_U32, "sector_size", "sector size", Form::Size},
    {SSPROP_PORTCOUNT_U32, "port_count", "ports", Form::Number},
};

constexpr bool idsAscend()
{
    for (std::size_t index = 1; index < std::size(ROWS); ++index)
        if (ROWS[index - 1].id >= ROWS[index].id)
            return false;
    return true;
}
static_assert(idsAscend(), "the table is searched by halves");

// What a 32-bit number says that nobody has set.
constexpr std::uint64_t NOT_KNOWN = 0xFFFFFFFFU;

std::string maskText(std::uint64_t mask)
{
    char text[2 + 2 * sizeof mask] = "0x";
    return {text, std::to_chars(text + 2, std::end(text), mask, 16).ptr};
}

std::string numberText(std::uint64_t number, const Property& property, Form form, ObjectKind kind)
{
    if (form == Form::Mask)
        return maskText(number);
    if (!isKnown(property))
        return "not known";
    switch (form) {
    case Form::Code: {
        const char* word = codeWord(property.id, kind, number);
        return word == nullptr ? "code " + std::to_string(number) : word;
    }
    case Form::Size:
        return sizeText(number);
    case Form::Stripe:
        return stripeText(number);
    case Form::Speed:
        return speedText(number);
    case Form::Percent:
        return std::to_string(number) + " %";
    case Form::Flag:
        return number == 0 ? "off" : "on";
    default:
        return std::to_string(number);
    }
}

std::string nexusText(const std::vector<std::uint32_t>& ids)
{
    std::string text;
    for (const std::uint32_t id : ids)
        text += (text.empty() ? "" : ", ") + propertyLabel(id);
    return text;
}

std::string nestedText(const Object& object, bool asciiOnly)
{
    std::string text;
    for (const Property& property : object.properties) {
        text += text.empty() ? "{" : ", ";
        text += propertyLabel(property.id) + " " + describe(property, object.kind(), asciiOnly);
    }
    return text.empty() ? "{}" : text + "}";
}

} // namespace

devkit::Rows<PropertyRow> propertyRows()
{
    return ROWS;
}

const PropertyRow* propertyRow(unsigned int id)
{
    const auto* row =
        std::lower_bound(std::begin(ROWS), std::end(ROWS), id,
                         [](const PropertyRow& left, unsigned int right) { return left.id < right; });
    return row != std::end(ROWS) && row->id == id ? row : nullptr;
}

std::string propertyName(unsigned int id)
{
    const PropertyRow* row = propertyRow(id);
    return row == nullptr ? "property_" + std::to_string(id) : row->name;
}

std::string propertyLabel(unsigned int id)
{
    const PropertyRow* row = propertyRow(id);
    return row == nullptr ? "property " + std::to_string(id) : row->label;
}

std::string describe(const Property& property, ObjectKind kind, bool asciiOnly)
{
    const PropertyRow* row = propertyRow(property.id);
    const Form form = row == nullptr ? Form::Number : row->form;
    if (const auto* number = std::get_if<std::uint64_t>(&property.value))
        return numberText(*number, property, form, kind);
    if (const auto* number = std::get_if<std::int64_t>(&property.value))
        return std::to_string(*number);
    if (const auto* text = std::get_if<std::string>(&property.value))
        return devkit::escaped(*text, asciiOnly);
    if (const auto* ids = std::get_if<std::vector<std::uint32_t>>(&property.value))
        return nexusText(*ids);
    if (const auto* bytes = std::get_if<Bytes>(&property.value))
        return devkit::hex(bytes->data);
    return nestedText(*std::get<Nested>(property.value).object, asciiOnly);
}

bool isKnown(const Property& property)
{
    const auto* number = std::get_if<std::uint64_t>(&property.value);
    return number == nullptr || *number != NOT_KNOWN || property.type != SDO_TYPE_U32;
}

bool hasWords(const Property& property, ObjectKind kind)
{
    const auto* number = std::get_if<std::uint64_t>(&property.value);
    return number != nullptr && describe(property, kind) != std::to_string(*number);
}

} // namespace zarnekctl
