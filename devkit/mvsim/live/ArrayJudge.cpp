#include "mvsim/live/ArrayJudge.h"

#include "common/words.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <utility>

namespace mvsim
{

namespace
{

// What a RAID level means for `disks` members: how many may be missing, and how many hold data of their own.
struct Level {
    const char* name;
    std::uint8_t raidMode;
    std::uint64_t (*mayMiss)(std::uint64_t disks);
    std::uint64_t (*dataDisks)(std::uint64_t disks);
};

constexpr std::uint64_t lessUpTo(std::uint64_t value, std::uint64_t less)
{
    return value > less ? value - less : 0;
}

constexpr Level LEVELS[] = {
    {"raid0", MV_RAID_0, [](std::uint64_t) -> std::uint64_t { return 0; }, [](std::uint64_t n) { return n; }},
    {"raid1", MV_RAID_1, [](std::uint64_t n) { return lessUpTo(n, 1); },
     [](std::uint64_t) -> std::uint64_t { return 1; }},
    {"raid4", MV_RAID_5, [](std::uint64_t) -> std::uint64_t { return 1; },
     [](std::uint64_t n) { return lessUpTo(n, 1); }},
    {"raid5", MV_RAID_5, [](std::uint64_t) -> std::uint64_t { return 1; },
     [](std::uint64_t n) { return lessUpTo(n, 1); }},
    {"raid6", MV_RAID_6, [](std::uint64_t) -> std::uint64_t { return 2; },
     [](std::uint64_t n) { return lessUpTo(n, 2); }},
    {"raid10", MV_RAID_10, [](std::uint64_t n) { return n / 2; }, [](std::uint64_t n) { return n / 2; }},
    // linear and whatever else: no redundancy
    {"", MV_RAID_NONE, [](std::uint64_t) -> std::uint64_t { return 0; }, [](std::uint64_t n) { return n; }},
};

const Level& levelOf(const MdArray& array)
{
    const auto* last = std::end(LEVELS) - 1;
    return *std::find_if(std::begin(LEVELS), last,
                         [&array](const Level& level) { return array.level == level.name; });
}

// A stopped array leaves its device behind, and a container is only the home of other arrays.
bool holdsData(const MdArray& array)
{
    const bool stopped = array.state.empty() || array.state == "clear";
    const bool container = array.level.empty() && array.raidDisks.value_or(0) == 0;
    return !stopped && !container;
}

SeenDisk* findDisk(std::vector<SeenDisk>& disks, const std::string& name)
{
    const auto found =
        std::find_if(disks.begin(), disks.end(), [&name](const SeenDisk& disk) { return disk.name == name; });
    return found == disks.end() ? nullptr : &*found;
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

Place placeOf(const MdMember& member, std::vector<SeenDisk>& disks)
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

std::uint8_t statusOf(const MdMember& member)
{
    if (devkit::hasWord(member.state, "faulty"))
        return MV_DISK_BAD;
    // A disk being rebuilt is still called a spare, but it has its place in the array.
    return devkit::hasWord(member.state, "in_sync") || member.slot ? MV_DISK_IN_ARRAY : MV_DISK_SPARE;
}

std::uint8_t statusOf(const MdArray& array, const Level& level)
{
    const std::uint64_t mayMiss = level.mayMiss(array.raidDisks.value_or(0));
    // Levels without redundancy have no count of missing disks.
    const auto faulty = std::count_if(array.members.begin(), array.members.end(),
                                      [](const MdMember& member) { return statusOf(member) == MV_DISK_BAD; });
    const std::uint64_t missing =
        array.degraded.value_or(mayMiss == 0 ? static_cast<std::uint64_t>(faulty) : 0);
    if (array.state == "inactive")
        return MV_DRIVE_OFFLINE;
    if (array.state == "broken" || missing > mayMiss)
        return MV_DRIVE_FAILED;
    if (array.action == "recover")
        return MV_DRIVE_REBUILDING;
    if (missing != 0)
        return MV_DRIVE_DEGRADED;
    if (array.action == "resync")
        return MV_DRIVE_INITIALISING;
    return array.action == "check" || array.action == "repair" ? MV_DRIVE_CHECKING : MV_DRIVE_OPTIMAL;
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
    const Level& level = levelOf(array);
    SeenArray seen;
    seen.name = array.name;
    seen.minor = minorOf(array);
    seen.progress = progressOf(array);
    _LD_Info& info = seen.device.info;
    putText(info.LDName, array.name);
    info.RaidMode = level.raidMode;
    info.LDStatus = statusOf(array, level);
    info.StripeSize =
        static_cast<std::uint16_t>(std::min<std::uint64_t>(array.chunkBytes.value_or(0) / 1024, 0xffff));
    info.CacheFlags = MV_CACHE_NONE;
    info.SizeKB = array.sizeKB.value_or(0);
    if (info.SizeKB == 0)
        info.SizeKB = array.componentKB.value_or(0) * level.dataDisks(array.raidDisks.value_or(0));
    return seen;
}

} // namespace

SeenMachine judgeArrays(std::vector<SeenDisk> disks, const std::vector<MdArray>& arrays)
{
    SeenMachine machine{std::move(disks), {}};
    for (const MdArray& array : arrays) {
        if (!holdsData(array))
            continue;
        for (const MdMember& member : array.members) {
            const Place place = placeOf(member, machine.disks);
            if (place.disk != nullptr) {
                raiseStatus(place.disk->device, statusOf(member));
                place.disk->usedKB += place.wholeDisk ? array.componentKB.value_or(0) : 0;
            }
        }
        machine.arrays.push_back(seenArray(array));
    }
    for (SeenDisk& disk : machine.disks) {
        const std::uint64_t size = disk.device.info.SizeKB;
        disk.device.freeSpace.Answer.FreeSizeKB = size - std::min(size, disk.usedKB);
    }
    return machine;
}

} // namespace mvsim
