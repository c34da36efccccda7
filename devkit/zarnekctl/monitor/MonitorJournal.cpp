#include "zarnekctl/monitor/MonitorJournal.h"

#include <mv.h>
#include <sdo.h>
#include <zarnek_ini.h>

#include <algorithm>

namespace zarnekctl
{

namespace
{

// The event classes of the vendor, by the kind of object that an alert of such an event concerns.
struct EventClass {
    unsigned int number;
    ObjectKind kind;
    const char* section; // of the mapping file
};

constexpr EventClass EVENT_CLASSES[] = {
    {MV_EVENT_CONTROLLER, ObjectKind::Controller, INI_ADAPTER_SECTION},
    {MV_EVENT_VIRTUAL_DISK, ObjectKind::VirtualDisk, INI_VIRTUAL_DISK_SECTION},
    {MV_EVENT_PHYSICAL_DISK, ObjectKind::PhysicalDisk, INI_PHYSICAL_DISK_SECTION},
};

const EventClass* classOf(ObjectKind kind)
{
    for (const EventClass& row : EVENT_CLASSES)
        if (row.kind == kind)
            return &row;
    return nullptr;
}

// The device's property is that of the disks; a controller's alert keeps the one of the disk alert before it.
std::uint64_t deviceOf(const Object& object)
{
    for (const unsigned int id : {SSPROP_SLOTNUM_U32, SSPROP_LOGICALDRIVENUM_U32, SSPROP_DEVICEID_U32})
        if (const auto device = object.number(id))
            return *device;
    return 0;
}

} // namespace

std::vector<PropertyChange> differences(const Object& before, const Object& after)
{
    std::vector<PropertyChange> changes;
    for (const Property& property : after.properties) {
        const Property* old = before.find(property.id);
        if (old == nullptr)
            changes.push_back({property.id, std::nullopt, property});
        else if (*old != property)
            changes.push_back({property.id, *old, property});
    }
    for (const Property& property : before.properties)
        if (after.find(property.id) == nullptr)
            changes.push_back({property.id, property, std::nullopt});
    return changes;
}

MonitorJournal::MonitorJournal(MonitorPrinter* printer, std::function<std::optional<MappingFile>()> mapping)
    : m_printer(printer), m_mapping(std::move(mapping))
{
}

void MonitorJournal::event(const mvsim_event& event)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_events.push_back(event);
}

void MonitorJournal::notification(const Object& object)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    tellTouched();

    Alert alert;
    alert.time = WallClock::now();
    alert.number = static_cast<std::uint32_t>(object.number(SSPROP_ALERTNUMBER_U32).value_or(0));
    const Property* concerned = object.find(SSPROP_CONTROLNOTIFY_SDO);
    if (const auto* nested = concerned == nullptr ? nullptr : std::get_if<Nested>(&concerned->value)) {
        alert.kind = nested->object->kind();
        alert.controller = nested->object->number(SSPROP_GLOBALCONTROLLERNUM_U32).value_or(0);
        alert.controllerIndex = nested->object->number(SSPROP_CONTROLLERID_U32).value_or(0);
        alert.device = deviceOf(*nested->object);
    }
    matchEvent(alert);
    ++m_counts.alerts;
    m_counts.lastSequence = alert.sequence.value_or(m_counts.lastSequence);
    if (m_printer != nullptr)
        m_printer->alert(alert);
}

// Alerts follow in the order of their events, but not every event becomes one: those ahead of the match were
// unmapped or old.
void MonitorJournal::matchEvent(Alert& alert)
{
    const EventClass* row = classOf(alert.kind);
    if (row == nullptr || m_events.empty())
        return;
    const auto mapping = m_mapping();
    if (!mapping)
        return;
    const std::uint32_t seen = mapping->sequenceNumber(); // what an earlier run told counts as old
    const auto found = std::find_if(m_events.begin(), m_events.end(), [&](const mvsim_event& event) {
        return event.event_class == row->number && event.adapter == alert.controllerIndex &&
               event.device == alert.device && event.sequence > seen &&
               mapping->alertNumber(row->section, event.code) == alert.number;
    });
    if (found == m_events.end())
        return;
    alert.sequence = found->sequence;
    alert.eventCode = found->code;
    m_events.erase(m_events.begin(), found + 1);
}

void MonitorJournal::change(const Object* before, const Object* after)
{
    const Object* known = after == nullptr ? before : after;
    if (known == nullptr)
        return;
    const std::lock_guard<std::mutex> lock(m_mutex);
    const std::string identity = known->identity;
    auto touched = std::find_if(m_touched.begin(), m_touched.end(),
                                [&](const Touched& other) { return other.identity == identity; });
    // A virtual disk is inserted twice, first without what its disks tell about it: only the state ahead of
    // the first and behind the last insertion counts.
    if (touched == m_touched.end())
        touched = m_touched.insert(
            m_touched.end(),
            {identity, before == nullptr ? std::nullopt : std::optional<Object>(*before), {}});
    touched->after = after == nullptr ? std::nullopt : std::optional<Object>(*after);
}

void MonitorJournal::incomplete(const Object& object)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_incomplete.push_back(object);
}

void MonitorJournal::pollEnd()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    tellTouched();
    m_events.clear();
}

void MonitorJournal::tellTouched()
{
    const auto now = WallClock::now();
    std::size_t unchanged = 0;
    const auto tell = [&](const Refresh& refresh) {
        if (m_printer != nullptr)
            m_printer->refresh(refresh);
    };
    for (const Object& object : m_incomplete)
        tell({now, RefreshKind::Incomplete, object, {}});
    for (const Touched& touched : m_touched) {
        if (touched.before && touched.after) {
            auto changes = differences(*touched.before, *touched.after);
            if (changes.empty())
                ++unchanged;
            else
                tell({now, RefreshKind::Changed, *touched.after, std::move(changes)});
        } else if (touched.after) {
            tell({now, RefreshKind::Appeared, *touched.after, {}});
        } else if (touched.before) {
            tell({now, RefreshKind::Deleted, *touched.before, {}});
        }
    }
    if (unchanged != 0 && m_printer != nullptr)
        m_printer->unchanged(unchanged);
    m_counts.incomplete += m_incomplete.size();
    m_counts.refreshed += m_touched.size() + m_incomplete.size();
    m_counts.changed += m_touched.size() - unchanged;
    m_incomplete.clear();
    m_touched.clear();
}

MonitorSummary MonitorJournal::counts() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_counts;
}

} // namespace zarnekctl
