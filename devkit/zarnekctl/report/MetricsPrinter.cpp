#include "zarnekctl/report/MetricsPrinter.h"

#include "zarnekctl/monitor/AlertTable.h"
#include "zarnekctl/print/CodeWords.h"
#include "zarnekctl/print/PropertyTable.h"
#include "zarnekctl/report/Exposition.h"
#include <sdo.h>

#include <algorithm>

namespace zarnekctl
{

namespace
{

constexpr ObjectKind CONTROLLER = ObjectKind::Controller;
constexpr ObjectKind DISK = ObjectKind::PhysicalDisk;
constexpr ObjectKind VIRTUAL = ObjectKind::VirtualDisk;

// A property of all objects of a kind as a metric. The property's form says how: a code is one of many, all
// else a number in the base unit.
struct MetricRow {
    ObjectKind kind;
    unsigned int property;
    const char* name;
    const char* help;
};

constexpr MetricRow METRICS[] = {
    {CONTROLLER, SSPROP_STATUS_U32, "zarnek_controller_status", "Whether the controller has this status."},
    {CONTROLLER, SSPROP_STATE_U32, "zarnek_controller_state", "Whether the controller is in this state."},
    {CONTROLLER, SSPROP_PORTCOUNT_U32, "zarnek_controller_ports", "Ports of the controller."},
    {CONTROLLER, SSPROP_PDCOUNT_U32, "zarnek_controller_disks", "Disks that the controller counts."},
    {CONTROLLER, SSPROP_VDCOUNT_U32, "zarnek_controller_virtual_disks",
     "Virtual disks that the controller counts."},
    {CONTROLLER, SSPROP_REBUILDRATE_U32, "zarnek_controller_rebuild_rate_ratio",
     "Share of the controller's work that a rebuild may take."},
    {CONTROLLER, SSPROP_ALARMSTATE_BOOL, "zarnek_controller_alarm", "Whether the controller's alarm is on."},

    {DISK, SSPROP_STATUS_U32, "zarnek_disk_status", "Whether the disk has this status."},
    {DISK, SSPROP_STATE_U32, "zarnek_disk_state", "Whether the disk is in this state."},
    {DISK, SSPROP_SIZE_U64, "zarnek_disk_size_bytes", "Capacity of the disk."},
    {DISK, SSPROP_USEDRAIDDISKSPACE_U64, "zarnek_disk_raid_used_bytes",
     "Capacity of the disk less what is free for virtual disks."},
    {DISK, SSPROP_FREERAIDDISKSPACE_U64, "zarnek_disk_raid_free_bytes",
     "Bytes of the disk that are free for virtual disks."},
    {DISK, SSPROP_SECTORSIZE_U32, "zarnek_disk_sector_size_bytes", "Sector size of the disk."},
    {DISK, SSPROP_NEGOTIATEDSPEED_U32, "zarnek_disk_link_speed_bytes_per_second",
     "Line rate of the disk's link, 0 without a link."},
    {DISK, SSPROP_CAPABLESPEED_U32, "zarnek_disk_link_speed_max_bytes_per_second",
     "Highest line rate that the disk is capable of."},

    {VIRTUAL, SSPROP_STATUS_U32, "zarnek_virtual_disk_status", "Whether the virtual disk has this status."},
    {VIRTUAL, SSPROP_STATE_U32, "zarnek_virtual_disk_state", "Whether the virtual disk is in this state."},
    {VIRTUAL, SSPROP_SIZE_U64, "zarnek_virtual_disk_size_bytes", "Capacity of the virtual disk."},
    {VIRTUAL, SSPROP_STRIPEBLOCKSIZE_U32, "zarnek_virtual_disk_stripe_size_bytes",
     "Stripe size of the virtual disk, 0 where the controller tells none."},
};

// What names and describes an object, in labels of a metric that is always 1.
struct InfoRow {
    ObjectKind kind;
    const char* name;
    const char* help;
    std::vector<unsigned int> properties;
};

const InfoRow INFOS[] = {
    {CONTROLLER,
     "zarnek_controller_info",
     "What the controller is.",
     {SSPROP_NAME_ASTRING, SSPROP_FWVERSION_ASTRING, SSPROP_SLOTID_U32}},
    {DISK,
     "zarnek_disk_info",
     "What the disk is.",
     {SSPROP_MODEL_ASTRING, SSPROP_SERIALNUM_ASTRING, SSPROP_REVISION_ASTRING, SSPROP_VENDOR_ASTRING,
      SSPROP_SASADDRESS_ASTRING, SSPROP_BUSPROTOCOL_U32, SSPROP_MEDIA_U32}},
    {VIRTUAL,
     "zarnek_virtual_disk_info",
     "What the virtual disk is.",
     {SSPROP_NAME_ASTRING, SSPROP_RAIDMODE_U32, SSPROP_WRITEPOLICY_U32, SSPROP_VDDISKCACHEPOLICY_U32}},
};

// For codes that have no word.
constexpr const char* OTHER_WORD = "other";

const char* numberLabel(ObjectKind kind)
{
    return kind == DISK ? "slot" : "virtual_disk";
}

std::string numberText(std::optional<std::uint64_t> number)
{
    return number ? std::to_string(*number) : "";
}

// What tells an object from all others, over restarts too.
Labels labelsOf(const Object& object)
{
    Labels labels{{"controller", numberText(object.number(SSPROP_GLOBALCONTROLLERNUM_U32))}};
    if (object.kind() != CONTROLLER)
        labels.emplace_back(numberLabel(object.kind()),
                            numberText(object.number(numberProperty(object.kind()))));
    return labels;
}

Labels joined(Labels labels, const std::string& name, const std::string& value)
{
    labels.emplace_back(name, value);
    return labels;
}

// In the base unit of its form.
std::string baseText(std::uint64_t number, Form form)
{
    constexpr std::uint64_t BLOCK = 512;
    switch (form) {
    case Form::Percent: {
        const std::uint64_t rest = number % 100;
        return std::to_string(number / 100) + (rest < 10 ? ".0" : ".") + std::to_string(rest);
    }
    case Form::Stripe:
        return std::to_string(number * BLOCK);
    case Form::Speed: // 1024 for 10^9 bits a second
        return std::to_string(number * 1'000'000'000 / 1024 / 8);
    default:
        return std::to_string(number);
    }
}

// One sample for each word that the property can have; the word that it has is 1.
void writeCode(Exposition& out, const Object& object, unsigned int property, std::uint64_t code)
{
    const ObjectKind kind = object.kind();
    const Labels labels = labelsOf(object);
    const std::string name = propertyName(property);
    const char* found = codeWord(property, kind, code);
    const std::string own = found == nullptr ? OTHER_WORD : found;
    for (const std::string word : codeWords(property, kind))
        out.sample(joined(labels, name, word), word == own);
    out.sample(joined(labels, name, OTHER_WORD), own == OTHER_WORD);
}

// All that the data engine has a place for, of one kind.
template <typename Function>
void forEachOf(const System& system, ObjectKind kind, Function function)
{
    for (const Node& node : system.nodes)
        if (!node.incomplete && node.object.kind() == kind)
            function(node.object);
}

void writeInfo(Exposition& out, const System& system, const InfoRow& row)
{
    out.begin(row.name, "gauge", row.help);
    forEachOf(system, row.kind, [&](const Object& object) {
        Labels labels = labelsOf(object);
        for (const unsigned int id : row.properties) {
            const Property* property = object.find(id);
            labels.emplace_back(propertyName(id), property == nullptr ? "" : describe(*property, row.kind));
        }
        out.sample(labels, true);
    });
}

void writeMetric(Exposition& out, const System& system, const MetricRow& row)
{
    const Form form = propertyRow(row.property)->form;
    out.begin(row.name, "gauge", row.help);
    forEachOf(system, row.kind, [&](const Object& object) {
        const auto number = object.number(row.property);
        if (!number || !isKnown(*object.find(row.property)))
            return;
        if (form == Form::Code)
            writeCode(out, object, row.property, *number);
        else
            out.sample(labelsOf(object), baseText(*number, form));
    });
}

void writeDiscovery(Exposition& out, const System& system)
{
    out.begin("zarnek_build_info", "gauge", "What wrote these metrics.");
    out.sample({{"version", ZARNEKCTL_VERSION}}, true);
    out.begin("zarnek_discovery_info", "gauge", "Where the objects come from.");
    out.sample({{"source", system.source}}, true);
    out.begin(
        "zarnek_discovery_complete", "gauge",
        "Whether the discovery got all that the vendor library has: every controller, no call refused.");
    out.sample({}, system.complete);
    out.begin("zarnek_discovery_controllers", "gauge", "Controllers that the plug-in reported.");
    out.sample({}, std::to_string(system.controllersFound));
    out.begin("zarnek_discovery_incomplete_objects", "gauge",
              "Objects that arrived without an identity, which no other metric counts.");
    const auto incomplete = std::count_if(system.nodes.begin(), system.nodes.end(),
                                          [](const Node& node) { return node.incomplete; });
    out.sample({}, std::to_string(incomplete));
}

void writeStory(Exposition& out, const MonitorStory& story)
{
    out.begin("zarnek_monitor_running", "gauge", "Whether more polls follow.");
    out.sample({}, story.running);
    out.begin("zarnek_monitor_polls_total", "counter", "Polls for events since monitoring started.");
    out.sample({}, std::to_string(story.polls));
    out.begin("zarnek_monitor_refused_calls_total", "counter",
              "Calls that the vendor library refused since monitoring started.");
    out.sample({}, std::to_string(story.refusedCalls));
    out.begin("zarnek_monitor_alerts_total", "counter", "Alerts since monitoring started.");
    // Those that have not come yet stand at 0, so that their first one is an increase.
    auto alerts = story.alerts;
    for (const AlertRow& row : alertRows())
        alerts[row.number];
    for (const auto& [number, count] : alerts)
        out.sample({{"number", std::to_string(number)}, {"severity", severityWord(severityOf(number))}},
                   std::to_string(count));
}

} // namespace

void MetricsPrinter::print(const System& system, std::ostream& out) const
{
    Exposition exposition(out);
    writeDiscovery(exposition, system);
    for (const InfoRow& row : INFOS)
        writeInfo(exposition, system, row);
    for (const MetricRow& row : METRICS)
        writeMetric(exposition, system, row);
    if (m_story != nullptr)
        writeStory(exposition, *m_story);
}

} // namespace zarnekctl
