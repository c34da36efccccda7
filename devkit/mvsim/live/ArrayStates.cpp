#include "mvsim/live/ArrayStates.h"

#include "common/words.h"
#include "mvsim/live/ArrayLevel.h"
#include <mv.h>

#include <algorithm>

namespace mvsim
{

namespace
{

bool always(const MdMember&, const MdArray&)
{
    return true;
}

bool ofContainer(const MdMember&, const MdArray& array)
{
    return isContainer(array);
}

bool ofUnstarted(const MdMember&, const MdArray& array)
{
    return array.state == "inactive";
}

bool hasPlace(const MdMember& member, const MdArray&)
{
    return member.slot.has_value();
}

// What a member is: the first row that fits. Where no word stands, all words fit.
struct Role {
    const char* word;
    bool (*fits)(const MdMember& member, const MdArray& array);
    std::uint8_t status;
};

constexpr Role ROLES[] = {
    {"faulty", always, MV_DISK_BAD},
    {"", ofContainer, MV_DISK_SPARE}, // if it is in an array inside as well, that weighs more
    {"journal", always, MV_DISK_IN_ARRAY},
    {"in_sync", always, MV_DISK_IN_ARRAY},
    {"", hasPlace, MV_DISK_IN_ARRAY},    // being rebuilt, although still called a spare
    {"", ofUnstarted, MV_DISK_IN_ARRAY}, // calls all its members spares
    {"", always, MV_DISK_SPARE},
};

enum class Redundancy { Whole, Reduced, Lost };

// What an array is like: the first row that fits. Where nothing stands, everything fits. A planned exchange
// of a disk is a recovery with nothing missing, and as good as a whole array; so is one that gets another
// shape.
struct Condition {
    const char* state;
    std::optional<Redundancy> redundancy;
    const char* action;
    std::uint8_t status;
};

constexpr Condition CONDITIONS[] = {
    {"inactive", {}, "", MV_DRIVE_FAILED}, // could not start
    {"broken", {}, "", MV_DRIVE_FAILED},
    {"", Redundancy::Lost, "", MV_DRIVE_FAILED},
    {"", Redundancy::Reduced, "recover", MV_DRIVE_REBUILDING},
    {"", Redundancy::Reduced, "", MV_DRIVE_DEGRADED},
    {"", {}, "resync", MV_DRIVE_INITIALISING},
    {"", {}, "check", MV_DRIVE_CHECKING},
    {"", {}, "repair", MV_DRIVE_CHECKING},
    {"", {}, "", MV_DRIVE_OPTIMAL},
};

} // namespace

bool isContainer(const MdArray& array)
{
    constexpr std::string_view EXTERNAL = "external:";
    const std::string_view metadata = array.metadata;
    const bool external = devkit::startsWith(metadata, EXTERNAL);
    const std::string_view where = metadata.substr(external ? EXTERNAL.size() : 0);
    return array.level == "container" ||
           (external && !devkit::startsWith(where, "/") && !devkit::startsWith(where, "-"));
}

std::uint8_t statusOf(const MdMember& member, const MdArray& array)
{
    return std::find_if(std::begin(ROLES), std::end(ROLES),
                        [&](const Role& role) {
                            const std::string_view word = role.word;
                            return (word.empty() || devkit::hasWord(member.state, word)) &&
                                   role.fits(member, array);
                        })
        ->status;
}

std::uint8_t statusOf(const MdArray& array, std::uint64_t missing)
{
    const Redundancy redundancy = losesData(array, missing) ? Redundancy::Lost
                                  : missing != 0            ? Redundancy::Reduced
                                                            : Redundancy::Whole;
    const auto fits = [](std::string_view wanted, const std::string& found) {
        return wanted.empty() || wanted == found;
    };
    return std::find_if(std::begin(CONDITIONS), std::end(CONDITIONS),
                        [&](const Condition& row) {
                            return fits(row.state, array.state) && fits(row.action, array.action) &&
                                   row.redundancy.value_or(redundancy) == redundancy;
                        })
        ->status;
}

} // namespace mvsim
