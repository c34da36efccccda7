#include "mvsim/scenario/ScenarioReader.h"

#include "mvsim/scenario/DeviceReader.h"
#include "mvsim/scenario/RulesReader.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

namespace mvsim
{

namespace
{

constexpr std::uint32_t LAST_POLL = 1000000000; // far from where their count wraps

constexpr unsigned int FORMAT = 1;
constexpr std::size_t MOST_ADAPTERS = 255; // the count is read from one byte

std::uint16_t idOf(const Disk& disk)
{
    return disk.info.HD_Id;
}

std::uint16_t idOf(const VirtualDisk& drive)
{
    return drive.info.LD_Id;
}

// The number under which the outside world knows the device; two that are present may not share it.
std::uint16_t numberOf(const Disk& disk)
{
    return disk.config.SlotNumber;
}

std::uint16_t numberOf(const VirtualDisk& drive)
{
    return drive.config.LogicalDriveNumber;
}

constexpr const char* numberKey(const Disk&)
{
    return "slot";
}

constexpr const char* numberKey(const VirtualDisk&)
{
    return "logicalDrive";
}

template <class Device>
Device* findDevice(std::vector<Device>& devices, std::uint16_t id)
{
    const auto found = std::find_if(devices.begin(), devices.end(),
                                    [id](const Device& device) { return idOf(device) == id; });
    return found == devices.end() ? nullptr : &*found;
}

template <class Device>
[[noreturn]] void refuseNumber(const Device& device, const StrictObject& object)
{
    const char* key = numberKey(device);
    throw FormatError(object.has(key) ? object.place(key) : object.place(),
                      std::string("a ") + key + " that no other present device has",
                      std::to_string(numberOf(device)));
}

// Demands that a device, one of `devices`, shares its number with no other that is present.
template <class Device>
void checkNumber(const std::vector<Device>& devices, const Device& device, const StrictObject& object)
{
    if (device.present && std::any_of(devices.begin(), devices.end(), [&device](const Device& other) {
            return &other != &device && other.present && numberOf(other) == numberOf(device);
        }))
        refuseNumber(device, object);
}

std::uint16_t counted(std::uint16_t first, std::size_t step, const std::string& place)
{
    if (first + step > 0xffff)
        throw FormatError(place, "numbers up to 65535", std::to_string(first + step));
    return static_cast<std::uint16_t>(first + step);
}

void setNumbers(Disk& disk, std::uint16_t id, std::uint16_t slot)
{
    disk.info.HD_Id = id;
    disk.config.SlotNumber = slot;
}

void setNumbers(VirtualDisk& drive, std::uint16_t id, std::uint16_t logicalDrive)
{
    drive.info.LD_Id = id;
    drive.config.LogicalDriveNumber = logicalDrive;
}

// Appends a device, or several alike with numbers that count up.
template <class Device>
void addDevices(StrictObject& object, std::uint16_t id, const Device& model, std::vector<Device>& devices)
{
    const std::uint16_t repeats = object.number<std::uint16_t>("repeat", 1).value_or(1);
    const bool gone = object.flag("gone").value_or(false);
    object.finish();
    std::set<std::uint16_t> ids;
    std::set<std::uint16_t> numbers;
    for (const Device& other : devices) {
        ids.insert(idOf(other));
        if (other.present)
            numbers.insert(numberOf(other));
    }
    for (std::size_t i = 0; i < repeats; ++i) {
        Device device = model;
        device.present = !gone;
        setNumbers(device, counted(id, i, object.place("id")),
                   counted(numberOf(model), i, object.place(numberKey(model))));
        if (!ids.insert(idOf(device)).second) {
            throw FormatError(object.place("id"), "an id that no other device has",
                              std::to_string(idOf(device)));
        }
        if (device.present && !numbers.insert(numberOf(device)).second)
            refuseNumber(device, object);
        patchRecords(object, device);
        devices.push_back(device);
    }
}

void readNewDisk(StrictObject& object, std::vector<Disk>& disks)
{
    Disk disk;
    const std::uint16_t id = object.needed("id", object.number<std::uint16_t>("id"));
    readDisk(object, disk);
    object.needed("slot", object.number<std::uint16_t>("slot"));
    addDevices(object, id, disk, disks);
}

// The members are for the reader of the scenario; they are checked to be disks of the adapter.
void checkMembers(StrictObject& object, const std::vector<Disk>& disks)
{
    std::set<std::uint64_t> seen;
    const Json& members = object.list("members");
    for (std::size_t i = 0; i < members.size(); ++i) {
        const Json& member = members[i];
        const bool known = member.is_number_unsigned() &&
                           std::any_of(disks.begin(), disks.end(), [&member](const Disk& disk) {
                               return member == disk.info.HD_Id + 0U;
                           });
        if (!known || !seen.insert(member.get<std::uint64_t>()).second) {
            throw FormatError(placeBelow(object.place("members"), i), "the id of a disk, each once",
                              describe(member));
        }
    }
}

void readNewVirtualDisk(StrictObject& object, Adapter& adapter)
{
    VirtualDisk drive;
    const std::uint16_t id = object.needed("id", object.number<std::uint16_t>("id"));
    drive.config.LogicalDriveNumber = id;
    readVirtualDisk(object, drive);
    checkMembers(object, adapter.disks);
    addDevices(object, id, drive, adapter.virtualDisks);
}

// Calls `read(element)` for each element of a list of objects.
template <class Read>
void eachObject(StrictObject& object, const char* key, Read read)
{
    const Json& list = object.list(key);
    for (std::size_t i = 0; i < list.size(); ++i) {
        StrictObject element(list[i], placeBelow(object.place(key), i));
        read(element);
    }
}

ScenarioAdapter readWholeAdapter(StrictObject& object)
{
    ScenarioAdapter adapter;
    readAdapter(object, adapter.model);
    object.needed("slot", object.number<std::uint32_t>("slot"));
    object.needed("maxBufferKB", object.number<std::uint16_t>("maxBufferKB"));
    adapter.rules = readRules(object, false);
    eachObject(object, "disks", [&adapter](StrictObject& disk) { readNewDisk(disk, adapter.model.disks); });
    eachObject(object, "virtualDisks",
               [&adapter](StrictObject& drive) { readNewVirtualDisk(drive, adapter.model); });
    object.finish();
    return adapter;
}

template <class Device>
Device& changedDevice(StrictObject& object, std::vector<Device>& devices)
{
    const std::uint16_t id = object.needed("id", object.number<std::uint16_t>("id"));
    Device* device = findDevice(devices, id);
    if (device == nullptr)
        throw FormatError(object.place("id"), "the id of a device of the adapter", std::to_string(id));
    const bool gone = object.flag("gone").value_or(false);
    const bool back = object.flag("back").value_or(false);
    if (gone && back)
        throw FormatError(object.place(), "one of \"gone\" and \"back\"", "both");
    device->present = back || (device->present && !gone);
    return *device;
}

// Reads one step on top of what the steps before it have made of the adapter, and changes that.
void readStep(StrictObject& object, Adapter& model, TimelineStep& step)
{
    if (const Json* controller = object.find("controller")) {
        StrictObject changes(*controller, object.place("controller"));
        readAdapter(changes, model);
        changes.finish();
    }
    // Numbers are compared when all changes are made, so that two disks can change places in one step.
    std::vector<std::pair<const Disk*, StrictObject>> disks;
    eachObject(object, "disks", [&](StrictObject& change) {
        Disk& disk = changedDevice(change, model.disks);
        readDisk(change, disk);
        change.finish();
        disks.emplace_back(&disk, change);
    });
    std::vector<std::pair<const VirtualDisk*, StrictObject>> drives;
    eachObject(object, "virtualDisks", [&](StrictObject& change) {
        VirtualDisk& drive = changedDevice(change, model.virtualDisks);
        readVirtualDisk(change, drive);
        checkMembers(change, model.disks);
        change.finish();
        drives.emplace_back(&drive, change);
    });
    for (const auto& [disk, change] : disks)
        checkNumber(model.disks, *disk, change);
    for (const auto& [drive, change] : drives)
        checkNumber(model.virtualDisks, *drive, change);
    step.rules = readRules(object, false);
    eachObject(object, "events", [&step](StrictObject& element) {
        const PendingEvent event = readEvent(element);
        const std::uint16_t repeats = element.number<std::uint16_t>("repeat", 1).value_or(1);
        element.finish();
        step.events.insert(step.events.end(), repeats, event);
    });
    object.finish();
    if (object.find("controller") != nullptr || !disks.empty() || !drives.empty())
        step.model = model;
}

std::vector<TimelineStep> readTimeline(StrictObject& object, const std::vector<ScenarioAdapter>& adapters)
{
    std::vector<std::pair<TimelineStep, StrictObject>> steps;
    eachObject(object, "timeline", [&](StrictObject& element) {
        TimelineStep step;
        step.poll = element.needed("poll", element.number<std::uint32_t>("poll", 1));
        if (step.poll > LAST_POLL)
            throw FormatError(element.place("poll"), "a poll up to " + std::to_string(LAST_POLL),
                              std::to_string(step.poll));
        step.adapter = element.number<std::uint32_t>("adapter").value_or(0);
        if (step.adapter >= adapters.size())
            throw FormatError(element.place("adapter"), "the index of an adapter",
                              std::to_string(step.adapter));
        steps.emplace_back(step, element);
    });
    std::stable_sort(steps.begin(), steps.end(),
                     [](const auto& left, const auto& right) { return left.first.poll < right.first.poll; });

    std::vector<Adapter> states;
    states.reserve(adapters.size());
    for (const ScenarioAdapter& adapter : adapters)
        states.push_back(adapter.model);
    std::vector<TimelineStep> timeline;
    for (auto& [step, element] : steps) {
        readStep(element, states[step.adapter], step);
        timeline.push_back(std::move(step));
    }
    return timeline;
}

} // namespace

Scenario readScenario(const Json& document)
{
    StrictObject object(document, "");
    const Json* format = object.find("format");
    if (format == nullptr || *format != FORMAT) {
        throw FormatError(object.place("format"), std::to_string(FORMAT),
                          format ? describe(*format) : "nothing");
    }
    Scenario scenario;
    constexpr std::size_t ANY_LENGTH = std::numeric_limits<std::size_t>::max();
    object.needed("name", object.bytes("name", ANY_LENGTH));
    object.bytes("description", ANY_LENGTH);
    scenario.sequence = object.number<std::uint32_t>("sequence").value_or(0);
    scenario.vendorRules = readRules(object, true);
    if (!object.has("adapters"))
        throw FormatError(object.place("adapters"), "a list", "nothing");
    eachObject(object, "adapters", [&scenario](StrictObject& adapter) {
        scenario.adapters.push_back(readWholeAdapter(adapter));
    });
    if (scenario.adapters.size() > MOST_ADAPTERS) {
        throw FormatError(object.place("adapters"), "at most " + std::to_string(MOST_ADAPTERS) + " adapters",
                          std::to_string(scenario.adapters.size()));
    }
    scenario.timeline = readTimeline(object, scenario.adapters);
    object.finish();
    return scenario;
}

} // namespace mvsim
