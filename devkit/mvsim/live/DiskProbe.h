// Finds the machine's whole disks in sysfs.
#ifndef ZARNEK_DEVKIT_MVSIM_DISKPROBE_H
#define ZARNEK_DEVKIT_MVSIM_DISKPROBE_H

#include "mvsim/live/SeenMachine.h"
#include "mvsim/live/SysfsFolder.h"

namespace mvsim
{

// All disks below `root` (such as /sys), taken to be in no array. Those that nothing reaches are bad already.
// Disks may bear the same identity.
std::vector<SeenDisk> probeDisks(const SysfsFolder& root);

} // namespace mvsim

#endif
