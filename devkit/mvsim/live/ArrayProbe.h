// Finds the machine's md arrays in sysfs, and what they make of its disks.
#ifndef ZARNEK_DEVKIT_MVSIM_ARRAYPROBE_H
#define ZARNEK_DEVKIT_MVSIM_ARRAYPROBE_H

#include "mvsim/live/SeenMachine.h"
#include "mvsim/live/SysfsFolder.h"

namespace mvsim
{

// All arrays below `root`. `disks` get the RAID status that their part in arrays gives them, and their free
// space.
std::vector<SeenArray> probeArrays(const SysfsFolder& root, std::vector<SeenDisk>& disks);

} // namespace mvsim

#endif
