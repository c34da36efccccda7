#include "mvsim/live/ArrayLevel.h"

#include "common/words.h"
#include <mv.h>

#include <algorithm>
#include <numeric>
#include <set>

namespace mvsim
{

namespace
{

constexpr std::uint64_t NEAR_TWO = 0x102; // the layout that the kernel itself prefers

std::uint64_t width(const MdArray& array)
{
    return array.raidDisks.value_or(0);
}

// How many copies lie beside each other in a stripe; the lowest byte of a layout.
std::uint64_t nearCopies(const MdArray& array)
{
    return std::max<std::uint64_t>(array.layout.value_or(NEAR_TWO) & 0xff, 1);
}

std::uint64_t one(const MdArray&)
{
    return 1;
}

std::uint64_t allAlike(const MdArray& array)
{
    return std::max<std::uint64_t>(width(array), 1);
}

// Near copies times far ones. Each far copy is shifted by as many members as there are near ones, wherever on
// the disk it is placed.
std::uint64_t byLayout(const MdArray& array)
{
    const std::uint64_t farCopies = array.layout.value_or(NEAR_TWO) >> 8 & 0xff;
    return nearCopies(array) * std::max<std::uint64_t>(farCopies, 1);
}

struct Level {
    const char* name;
    std::uint8_t raidMode;
    std::uint64_t parity; // so many members' worth of space
    std::uint64_t (*copies)(const MdArray& array);
};

constexpr Level LEVELS[] = {
    {"raid0", MV_RAID_0, 0, one},
    {"raid1", MV_RAID_1, 0, allAlike},
    {"raid4", MV_RAID_5, 1, one},
    {"raid5", MV_RAID_5, 1, one},
    {"raid6", MV_RAID_6, 2, one},
    {"raid10", MV_RAID_10, 0, byLayout},
    {"multipath", MV_RAID_NONE, 0, allAlike},
    {"", MV_RAID_NONE, 0, one}, // linear and whatever else: no redundancy
};

const Level& levelOf(const MdArray& array)
{
    // Without its module a level has a number only.
    return *std::find_if(std::begin(LEVELS), std::end(LEVELS) - 1, [&array](const Level& level) {
        return array.level == level.name || "raid" + array.level == level.name;
    });
}

// Whether a member has its share of the data; one whose state cannot be read is not held to be missing.
bool serves(const MdMember& member)
{
    const auto is = [&member](const char* word) { return devkit::hasWord(member.state, word); };
    return (member.state.empty() || is("in_sync")) && !is("faulty") && !is("journal") && !is("replacement");
}

} // namespace

std::uint8_t raidModeOf(const MdArray& array)
{
    return levelOf(array).raidMode;
}

std::uint64_t dataKB(const MdArray& array)
{
    const Level& level = levelOf(array);
    const std::uint64_t component = array.componentKB.value_or(0);
    if (component != 0)
        return component * (width(array) - std::min(level.parity, width(array))) / level.copies(array);
    return std::accumulate(array.members.begin(), array.members.end(), std::uint64_t{0},
                           [](std::uint64_t sum, const MdMember& member) {
                               return sum + (member.slot ? member.sizeKB.value_or(0) : 0);
                           });
}

std::uint64_t missingMembers(const MdArray& array)
{
    const auto serving =
        static_cast<std::uint64_t>(std::count_if(array.members.begin(), array.members.end(), serves));
    const std::uint64_t absent = width(array) - std::min(width(array), serving);
    return array.degraded.value_or(array.members.empty() ? 0 : absent);
}

bool losesData(const MdArray& array, std::uint64_t missing)
{
    const std::uint64_t disks = width(array);
    if (disks == 0 || missing == 0)
        return false;
    const Level& level = levelOf(array);
    const std::uint64_t copies = level.copies(array);
    std::set<std::uint64_t> served;
    for (const MdMember& member : array.members)
        if (member.slot && serves(member))
            served.insert(*member.slot);
    if (level.parity != 0 || copies >= disks || served.size() + missing != disks) {
        const std::uint64_t everyCopyOnce = (disks + copies - 1) / copies;
        return missing > level.parity + disks - everyCopyOnce;
    }
    // The copies of a stripe lie on neighbours, the last member being the first one's neighbour. Stripes
    // begin wherever the near copies of the ones ahead can end.
    const std::uint64_t step = std::gcd(std::gcd(nearCopies(array), copies), disks);
    for (std::uint64_t start = 0; start < disks; start += step) {
        std::uint64_t lost = 0;
        while (lost < copies && served.count((start + lost) % disks) == 0)
            ++lost;
        if (lost == copies)
            return true;
    }
    return false;
}

} // namespace mvsim
