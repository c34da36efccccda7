// An md array as sysfs shows it, before anybody judges what it means. Texts are empty, and numbers nothing,
// where the kernel tells none.
#ifndef ZARNEK_DEVKIT_MVSIM_MDARRAY_H
#define ZARNEK_DEVKIT_MVSIM_MDARRAY_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mvsim
{

struct MdMember {
    std::string name;                  // as the array calls it, such as "sda1"
    std::string device;                // the block device that it links to
    std::string holder;                // the folder that this lies in: of a partition, its disk
    std::string state;                 // words with commas between
    std::optional<std::uint64_t> slot; // its place in the array
    std::optional<std::uint64_t> sizeKB;
};

struct MdArray {
    std::string name;         // such as "md127"
    std::string deviceNumber; // such as "9:127"
    std::string level;
    std::string metadata; // its format, or where it is kept instead
    std::string state;
    std::string action;    // what is being done about its redundancy
    std::string completed; // how far that is, such as "1200 / 4800"
    std::optional<std::uint64_t> degraded;
    std::optional<std::uint64_t> raidDisks;
    std::optional<std::uint64_t> layout;
    std::optional<std::uint64_t> componentKB; // of each member; 0 where they may differ
    std::optional<std::uint64_t> chunkBytes;
    std::optional<std::uint64_t> sizeKB;
    std::vector<MdMember> members;
};

} // namespace mvsim

#endif
