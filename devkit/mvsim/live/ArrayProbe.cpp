#include "mvsim/live/ArrayProbe.h"

#include "mvsim/scenario/RecordCodes.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <sstream>

namespace mvsim
{

namespace
{

constexpr std::uint64_t SECTORS_PER_KB = 2;

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

const Level& levelOf(const std::string& name)
{
    const auto* last = std::end(LEVELS) - 1;
    return *std::find_if(std::begin(LEVELS), last,
                         [&name](const Level& level) { return name == level.name; });
}

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

bool hasToken(const std::string& list, const std::string& token)
{
    std::istringstream stream(list);
    for (std::string part; std::getline(stream, part, ',');)
        if (part == token)
            return true;
    return false;
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
    const auto isDigit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
    while (!name.empty() && isDigit(name.back()))
        name.pop_back();
    if (name.size() > 1 && name.back() == 'p' && isDigit(name[name.size() - 2]))
        name.pop_back();
    return name;
}

// A member's place on a disk.
struct Member {
    SeenDisk* disk = nullptr; // none of the machine's own
    bool wholeDisk = false;
};

Member findMember(const SysfsFolder& member, const std::string& name, std::vector<SeenDisk>& disks)
{
    // The link to the block device is sure where it can be followed: a partition lies in its disk's folder.
    const std::filesystem::path path = member.below("block").resolved();
    if (SeenDisk* disk = findDisk(disks, path.filename().string()))
        return {disk, true};
    if (SeenDisk* disk = findDisk(disks, path.parent_path().filename().string()))
        return {disk, false};
    if (SeenDisk* disk = findDisk(disks, name))
        return {disk, true};
    return {findDisk(disks, withoutPartition(name)), false};
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

std::uint8_t memberStatus(const SysfsFolder& member)
{
    const std::string state = member.text("state").value_or("");
    if (hasToken(state, "faulty"))
        return MV_DISK_BAD;
    // A disk being rebuilt is still called a spare, but it has its place in the array.
    const bool placed = member.number("slot").has_value();
    return hasToken(state, "in_sync") || placed ? MV_DISK_IN_ARRAY : MV_DISK_SPARE;
}

std::uint8_t statusOf(const SysfsFolder& md, const Level& level, std::uint64_t raidDisks,
                      std::uint64_t faulty)
{
    const std::string state = md.text("array_state").value_or("");
    const std::string action = md.text("sync_action").value_or("idle");
    // Levels without redundancy have no count of missing disks.
    const std::uint64_t missing = md.number("degraded").value_or(level.mayMiss(raidDisks) == 0 ? faulty : 0);
    if (state == "inactive")
        return MV_DRIVE_OFFLINE;
    if (state == "broken" || missing > level.mayMiss(raidDisks))
        return MV_DRIVE_FAILED;
    if (action == "recover")
        return MV_DRIVE_REBUILDING;
    if (missing != 0)
        return MV_DRIVE_DEGRADED;
    if (action == "resync")
        return MV_DRIVE_INITIALISING;
    return action == "check" || action == "repair" ? MV_DRIVE_CHECKING : MV_DRIVE_OPTIMAL;
}

// "1200 / 4800" in percent; nothing while there is nothing to do.
std::optional<unsigned int> progressOf(const SysfsFolder& md)
{
    std::istringstream text(md.text("sync_completed").value_or(""));
    std::uint64_t done = 0;
    std::uint64_t all = 0;
    char slash = '\0';
    if (!(text >> done >> slash >> all) || slash != '/' || all == 0)
        return std::nullopt;
    return static_cast<unsigned int>(static_cast<double>(std::min(done, all)) * 100.0 /
                                     static_cast<double>(all));
}

// The minor number: from the device number "9:127", or from a name such as "md127".
std::optional<std::uint16_t> minorOf(const std::string& name, const SysfsFolder& folder)
{
    const std::string device = folder.text("dev").value_or("");
    const std::size_t colon = device.find(':');
    const std::string digits = colon != std::string::npos ? device.substr(colon + 1) : name.substr(2);
    std::uint16_t minor = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, minor);
    return result.ec == std::errc() && result.ptr == end ? std::optional<std::uint16_t>(minor) : std::nullopt;
}

SeenArray probeArray(const std::string& name, const SysfsFolder& folder, std::vector<SeenDisk>& disks)
{
    const SysfsFolder md = folder.below("md");
    const Level& level = levelOf(md.text("level").value_or(""));
    const std::uint64_t raidDisks = md.number("raid_disks").value_or(0);
    const std::uint64_t componentKB = md.number("component_size").value_or(0);

    std::uint64_t faulty = 0;
    for (const std::string& entry : md.entries()) {
        if (!startsWith(entry, "dev-"))
            continue;
        const std::uint8_t status = memberStatus(md.below(entry));
        faulty += status == MV_DISK_BAD ? 1 : 0;
        const Member member = findMember(md.below(entry), entry.substr(4), disks);
        if (member.disk != nullptr) {
            raiseStatus(member.disk->device, status);
            member.disk->usedKB += member.wholeDisk ? componentKB : 0;
        }
    }

    SeenArray seen;
    seen.name = name;
    seen.minor = minorOf(name, folder);
    seen.progress = progressOf(md);
    _LD_Info& info = seen.device.info;
    putText(info.LDName, name);
    info.RaidMode = level.raidMode;
    info.LDStatus = statusOf(md, level, raidDisks, faulty);
    info.StripeSize = static_cast<std::uint16_t>(
        std::min<std::uint64_t>(md.number("chunk_size").value_or(0) / 1024, 0xffff));
    info.CacheFlags = MV_CACHE_NONE;
    const auto sectors = folder.number("size");
    info.SizeKB =
        sectors.value_or(0) != 0 ? *sectors / SECTORS_PER_KB : componentKB * level.dataDisks(raidDisks);
    return seen;
}

} // namespace

std::vector<SeenArray> probeArrays(const SysfsFolder& root, std::vector<SeenDisk>& disks)
{
    std::vector<SeenArray> arrays;
    const SysfsFolder block = root.below("block");
    for (const std::string& name : block.entries()) {
        const SysfsFolder folder = block.below(name);
        if (!startsWith(name, "md") || !folder.below("md").exists())
            continue;
        // A stopped array leaves its device behind, and a container is only the home of other arrays.
        const bool stopped = folder.text("md/array_state").value_or("clear") == "clear";
        const bool container = !folder.text("md/level") && folder.number("md/raid_disks").value_or(0) == 0;
        if (!stopped && !container)
            arrays.push_back(probeArray(name, folder, disks));
    }
    for (SeenDisk& disk : disks) {
        const std::uint64_t size = disk.device.info.SizeKB;
        disk.device.freeSpace.Answer.FreeSizeKB = size - std::min(size, disk.usedKB);
    }
    return arrays;
}

} // namespace mvsim
