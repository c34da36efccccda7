// What one look at the live machine found.
#ifndef ZARNEK_DEVKIT_MVSIM_SEENMACHINE_H
#define ZARNEK_DEVKIT_MVSIM_SEENMACHINE_H

#include "mvsim/model/StorageModel.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mvsim
{

struct SeenDisk {
    std::string name;         // of the block device, such as "sda"
    std::string identity;     // stays with the disk when it gets another name
    std::uint64_t usedKB = 0; // by partitions and arrays
    Disk device;              // id and slot are not known yet
};

struct SeenArray {
    std::string name;                     // such as "md127"
    std::optional<std::uint16_t> minor;   // of its device number
    std::optional<unsigned int> progress; // of a rebuild or check, in percent
    std::uint64_t missing = 0;            // members that are not there or not in sync
    bool reshaping = false;
    VirtualDisk device; // id and logical drive number are not known yet
};

struct SeenMachine {
    std::vector<SeenDisk> disks;
    std::vector<SeenArray> arrays;
};

} // namespace mvsim

#endif
