// Reads the machine's md arrays from sysfs.
#ifndef ZARNEK_DEVKIT_MVSIM_ARRAYPROBE_H
#define ZARNEK_DEVKIT_MVSIM_ARRAYPROBE_H

#include "mvsim/live/MdArray.h"
#include "mvsim/live/SysfsFolder.h"

namespace mvsim
{

// All md devices below `root`, also those that are no array at the moment.
std::vector<MdArray> probeArrays(const SysfsFolder& root);

} // namespace mvsim

#endif
