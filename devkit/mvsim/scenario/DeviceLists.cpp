#include "mvsim/scenario/DeviceLists.h"

#include "mvsim/scenario/DeviceReader.h"

#include <algorithm>
#include <set>
#include <utility>

namespace mvsim
{

namespace
{

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

// What a list of devices has given away so far.
struct Taken {
    std::set<std::uint16_t> ids;
    std::set<std::uint16_t> numbers; // of present devices
};

// Appends a device, or several alike with numbers that count up.
template <class Device>
void addDevices(StrictObject& object, std::uint16_t id, const Device& model, std::vector<Device>& devices,
                Taken& taken)
{
    const std::uint16_t repeats = object.number<std::uint16_t>("repeat", 1).value_or(1);
    const bool gone = object.flag("gone").value_or(false);
    object.finish();
    for (std::size_t i = 0; i < repeats; ++i) {
        Device device = model;
        device.present = !gone;
        setNumbers(device, counted(id, i, object.place("id")),
                   counted(numberOf(model), i, object.place(numberKey(model))));
        if (taken.ids.count(idOf(device)) != 0) {
            throw FormatError(object.place("id"), "an id that no other device has",
                              std::to_string(idOf(device)));
        }
        if (device.present && taken.numbers.count(numberOf(device)) != 0)
            refuseNumber(device, object);
        patchRecords(object, device); // numbers too
        taken.ids.insert(idOf(device));
        if (device.present)
            taken.numbers.insert(numberOf(device));
        devices.push_back(device);
    }
}

void readNewDisk(StrictObject& object, std::vector<Disk>& disks, Taken& taken)
{
    Disk disk;
    const std::uint16_t id = object.needed("id", object.number<std::uint16_t>("id"));
    readDisk(object, disk);
    object.needed("slot", object.number<std::uint16_t>("slot"));
    addDevices(object, id, disk, disks, taken);
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

void readNewVirtualDisk(StrictObject& object, Adapter& adapter, Taken& taken)
{
    VirtualDisk drive;
    const std::uint16_t id = object.needed("id", object.number<std::uint16_t>("id"));
    drive.config.LogicalDriveNumber = id;
    readVirtualDisk(object, drive);
    checkMembers(object, adapter.disks);
    addDevices(object, id, drive, adapter.virtualDisks, taken);
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

// Changes the devices of a list, each with `read(change, device)`, then demands that none shares its number:
// two disks can change places in one step.
template <class Device, class Read>
void changeList(StrictObject& object, const char* key, std::vector<Device>& devices, Read read)
{
    std::vector<std::pair<const Device*, StrictObject>> done;
    object.each(key, [&](StrictObject& change) {
        Device& device = changedDevice(change, devices);
        read(change, device);
        change.finish();
        done.emplace_back(&device, change);
    });
    for (const auto& [device, change] : done)
        checkNumber(devices, *device, change);
}

} // namespace

void readDevices(StrictObject& object, Adapter& adapter)
{
    Taken disks;
    Taken drives;
    object.each("disks", [&](StrictObject& disk) { readNewDisk(disk, adapter.disks, disks); });
    object.each("virtualDisks", [&](StrictObject& drive) { readNewVirtualDisk(drive, adapter, drives); });
}

void changeDevices(StrictObject& object, Adapter& adapter)
{
    changeList(object, "disks", adapter.disks, readDisk);
    changeList(object, "virtualDisks", adapter.virtualDisks,
               [&adapter](StrictObject& change, VirtualDisk& drive) {
                   readVirtualDisk(change, drive);
                   checkMembers(change, adapter.disks);
               });
}

} // namespace mvsim
