#include "mvsim/live/ArrayJudge.h"

#include "common/words.h"
#include "mvsim/live/ArrayLevel.h"
#include "mvsim/live/ArrayStates.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <sstream>
#include <utility>

namespace mvsim
{

namespace
{

// The disks by their names.
using DiskIndex = std::map<std::string, SeenDisk*>;

// A stopped array leaves its device behind, and one being put together has got nothing yet.
bool isThere(const MdArray& array)
{
    const bool empty = array.level.empty() && array.members.empty();
    return !array.state.empty() && array.state != "clear" && !empty;
}

SeenDisk* findDisk(const DiskIndex& disks, const std::string& name)
{
    const auto found = disks.find(name);
    return found == disks.end() ? nullptr : found->second;
}

// "sda1" is on "sda", "nvme0n1p2" on "nvme0n1".
std::string withoutPartition(std::string name)
{
    while (!name.empty() && devkit::isDigit(name.back()))
        name.pop_back();
    if (name.size() > 1 && name.back() == 'p' && devkit::isDigit(name[name.size() - 2]))
        name.pop_back();
    return name;
}

// A member's place on a disk.
struct Place {
    SeenDisk* disk = nullptr; // none of the machine's own
    bool wholeDisk = false;
};

Place placeOf(const MdMember& member, const DiskIndex& disks)
{
    // The link to the block device is sure where it can be followed: a partition lies in its disk's folder.
    if (SeenDisk* disk = findDisk(disks, member.device))
        return {disk, true};
    if (SeenDisk* disk = findDisk(disks, member.holder))
        return {disk, false};
    if (SeenDisk* disk = findDisk(disks, member.name))
        return {disk, true};
    return {findDisk(disks, withoutPartition(member.name)), false};
}

// A disk can be a member of several arrays; the part that matters most decides.
void raiseStatus(Disk& disk, std::uint8_t flag)
{
    constexpr std::uint8_t BY_WEIGHT[] = {MV_DISK_BAD, MV_DISK_IN_ARRAY, MV_DISK_SPARE, MV_DISK_READY};
    auto& flags = disk.raidStatus.RaidStatusFlags;
    for (const std::uint8_t heavier : BY_WEIGHT) {
        if (flags == heavier || flag == heavier) {
            flags = heavier;
            return;
        }
    }
}

// What a member gives to its array. The disks of a container give it to the arrays inside.
std::uint64_t takenKB(const MdMember& member, const MdArray& array)
{
    const std::uint64_t component = array.componentKB.value_or(0);
    if (isContainer(array))
        return 0;
    return component != 0 ? component : member.sizeKB.value_or(0);
}

// "1200 / 4800" in percent; nothing while there is nothing to do.
std::optional<unsigned int> progressOf(const MdArray& array)
{
    std::istringstream text(array.completed);
    std::uint64_t done = 0;
    std::uint64_t all = 0;
    char slash = '\0';
    if (!(text >> done >> slash >> all) || slash != '/' || all == 0)
        return std::nullopt;
    return static_cast<unsigned int>(static_cast<double>(std::min(done, all)) * 100.0 /
                                     static_cast<double>(all));
}

// The minor number: from the device number "9:127", or from a name such as "md127".
std::optional<std::uint16_t> minorOf(const MdArray& array)
{
    const std::size_t colon = array.deviceNumber.find(':');
    const std::string digits =
        colon != std::string::npos ? array.deviceNumber.substr(colon + 1) : array.name.substr(2);
    std::uint16_t minor = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, minor);
    return result.ec == std::errc() && result.ptr == end ? std::optional<std::uint16_t>(minor) : std::nullopt;
}

SeenArray seenArray(const MdArray& array)
{
    SeenArray seen;
    seen.name = array.name;
    seen.minor = minorOf(array);
    seen.progress = progressOf(array);
    seen.missing = missingMembers(array);
    seen.reshaping = array.action == "reshape";
    _LD_Info& info = seen.device.info;
    putText(info.LDName, array.name);
    info.RaidMode = raidModeOf(array);
    info.LDStatus = statusOf(array, seen.missing);
    info.StripeSize =
        static_cast<std::uint16_t>(std::min<std::uint64_t>(array.chunkBytes.value_or(0) / 1024, 0xffff));
    info.CacheFlags = MV_CACHE_NONE;
    info.SizeKB = array.sizeKB.value_or(0);
    if (info.SizeKB == 0)
        info.SizeKB = dataKB(array);
    return seen;
}

} // namespace

SeenMachine judgeArrays(std::vector<SeenDisk> disks, const std::vector<MdArray>& arrays)
{
    SeenMachine machine{std::move(disks), {}};
    DiskIndex index;
    for (SeenDisk& disk : machine.disks)
        index.emplace(disk.name, &disk);
    for (const MdArray& array : arrays) {
        if (!isThere(array))
            continue;
        for (const MdMember& member : array.members) {
            const Place place = placeOf(member, index);
            if (place.disk != nullptr) {
                raiseStatus(place.disk->device, statusOf(member, array));
                place.disk->usedKB += place.wholeDisk ? takenKB(member, array) : 0;
            }
        }
        if (!isContainer(array))
            machine.arrays.push_back(seenArray(array));
    }
    for (SeenDisk& disk : machine.disks) {
        const std::uint64_t size = disk.device.info.SizeKB;
        disk.device.freeSpace.Answer.FreeSizeKB = size - std::min(size, disk.usedKB);
    }
    return machine;
}

} // namespace mvsim
